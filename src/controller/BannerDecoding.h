/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef BANNER_DECODING_H
#define BANNER_DECODING_H


#include <memory>
#include <vector>

#include <Locker.h>
#include <Messenger.h>


class BBitmap;


/*!	A banner's file, and the picture that a thread makes of it. Shared by that thread and by whoever
	waits for the picture: the last one that lets go deletes it, with a picture that nobody wanted.
*/
class BannerDecoding {
public:
	BannerDecoding(const void* data, size_t size, const BMessenger& target, uint32 connection);
	~BannerDecoding();

	[[nodiscard]] static bool Start(const std::shared_ptr<BannerDecoding>& decoding);

	bool IsDone();
	std::unique_ptr<BBitmap> TakeBitmap();

private:
	static status_t _Entry(void* data);
	void _Run();

	std::vector<char> fBytes;
	const BMessenger fTarget;
	const uint32 fConnection;

	// Under the lock.
	BLocker fLock;
	std::unique_ptr<BBitmap> fBitmap;
	bool fIsDone;
};


#endif // BANNER_DECODING_H
