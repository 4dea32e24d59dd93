/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "UserListWindow.h"

#include <cstring>

#include <Bitmap.h>
#include <Font.h>
#include <LayoutBuilder.h>
#include <Message.h>
#include <ScrollView.h>
#include <StringView.h>

#include "AppMessages.h"
#include "ConnectionMark.h"
#include "Delivery.h"
#include "ListRows.h"
#include "ProgramFolder.h"
#include "ToolTipListView.h"
#include "UserItem.h"


UserListWindow::UserListWindow(BRect frame, BLooper* target)
	: BWindow(frame, "Users Online", B_DOCUMENT_WINDOW, B_AUTO_UPDATE_SIZE_LIMITS),
	  fUserList(new ToolTipListView("userlist")),
	  fNextNumber(0),
	  fUserScroll(new BScrollView("userscroll", fUserList, B_WILL_DRAW | B_FRAME_EVENTS, false,
		  true, B_FANCY_BORDER)),
	  fCountLabel(new BStringView("countlabel", "0 users online", B_WILL_DRAW)),
	  fTarget(target),
	  fConnection(0),
	  fIconCache(),
	  fIconCacheCount(0),
	  fAssetsDir(ProgramFolder().AssetsPath())
{
	fUserList->SetInvocationMessage(new BMessage(kMsgUserInvoked));
	fUserList->SetTarget(this);
	fCountLabel->SetFont(be_bold_font, B_FONT_ALL);

	// clang-format off
	BLayoutBuilder::Group<>(this, B_VERTICAL, B_USE_SMALL_SPACING)
		.SetInsets(0, 0, 0, B_USE_SMALL_INSETS)
		.Add(fUserScroll, 1.0f)
		.AddGroup(B_HORIZONTAL, 0, 1.0f)
			.SetInsets(B_USE_SMALL_INSETS, 0, B_USE_SMALL_INSETS, 0)
			.Add(fCountLabel)
			.AddGlue(1.0f);
	// clang-format on
}


UserListWindow::~UserListWindow()
{
	DeleteRows(fUserList);
}


void
UserListWindow::MessageReceived(BMessage* message)
{
	switch (message->what) {
		case kMsgAddUser:
			_HandleAdd(message);
			break;
		case kMsgRemoveUser:
			_HandleRemove(message);
			break;
		case kMsgRemoveAll:
			_RemoveAll();
			break;
		case kMsgUserInvoked:
			_HandleInvoked();
			break;
		default:
			BWindow::MessageReceived(message);
	}
}


/*!	The window stays, out of sight, and goes on keeping its list. */
bool
UserListWindow::QuitRequested()
{
	Minimize(true);
	return false;
}


/*!	Reads each picture once, and remembers that one is missing, too.
	\return \c NULL if there is no picture for the id; otherwise owned by the window and good until
	the next call.
*/
const BBitmap*
UserListWindow::IconForID(uint16 id)
{
	for (int32 i = 0; i < fIconCacheCount; i++) {
		if (fIconCache[i].id == id)
			return fIconCache[i].bitmap.get();
	}

	if (fIconCacheCount == kMaxCachedIcons) {
		fUncachedIcon = _LoadIcon(id);
		return fUncachedIcon.get();
	}

	IconEntry& entry = fIconCache[fIconCacheCount++];
	entry.id = id;
	entry.bitmap = _LoadIcon(id);
	return entry.bitmap.get();
}


/*!	A user who is in the list already only changes, and keeps the place. */
void
UserListWindow::_HandleAdd(const BMessage* message)
{
	const uint16 socket = message->GetUInt16("socket", 0);
	const uint16 icon = message->GetUInt16("icon", 0);
	const uint16 color = message->GetUInt16("color", 0);
	const char* nick = message->GetString("nick", "???");
	fConnection = ConnectionOf(message);

	int32 index;
	UserItem* user = _FindUser(socket, &index);
	if (user != NULL) {
		if (strcmp(user->Text(), nick) != 0)
			fUserList->SetToolTip("");
		user->SetNick(nick);
		user->SetIcon(icon);
		user->SetColor(color);
		fUserList->InvalidateItem(index);
	} else {
		user = new UserItem(socket, icon, color, nick, this);
		user->SetNumber(fNextNumber++);
		fUsers[socket] = user;
		fUserList->AddItem(user);
	}
	_UpdateTitle();
}


void
UserListWindow::_HandleRemove(const BMessage* message)
{
	int32 index;
	const UserItem* user = _FindUser(message->GetUInt16("socket", 0), &index);
	if (user != NULL) {
		fUsers.erase(user->Socket());
		delete fUserList->RemoveItem(index);
	}
	_UpdateTitle();
}


void
UserListWindow::_RemoveAll()
{
	fUsers.clear();
	DeleteRows(fUserList);
	_UpdateTitle();
}


void
UserListWindow::_HandleInvoked()
{
	const UserItem* user = SelectedRow<UserItem>(fUserList);
	if (user == NULL)
		return;

	BMessage request(kMsgOpenPM);
	request.AddUInt16("socket", user->Socket());
	request.AddString("nick", user->Text());
	AddConnection(&request, fConnection);
	Deliver(fMessenger, &request);
}


std::unique_ptr<BBitmap>
UserListWindow::_LoadIcon(uint16 id) const
{
	return LoadPicture(fAssetsDir.String(), id);
}


/*!	\param _index Receives the place of the row; untouched if there is none. */
UserItem*
UserListWindow::_FindUser(uint16 socket, int32* _index) const
{
	const auto found = fUsers.find(socket);
	if (found == fUsers.end())
		return NULL;
	*_index = _IndexOf(found->second);
	return found->second;
}


/*!	Rows are appended, so they stand in the order of their numbers. One that is no user has none.
	\param user One of the list.
*/
int32
UserListWindow::_IndexOf(const UserItem* user) const
{
	const BListItem** items = fUserList->Items();
	int32 low = 0;
	int32 high = fUserList->CountItems();
	while (low < high) {
		const int32 middle = (low + high) / 2;
		int32 index = middle;
		while (index < high && RowCast<UserItem>(items[index]) == NULL)
			index++;
		const UserItem* row = index < high ? RowCast<UserItem>(items[index]) : NULL;
		if (row == user)
			return index;
		if (row != NULL && row->Number() < user->Number())
			low = index + 1;
		else
			high = middle;
	}
	return -1;
}


void
UserListWindow::_UpdateTitle()
{
	const int32 count = fUserList->CountItems();
	BString text;
	text.SetToFormat("Users Online (%" B_PRId32 ")", count);
	SetTitle(text.String());
	text.SetToFormat("%" B_PRId32 " user%s online", count, count == 1 ? "" : "s");
	fCountLabel->SetText(text.String());
}
