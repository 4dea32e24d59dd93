/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ConnectionBar.h"

#include <Button.h>
#include <Font.h>
#include <Message.h>
#include <SeparatorView.h>
#include <String.h>
#include <StringView.h>

#include "AppMessages.h"
#include "ProgramFolder.h"


/*!	A button whose picture is missing has its label alone. */
static BButton*
new_button(const char* name, const char* label, uint32 what, const char* assetsPath,
	Picture picture)
{
	BButton* button = new BButton(name, label, new BMessage(what));
	ShowPicture(button, assetsPath, picture);
	return button;
}


/*!	\param assetsPath Where the pictures of the buttons are, empty for nowhere. */
ConnectionBar::ConnectionBar(const char* assetsPath)
	: fConnectBtn(new_button("connect", "Connect", kMsgToolConnect, assetsPath, kConnectPicture)),
	  fDisconnectBtn(new_button("disconnect", "Disconnect", kMsgToolDisconnect, assetsPath,
		  kDisconnectPicture)),
	  fChatBtn(new_button("chat", "Chat", kMsgToolChat, assetsPath, kChatPicture)),
	  fUsersBtn(new_button("users", "Users", kMsgToolUsers, assetsPath, kUsersPicture)),
	  fFilesBtn(new_button("files", "Files", kMsgToolFiles, assetsPath, kFilesPicture)),
	  fTrackerBtn(new_button("tracker", "Tracker", kMsgToolTracker, assetsPath, kTrackerPicture)),
	  fOptionsBtn(new_button("options", "Options", kMsgToolOptions, assetsPath, kOptionsPicture)),
	  fStatusView(new BStringView("status", "", B_WILL_DRAW))
{
	fStatusView->SetFont(be_plain_font, B_FONT_ALL);
	// A server's name may be longer than any screen is wide; the window does not grow with it.
	fStatusView->SetTruncation(B_TRUNCATE_END);
	fStatusView->SetExplicitMinSize(BSize(0, B_SIZE_UNSET));
	ShowNotConnected();
}


/*!	Adds the buttons, and below them the status line. */
void
ConnectionBar::AddTo(BLayoutBuilder::Group<>* layout)
{
	// clang-format off
	layout->AddGroup(B_HORIZONTAL, B_USE_HALF_ITEM_SPACING, 1.0f)
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


void
ConnectionBar::ShowNotConnected()
{
	_EnableButtons(false);
	fStatusView->SetText("Not connected");
}


void
ConnectionBar::ShowConnecting(const char* address, uint16 port)
{
	BString text;
	text.SetToFormat("Connecting to %s:%u…", address, static_cast<unsigned int>(port));
	fStatusView->SetText(text.String());
}


void
ConnectionBar::ShowLoggingIn()
{
	fStatusView->SetText("Connected — logging in…");
}


/*!	\param serverName Empty if the server has not told one. */
void
ConnectionBar::ShowLoggedIn(const char* serverName)
{
	_EnableButtons(true);
	if (serverName[0] != '\0')
		ShowServer(serverName);
	else
		fStatusView->SetText("Connected");
}


void
ConnectionBar::ShowServer(const char* name)
{
	BString text("Connected to ");
	text << name;
	fStatusView->SetText(text.String());
}


void
ConnectionBar::ShowFailed()
{
	fConnectBtn->SetEnabled(true);
	fDisconnectBtn->SetEnabled(false);
	fStatusView->SetText("Connection failed");
}


void
ConnectionBar::ShowLost()
{
	_EnableButtons(false);
	fStatusView->SetText("Disconnected");
}


/*!	The buttons that follow the connection. The others are always enabled. */
void
ConnectionBar::_EnableButtons(bool loggedIn)
{
	fConnectBtn->SetEnabled(!loggedIn);
	for (BButton* button : {fDisconnectBtn, fChatBtn, fUsersBtn, fFilesBtn})
		button->SetEnabled(loggedIn);
}
