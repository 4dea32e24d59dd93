/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef BUTTON_H
#define BUTTON_H


#include <Control.h>


class BBitmap;
class ButtonPeer;


/*!	A button with a label, a picture or both. A window's default button is pressed with Return. */
class BButton : public BControl {
public:
	BButton(const char* name, const char* label, BMessage* message,
		uint32 flags = B_WILL_DRAW | B_NAVIGABLE | B_FULL_UPDATE_ON_RESIZE);
	BButton(const char* label, BMessage* message = NULL) = delete;
	BButton(BRect frame, const char* name, const char* label, BMessage* message,
		uint32 resizingMode = 0, uint32 flags = 0)
		= delete;

	void AttachedToWindow() override;
	virtual status_t SetIcon(const BBitmap* icon, uint32 flags = 0);

	virtual void MakeDefault(bool flag);
	bool IsDefault() const;

private:
	ButtonPeer* fButtonPeer;
};


#endif // BUTTON_H
