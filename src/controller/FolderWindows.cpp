/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "FolderWindows.h"

#include <cstring>

#include <Message.h>

#include "AppMessages.h"
#include "FileListWindow.h"


/*!	\param assetsPath Where the pictures of the windows are, empty for nowhere. */
FolderWindows::FolderWindows(BLooper* target, const char* assetsPath)
	: fTarget(target),
	  fAssetsPath(assetsPath)
{
}


/*!	\param path Of the folder on the server; \c NULL for the root. Opening one twice gives two
	windows.
	\param connection The number of the connection that what is asked for there is meant for.
*/
void
FolderWindows::Open(const char* path, uint32 connection)
{
	FileListWindow* window = new FileListWindow(BRect(200, 150, 560, 500), fTarget, path,
		fAssetsPath.String(), connection);
	fFileWindows.Add(window);
	window->Show();
}


/*!	Passes a kHLFileListReceived on to the first window that shows its folder; without one it is
	dropped.
*/
void
FolderWindows::PassOn(const BMessage* listing)
{
	const char* path = listing->GetString("path", "");
	fFileWindows.UseFirst([listing, path](FileListWindow* window) {
		if (strcmp(window->Path(), path) != 0)
			return false;
		BMessage entries(*listing);
		entries.what = kMsgFileEntry;
		window->PostMessage(&entries);
		return true;
	});
}


/*!	\param notice A kMsgFileWinClosed. */
void
FolderWindows::Forget(const BMessage* notice)
{
	void* window;
	if (notice->FindPointer("window", &window) == B_OK)
		fFileWindows.Remove(window);
}


/*!	Asks every window to close and forgets it. */
void
FolderWindows::CloseAll()
{
	fFileWindows.CloseAll();
}


/*!	Ends every window without asking it. */
void
FolderWindows::QuitAll()
{
	fFileWindows.QuitAll();
}
