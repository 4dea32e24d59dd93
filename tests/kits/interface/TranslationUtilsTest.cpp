/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <atomic>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <Bitmap.h>
#include <DataIO.h>
#include <TranslationUtils.h>

#include "ExpectSoon.h"
#include "JpegBytes.h"
#include "PictureBounds.h"
#include "PictureBytes.h"
#include "RunThread.h"
#include "TemporaryFolder.h"


static std::unique_ptr<BBitmap>
decode(const std::string& bytes)
{
	BMemoryIO stream(static_cast<const void*>(bytes.data()), bytes.size());
	return std::unique_ptr<BBitmap>(BTranslationUtils::GetBitmap(&stream));
}


/*!	The most memory that this process ever had, in bytes. */
static int64
peak_memory()
{
	struct rusage usage;
	getrusage(RUSAGE_SELF, &usage);
	return static_cast<int64>(usage.ru_maxrss) * 1024;
}


/*!	A picture in each of three formats, of that many pixels each way. */
struct BlackPicture {
	const char* format;
	std::string bytes;
};

static std::vector<BlackPicture>
make_black_pictures(int32 edge)
{
	return {
		{"BMP", make_black_bmp(edge, edge)},
		{"GIF", make_black_gif(static_cast<uint16>(edge), static_cast<uint16>(edge))},
		{"PNG", make_black_png(static_cast<uint32>(edge), static_cast<uint32>(edge))},
	};
}


TEST(TranslationUtilsTest, Picture_IsDecodedIntoPixels_AlsoFromAFileWhateverItsName)
{
	// Two pixels of blue, green and red, and two bytes to fill the row.
	const std::unique_ptr<BBitmap> bitmap = decode(make_bmp(2, 1, 8));
	ASSERT_NE(nullptr, bitmap);
	EXPECT_EQ(BRect(0, 0, 1, 0), bitmap->Bounds());
	EXPECT_EQ(B_RGBA32, bitmap->ColorSpace());
	const uint8 expected[8] = {10, 11, 12, 255, 13, 14, 15, 255};
	EXPECT_EQ(0, memcmp(expected, bitmap->Bits(), sizeof(expected)));

	TemporaryFolder folder;
	folder.AddFile("icon \xff.png", make_bmp(2, 1, 8));

	const std::unique_ptr<BBitmap> fromFile(
		BTranslationUtils::GetBitmapFile(folder.PathOf("icon \xff.png").c_str()));
	ASSERT_NE(nullptr, fromFile);
	EXPECT_EQ(BRect(0, 0, 1, 0), fromFile->Bounds());
}


TEST(TranslationUtilsTest, PictureFromTheTopToTheBottom_StandsUpright)
{
	const std::unique_ptr<BBitmap> upwards = decode(make_bmp(1, 2, 8));
	const std::unique_ptr<BBitmap> downwards = decode(make_bmp(1, -2, 8));
	ASSERT_NE(nullptr, upwards);
	ASSERT_NE(nullptr, downwards);
	EXPECT_EQ(BRect(0, 0, 0, 1), downwards->Bounds());

	// A pixel of three bytes and one byte to fill the row, twice.
	const uint8 first[4] = {10, 11, 12, 255};
	const uint8 second[4] = {14, 15, 16, 255};
	const uint8* lower = static_cast<uint8*>(upwards->Bits()) + upwards->BytesPerRow();
	EXPECT_EQ(0, memcmp(first, lower, sizeof(first)));
	EXPECT_EQ(0, memcmp(first, downwards->Bits(), sizeof(first)));
	lower = static_cast<uint8*>(downwards->Bits()) + downwards->BytesPerRow();
	EXPECT_EQ(0, memcmp(second, lower, sizeof(second)));
}


TEST(TranslationUtilsTest, WhatIsNoPicture_GivesNothing)
{
	EXPECT_EQ(nullptr, decode(""));
	EXPECT_EQ(nullptr, decode("This is no picture at all."));
	EXPECT_EQ(nullptr, decode(std::string(5000, '\xff')));
	EXPECT_EQ(NULL, BTranslationUtils::GetBitmap(static_cast<BPositionIO*>(NULL)));

	const std::string whole = make_bmp(2, 1, 8);
	for (size_t length = 0; length < 54; length++) {
		SCOPED_TRACE(length);
		EXPECT_EQ(nullptr, decode(whole.substr(0, length)));
	}

	EXPECT_EQ(NULL, BTranslationUtils::GetBitmapFile("/nowhere/at/all.png"));
	EXPECT_EQ(NULL, BTranslationUtils::GetBitmapFile("/"));
	EXPECT_EQ(NULL, BTranslationUtils::GetBitmapFile(NULL));
}


TEST(TranslationUtilsTest, PictureOfMoreThanFourMillionPixels_IsRefused)
{
	EXPECT_NE(nullptr, decode(make_black_bmp(2048, 2048)));
	EXPECT_EQ(nullptr, decode(make_black_bmp(2049, 2048)));
	EXPECT_EQ(nullptr, decode(make_bmp(65535, 65535, 100)));
	EXPECT_EQ(nullptr, decode(make_bmp(0x7fffffff, 0x7fffffff, 100)));
	EXPECT_EQ(nullptr, decode(make_bmp(2049, -2048, 0)));
	EXPECT_EQ(nullptr, decode(make_bmp(1, INT32_MIN, 100)));
}


