/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef FOLDER_WINDOWS_H
#define FOLDER_WINDOWS_H


#include <String.h>

#include "WindowList.h"


class BLooper;
class BMessage;
class FileListWindow;


/*!	The file list windows, each of which shows a folder on the server. Lives in the main window's
	thread; borrows the windows, and the target that they post to.
*/
class FolderWindows {
public:
	FolderWindows(BLooper* target, const char* assetsPath);

	void Open(const char* path, uint32 connection);
	void PassOn(const BMessage* listing);
	void Forget(const BMessage* notice);
	void CloseAll();
	void QuitAll();

private:
	BLooper* fTarget;
	BString fAssetsPath;
	WindowList<FileListWindow> fFileWindows;
};


#endif // FOLDER_WINDOWS_H
