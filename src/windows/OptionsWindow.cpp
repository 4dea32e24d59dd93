/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "OptionsWindow.h"

#include <memory>

#include <Bitmap.h>
#include <Button.h>
#include <Directory.h>
#include <Entry.h>
#include <Font.h>
#include <LayoutBuilder.h>
#include <Message.h>
#include <Path.h>
#include <ScrollView.h>
#include <SeparatorView.h>
#include <String.h>
#include <StringView.h>
#include <TextControl.h>

#include "AppMessages.h"
#include "Delivery.h"
#include "IconItem.h"
#include "IconName.h"
#include "ListRows.h"
#include "ProgramFolder.h"


static const float kLabelSpacing = 8.0f;
// All pictures of the list, in bytes. Thousands of small ones are no more than that.
static const int64 kMaxIconBytes = 32 * 1024 * 1024;
// What a file counts that is no picture: finding that out took its time.
static const int64 kVainIconBytes = 64 * 1024;


/*!	Orders rows of the picker by their numbers; for BListView::SortItems(). */
static int
_CompareIconItems(const void* first, const void* second)
{
	const uint16 a = (*static_cast<IconItem* const*>(first))->IconID();
	const uint16 b = (*static_cast<IconItem* const*>(second))->IconID();
	return static_cast<int>(a > b) - static_cast<int>(a < b);
}


OptionsWindow::OptionsWindow(BRect frame, BLooper* target, const char* nick, uint16 icon,
	const char* tracker, const char* assetsDir)
	: BWindow(frame, "Options", B_TITLED_WINDOW,
		B_NOT_ZOOMABLE | B_AUTO_UPDATE_SIZE_LIMITS | B_CLOSE_ON_ESCAPE),
	  fNickField(NULL),
	  fTrackerField(NULL),
	  fIconList(new BListView("iconlist", B_SINGLE_SELECTION_LIST,
		  B_WILL_DRAW | B_FRAME_EVENTS | B_NAVIGABLE)),
	  fIconScroll(new BScrollView("iconscroll", fIconList, B_WILL_DRAW | B_FRAME_EVENTS, false,
		  true, B_FANCY_BORDER)),
	  fIconLabel(new BStringView("iconlabel", "", B_WILL_DRAW)),
	  fTarget(target),
	  fSelectedIcon(icon)
{
	_InitFields(nick, tracker);
	_UpdateIconLabel();
	fIconList->SetSelectionMessage(new BMessage(kMsgIconSelected));
	fIconList->SetTarget(this);
	_InitLayout();
	_LoadIcons(assetsDir);
	CenterOnScreen();
}


OptionsWindow::~OptionsWindow()
{
	DeleteRows(fIconList);
}


void
OptionsWindow::MessageReceived(BMessage* message)
{
	switch (message->what) {
		case kMsgIconSelected:
			_HandleIconSelected();
			break;
		case kMsgOptionsSave:
			_HandleSave();
			break;
		default:
			BWindow::MessageReceived(message);
	}
}


bool
OptionsWindow::QuitRequested()
{
	return true;
}


void
OptionsWindow::_InitFields(const char* nick, const char* tracker)
{
	fNickField = new BTextControl("nick", "Username:", nick, NULL);
	fTrackerField = new BTextControl("tracker", "Tracker:", tracker, NULL);

	// One divider for both, wide enough for the longer label, lines the entry boxes up.
	const float divider = fTrackerField->StringWidth("Username:") + kLabelSpacing;
	fNickField->SetDivider(divider);
	fTrackerField->SetDivider(divider);
}


void
OptionsWindow::_InitLayout()
{
	BStringView* header = new BStringView("header", "Settings", B_WILL_DRAW);
	header->SetFont(be_bold_font, B_FONT_ALL);
	BStringView* iconHeader = new BStringView("iconheader", "User Icon", B_WILL_DRAW);
	iconHeader->SetFont(be_bold_font, B_FONT_ALL);
	// A label that may not be wider than its text would keep the window from being made wider.
	for (BStringView* label : {header, iconHeader, fIconLabel})
		label->SetExplicitMaxSize(BSize(B_SIZE_UNLIMITED, B_SIZE_UNSET));
	BButton* cancelButton = new BButton("cancel", "Cancel", new BMessage(B_QUIT_REQUESTED));
	BButton* saveButton = new BButton("save", "Save", new BMessage(kMsgOptionsSave));

	// clang-format off
	BLayoutBuilder::Group<>(this, B_VERTICAL, B_USE_DEFAULT_SPACING)
		.SetInsets(B_USE_WINDOW_INSETS)
		.Add(header)
		.Add(fNickField)
		.Add(fTrackerField)
		.Add(new BSeparatorView(B_HORIZONTAL, B_PLAIN_BORDER))
		.Add(iconHeader)
		.Add(fIconLabel)
		.Add(fIconScroll, 1.0f)
		.Add(new BSeparatorView(B_HORIZONTAL, B_PLAIN_BORDER))
		.AddGroup(B_HORIZONTAL, B_USE_DEFAULT_SPACING, 1.0f)
			.AddGlue(1.0f)
			.Add(cancelButton)
			.Add(saveButton);
	// clang-format on

	saveButton->MakeDefault(true);
}


/*!	Fills the picker with the numbered pictures of a folder; whatever else lies there is passed
	over, and so is what is left when they take too much memory.
*/
void
OptionsWindow::_LoadIcons(const char* dir)
{
	if (dir == NULL || dir[0] == '\0')
		return;
	BDirectory directory(dir);
	if (directory.InitCheck() != B_OK)
		return;

	BEntry entry;
	int64 bytes = 0;
	while (bytes < kMaxIconBytes && directory.GetNextEntry(&entry, false) == B_OK) {
		BPath path;
		if (entry.GetPath(&path) != B_OK)
			continue;
		const uint16 number = IconNumber(path.Leaf());
		if (number == 0)
			continue;
		std::unique_ptr<BBitmap> bitmap = LoadIcon(path.Path());
		if (bitmap == NULL) {
			bytes += kVainIconBytes;
			continue;
		}
		bytes += bitmap->BitsLength();
		fIconList->AddItem(new IconItem(number, bitmap.release()));
	}

	fIconList->SortItems(_CompareIconItems);
	_ScrollToSelected();
}


void
OptionsWindow::_ScrollToSelected()
{
	const int32 count = fIconList->CountItems();
	for (int32 i = 0; i < count; i++) {
		const IconItem* icon = RowCast<IconItem>(fIconList->ItemAt(i));
		if (icon != NULL && icon->IconID() == fSelectedIcon) {
			fIconList->Select(i);
			fIconList->ScrollToSelection();
			return;
		}
	}
}


void
OptionsWindow::_UpdateIconLabel()
{
	BString text;
	text.SetToFormat("Current icon: %u", fSelectedIcon);
	fIconLabel->SetText(text.String());
}


/*!	Deselecting keeps the number that was there. */
void
OptionsWindow::_HandleIconSelected()
{
	const IconItem* icon = SelectedRow<IconItem>(fIconList);
	if (icon == NULL)
		return;
	fSelectedIcon = icon->IconID();
	_UpdateIconLabel();
}


/*!	What is typed leaves as it is; the controller decides what an empty field means. */
void
OptionsWindow::_HandleSave()
{
	BMessage request(kMsgOptionsSave);
	request.AddString("nick", fNickField->Text());
	request.AddString("tracker", fTrackerField->Text());
	request.AddUInt16("icon", fSelectedIcon);
	Deliver(fMessenger, &request);

	PostMessage(B_QUIT_REQUESTED);
}
