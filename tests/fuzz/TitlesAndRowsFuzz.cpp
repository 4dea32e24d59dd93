/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include <QFontMetricsF>
#include <QString>

#include <Application.h>
#include <Font.h>
#include <LayoutBuilder.h>
#include <ListView.h>
#include <String.h>
#include <StringView.h>
#include <Window.h>

#include "ApplicationPrivate.h"
#include "FileItem.h"
#include "FontConversion.h"
#include "FrameScheduler.h"
#include "Require.h"
#include "ScreenReader.h"
#include "ServerItem.h"
#include "TextConversion.h"
#include "TextCutting.h"
#include "UserInput.h"


/*!	A window with a label and a list, which is listened to, for all inputs. */
struct Screen {
	Screen();

	BApplication* application;
	BWindow* window;
	BStringView* label;
	BListView* list;
	std::unique_ptr<ScreenReader> reader;
};


Screen::Screen()
{
	setenv("QT_QPA_PLATFORM", "offscreen", 0);
	application = new BApplication("application/x-vnd.Palimbra-fuzz");
	ApplicationPrivate::Start(application);
	window = new BWindow(BRect(0, 0, 199, 199), "", B_DOCUMENT_WINDOW, 0);
	label = new BStringView("label", "");
	label->SetTruncation(B_TRUNCATE_END);
	list = new BListView("list");
	BLayoutBuilder::Group<>(window, B_VERTICAL, 0).Add(label).Add(list);
	window->Show();
	window->Lock();
	reader = std::make_unique<ScreenReader>(list);
}


static void
show_frame()
{
	FrameScheduler::Default()->FlushAll();
	ApplicationPrivate::ProcessEvents(0);
}


static void
check_row(const Screen& screen, BListItem* item, const std::string& name)
{
	screen.list->AddItem(item);
	show_frame();
	const Accessible row = accessible_of_row(screen.list, 0);
	require(row.name == text_from_bytes(name.c_str()).toStdString(), "a row is called by its name");
	require(screen.list->RemoveItem(int32(0)) == item, "a row is given back");
	require(!screen.reader->Heard().empty(), "what happens to rows is heard");
}


static void
check_rows(const Screen& screen, const std::string& text, float width)
{
	FileItem file(text.c_str(), "TEXT", "ttxt", 10, NULL, NULL, NULL);
	require(text == file.Text(), "a file's name stands as it is");
	const BString tip = file.ToolTipText(width);
	require(tip.IsEmpty() || text == tip.String(), "what has no room is all told");
	check_row(screen, &file, text);

	ServerItem server(text.c_str(), text.c_str(), "127.0.0.1", 5500, 1);
	require(text == server.Text(), "a server's name stands as it is");
	check_row(screen, &server, text);
}


static bool
turns_text(QChar character)
{
	switch (character.direction()) {
		case QChar::DirLRE:
		case QChar::DirLRO:
		case QChar::DirRLE:
		case QChar::DirRLO:
		case QChar::DirPDF:
		case QChar::DirLRI:
		case QChar::DirRLI:
		case QChar::DirFSI:
		case QChar::DirPDI:
			return true;
		default:
			return character == QChar(0x200e) || character == QChar(0x200f)
				|| character == QChar(0x61c);
	}
}


/*!	How a text is cut where it has no room. */
static void
check_cut(const std::string& bytes, float width)
{
	const QString text = text_from_bytes(bytes.c_str());
	const QFontMetricsF& metrics = metrics_of_font(*be_plain_font);
	const QString seen = seen_front(text, metrics, width);
	require(text.startsWith(seen), "the front is seen");
	require(seen.isValidUtf16(), "no half of a character is seen");

	BString cut(bytes.c_str());
	be_plain_font->TruncateString(&cut, B_TRUNCATE_END, width);
	if (bytes == cut.String())
		return;
	QString left = QString::fromUtf8(cut.String());
	require(left.isValidUtf16() && left.toUtf8() == cut.String(), "what is left is whole");
	if (left.isEmpty()) {
		require(be_plain_font->StringWidth("…") > width, "an ellipsis has no room");
		return;
	}
	// Those of what was cut off which turn the text around are kept behind the ellipsis.
	while (turns_text(left.back()))
		left.chop(1);
	require(left.endsWith(QChar(0x2026)), "what is cut says so");
	left.chop(1);
	// A letter that was joined to the next one stays so.
	if (left.endsWith(QChar(0x200d)) && !text.startsWith(left))
		left.chop(1);
	require(text.startsWith(left), "what is left is the front");
	require(left.size() <= seen.size(), "what is left was looked at");
}


/*!	The first byte is the width that the text has room for, in pixels. */
extern "C" int
LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
	static const Screen screen;
	if (size == 0)
		return 0;
	const float width = data[0];
	std::string text(reinterpret_cast<const char*>(data + 1), size - 1);
	text.resize(strlen(text.c_str()));

	screen.window->SetTitle(text.c_str());
	screen.label->SetText(text.c_str());
	show_frame();
	require(text == screen.window->Title(), "a title stands as it is");
	require(text == screen.label->Text(), "a label stands as it is");
	require(accessible_of(screen.label).name == text_from_bytes(text.c_str()).toStdString(),
		"a label is read as it is");
	check_rows(screen, text, width);
	check_cut(text, width);
	return 0;
}
