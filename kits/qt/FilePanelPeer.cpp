/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <FilePanelPeer.h>

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QMessageBox>
#include <QSettings>
#include <QShortcut>
#include <QStringList>
#include <QTreeView>

#include <AppDefs.h>
#include <Application.h>
#include <Entry.h>
#include <Path.h>


// Columns of the list of files in a QFileDialog.
static const int kNameColumn = 0;
static const int kTypeColumn = 2;


/*!	Says itself when there is no such file, as QFileDialog would do in an event loop of its own,
	below which the panel and the window that it belongs to cannot be deleted. Has the keys of any
	window.
*/
class PanelDialog : public QFileDialog {
public:
	explicit PanelDialog(const QString& directory)
		: QFileDialog(NULL, QStringLiteral("Open"), directory)
	{
		setOption(QFileDialog::DontUseNativeDialog);
		_FitColumns();
		// Not as keys that nobody wanted: the field for the name takes them all.
		connect(new QShortcut(Qt::CTRL | Qt::Key_W, this), &QShortcut::activated, this,
			&QDialog::reject);
		connect(new QShortcut(Qt::CTRL | Qt::Key_Q, this), &QShortcut::activated, this, [] {
			be_app->PostMessage(B_QUIT_REQUESTED);
		});
	}

	void accept() override
	{
		for (const QString& path : selectedFiles()) {
			if (!QFileInfo::exists(path)) {
				_SayMissing(path);
				return;
			}
		}
		QFileDialog::accept();
	}

private:
	/*!	Sizes and dates are read whole, names get the rest. What type a file is its name tells. */
	void _FitColumns()
	{
		QTreeView* files = findChild<QTreeView*>();
		if (files == NULL)
			return;

		files->hideColumn(kTypeColumn);
		QHeaderView* header = files->header();
		header->setStretchLastSection(false);
		// By the rows that are seen, as there may be very many.
		header->setResizeContentsPrecision(0);
		header->setSectionResizeMode(QHeaderView::ResizeToContents);
		header->setSectionResizeMode(kNameColumn, QHeaderView::Stretch);
	}

	void _SayMissing(const QString& path)
	{
		QMessageBox* box = new QMessageBox(QMessageBox::Warning, windowTitle(),
			path + QStringLiteral("\nThere is no such file."), QMessageBox::Ok, this);
		box->setTextFormat(Qt::PlainText);
		box->setAttribute(Qt::WA_DeleteOnClose);
		box->open();
	}
};

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
	if (fDialog == NULL)
		_CreateDialog();
	fDialog->show();
	fDialog->raise();
	fDialog->activateWindow();
}


bool
FilePanelPeer::IsShowing() const
{
	return fDialog != NULL;
}


/*!	Qt's own dialog, not the desktop's: it takes a typed path and looks the same
	everywhere.
*/
void
FilePanelPeer::_CreateDialog()
{
	// It would leave the folders that were visited in a file of the user's.
	QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("/dev/null"));

	fDialog.reset(new PanelDialog(fDirectory));
	fDialog->setAcceptMode(QFileDialog::AcceptOpen);
	fDialog->setFileMode(
		fAllowMultipleSelection ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile);
	fDialog->setModal(fModal);
	QObject::connect(fDialog.get(), &QFileDialog::filesSelected, fDialog.get(),
		[this](const QStringList& paths) {
			_FilesSelected(paths);
		});
	QObject::connect(fDialog.get(), &QFileDialog::finished, fDialog.get(), [this]() {
		_DropDialog();
	});
}


/*!	The dialog has hidden itself, but is still at work. */
void
FilePanelPeer::_DropDialog()
{
	if (fDialog == NULL)
		return;
	fDirectory = fDialog->directory().absolutePath();
	fDialog.release()->deleteLater();
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
	if (message.HasData("refs", B_REF_TYPE))
		fTarget.SendMessage(&message);

	_DropDialog();
	// Where a typed path has led the dialog knows nothing of.
	if (!paths.isEmpty())
		fDirectory = QFileInfo(paths.first()).absolutePath();
	if (!fHideWhenDone)
		Show();
}
