/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "AppMessages.h"

#include <map>

#include <gtest/gtest.h>

#include "HotlineNotifications.h"


static const uint32 kAppMessages[] = {kMsgToolConnect, kMsgToolDisconnect, kMsgToolChat,
	kMsgToolUsers, kMsgToolFiles, kMsgToolTracker, kMsgToolOptions, kMsgToolAbout, kMsgConnectBtn,
	kMsgConnectServer, kMsgSendChat, kMsgAppendChat, kMsgEnableChat, kMsgTextFull, kMsgAddUser,
	kMsgRemoveUser, kMsgRemoveAll, kMsgUserInvoked, kMsgOpenPM, kMsgPMSend, kMsgPMReceived,
	kMsgPMWinClosed, kMsgFileEntry, kMsgFileClear, kMsgOpenFolder, kMsgFileInvoked,
	kMsgFileWinClosed, kMsgDownloadFile, kMsgDownloadBtn, kMsgUploadBtn, kMsgUploadFile,
	kMsgDownloadDone, kMsgUploadDone, kMsgBannerData, kMsgBannerFetched, kMsgBannerDecoded,
	kMsgIconSelected, kMsgOptionsSave, kMsgAcceptAgreement, kMsgDeclineAgreement,
	kMsgTrackerRefresh, kMsgTrackerInvoke, kMsgTrackerServer, kMsgTrackerDone, kMsgTrackerError,
	kMsgOK, kMsgScroll};

static const uint32 kNotifications[] = {kHLConnected, kHLConnectFailed, kHLLoggedIn,
	kHLDisconnected, kHLChatReceived, kHLMsgReceived, kHLUserJoined, kHLUserChanged, kHLUserLeft,
	kHLAgreement, kHLServerInfo, kHLTaskError, kHLPoliteQuit, kHLBroadcast, kHLFileListReceived,
	kHLDownloadReady, kHLUploadReady, kHLBannerReady, kHLServerBanner};


static std::string
readable(uint32 code)
{
	return {static_cast<char>(code >> 24), static_cast<char>(code >> 16 & 0xff),
		static_cast<char>(code >> 8 & 0xff), static_cast<char>(code & 0xff)};
}


TEST(AppMessagesTest, EveryCode_IsUsedOnce)
{
	std::map<uint32, int> uses;
	for (const uint32 code : kAppMessages)
		uses[code]++;
	for (const uint32 code : kNotifications)
		uses[code]++;
	for (const auto& [code, count] : uses)
		EXPECT_EQ(1, count) << readable(code);
}


TEST(AppMessagesTest, EveryCode_IsMadeOfPrintableCharacters)
{
	for (const uint32 code : kAppMessages) {
		for (const char character : readable(code))
			EXPECT_TRUE(character > ' ' && character < 0x7f) << readable(code);
	}
}


// The first character is the most significant byte.
TEST(AppMessagesTest, CodeOfConnect_HasItsValue)
{
	EXPECT_EQ(0x7462636eu, static_cast<uint32>(kMsgToolConnect));
	EXPECT_EQ(0x484c474fu, static_cast<uint32>(kMsgConnectServer));
}
