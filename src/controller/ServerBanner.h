/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef SERVER_BANNER_H
#define SERVER_BANNER_H


#include <memory>

#include <SupportDefs.h>


class BannerDecoding;
class BannerView;
class BBitmap;
class BLooper;
class BMessage;


/*!	The server's banner: one thread fetches it, another one decodes it, both of which post to the
	target, and then it is shown. A connection has one of them at a time; of the banners that are
	granted meanwhile the latest is next. Lives in the main window's thread; borrows the target. The
	view is the window's once it has been added.
*/
class ServerBanner {
public:
	explicit ServerBanner(BLooper* target);
	~ServerBanner();

	BannerView* View() const { return fBannerView; }

	void Fetch(const BMessage* grant, uint32 connection);
	void Decode(const BMessage* picture, bool isConnected);
	void HandleFetched(const BMessage* notice);
	void HandleDecoded();
	void Clear();

private:
	void _StartNext();
	bool _Fits(const BBitmap& bitmap) const;
	void _SetBitmap(std::unique_ptr<BBitmap> bitmap);

	BLooper* fTarget;
	BannerView* fBannerView;

	// The connection that the following belong to; threads of a former one are left to themselves.
	uint32 fConnection;
	bool fIsFetching;
	std::shared_ptr<BannerDecoding> fDecoding;
	// The latest kHLBannerReady that came in between.
	std::unique_ptr<BMessage> fNextGrant;
};


#endif // SERVER_BANNER_H
