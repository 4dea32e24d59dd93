/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "BannerDecoding.h"

#include <utility>

#include <Autolock.h>
#include <Bitmap.h>
#include <DataIO.h>
#include <Message.h>
#include <OS.h>
#include <TranslationUtils.h>

#include "AppMessages.h"
#include "ConnectionMark.h"
#include "Delivery.h"


/*!	\param data Is copied.
	\param target Is told by a kMsgBannerDecoded, on behalf of the connection of that number.
*/
BannerDecoding::BannerDecoding(const void* data, size_t size, const BMessenger& target,
	uint32 connection)
	: fBytes(static_cast<const char*>(data), static_cast<const char*>(data) + size),
	  fTarget(target),
	  fConnection(connection),
	  fLock("banner picture"),
	  fIsDone(false)
{
}


BannerDecoding::~BannerDecoding() = default;


/*!	\return \c false if there is no thread. */
bool
BannerDecoding::Start(const std::shared_ptr<BannerDecoding>& decoding)
{
	auto shared = std::make_unique<std::shared_ptr<BannerDecoding>>(decoding);
	const thread_id thread = spawn_thread(_Entry, "HL:BannerPicture", B_LOW_PRIORITY, shared.get());
	if (thread < 0)
		return false;

	// Its share is the thread's from here on.
	static_cast<void>(shared.release());
	resume_thread(thread);
	return true;
}


bool
BannerDecoding::IsDone()
{
	const BAutolock locker(fLock);
	return fIsDone;
}


/*!	\return Nothing when the file was no picture, or before it is known. */
std::unique_ptr<BBitmap>
BannerDecoding::TakeBitmap()
{
	const BAutolock locker(fLock);
	return std::move(fBitmap);
}


status_t
BannerDecoding::_Entry(void* data)
{
	const std::unique_ptr<std::shared_ptr<BannerDecoding>> shared(
		static_cast<std::shared_ptr<BannerDecoding>*>(data));
	(*shared)->_Run();
	return B_OK;
}


/*!	In the thread: nobody else looks at the bytes. */
void
BannerDecoding::_Run()
{
	BMemoryIO stream(static_cast<const void*>(fBytes.data()), fBytes.size());
	std::unique_ptr<BBitmap> bitmap(BTranslationUtils::GetBitmap(&stream));
	if (bitmap != NULL && !bitmap->IsValid())
		bitmap.reset();
	{
		const BAutolock locker(fLock);
		fBitmap = std::move(bitmap);
		fIsDone = true;
	}

	BMessage message(kMsgBannerDecoded);
	AddConnection(&message, fConnection);
	while (!Deliver(fTarget, &message))
		continue;
}