TEST(TranslationUtilsTest, SmallFileOfAnEnormousPicture_IsRefusedBeforeItIsDecoded)
{
	for (const BlackPicture& picture : make_black_pictures(16)) {
		SCOPED_TRACE(picture.format);
		const std::unique_ptr<BBitmap> bitmap = decode(picture.bytes);
		ASSERT_NE(nullptr, bitmap);
		EXPECT_EQ(BRect(0, 0, 15, 15), bitmap->Bounds());
	}

	// 256 MiB of pixels each.
	for (const BlackPicture& picture : make_black_pictures(8192)) {
		SCOPED_TRACE(picture.format);
		EXPECT_LT(picture.bytes.size(), 1000000u);
		const int64 before = peak_memory();
		EXPECT_EQ(nullptr, decode(picture.bytes));
		EXPECT_LT(peak_memory(), before + 32 * 1024 * 1024);
	}
}


TEST(TranslationUtilsTest, LargestPictures_TakeLessThanAHundredMebibytes)
{
	std::vector<BlackPicture> pictures = make_black_pictures(2048);
	pictures.push_back({"JPEG", make_gray_jpeg(2048, 2048, kMaxPictureScans)});
	pictures.push_back({"deep PNG", make_deep_png(2048, 2048)});
	for (const BlackPicture& picture : pictures) {
		SCOPED_TRACE(picture.format);
		const int64 before = peak_memory();
		const std::unique_ptr<BBitmap> bitmap = decode(picture.bytes);
		ASSERT_NE(nullptr, bitmap);
		EXPECT_EQ(BRect(0, 0, 2047, 2047), bitmap->Bounds());
		EXPECT_EQ(B_RGBA32, bitmap->ColorSpace());
		EXPECT_LT(peak_memory(), before + 100 * 1024 * 1024);
	}
}


// As servers may send them: a drawing that has others loaded, and what only a plugin would know.
TEST(TranslationUtilsTest, OtherKinds_AreNotReadAtAll)
{
	TemporaryFolder folder;
	folder.AddFile("inner.bmp", make_bmp(2, 1, 8));
	EXPECT_EQ(nullptr,
		decode("<svg xmlns='http://www.w3.org/2000/svg' width='2' height='2'>"
			   "<image width='2' height='2' href='"
			+ folder.PathOf("inner.bmp") + "'/></svg>"));
	EXPECT_EQ(nullptr, decode("P6\n1 1\n255\n\xe0\x30\x90"));
	EXPECT_EQ(nullptr,
		decode("/* XPM */\nstatic char *x[] = {\"1 1 1 1\", \"a c #ff0000\", \"a\"};"));
	EXPECT_EQ(nullptr,
		decode("#define x_width 8\n#define x_height 1\nstatic char x_bits[] = {0};\n"));
}


TEST(TranslationUtilsTest, AnyThread_MayRead)
{
	for (const BlackPicture& picture : make_black_pictures(16)) {
		SCOPED_TRACE(picture.format);
		std::unique_ptr<BBitmap> bitmap;
		Join(RunThread([&] {
			bitmap = decode(picture.bytes);
		}));
		ASSERT_NE(nullptr, bitmap);
		EXPECT_EQ(BRect(0, 0, 15, 15), bitmap->Bounds());
	}
}


/*!	64 MiB of zeros. */
class LongStream : public BPositionIO {
public:
	ssize_t Read(void* buffer, size_t size) override
	{
		memset(buffer, 0, size);
		fRead += size;
		return fRead < (64u << 20) ? static_cast<ssize_t>(size) : 0;
	}

	ssize_t Write(const void*, size_t) override { return B_NOT_ALLOWED; }

	size_t CountRead() const { return fRead; }

private:
	size_t fRead = 0;
};


TEST(TranslationUtilsTest, LongStream_IsNotReadToItsEnd)
{
	LongStream stream;
	EXPECT_EQ(NULL, BTranslationUtils::GetBitmap(&stream));
	EXPECT_LT(stream.CountRead(), kMaxPictureFile + 65536);
}


TEST(TranslationUtilsTest, EndlessOrEnormousFile_IsRefused)
{
	EXPECT_EQ(NULL, BTranslationUtils::GetBitmapFile("/dev/zero"));

	TemporaryFolder folder;
	const std::string picture = make_bmp(1, 1, 4);
	folder.AddFile("fits.bmp", picture + std::string(kMaxPictureFile - picture.size(), '\0'));
	folder.AddFile("one more.bmp",
		picture + std::string(kMaxPictureFile + 1 - picture.size(), '\0'));
	const std::unique_ptr<BBitmap> bitmap(
		BTranslationUtils::GetBitmapFile(folder.PathOf("fits.bmp").c_str()));
	EXPECT_NE(nullptr, bitmap);
	EXPECT_EQ(NULL, BTranslationUtils::GetBitmapFile(folder.PathOf("one more.bmp").c_str()));
}


TEST(TranslationUtilsTest, WhatIsNoFile_IsNotWaitedFor)
{
	TemporaryFolder folder;
	const std::string path = folder.PathOf("137.png");
	ASSERT_EQ(0, mkfifo(path.c_str(), 0600));

	std::atomic<bool> isDone(false);
	BBitmap* bitmap = NULL;
	RunThread([&] {
		bitmap = BTranslationUtils::GetBitmapFile(path.c_str());
		isDone = true;
	});
	EXPECT_SOON(isDone.load());
	EXPECT_EQ(NULL, bitmap);

	// Whoever waits for a writer has had one after this.
	close(open(path.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC));
	EXPECT_SOON(isDone.load());
}
