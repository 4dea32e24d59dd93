/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef SERVER_BANNER_H
#define SERVER_BANNER_H


#include <memory>

#include <SupportDefs.h>


class BannerView;
class BBitmap;
class BLooper;
class BMessage;


/*!	The server's banner: fetches it in a thread, which posts it to the target, and shows it. Lives
	in the main window's thread; borrows the target. The view is the window's once it has been
	added.
*/
class ServerBanner {
public:
	explicit ServerBanner(BLooper* target);

	BannerView* View() const { return fBannerView; }

	void Fetch(const BMessage* grant, uint32 connection);
	void Show(const BMessage* picture, bool isConnected);
	void Clear();

private:
	void _SetBitmap(std::unique_ptr<BBitmap> bitmap);

	BLooper* fTarget;
	BannerView* fBannerView;
};


#endif // SERVER_BANNER_H
