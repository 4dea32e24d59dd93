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


/*!	The toolkit's file dialog behind a file panel, made when it is first shown. Main thread only. */
class FilePanelPeer {
public:
	FilePanelPeer(const BMessenger* target, const entry_ref* directory, bool allowMultipleSelection,
		const BMessage* message, bool modal, bool hideWhenDone);
	FilePanelPeer(const FilePanelPeer&) = delete;
	~FilePanelPeer();

	FilePanelPeer& operator=(const FilePanelPeer&) = delete;

	void Show();
	void Hide();
	bool IsShowing() const;

private:
	void _CreateDialog();
	void _FilesSelected(const QStringList& paths);

	std::unique_ptr<QFileDialog> fDialog;
	BMessenger fTarget;
	BMessage fMessage;
	QString fDirectory;
	bool fAllowMultipleSelection;
	bool fModal;
	bool fHideWhenDone;
};


#endif // FILE_PANEL_PEER_H
