/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef BANNER_VIEW_H
#define BANNER_VIEW_H


#include <memory>

#include <View.h>


class BBitmap;


/*!	Shows the server's banner at its own size, centered; takes no height while there is none.
	Lives in the main window's thread and owns the picture.
*/
class BannerView : public BView {
public:
	BannerView();
	~BannerView() override;

	void Draw(BRect updateRect) override;
	BSize MinSize() override;
	BSize MaxSize() override;
	BSize PreferredSize() override;

	void SetBitmap(BBitmap* bitmap);

private:
	std::unique_ptr<BBitmap> fBitmap;
};


#endif // BANNER_VIEW_H
