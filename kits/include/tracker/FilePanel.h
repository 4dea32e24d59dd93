/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef FILE_PANEL_H
#define FILE_PANEL_H


#include <memory>

#include <Entry.h>
#include <Messenger.h>
#include <StorageDefs.h>


class BMessage;
class BRefFilter;
class FilePanelPeer;


enum file_panel_mode { B_OPEN_PANEL };


/*!	A window in which the user chooses a file, or types its path. What was chosen goes to the target
	as the panel's message with the entries added as "refs". No BWindow. Main thread only; closes
	when it is deleted.
	Differs from Haiku: only open panels for files, and a name that is not valid UTF-8 cannot be
	chosen.
*/
class BFilePanel {
public:
	BFilePanel(file_panel_mode mode = B_OPEN_PANEL, BMessenger* target = NULL,
		const entry_ref* directory = NULL, uint32 nodeFlavors = 0,
		bool allowMultipleSelection = true, BMessage* message = NULL, BRefFilter* filter = NULL,
		bool modal = false, bool hideWhenDone = true);
	BFilePanel(const BFilePanel&) = delete;
	virtual ~BFilePanel();

	BFilePanel& operator=(const BFilePanel&) = delete;

	void Show();
	bool IsShowing() const;

private:
	const std::unique_ptr<FilePanelPeer> fPeer;
};


#endif // FILE_PANEL_H
