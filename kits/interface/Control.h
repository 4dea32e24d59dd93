/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef CONTROL_H
#define CONTROL_H


#include <Invoker.h>
#include <String.h>
#include <View.h>


class BBitmap;


enum { B_CONTROL_OFF = 0, B_CONTROL_ON = 1 };


/*!	A view that the user operates, which sends its message then: to its window unless it was given another target.
	The message leaves with "when" (int64, microseconds), "source" (pointer to the control) and "be:value" (int32).
*/
class BControl : public BView, public BInvoker {
public:
	BControl(const char* name, const char* label, BMessage* message, uint32 flags);
	~BControl() override;

	void AttachedToWindow() override;

	virtual void SetLabel(const char* label);
	const char* Label() const { return fLabel.String(); }
	virtual void SetValue(int32 value);
	int32 Value() const { return fValue; }
	virtual void SetEnabled(bool enabled);
	bool IsEnabled() const { return fEnabled; }

	status_t Invoke(BMessage* message = NULL) override;

protected:
	// For the kits' own controls; see BView.
	BControl(ViewPeer* peer, const char* name, const char* label, BMessage* message, uint32 flags);

	virtual status_t SetIcon(const BBitmap* bitmap, uint32 flags = 0);

private:
	BString fLabel;
	int32 fValue;
	bool fEnabled;
};


#endif // CONTROL_H
