/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "AboutWindow.h"

#include <memory>

#include <gtest/gtest.h>

#include <Button.h>
#include <Font.h>
#include <InterfaceDefs.h>
#include <LayoutBuilder.h>
#include <Message.h>

#include "AboutView.h"
#include "AppMessages.h"
#include "CreditsView.h"
#include "DrawnRow.h"
#include "TemporaryFolder.h"
#include "UserInput.h"
#include "WaitFor.h"
#include "WindowInput.h"
#include "WindowProbe.h"


// Two for each pixel of the eighteen lines and of the view.
static const int kTicksOfARoll = (18 * 16 + 100) * 2;


static void
fill_panel(BView* view)
{
	view->SetHighColor(ui_color(B_PANEL_BACKGROUND_COLOR));
	view->FillRect(view->Bounds());
}


static void
draw_rule(BView* view, float y)
{
	view->SetHighColor(180, 180, 180);
	view->StrokeLine(BPoint(30, y), BPoint(view->Bounds().Width() - 30, y));
}


static void
draw_centered(BView* view, const BFont* family, float size, const char* text, float y)
{
	BFont font(family);
	font.SetSize(size);
	view->SetFont(&font);
	view->SetHighColor(0, 0, 0);
	view->DrawString(text, BPoint((view->Bounds().Width() - view->StringWidth(text)) / 2, y));
}


static BSize
size_of(const BView* view)
{
	return BSize(view->Bounds().Width(), view->Bounds().Height());
}


class AboutWindowTest : public testing::Test {
protected:
	// The rules and the name line of the panel, beginning at this height. What stands below is not
	// looked at.
	void _ExpectNameLine(float y)
	{
		AboutView* view = fWindow->Find<AboutView>("aboutView");
		const std::string expected = drawn_view(size_of(view), [y](BView* drawn) {
			fill_panel(drawn);
			draw_rule(drawn, y);
			draw_centered(drawn, be_bold_font, 14, "Palimbra - Hotline Client", y + 16);
			draw_rule(drawn, y + 26);
		});
		const size_t lineSize = (static_cast<size_t>(view->Bounds().Width()) + 1) * 4;
		const size_t start = (static_cast<size_t>(y) - 10) * lineSize;
		const size_t size = 40 * lineSize;
		EXPECT_TRUE(expected.substr(start, size) == picture_of(view).substr(start, size));
	}

	void _Open()
	{
		fWindow.reset(new WindowProbe(new AboutWindow(fFolder.Path().c_str())));
		fWindow->Window()->Show();
		fWindow->Settle();
		fWindow->Window()->Layout(true);
	}

	TemporaryFolder fFolder;
	std::unique_ptr<WindowProbe> fWindow;
};


// A roll that moves when it is told to only.
class StillCredits : public CreditsView {
public:
	void AttachedToWindow() override {}

	void Tick(int count)
	{
		BMessage tick(kMsgScroll);
		for (int i = 0; i < count; i++)
			MessageReceived(&tick);
	}
};


/*!	A roll in a window of its own. */
class RollTest : public testing::Test {
protected:
	RollTest()
		: fWindow(new BWindow(BRect(0, 0, 300, 100), "credits", B_TITLED_WINDOW, 0)),
		  fCredits(new StillCredits())
	{
		BLayoutBuilder::Group<>(fWindow.Window(), B_VERTICAL, 0).Add(fCredits);
		fWindow.Window()->Show();
		fWindow.Settle();
		fWindow.Window()->Layout(true);
	}

	WindowProbe fWindow;
	StillCredits* fCredits;
};


TEST_F(AboutWindowTest, WithoutALogo_ThePanelIsSmaller)
{
	_Open();
	EXPECT_STREQ("About Palimbra", fWindow->Window()->Title());
	AboutView* view = fWindow->Find<AboutView>("aboutView");
	EXPECT_EQ(BSize(300, 155), view->MinSize());
	EXPECT_EQ(BSize(300, 155), view->PreferredSize());
	_ExpectNameLine(15);
}


