/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef FILE_PANEL_PEER_H
#define FILE_PANEL_PEER_H


#include <memory>

#include <QString>
#include <QStringList>

#include <Message.h>
#include <Messenger.h>


class QFileDialog;
struct entry_ref;


/*!	The QFileDialog behind a file panel. There is one only while it is shown: its list of
	completions comes up when a folder has been read, also after the choice, and would take the
	keyboard from all windows. Main thread only.
*/
class FilePanelPeer {
public:
	FilePanelPeer(const BMessenger* target, const entry_ref* directory, bool allowMultipleSelection,
		const BMessage* message, bool modal, bool hideWhenDone);
	FilePanelPeer(const FilePanelPeer&) = delete;
	~FilePanelPeer();

	FilePanelPeer& operator=(const FilePanelPeer&) = delete;

	void Show();
	bool IsShowing() const;

private:
	void _CreateDialog();
	void _DropDialog();
	void _FilesSelected(const QStringList& paths);

	std::unique_ptr<QFileDialog> fDialog;
	BMessenger fTarget;
	BMessage fMessage;
	// Where the next dialog starts.
	QString fDirectory;
	bool fAllowMultipleSelection;
	bool fModal;
	bool fHideWhenDone;
};


#endif // FILE_PANEL_PEER_H
