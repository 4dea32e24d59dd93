/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ConnectionBar.h"

#include <algorithm>

#include <Button.h>
#include <Font.h>
#include <Message.h>
#include <SeparatorView.h>
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
	// A server's name may be longer than any screen is wide; the window does not grow with it, and
	// may be wider than it.
	fStatusView->SetTruncation(B_TRUNCATE_END);
	fStatusView->SetExplicitMinSize(BSize(0, B_SIZE_UNSET));
	fStatusView->SetExplicitMaxSize(BSize(B_SIZE_UNLIMITED, B_SIZE_UNSET));
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
	_ShowStatus("Not connected");
}


void
ConnectionBar::ShowConnecting(const char* address, uint16 port)
{
	BString text;
	text.SetToFormat("Connecting to %s:%u…", address, static_cast<unsigned int>(port));
	_ShowStatus(text);
}


void
ConnectionBar::ShowLoggingIn()
{
	_ShowStatus("Connected — logging in…");
}


/*!	\param serverName Empty if the server has not told one. */
void
ConnectionBar::ShowLoggedIn(const char* serverName)
{
	_EnableButtons(true);
	if (serverName[0] != '\0')
		ShowServer(serverName);
	else
		_ShowStatus("Connected");
}


void
ConnectionBar::ShowServer(const char* name)
{
	BString text("Connected to ");
	text << name;
	_ShowStatus(text);
}


void
ConnectionBar::ShowFailed()
{
	fConnectBtn->SetEnabled(true);
	fDisconnectBtn->SetEnabled(false);
	_ShowStatus("Connection failed");
}


void
ConnectionBar::ShowLost()
{
	_EnableButtons(false);
	_ShowStatus("Disconnected");
}


void
ConnectionBar::ShowOutOfMemory()
{
	_EnableButtons(false);
	_ShowStatus("Disconnected: out of memory");
}


/*!	The buttons that follow the connection. The others are always enabled. */
void
ConnectionBar::_EnableButtons(bool loggedIn)
{
	fConnectBtn->SetEnabled(!loggedIn);
	for (BButton* button : {fDisconnectBtn, fChatBtn, fUsersBtn, fFilesBtn})
		button->SetEnabled(loggedIn);
}


/*!	In one line: a server's name may have line feeds, which are shown as blanks. */
void
ConnectionBar::_ShowStatus(BString text)
{
	const int32 length = text.Length();
	char* bytes = text.LockBuffer(length);
	std::replace(bytes, bytes + length, '\n', ' ');
	text.UnlockBuffer(length);
	fStatusView->SetText(text.String());
}
