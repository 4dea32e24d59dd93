/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "FileListWindow.h"

#include <Bitmap.h>
#include <Button.h>
#include <Entry.h>
#include <FilePanel.h>
#include <Font.h>
#include <LayoutBuilder.h>
#include <Message.h>
#include <Messenger.h>
#include <Path.h>
#include <ScrollView.h>
#include <StringView.h>

#include "AppMessages.h"
#include "ConnectionMark.h"
#include "Delivery.h"
#include "FileItem.h"
#include "ListRows.h"
#include "ProgramFolder.h"
#include "ToolTipListView.h"


/*!	\param path The folder on the server, empty or \c NULL for the root.
	\param assetsPath Where the pictures are, empty or \c NULL for nowhere.
	\param connection The number of the connection that what is asked for here is meant for.
*/
FileListWindow::FileListWindow(BRect frame, BLooper* target, const char* path,
	const char* assetsPath, uint32 connection)
	: BWindow(frame, "Files", B_DOCUMENT_WINDOW, B_AUTO_UPDATE_SIZE_LIMITS),
	  fFileList(new ToolTipListView("filelist")),
	  fFileScroll(new BScrollView("filescroll", fFileList, B_WILL_DRAW | B_FRAME_EVENTS, false,
		  true, B_FANCY_BORDER)),
	  fDownloadBtn(new BButton("download", "", new BMessage(kMsgDownloadBtn))),
	  fUploadBtn(new BButton("upload", "", new BMessage(kMsgUploadBtn))),
	  fCountLabel(new BStringView("countlabel", "No files", B_WILL_DRAW)),
	  fTarget(target),
	  fPath(path),
	  fAssetsPath(assetsPath),
	  fConnection(connection),
	  fFolderIcon(LoadPicture(assetsPath, kFolderPicture)),
	  fStuffItIcon(LoadPicture(assetsPath, kStuffItPicture)),
	  fImageIcon(LoadPicture(assetsPath, kImagePicture))
{
	_InitButtons();
	fFileList->SetInvocationMessage(new BMessage(kMsgFileInvoked));
	fFileList->SetTarget(this);
	fCountLabel->SetFont(be_bold_font, B_FONT_ALL);
	_InitLayout();

	BMessenger messenger(this);
	BMessage chosen(kMsgUploadFile);
	fFilePanel.reset(new BFilePanel(B_OPEN_PANEL, &messenger, NULL, B_FILE_NODE, false, &chosen,
		NULL, false, true));

	if (!fPath.IsEmpty()) {
		BString title;
		title << "Files — " << fPath;
		SetTitle(title.String());
	}
	fFileList->MakeFocus(true);
}


FileListWindow::~FileListWindow()
{
	DeleteRows(fFileList);
}


void
FileListWindow::MessageReceived(BMessage* message)
{
	switch (message->what) {
		case kMsgFileEntry:
			_HandleEntries(message);
			break;
		case kMsgFileClear:
			DeleteRows(fFileList);
			_UpdateCount();
			break;
		case kMsgFileInvoked:
			_HandleInvoked();
			break;
		case kMsgDownloadBtn:
			_HandleDownload();
			break;
		case kMsgUploadBtn:
			fFilePanel->Show();
			break;
		case kMsgUploadFile:
			_HandleUploadChosen(message);
			break;
		default:
			BWindow::MessageReceived(message);
	}
}


bool
FileListWindow::QuitRequested()
{
	BMessage notice(kMsgFileWinClosed);
	notice.AddPointer("window", this);
	AddConnection(&notice, fConnection);
	Deliver(fMessenger, &notice);
	return true;
}


/*!	The buttons show only a picture; the tool tip says in words what they do. */
void
FileListWindow::_InitButtons()
{
	fDownloadBtn->SetToolTip("Download");
	fUploadBtn->SetToolTip("Upload");
	ShowPicture(fDownloadBtn, fAssetsPath.String(), kDownloadPicture);
	ShowPicture(fUploadBtn, fAssetsPath.String(), kUploadPicture);
}


void
FileListWindow::_InitLayout()
{
	// clang-format off
	BLayoutBuilder::Group<>(this, B_VERTICAL, B_USE_SMALL_SPACING)
		.AddGroup(B_HORIZONTAL, 0)
			.SetInsets(B_USE_SMALL_INSETS, B_USE_SMALL_INSETS, B_USE_SMALL_INSETS, 0)
			.Add(fDownloadBtn)
			.Add(fUploadBtn)
			.AddGlue()
			.End()
		.Add(fFileScroll, 1.0f)
		.AddGroup(B_HORIZONTAL, 0)
			.SetInsets(B_USE_SMALL_INSETS, 0, B_USE_SMALL_INSETS, 0)
			.Add(fCountLabel)
			.AddGlue();
	// clang-format on
}


/*!	A listing replaces what was shown. */
void
FileListWindow::_HandleEntries(const BMessage* message)
{
	DeleteRows(fFileList);

	const char* name;
	for (int32 i = 0; message->FindString("name", i, &name) == B_OK; i++) {
		fFileList->AddItem(new FileItem(name, message->GetString("type", i, ""),
			message->GetString("creator", i, ""), message->GetInt32("size", i, 0),
			fFolderIcon.get(), fStuffItIcon.get(), fImageIcon.get()));
	}
	_UpdateCount();
}


void
FileListWindow::_HandleInvoked()
{
	const FileItem* item = SelectedRow<FileItem>(fFileList);
	if (item == NULL)
		return;
	if (!item->IsFolder()) {
		_RequestDownload(item);
		return;
	}

	BString path(fPath);
	if (!path.IsEmpty())
		path << "/";
	path << item->FileName();
	BMessage request(kMsgOpenFolder);
	request.AddString("path", path);
	_PostRequest(&request);
}


void
FileListWindow::_HandleDownload()
{
	const FileItem* item = SelectedRow<FileItem>(fFileList);
	if (item != NULL && !item->IsFolder())
		_RequestDownload(item);
}


/*!	A link goes under its own name, but has the size of what it leads to: that is what the upload
	will send.
*/
void
FileListWindow::_HandleUploadChosen(const BMessage* message)
{
	entry_ref ref;
	if (message->FindRef("refs", &ref) != B_OK)
		return;

	const BEntry entry(&ref, true);
	off_t size = 0;
	if (entry.GetSize(&size) != B_OK)
		size = 0;
	const BPath path(&ref);

	BMessage request(kMsgUploadFile);
	request.AddString("path", fPath);
	request.AddString("name", ref.name);
	request.AddString("localpath", path.Path());
	request.AddInt64("size", size);
	_PostRequest(&request);
}


void
FileListWindow::_RequestDownload(const FileItem* item)
{
	BMessage request(kMsgDownloadFile);
	request.AddString("path", fPath);
	request.AddString("name", item->FileName());
	_PostRequest(&request);
}


void
FileListWindow::_PostRequest(BMessage* request)
{
	AddConnection(request, fConnection);
	Deliver(fMessenger, request);
}


void
FileListWindow::_UpdateCount()
{
	const int32 count = fFileList->CountItems();
	BString text("No files");
	if (count > 0)
		text.SetToFormat("%" B_PRId32 " item%s", count, count == 1 ? "" : "s");
	fCountLabel->SetText(text.String());

	text = "Files";
	if (!fPath.IsEmpty())
		text << " — " << fPath;
	text << " (" << count << ")";
	SetTitle(text.String());
}
