/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ServerBanner.h"

#include <memory>
#include <utility>

#include <gtest/gtest.h>

#include <LayoutBuilder.h>
#include <OS.h>
#include <Screen.h>

#include "AppMessages.h"
#include "BannerDecoding.h"
#include "BannerView.h"
#include "ConnectionMark.h"
#include "ControllerFixture.h"
#include "DrawnRow.h"
#include "FlattenedFile.h"
#include "InterposedCalls.h"
#include "PartTest.h"
#include "RawServer.h"
#include "WaitFor.h"
#include "WindowMain.h"
#include "WindowProbe.h"


static const char* const kDecoder = "HL:BannerPicture";


/*!	The banner alone in a window, with the test in the place of the main window. */
class ServerBannerTest : public PartTest {
protected:
	ServerBannerTest()
		: fBanner(fTarget.get()),
		  fWindow(new BWindow(BRect(100, 100, 699, 199), "banner", B_TITLED_WINDOW,
			  B_AUTO_UPDATE_SIZE_LIMITS))
	{
		BLayoutBuilder::Group<>(fWindow.Window(), B_VERTICAL, 0).Add(fBanner.View()).AddGlue();
		fWindow.Window()->Show();
		HoldWindows();
	}

	static BMessage _Picture(const std::string& bytes, uint32 connection = 0)
	{
		BMessage picture(kMsgBannerData);
		picture.AddData("data", B_RAW_TYPE, bytes.data(), static_cast<ssize_t>(bytes.size()),
			false);
		AddConnection(&picture, connection);
		return picture;
	}

	// What comes of a picture that has been fetched.
	void _Show(const std::string& bytes, uint32 connection = 0, bool isConnected = false)
	{
		const size_t before = fCalls.CountThreads(kDecoder);
		const BMessage picture = _Picture(bytes, connection);
		fBanner.Decode(&picture, isConnected);
		if (fCalls.CountThreads(kDecoder) > before)
			_ServeNext(kMsgBannerDecoded);
	}

	void _Grant(uint32 reference, uint32 size, uint32 connection = 7)
	{
		const BMessage grant = granted_transfer(0, reference, size, fServer.Port());
		fBanner.Fetch(&grant, connection);
	}

	// Takes a fetch up to where its bytes are waited for, and returns which one it is.
	uint32 _AcceptFetch()
	{
		EXPECT_TRUE(fServer.Accept());
		const std::string request = fServer.Read(kTransferRequestSize);
		uint32 reference = 0;
		for (size_t i = 4; i < 8 && i < request.size(); i++)
			reference = reference << 8 | static_cast<uint8>(request[i]);
		return reference;
	}

	// Hands on what a thread has posted, as the main window does, and returns it.
	BMessage _ServeNext(uint32 what, bool isConnected = true)
	{
		BMessage message = AwaitPosted();
		EXPECT_EQ(what, message.what);
		switch (message.what) {
			case kMsgBannerData:
				fBanner.Decode(&message, isConnected);
				break;
			case kMsgBannerFetched:
				fBanner.HandleFetched(&message);
				break;
			case kMsgBannerDecoded:
				fBanner.HandleDecoded();
				break;
		}
		return message;
	}

	size_t _CountFetches() const { return fCalls.CountThreads("HL:BannerDL"); }

	void _ExpectSize(float width, float height)
	{
		EXPECT_EQ(BSize(width, height), fBanner.View()->MinSize());
		EXPECT_EQ(BSize(width, height), fBanner.View()->PreferredSize());
		EXPECT_EQ(BSize(B_SIZE_UNLIMITED, height), fBanner.View()->MaxSize());
		EXPECT_EQ(BSize(B_SIZE_UNLIMITED, height), fBanner.View()->ExplicitMaxSize());
	}

	InterposedCalls fCalls;
	RawServer fServer;
	ServerBanner fBanner;
	WindowProbe fWindow;
};


