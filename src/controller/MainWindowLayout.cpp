/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <memory>

#include <Bitmap.h>
#include <Button.h>
#include <Font.h>
#include <LayoutBuilder.h>
#include <Menu.h>
#include <MenuBar.h>
#include <MenuItem.h>
#include <Message.h>
#include <SeparatorView.h>
#include <StringView.h>
#include <TranslationUtils.h>

#include "AppMessages.h"
#include "BannerView.h"
#include "MainWindow.h"


static BMenuItem*
new_item(const char* label, uint32 what, char shortcut = 0)
{
	return new BMenuItem(label, new BMessage(what), shortcut);
}


static BButton*
new_button(const char* name, const char* label, uint32 what)
{
	return new BButton(name, label, new BMessage(what));
}


void
MainWindow::_InitMenu()
{
	fMenuBar = new BMenuBar("menubar", B_ITEMS_IN_ROW, B_WILL_DRAW | B_FRAME_EVENTS);

	BMenu* server = new BMenu("Server");
	server->AddItem(new_item("Connect…", kMsgToolConnect, 'K'));
	server->AddItem(new_item("Disconnect", kMsgToolDisconnect, 'D'));
	server->AddSeparatorItem();
	server->AddItem(new_item("Options…", kMsgToolOptions));
	server->AddItem(new_item("About Palimbra", kMsgToolAbout));
	server->AddSeparatorItem();
	server->AddItem(new_item("Quit", B_QUIT_REQUESTED, 'Q'));
	fMenuBar->AddItem(server);

	BMenu* windows = new BMenu("Windows");
	windows->AddItem(new_item("Chat", kMsgToolChat, '1'));
	windows->AddItem(new_item("Users", kMsgToolUsers, '2'));
	windows->AddItem(new_item("Files", kMsgToolFiles, '3'));
	windows->AddItem(new_item("Tracker", kMsgToolTracker, 'T'));
	fMenuBar->AddItem(windows);
}


/*!	Builds everything below the menu bar and lays the whole window out. */
void
MainWindow::_InitToolbar()
{
	fConnectBtn = new_button("connect", "Connect", kMsgToolConnect);
	fDisconnectBtn = new_button("disconnect", "Disconnect", kMsgToolDisconnect);
	fChatBtn = new_button("chat", "Chat", kMsgToolChat);
	fUsersBtn = new_button("users", "Users", kMsgToolUsers);
	fFilesBtn = new_button("files", "Files", kMsgToolFiles);
	fTrackerBtn = new_button("tracker", "Tracker", kMsgToolTracker);
	fOptionsBtn = new_button("options", "Options", kMsgToolOptions);
	_InitButtonIcons();

	fStatusView = new BStringView("status", "Not connected", B_WILL_DRAW);
	fStatusView->SetFont(be_plain_font, B_FONT_ALL);
	// A server's name may be longer than any screen is wide; the window does not grow with it.
	fStatusView->SetTruncation(B_TRUNCATE_END);
	fStatusView->SetExplicitMinSize(BSize(0, B_SIZE_UNSET));

	fBannerView = new BannerView();
	fBannerView->SetExplicitMaxSize(BSize(B_SIZE_UNLIMITED, 0));

	// clang-format off
	BLayoutBuilder::Group<>(this, B_VERTICAL, 0)
		.Add(fMenuBar)
		.Add(fBannerView)
		.AddGroup(B_HORIZONTAL, B_USE_HALF_ITEM_SPACING, 1.0f)
			.SetInsets(B_USE_HALF_ITEM_INSETS, B_USE_HALF_ITEM_INSETS, B_USE_HALF_ITEM_INSETS, 0)
			.Add(fConnectBtn)
			.Add(fDisconnectBtn)
			.Add(new BSeparatorView(B_VERTICAL, B_PLAIN_BORDER))
			.Add(fChatBtn)
			.Add(fUsersBtn)
			.Add(fFilesBtn)
			.Add(fTrackerBtn)
			.AddGlue(1.0f)
			.Add(fOptionsBtn)
		.End()
		.AddGroup(B_HORIZONTAL, 0, 1.0f)
			.SetInsets(B_USE_HALF_ITEM_INSETS, 2, B_USE_HALF_ITEM_INSETS, B_USE_HALF_ITEM_INSETS)
			.Add(fStatusView);
	// clang-format on
}


/*!	A button whose picture is missing keeps its label alone. */
void
MainWindow::_InitButtonIcons()
{
	if (fAssetsPath.IsEmpty())
		return;

	const struct {
		BButton* button;
		const char* file;
	} icons[] = {
		{fConnectBtn, "2000.png"},
		{fDisconnectBtn, "412.png"},
		{fChatBtn, "238.png"},
		{fUsersBtn, "242.png"},
		{fFilesBtn, "235.png"},
		{fTrackerBtn, "431.png"},
		{fOptionsBtn, "419.png"},
	};
	for (const auto& icon : icons) {
		BString path;
		path.SetToFormat("%s/%s", fAssetsPath.String(), icon.file);
		const std::unique_ptr<BBitmap> bitmap(BTranslationUtils::GetBitmapFile(path.String()));
		if (bitmap != NULL)
			icon.button->SetIcon(bitmap.get(), 0);
	}
}
