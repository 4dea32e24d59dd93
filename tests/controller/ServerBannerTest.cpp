/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ServerBanner.h"

#include <utility>

#include <gtest/gtest.h>

#include <LayoutBuilder.h>
#include <OS.h>

#include "AppMessages.h"
#include "BannerView.h"
#include "ConnectionMark.h"
#include "ControllerFixture.h"
#include "DrawnRow.h"
#include "InterposedCalls.h"
#include "PartTest.h"
#include "RawServer.h"
#include "WindowMain.h"
#include "WindowProbe.h"
#include "WireBytes.h"


/*!	The banner alone in a window. */
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

	void _Show(const std::string& bytes, uint32 connection = 0, bool isConnected = false)
	{
		BMessage picture(kMsgBannerData);
		picture.AddData("data", B_RAW_TYPE, bytes.data(), static_cast<ssize_t>(bytes.size()),
			false);
		AddConnection(&picture, connection);
		fBanner.Show(&picture, isConnected);
	}

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
	for (const auto& [reference, size] : refused) {
		const BMessage grant = granted_transfer(0, reference, size, fServer.Port());
		fBanner.Fetch(&grant, 7);
	}
	EXPECT_TRUE(fCalls.Threads().empty());
	const BMessage grant = granted_transfer(0, 2, 524288, fServer.Port());
	fCalls.FailNextSpawn(B_NO_MORE_THREADS);
	fBanner.Fetch(&grant, 7);
	EXPECT_FALSE(fServer.HasCaller());

	fBanner.Fetch(&grant, 7);
	ASSERT_TRUE(fServer.Accept());
	EXPECT_EQ("HTXF" + wire32(2), fServer.Read(16).substr(0, 8));
	fServer.Send(std::string(524288, 'x'));
	const BMessage picture = AwaitPosted();
	EXPECT_EQ(static_cast<uint32>(kMsgBannerData), picture.what);
	EXPECT_EQ(7u, ConnectionOf(&picture));
	EXPECT_EQ("HL:BannerDL", fCalls.Threads().back().name);
	EXPECT_EQ(B_LOW_PRIORITY, fCalls.Threads().back().priority);
}


TEST_F(ServerBannerTest, Picture_HasItsSizeUntilItIsCleared)
{
	_ExpectSize(0, 0);
	_Show(picture_file(1, 1));
	_ExpectSize(1, 1);
	_Show(picture_file(468, 60), 7, true);
	_ExpectSize(468, 60);
	_Show(picture_file(16000, 1));
	_ExpectSize(16000, 1);
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
	fBanner.Show(&picture, true);
	picture.AddString("data", "text is no data");
	fBanner.Show(&picture, true);
	_ExpectSize(10, 20);
}