TEST_F(AboutWindowTest, WithALogo_ThePanelHasRoomForIt)
{
	fFolder.AddFile("logo.png", picture_file(40, 60));
	_Open();
	AboutView* view = fWindow->Find<AboutView>("aboutView");
	EXPECT_EQ(BSize(300, 155 + 59 + 15), view->MinSize());
	EXPECT_EQ(0xe03090u, pixel_of(view, BPoint(view->Bounds().Width() / 2, 40)));
	_ExpectNameLine(15 + 59 + 15);
}


TEST_F(AboutWindowTest, LogoThatIsNoPicture_IsOmitted)
{
	fFolder.AddFile("logo.png", "hello");
	_Open();
	EXPECT_EQ(BSize(300, 155), fWindow->Find<AboutView>("aboutView")->MinSize());
}


TEST_F(AboutWindowTest, Window_IsModalAndStandsInTheMiddle)
{
	_Open();
	EXPECT_EQ(B_MODAL_APP_WINDOW_FEEL, fWindow->Window()->Feel());
	const BRect frame = fWindow->Window()->Frame();
	fFolder.AddFile("logo.png", picture_file(40, 200));
	_Open();
	const BRect taller = fWindow->Window()->Frame();
	EXPECT_LT(frame.Height(), taller.Height());
	EXPECT_NEAR(frame.left + frame.right, taller.left + taller.right, 2);
	EXPECT_NEAR(frame.top + frame.bottom, taller.top + taller.bottom, 2);
}


TEST_F(AboutWindowTest, Credits_RollByThemselves)
{
	_Open();
	CreditsView* credits = fWindow->Find<CreditsView>("creditsView");
	const std::string atFirst = picture_of(credits);
	EXPECT_SOON(picture_of(credits) != atFirst);
}


TEST_F(AboutWindowTest, OkButtonEscapeAndCloseBox_Close)
{
	_Open();
	EXPECT_TRUE(fWindow->Find<BButton>("ok")->IsDefault());
	fWindow->Invoke("ok");
	fWindow->WaitForEnd();
	_Open();
	press_window_key(fWindow->Window(), B_ESCAPE);
	fWindow->WaitForEnd();
	_Open();
	use_close_box(fWindow->Window());
	fWindow->WaitForEnd();
}


TEST_F(AboutWindowTest, Credits_AreAHundredPixelsHigh)
{
	CreditsView view;
	EXPECT_EQ(BSize(260, 100), view.MinSize());
	EXPECT_EQ(BSize(260, 100), view.PreferredSize());
	EXPECT_EQ(BSize(B_SIZE_UNLIMITED, 100), view.MaxSize());
}


// Forty pixels after the start three lines and a half have come up.
TEST_F(RollTest, Credits_RollUpWithBoldHeadings)
{
	fCredits->Tick(80);
	const float height = fCredits->Bounds().Height();
	EXPECT_TRUE(picture_of(fCredits) == drawn_view(size_of(fCredits), [height](BView* drawn) {
		fill_panel(drawn);
		draw_centered(drawn, be_bold_font, 12, "The client", height - 40);
		draw_centered(drawn, be_plain_font, 12, "Protocol client", height - 24);
		draw_centered(drawn, be_plain_font, 12, "Chat, messages and users", height - 8);
		draw_centered(drawn, be_plain_font, 12, "Files and transfers", height + 8);
	}));
}


TEST_F(RollTest, Credits_StartAgainWhenTheyHaveLeft)
{
	const std::string atFirst = picture_of(fCredits);
	fCredits->Tick(200);
	const std::string halfWay = picture_of(fCredits);
	EXPECT_FALSE(atFirst == halfWay);
	fCredits->Tick(kTicksOfARoll - 200);
	EXPECT_FALSE(atFirst == picture_of(fCredits));
	fCredits->Tick(1);
	EXPECT_TRUE(atFirst == picture_of(fCredits));
	fCredits->Tick(200);
	EXPECT_TRUE(halfWay == picture_of(fCredits));
}
