/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <FilePanelPeer.h>

#include <QByteArray>
#include <QFile>
#include <QFileDialog>
#include <QStringList>

#include <AppDefs.h>
#include <Application.h>
#include <Entry.h>
#include <Path.h>


FilePanelPeer::FilePanelPeer(const BMessenger* target, const entry_ref* directory,
	bool allowMultipleSelection, const BMessage* message, bool modal, bool hideWhenDone)
	: fTarget(target != NULL ? *target : BMessenger(be_app)),
	  fMessage(message != NULL ? *message : BMessage(B_REFS_RECEIVED)),
	  fAllowMultipleSelection(allowMultipleSelection),
	  fModal(modal),
	  fHideWhenDone(hideWhenDone)
{
	if (directory != NULL)
		fDirectory = QFile::decodeName(BPath(directory).Path());
}


FilePanelPeer::~FilePanelPeer() = default;


void
FilePanelPeer::Show()
{
	if (fDialog == nullptr)
		_CreateDialog();
	fDialog->show();
	fDialog->raise();
	fDialog->activateWindow();
}


void
FilePanelPeer::Hide()
{
	if (fDialog != nullptr)
		fDialog->hide();
}


bool
FilePanelPeer::IsShowing() const
{
	return fDialog != nullptr && fDialog->isVisible();
}


/*!	The toolkit's own dialog, not the desktop's: it takes a typed path and looks the same everywhere. */
void
FilePanelPeer::_CreateDialog()
{
	fDialog.reset(new QFileDialog(nullptr, QStringLiteral("Open"), fDirectory));
	fDialog->setOption(QFileDialog::DontUseNativeDialog);
	fDialog->setAcceptMode(QFileDialog::AcceptOpen);
	fDialog->setFileMode(
		fAllowMultipleSelection ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile);
	fDialog->setModal(fModal);
	QObject::connect(fDialog.get(), &QFileDialog::filesSelected, fDialog.get(),
		[this](const QStringList& paths) {
			_FilesSelected(paths);
		});
}


/*!	What is no plain file was not to be chosen: reading a pipe would never end. */
void
FilePanelPeer::_FilesSelected(const QStringList& paths)
{
	BMessage message(fMessage);
	for (const QString& path : paths) {
		const QByteArray bytes = QFile::encodeName(path);
		entry_ref ref;
		if (BEntry(bytes.constData(), true).IsFile()
			&& get_ref_for_path(bytes.constData(), &ref) == B_OK)
			message.AddRef("refs", &ref);
	}
	if (message.HasRef("refs"))
		fTarget.SendMessage(&message);

	// The dialog has hidden itself.
	if (!fHideWhenDone)
		fDialog->show();
}
