/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef VIEW_H
#define VIEW_H


#include <vector>

#include <Font.h>
#include <Handler.h>
#include <InterfaceDefs.h>
#include <Rect.h>


class BBitmap;
class BGradient;
class BLayout;
class BLayoutItem;
class BMessage;
class BRegion;
class BString;
class BToolTip;
class BWindow;
class ViewPeer;
struct escapement_delta;

// How a view wants to be treated. Those about drawing change nothing here: the toolkit decides what
// is drawn again.
const uint32 B_FULL_UPDATE_ON_RESIZE = 0x80000000;
const uint32 B_WILL_DRAW = 0x20000000;
const uint32 B_PULSE_NEEDED = 0x10000000;
const uint32 B_FRAME_EVENTS = 0x04000000;
const uint32 B_NAVIGABLE = 0x02000000;


/*!	An area of a window that draws and is used. A view owns its children; places are in pixels from
	its left top corner.
	Views are created and used on the main thread. What is drawn outside of Draw() is not seen,
	metrics are always true.
*/
class BView : public BHandler {
public:
	BView(const char* name, uint32 flags, BLayout* layout = NULL);
	BView(BRect frame, const char* name, uint32 resizingMode, uint32 flags) = delete;
	~BView() override;

	virtual void AttachedToWindow();
	void MessageReceived(BMessage* message) override;

	void AddChild(BView* child, BView* before = NULL);
	bool AddChild(BLayoutItem* child) = delete;
	int32 CountChildren() const;
	BView* ChildAt(int32 index) const;
	BView* FindView(const char* name) const;
	BWindow* Window() const { return fWindow; }

	BRect Bounds() const;
	BRect Frame() const;
	virtual void FrameResized(float newWidth, float newHeight);

	virtual void Draw(BRect updateRect);

	virtual void MakeFocus(bool focus = true);
	bool IsFocus() const;
	uint32 Flags() const { return fFlags; }
	void SetToolTip(const char* text);
	void SetToolTip(BToolTip* tip) = delete;
	BToolTip* ToolTip() const { return fToolTip; }

	virtual void SetDrawingMode(drawing_mode mode);
	void SetBlendingMode(source_alpha sourceAlpha, alpha_function alphaFunction);
	virtual void SetViewColor(rgb_color color);
	void SetViewColor(uint8 red, uint8 green, uint8 blue, uint8 alpha = 255) = delete;
	rgb_color ViewColor() const;
	void SetViewUIColor(color_which which, float tint = B_NO_TINT);
	virtual void SetHighColor(rgb_color color);
	void SetHighColor(uint8 red, uint8 green, uint8 blue, uint8 alpha = 255);
	rgb_color HighColor() const;
	void SetHighUIColor(color_which which, float tint = B_NO_TINT);
	virtual void SetLowColor(rgb_color color);
	void SetLowColor(uint8 red, uint8 green, uint8 blue, uint8 alpha = 255) = delete;
	void SetLowUIColor(color_which which, float tint = B_NO_TINT);

	virtual void SetFont(const BFont* font, uint32 mask = B_FONT_ALL);
	void GetFont(BFont* _font) const;
	void GetFontHeight(font_height* _height) const;
	float StringWidth(const char* string) const;
	float StringWidth(const char* string, int32 length) const = delete;
	void TruncateString(BString* inOut, uint32 mode, float width) const;

	void DrawString(const char* string, escapement_delta* delta = NULL) = delete;
	void DrawString(const char* string, BPoint location, escapement_delta* delta = NULL);
	void DrawString(const char* string, int32 length, escapement_delta* delta = NULL) = delete;
	void DrawString(const char* string, int32 length, BPoint location,
		escapement_delta* delta = NULL)
		= delete;
	void DrawString(const char* string, const BPoint* locations, int32 count) = delete;
	void DrawString(const char* string, int32 length, const BPoint* locations, int32 count)
		= delete;
	void StrokeLine(BPoint toPoint, ::pattern pattern = B_SOLID_HIGH) = delete;
	void StrokeLine(BPoint toPoint, const BGradient& gradient) = delete;
	void StrokeLine(BPoint start, BPoint end, const BGradient& gradient) = delete;
	void StrokeLine(BPoint start, BPoint end, ::pattern pattern = B_SOLID_HIGH);
	void StrokeRect(BRect rect, ::pattern pattern = B_SOLID_HIGH);
	void StrokeRect(BRect rect, const BGradient& gradient) = delete;
	void FillRect(BRect rect, const BGradient& gradient) = delete;
	void FillRect(BRect rect, ::pattern pattern = B_SOLID_HIGH);
	void StrokeEllipse(BPoint center, float xRadius, float yRadius,
		::pattern pattern = B_SOLID_HIGH)
		= delete;
	void StrokeEllipse(BPoint center, float xRadius, float yRadius, const BGradient& gradient)
		= delete;
	void StrokeEllipse(BRect rect, const BGradient& gradient) = delete;
	void StrokeEllipse(BRect rect, ::pattern pattern = B_SOLID_HIGH);
	void FillEllipse(BPoint center, float xRadius, float yRadius, ::pattern pattern = B_SOLID_HIGH)
		= delete;
	void FillEllipse(BPoint center, float xRadius, float yRadius, const BGradient& gradient)
		= delete;
	void FillEllipse(BRect rect, const BGradient& gradient) = delete;
	void FillEllipse(BRect rect, ::pattern pattern = B_SOLID_HIGH);
	void DrawBitmap(const BBitmap* bitmap) = delete;
	void DrawBitmap(const BBitmap* bitmap, BPoint where);
	void DrawBitmap(const BBitmap* bitmap, BRect bitmapRect, BRect viewRect) = delete;
	void DrawBitmap(const BBitmap* bitmap, BRect bitmapRect, BRect viewRect, uint32 options)
		= delete;
	void DrawBitmap(const BBitmap* bitmap, BRect viewRect);
	void Invalidate();
	void Invalidate(BRect rect) = delete;
	void Invalidate(const BRegion* region) = delete;

	virtual BSize MinSize();
	virtual BSize MaxSize();
	virtual BSize PreferredSize();
	void SetExplicitMinSize(BSize size);
	void SetExplicitMaxSize(BSize size);
	BSize ExplicitMinSize() const { return fExplicitMinSize; }
	BSize ExplicitMaxSize() const { return fExplicitMaxSize; }
	virtual void SetLayout(BLayout* layout);
	void InvalidateLayout(bool descendants = false);

protected:
	virtual bool GetToolTipAt(BPoint point, BToolTip** _tip);

	// For the kits' own views, which bring what stands for them in the toolkit. The view owns it.
	BView(ViewPeer* peer, const char* name, uint32 flags);

private:
	friend class BWindow;
	friend class ViewPeer;

	void _AttachTo(BWindow* window);
	void _Detach();

	ViewPeer* fPeer;
	BWindow* fWindow;
	BView* fParent;
	std::vector<BView*> fChildren;
	uint32 fFlags;
	BLayout* fLayout;
	BToolTip* fToolTip;
	BSize fExplicitMinSize;
	BSize fExplicitMaxSize;
};


#endif // VIEW_H
