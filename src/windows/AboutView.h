/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef ABOUT_VIEW_H
#define ABOUT_VIEW_H


#include <memory>

#include <View.h>


class BBitmap;


/*!	The still part of the about window: the logo, the name and a few lines of text. */
class AboutView : public BView {
public:
	explicit AboutView(const char* appFolder);
	~AboutView() override;

	void Draw(BRect updateRect) override;
	BSize MinSize() override;
	BSize PreferredSize() override;

private:
	float _DrawLogo(float y);
	void _DrawRule(float y);
	void _DrawCentered(const char* text, float y);

	// None where the file is missing; the text moves up then.
	std::unique_ptr<BBitmap> fLogo;
};


#endif // ABOUT_VIEW_H
