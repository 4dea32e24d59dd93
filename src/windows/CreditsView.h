/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef CREDITS_VIEW_H
#define CREDITS_VIEW_H


#include <memory>

#include <View.h>


class BMessageRunner;


/*!	A list of lines that rolls upwards, and starts again from below when it has left. */
class CreditsView : public BView {
public:
	CreditsView();
	~CreditsView() override;

	void AttachedToWindow() override;
	void MessageReceived(BMessage* message) override;
	void Draw(BRect updateRect) override;
	BSize MinSize() override;
	BSize MaxSize() override;
	BSize PreferredSize() override;

private:
	void _Scroll();

	// In pixels: how far the roll has moved up, and how high a line and all of them are.
	float fScrollOffset;
	float fLineHeight;
	float fTotalHeight;
	std::unique_ptr<BMessageRunner> fRunner;
};


#endif // CREDITS_VIEW_H
