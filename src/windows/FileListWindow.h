/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef FILE_LIST_WINDOW_H
#define FILE_LIST_WINDOW_H


#include <memory>

#include <Messenger.h>
#include <String.h>
#include <Window.h>


class BBitmap;
class BButton;
class BFilePanel;
class BListView;
class BLooper;
class BScrollView;
class BStringView;
class FileItem;


/*!	One folder on the server. The controller fills it with kMsgFileEntry; every action of the user
	is posted to the controller.
	Tells the controller when it closes. Owns its rows, their pictures and the upload chooser.
*/
class FileListWindow : public BWindow {
public:
	FileListWindow(BRect frame, BLooper* target, const char* path, const char* assetsPath,
		uint32 connection = 0);
	~FileListWindow() override;

	// The folder on the server, empty for the root.
	const char* Path() const { return fPath.String(); }

	void MessageReceived(BMessage* message) override;
	bool QuitRequested() override;

private:
	void _InitButtons();
	void _InitLayout();
	void _HandleEntries(const BMessage* message);
	void _HandleInvoked();
	void _HandleDownload();
	void _HandleUploadChosen(const BMessage* message);
	void _RequestDownload(const FileItem* item);
	void _PostRequest(BMessage* request);
	void _UpdateCount();

	BListView* fFileList;
	BScrollView* fFileScroll;
	BButton* fDownloadBtn;
	BButton* fUploadBtn;
	BStringView* fCountLabel;
	BLooper* fTarget;
	BMessenger fMessenger{fTarget};
	BString fPath;
	BString fAssetsPath;
	const uint32 fConnection;
	std::unique_ptr<BBitmap> fFolderIcon;
	std::unique_ptr<BBitmap> fStuffItIcon;
	std::unique_ptr<BBitmap> fImageIcon;
	std::unique_ptr<BFilePanel> fFilePanel;
};


#endif // FILE_LIST_WINDOW_H
