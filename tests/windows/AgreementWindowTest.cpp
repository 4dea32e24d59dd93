/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "AgreementWindow.h"

#include <Button.h>
#include <Font.h>
#include <ScrollView.h>
#include <StringView.h>
#include <TextView.h>

#include "AppMessages.h"
#include "HostileTexts.h"
#include "WindowTest.h"


static const BRect kFrame(150, 150, 600, 500);


class AgreementWindowTest : public WindowTest {
protected:
	AgreementWindowTest()
	{
		Open(new AgreementWindow(kFrame, fTarget.get(), "Be kind.\nStay long."));
	}
};


TEST_F(AgreementWindowTest, AtFirst_ShowsTheTextAndAcceptIsTheDefault)
{
	EXPECT_STREQ("Server Agreement", fWindow->Window()->Title());
	EXPECT_EQ("Please read and accept the server agreement to continue:", fWindow->Label("label"));
	EXPECT_EQ("Be kind.\nStay long.", fWindow->Transcript("agreementtext"));
	const BTextView* text = fWindow->Find<BTextView>("agreementtext");
	EXPECT_FALSE(text->IsEditable());
	EXPECT_TRUE(text->IsSelectable());
	EXPECT_TRUE(text->DoesWordWrap());
	EXPECT_FALSE(text->IsStylable());
	EXPECT_STREQ("Accept", fWindow->Find<BButton>("accept")->Label());
	EXPECT_STREQ("Decline", fWindow->Find<BButton>("decline")->Label());
	EXPECT_TRUE(fWindow->Find<BButton>("accept")->IsDefault());
	EXPECT_FALSE(fWindow->Find<BButton>("decline")->IsDefault());
	BFont font;
	fWindow->Find<BStringView>("label")->GetFont(&font);
	EXPECT_EQ(*be_bold_font, font);
}


TEST_F(AgreementWindowTest, Accept_AnswersOnceAndCloses)
{
	fWindow->Invoke("accept");
	fWindow->WaitForEnd();
	fTarget->ExpectOnly(BMessage(kMsgAcceptAgreement));
}


TEST_F(AgreementWindowTest, DecliningOrClosing_AnswersOnceAndCloses)
{
	fWindow->Invoke("decline");
	fWindow->WaitForEnd();
	fTarget->ExpectOnly(BMessage(kMsgDeclineAgreement));

	fTarget->Clear();
	Open(new AgreementWindow(kFrame, fTarget.get(), "Be kind."));
	CloseAndWait();
	fTarget->ExpectOnly(BMessage(kMsgDeclineAgreement));
}


TEST_F(AgreementWindowTest, AtFirst_IsInTheCenterAndClosesOnEscape)
{
	const BWindow* window = fWindow->Window();
	EXPECT_EQ(B_TITLED_WINDOW_LOOK, window->Look());
	EXPECT_EQ(B_NORMAL_WINDOW_FEEL, window->Feel());
	EXPECT_EQ(static_cast<uint32>(B_NOT_ZOOMABLE | B_AUTO_UPDATE_SIZE_LIMITS | B_CLOSE_ON_ESCAPE),
		window->Flags());
	ExpectCenteredLike(new AgreementWindow(BRect(10, 10, 460, 360), fTarget.get(), NULL));
}


TEST_F(AgreementWindowTest, LongText_CanBeScrolled)
{
	std::string text;
	for (int line = 0; line < 200; line++)
		text += "one more rule\n";
	Open(new AgreementWindow(kFrame, fTarget.get(), text.c_str()));
	BTextView* view = fWindow->Find<BTextView>("agreementtext");
	EXPECT_EQ(view, fWindow->Find<BScrollView>("agreementscroll")->Target());
	EXPECT_EQ(B_FANCY_BORDER, fWindow->Find<BScrollView>("agreementscroll")->Border());
	fWindow->Settle();
	EXPECT_GT(view->PointAt(view->TextLength()).y, view->Bounds().bottom);
	view->ScrollToOffset(view->TextLength());
	EXPECT_SOON(view->PointAt(view->TextLength()).y < view->Bounds().bottom);
}


// The second press is in the queue before the window has had a chance to close.
TEST_F(AgreementWindowTest, PressingBothButtons_AnswersTheFirst)
{
	fWindow->Window()->PostMessage(kMsgAcceptAgreement);
	fWindow->Window()->PostMessage(kMsgDeclineAgreement);
	fWindow->Window()->PostMessage(kMsgAcceptAgreement);
	fWindow->WaitForEnd();
	EXPECT_EQ(static_cast<uint32>(kMsgAcceptAgreement), fTarget->OnlyMessage().what);
}


TEST_F(AgreementWindowTest, WithoutAText_IsEmptyAndAnswers)
{
	for (const auto& [button, answer] :
		{std::pair<const char*, uint32>("accept", kMsgAcceptAgreement),
			{"decline", kMsgDeclineAgreement}}) {
		Open(new AgreementWindow(kFrame, fTarget.get(), NULL));
		EXPECT_EQ("", fWindow->Transcript("agreementtext"));
		fWindow->Invoke(button);
		fWindow->WaitForEnd();
		EXPECT_EQ(answer, fTarget->Messages().back().what);
	}
}


TEST_F(AgreementWindowTest, TheTarget_MayBeGone)
{
	fTarget.reset();
	fWindow->Invoke("accept");
	fWindow->WaitForEnd();
}


TEST_F(AgreementWindowTest, HostileText_IsShownAsItStands)
{
	std::vector<std::string> texts = hostile_texts();
	texts.push_back("a\rb\r\nc\n");
	texts.push_back(std::string(65535, 'x'));
	for (const std::string& text : texts) {
		SCOPED_TRACE(text.substr(0, 80));
		Open(new AgreementWindow(kFrame, fTarget.get(), text.c_str()));
		EXPECT_EQ(text, fWindow->Transcript("agreementtext"));
	}
}
