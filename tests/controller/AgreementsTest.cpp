/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "Agreements.h"

#include <gtest/gtest.h>

#include <TextView.h>

#include "AgreementWindow.h"
#include "AppMessages.h"
#include "ControllerFixture.h"
#include "HotlineNotifications.h"
#include "PartTest.h"
#include "WindowMain.h"


class AgreementsTest : public PartTest {
protected:
	AgreementsTest()
		: fAgreements(fTarget.get())
	{
	}

	~AgreementsTest() override
	{
		for (AgreementWindow* window : open_windows<AgreementWindow>())
			close_silently(window);
	}

	bool _Ask(const char* text, uint32 connection = 7)
	{
		BMessage agreement(kHLAgreement);
		agreement.AddString("text", text);
		const bool isAsked = fAgreements.Ask(&agreement, connection);
		HoldWindows();
		return isAsked;
	}

	Agreements fAgreements;
};


TEST_F(AgreementsTest, Agreement_IsAskedForOnBehalfOfItsConnection)
{
	EXPECT_TRUE(_Ask("Be kind."));
	AgreementWindow* window = find_window<AgreementWindow>();
	ASSERT_NE(nullptr, window);
	EXPECT_STREQ("Be kind.", static_cast<BTextView*>(window->FindView("agreementtext"))->Text());
	window->PostMessage(kMsgAcceptAgreement);
	const BMessage answer = AwaitPosted();
	EXPECT_EQ(static_cast<uint32>(kMsgAcceptAgreement), answer.what);
	EXPECT_EQ(7u, answer.GetUInt32("connection", 0));
}


TEST_F(AgreementsTest, BeyondTwenty_NoMoreIsOpenedUntilOneHasClosed)
{
	for (int i = 0; i < 20; i++)
		EXPECT_TRUE(_Ask("Be kind."));
	EXPECT_FALSE(_Ask("Be kinder."));
	EXPECT_EQ(20, count_windows<AgreementWindow>());
	close_silently(open_windows<AgreementWindow>()[7]);
	EXPECT_TRUE(_Ask("Be kinder."));
	EXPECT_FALSE(_Ask("Be kindest."));
	EXPECT_EQ(20, count_windows<AgreementWindow>());
}


TEST_F(AgreementsTest, WhatAFormerConnectionLeftOpen_DoesNotCount)
{
	for (int i = 0; i < 20; i++)
		EXPECT_TRUE(_Ask("Be kind."));
	EXPECT_TRUE(_Ask("Be kind here.", 8));
	EXPECT_FALSE(_Ask("Be kinder."));
}
