/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ServerBanner.h"

#include <utility>

#include <Bitmap.h>
#include <DataIO.h>
#include <Message.h>
#include <TranslationUtils.h>
#include <Window.h>

#include "BannerView.h"
#include "ConnectionMark.h"
#include "GrantedTransfer.h"


// A larger banner is refused before it is fetched, in bytes.
static const uint32 kMaxBannerSize = 512 * 1024;


ServerBanner::ServerBanner(BLooper* target)
	: fTarget(target),
	  fBannerView(new BannerView())
{
	fBannerView->SetExplicitMaxSize(BSize(B_SIZE_UNLIMITED, 0));
}


/*!	\param grant A kHLBannerReady. Without a thread the banner is done without.
	\param connection The number of the connection that it belongs to.
*/
void
ServerBanner::Fetch(const BMessage* grant, uint32 connection)
{
	GrantedTransfer<BannerDLInfo> transfer(grant, fTarget);
	transfer->size = grant->GetUInt32("size", 0);
	if (transfer->ref == 0 || transfer->size == 0 || transfer->size > kMaxBannerSize)
		return;
	transfer->connection = connection;
	static_cast<void>(transfer.Start(BannerThread, "HL:BannerDL", B_LOW_PRIORITY));
}


/*!	Shows the picture, whatever format it has; bytes that are none change nothing.
	\param picture A kMsgBannerData.
	\param isConnected The banner of a connection that has been lost is not shown again.
*/
void
ServerBanner::Show(const BMessage* picture, bool isConnected)
{
	if (ConnectionOf(picture) != 0 && !isConnected)
		return;
	const void* data;
	ssize_t size;
	if (picture->FindData("data", B_RAW_TYPE, &data, &size) != B_OK)
		return;

	BMemoryIO stream(data, static_cast<size_t>(size));
	std::unique_ptr<BBitmap> bitmap(BTranslationUtils::GetBitmap(&stream));
	if (bitmap != NULL && bitmap->IsValid())
		_SetBitmap(std::move(bitmap));
}


void
ServerBanner::Clear()
{
	_SetBitmap(NULL);
}


/*!	The window grows and shrinks by the height of the banner. */
void
ServerBanner::_SetBitmap(std::unique_ptr<BBitmap> bitmap)
{
	fBannerView->SetBitmap(bitmap.release());
	fBannerView->SetExplicitMaxSize(BSize(B_SIZE_UNLIMITED, fBannerView->MinSize().height));
	fBannerView->Window()->InvalidateLayout();
}