TEST_F(ServerBannerTest, Grant_IsFetchedUpToTheLimitForItsConnection)
{
	const std::pair<uint32, uint32> refused[] = {{1, 524289}, {1, 0}, {1, 0xffffffff}, {0, 100}};
	for (const auto& [reference, size] : refused)
		_Grant(reference, size);
	EXPECT_TRUE(fCalls.Threads().empty());
	fCalls.FailNextSpawn(B_NO_MORE_THREADS);
	_Grant(2, 524288);
	EXPECT_FALSE(fServer.HasCaller());

	_Grant(2, 524288);
	EXPECT_EQ("HL:BannerDL", fCalls.Threads().back().name);
	EXPECT_EQ(B_LOW_PRIORITY, fCalls.Threads().back().priority);
	EXPECT_EQ(2u, _AcceptFetch());
	fServer.Send(std::string(524288, 'x'));
	for (const uint32 what : {kMsgBannerData, kMsgBannerFetched}) {
		const BMessage message = AwaitPosted();
		EXPECT_EQ(what, message.what);
		EXPECT_EQ(7u, ConnectionOf(&message));
	}
}


TEST_F(ServerBannerTest, Picture_HasItsSizeUntilItIsCleared)
{
	_ExpectSize(0, 0);
	_Show(picture_file(1, 1));
	_ExpectSize(1, 1);
	_Show(picture_file(468, 60), 7, true);
	_ExpectSize(468, 60);
	_Show(picture_file(2, 90));
	_ExpectSize(2, 90);
	fBanner.Clear();
	_ExpectSize(0, 0);
}


TEST_F(ServerBannerTest, WhatIsNoPictureOrLost_ChangesNothing)
{
	_Show(picture_file(10, 20));
	_Show("hello");
	_Show(picture_file(468, 60).substr(0, 9));
	_Show(std::string(524288, '\0'));
	_Show(picture_file(468, 60), 7, false);
	BMessage picture(kMsgBannerData);
	fBanner.Decode(&picture, true);
	picture.AddString("data", "text is no data");
	fBanner.Decode(&picture, true);
	_ExpectSize(10, 20);
	EXPECT_TRUE(Posted().empty());
}


// The rest of the window, with its title, is to stay on the screen.
TEST_F(ServerBannerTest, PictureThatTheScreenHasNoRoomFor_IsNotShown)
{
	const BRect screen = BScreen(fWindow.Window()).Frame();
	const int width = static_cast<int>(screen.Width()) + 1;
	const int height = static_cast<int>(screen.Height()) + 1;
	_Show(picture_file(10, 20));
	for (const auto& [tooWide, tooHigh] :
		{std::pair<int, int>(width + 1, 20), {10, height}, {10, height - 40}, {width, height}}) {
		SCOPED_TRACE(tooHigh);
		_Show(picture_file(tooWide, tooHigh));
		_ExpectSize(10, 20);
	}

	_Show(picture_file(width, 20));
	_ExpectSize(static_cast<float>(width), 20);
	// One after the other, without a frame in between.
	for (const int high : {height - 60, height - 50, height - 60}) {
		SCOPED_TRACE(high);
		_Show(picture_file(10, high));
		_ExpectSize(10, static_cast<float>(high));
		_Show(picture_file(10, height - 40));
		_ExpectSize(10, static_cast<float>(high));
	}
}


TEST_F(ServerBannerTest, Picture_IsDecodedByAThreadForItsConnection)
{
	fCalls.HoldThreads(kDecoder);
	const BMessage picture = _Picture(picture_file(20, 10), 7);
	fBanner.Decode(&picture, true);
	EXPECT_EQ(kDecoder, fCalls.Threads().back().name);
	EXPECT_EQ(B_LOW_PRIORITY, fCalls.Threads().back().priority);
	fBanner.HandleDecoded();
	_ExpectSize(0, 0);

	fCalls.ReleaseThreads();
	const BMessage notice = _ServeNext(kMsgBannerDecoded);
	EXPECT_EQ(7u, ConnectionOf(&notice));
	_ExpectSize(20, 10);
}


TEST_F(ServerBannerTest, NoThreadForThePicture_IsNoBanner)
{
	_Grant(1, 100);
	_AcceptFetch();
	_Grant(2, 100);
	fServer.Send(picture_file(5, 5));
	fServer.Hangup();
	EXPECT_SOON(fTarget->CountMessages() == 2);
	fCalls.FailNextSpawn(B_NO_MORE_THREADS);
	_ServeNext(kMsgBannerData);
	_ExpectSize(0, 0);
	_ServeNext(kMsgBannerFetched);
	EXPECT_EQ(2u, _AcceptFetch());
}


