/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ServerBanner.h"

#include <utility>

#include <Bitmap.h>
#include <Message.h>
#include <Screen.h>
#include <Window.h>

#include "AppMessages.h"
#include "BannerDecoding.h"
#include "BannerView.h"
#include "ConnectionMark.h"
#include "Delivery.h"
#include "GrantedTransfer.h"


// A larger banner is refused before it is fetched, in bytes.
static const uint32 kMaxBannerSize = 512 * 1024;
// What a window has around it at its top and its bottom, in pixels: a title, borders.
static const float kDecorationHeight = 48;


static bool
may_be_fetched(const BMessage* grant)
{
	const uint32 size = grant->GetUInt32("size", 0);
	return grant->GetUInt32("ref", 0) != 0 && size > 0 && size <= kMaxBannerSize;
}


/*!	Entry of "HL:BannerDL": a fetch that fails says nothing by itself.
	\param data A BannerDLInfo, owned by this thread.
*/
static status_t
fetch_banner(void* data)
{
	const BannerDLInfo* info = static_cast<const BannerDLInfo*>(data);
	const BMessenger target = info->target;
	BMessage notice(kMsgBannerFetched);
	AddConnection(&notice, info->connection);

	const status_t status = BannerThread(data);
	while (!Deliver(target, &notice))
		continue;
	return status;
}


ServerBanner::ServerBanner(BLooper* target)
	: fTarget(target),
	  fBannerView(new BannerView()),
	  fConnection(0),
	  fIsFetching(false)
{
	fBannerView->SetExplicitMaxSize(BSize(B_SIZE_UNLIMITED, 0));
}


ServerBanner::~ServerBanner() = default;


/*!	\param grant A kHLBannerReady. Without a thread the banner is done without.
	\param connection The number of the connection that it belongs to.
*/
void
ServerBanner::Fetch(const BMessage* grant, uint32 connection)
{
	if (!may_be_fetched(grant))
		return;
	if (connection != fConnection) {
		fConnection = connection;
		fIsFetching = false;
		fDecoding.reset();
	}
	fNextGrant = std::make_unique<BMessage>(*grant);
	_StartNext();
}


/*!	Bytes without a thread are no picture.
	\param picture A kMsgBannerData: a picture file of whatever format.
	\param isConnected The banner of a connection that has been lost is not shown again.
*/
void
ServerBanner::Decode(const BMessage* picture, bool isConnected)
{
	const uint32 connection = ConnectionOf(picture);
	if (connection != 0 && !isConnected)
		return;
	const void* data;
	ssize_t size;
	if (picture->FindData("data", B_RAW_TYPE, &data, &size) != B_OK)
		return;

	fDecoding = std::make_shared<BannerDecoding>(data, static_cast<size_t>(size),
		BMessenger(fTarget), connection);
	if (!BannerDecoding::Start(fDecoding))
		fDecoding.reset();
}


/*!	\param notice A kMsgBannerFetched. What was fetched has come before it. */
void
ServerBanner::HandleFetched(const BMessage* notice)
{
	if (ConnectionOf(notice) != fConnection)
		return;
	fIsFetching = false;
	_StartNext();
}


/*!	Shows the picture; bytes that are none, and one that is too large, change nothing. */
void
ServerBanner::HandleDecoded()
{
	if (fDecoding == NULL || !fDecoding->IsDone())
		return;
	std::unique_ptr<BBitmap> bitmap = fDecoding->TakeBitmap();
	fDecoding.reset();
	if (bitmap != NULL && _Fits(*bitmap))
		_SetBitmap(std::move(bitmap));
	_StartNext();
}


/*!	Also forgets what is to be decoded or fetched. A thread that fetches ends by itself. */
void
ServerBanner::Clear()
{
	fDecoding.reset();
	fNextGrant.reset();
	_SetBitmap(NULL);
}


void
ServerBanner::_StartNext()
{
	if (fIsFetching || fDecoding != NULL || fNextGrant == NULL)
		return;
	const std::unique_ptr<BMessage> grant = std::move(fNextGrant);

	GrantedTransfer<BannerDLInfo> transfer(grant.get(), fTarget);
	transfer->size = grant->GetUInt32("size", 0);
	transfer->connection = fConnection;
	fIsFetching = transfer.Start(fetch_banner, "HL:BannerDL", B_LOW_PRIORITY);
}


/*!	\return Whether the screen has room for the window with this picture and all else that it shows. */
bool
ServerBanner::_Fits(const BBitmap& bitmap) const
{
	BWindow* window = fBannerView->Window();
	// The limits follow the picture that there is now.
	window->Layout(false);
	float minWidth, maxWidth, minHeight, maxHeight;
	window->GetSizeLimits(&minWidth, &maxWidth, &minHeight, &maxHeight);
	const float others = minHeight - fBannerView->MinSize().height + kDecorationHeight;

	const BRect screen = BScreen(window).Frame();
	const BRect bounds = bitmap.Bounds();
	return bounds.Width() <= screen.Width() && others + bounds.Height() <= screen.Height();
}


/*!	The window grows and shrinks by the height of the banner. */
void
ServerBanner::_SetBitmap(std::unique_ptr<BBitmap> bitmap)
{
	fBannerView->SetBitmap(bitmap.release());
	fBannerView->SetExplicitMaxSize(BSize(B_SIZE_UNLIMITED, fBannerView->MinSize().height));
	fBannerView->Window()->InvalidateLayout();
}
