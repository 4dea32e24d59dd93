/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "AboutWindow.h"

#include <memory>

#include <gtest/gtest.h>

#include <Button.h>
#include <LayoutBuilder.h>
#include <Message.h>

#include "AboutView.h"
#include "AppMessages.h"
#include "CreditsView.h"
#include "DrawnRow.h"
#include "TemporaryFolder.h"
#include "UserInput.h"
#include "WindowInput.h"
#include "WindowProbe.h"


// Two for each pixel of the eighteen lines and of the view.
static const int kTicksOfARoll = (18 * 16 + 100) * 2;


class AboutWindowTest : public testing::Test {
protected:
	void _Open()
	{
		fWindow.reset(new WindowProbe(new AboutWindow(fFolder.Path().c_str())));
		fWindow->Window()->Show();
		fWindow->Settle();
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


TEST_F(AboutWindowTest, WithoutALogo_ThePanelIsSmaller)
{
	_Open();
	EXPECT_STREQ("About Palimbra", fWindow->Window()->Title());
	AboutView* view = fWindow->Find<AboutView>("aboutView");
	EXPECT_EQ(BSize(300, 155), view->MinSize());
	EXPECT_EQ(BSize(300, 155), view->PreferredSize());
}


TEST_F(AboutWindowTest, WithALogo_ThePanelHasRoomForIt)
{
	fFolder.AddFile("logo.png", picture_file(40, 60));
	_Open();
	AboutView* view = fWindow->Find<AboutView>("aboutView");
	EXPECT_EQ(BSize(300, 155 + 59 + 15), view->MinSize());
	EXPECT_EQ(0xe03090u, pixel_of(view, BPoint(view->Bounds().Width() / 2, 40)));
}


TEST_F(AboutWindowTest, LogoThatIsNoPicture_IsOmitted)
{
	fFolder.AddFile("logo.png", "hello");
	_Open();
	EXPECT_EQ(BSize(300, 155), fWindow->Find<AboutView>("aboutView")->MinSize());
}


TEST_F(AboutWindowTest, OkButton_Closes)
{
	_Open();
	EXPECT_TRUE(fWindow->Find<BButton>("ok")->IsDefault());
	fWindow->Invoke("ok");
	fWindow->WaitForEnd();
}


TEST_F(AboutWindowTest, Escape_Closes)
{
	_Open();
	press_window_key(fWindow->Window(), B_ESCAPE);
	fWindow->WaitForEnd();
}


TEST_F(AboutWindowTest, CloseBox_Closes)
{
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


TEST_F(AboutWindowTest, Credits_StartAgainWhenTheyHaveLeft)
{
	WindowProbe window(new BWindow(BRect(0, 0, 300, 100), "credits", B_TITLED_WINDOW, 0));
	StillCredits* credits = new StillCredits();
	BLayoutBuilder::Group<>(window.Window(), B_VERTICAL, 0).Add(credits);
	window.Window()->Show();
	window.Settle();

	const std::string atFirst = picture_of(credits);
	credits->Tick(200);
	const std::string halfWay = picture_of(credits);
	EXPECT_FALSE(atFirst == halfWay);
	credits->Tick(kTicksOfARoll - 200);
	EXPECT_FALSE(atFirst == picture_of(credits));
	credits->Tick(1);
	EXPECT_TRUE(atFirst == picture_of(credits));
	credits->Tick(200);
	EXPECT_TRUE(halfWay == picture_of(credits));
}


TEST_F(AboutWindowTest, Layout_IsTidy)
{
	_Open();
	fWindow->ExpectTidyAtTwoSizes();
}