TEST_F(ServerBannerTest, ClearedMeanwhile_IsNotShown)
{
	fCalls.HoldThreads(kDecoder);
	const BMessage picture = _Picture(picture_file(20, 10), 7);
	fBanner.Decode(&picture, true);
	fBanner.Clear();
	fCalls.ReleaseThreads();
	_ServeNext(kMsgBannerDecoded);
	_ExpectSize(0, 0);
}


TEST_F(ServerBannerTest, TwoHundredGrants_AreOneFetchAtATimeAndTheLatestIsNext)
{
	const std::string bytes = picture_file(20, 10);
	const uint32 size = static_cast<uint32>(bytes.size());
	fCalls.HoldThreads(kDecoder);
	_Grant(1, size);
	EXPECT_EQ(1u, _AcceptFetch());
	for (uint32 reference = 2; reference <= 201; reference++)
		_Grant(reference, size);
	// Not worth fetching, so that the one before stays the latest.
	_Grant(202, 0);
	EXPECT_EQ(1u, _CountFetches());

	// Neither while the picture is decoded.
	fServer.Send(bytes);
	_ServeNext(kMsgBannerData);
	_ServeNext(kMsgBannerFetched);
	_Grant(201, size);
	EXPECT_EQ(1u, _CountFetches());

	fCalls.ReleaseThreads();
	_ServeNext(kMsgBannerDecoded);
	_ExpectSize(20, 10);
	EXPECT_EQ(2u, _CountFetches());
	EXPECT_EQ(201u, _AcceptFetch());
	fServer.Send(bytes);
	_ServeNext(kMsgBannerData);
	_ServeNext(kMsgBannerFetched);
	_ServeNext(kMsgBannerDecoded);
	EXPECT_EQ(2u, _CountFetches());
}


TEST_F(ServerBannerTest, FetchThatFails_LetsTheNextOneBegin)
{
	_Grant(1, 100);
	EXPECT_EQ(1u, _AcceptFetch());
	_Grant(2, 100);
	fServer.Hangup();
	_ServeNext(kMsgBannerFetched);
	EXPECT_EQ(2u, _AcceptFetch());

	_Grant(3, 100);
	fServer.Send("no picture");
	fServer.Hangup();
	_ServeNext(kMsgBannerData);
	_ServeNext(kMsgBannerFetched);
	_ServeNext(kMsgBannerDecoded);
	EXPECT_EQ(3u, _AcceptFetch());
}


TEST_F(ServerBannerTest, NewConnection_DoesNotWaitForTheFormer)
{
	fCalls.HoldThreads(kDecoder);
	const BMessage picture = _Picture(picture_file(20, 10), 7);
	_Grant(1, 100, 7);
	EXPECT_EQ(1u, _AcceptFetch());
	fBanner.Decode(&picture, true);
	_Grant(2, 100, 7);
	fBanner.Clear();
	_Grant(3, 100, 8);
	_Grant(4, 100, 8);
	EXPECT_EQ(2u, _CountFetches());

	// This ends the former one, whose end is not that of the new one.
	EXPECT_EQ(3u, _AcceptFetch());
	const BMessage end = _ServeNext(kMsgBannerFetched);
	EXPECT_EQ(7u, ConnectionOf(&end));
	EXPECT_EQ(2u, _CountFetches());
	fCalls.ReleaseThreads();
	_ServeNext(kMsgBannerDecoded);
	_ExpectSize(0, 0);
	EXPECT_EQ(2u, _CountFetches());
}


TEST_F(ServerBannerTest, GrantsOfALostConnection_AreForgotten)
{
	_Grant(1, 100);
	EXPECT_EQ(1u, _AcceptFetch());
	_Grant(2, 100);
	fBanner.Clear();
	fServer.Hangup();
	_ServeNext(kMsgBannerFetched);
	EXPECT_EQ(1u, _CountFetches());
}


TEST_F(ServerBannerTest, PictureThatNobodyWaitsFor_IsDeleted)
{
	fCalls.HoldThreads(kDecoder);
	const std::string bytes = picture_file(20, 10);
	auto decoding = std::make_shared<BannerDecoding>(bytes.data(), bytes.size(), BMessenger(), 7);
	ASSERT_TRUE(BannerDecoding::Start(decoding));
	const std::weak_ptr<BannerDecoding> left = decoding;
	decoding.reset();
	EXPECT_FALSE(left.expired());
	fCalls.ReleaseThreads();
	EXPECT_SOON(left.expired());
}
