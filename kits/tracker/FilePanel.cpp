/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <FilePanel.h>

#include <FilePanelPeer.h>


/*!	\param target Where the choice goes; copied. NULL for the application.
	\param directory Where to start; NULL for where the user was last.
	\param message Copied; NULL for an empty B_REFS_RECEIVED.
*/
BFilePanel::BFilePanel(file_panel_mode /*mode*/, BMessenger* target, const entry_ref* directory,
	uint32 /*nodeFlavors*/, bool allowMultipleSelection, BMessage* message, BRefFilter* /*filter*/,
	bool modal, bool hideWhenDone)
	: fPeer(
		new FilePanelPeer(target, directory, allowMultipleSelection, message, modal, hideWhenDone))
{
}


BFilePanel::~BFilePanel() = default;


/*!	Shows the panel, or brings it to the front. */
void
BFilePanel::Show()
{
	fPeer->Show();
}


bool
BFilePanel::IsShowing() const
{
	return fPeer->IsShowing();
}
