/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ScreenReader.h"

#include <QAccessible>
#include <QWidget>

#include <GeometryConversion.h>
#include <ViewPeer.h>

#include "UserInput.h"


using TextQuestion = QString (
	QAccessibleTextInterface::*)(int, QAccessible::TextBoundaryType, int*, int*) const;

static std::vector<std::string> sHeard;
// The text or list that is listened to, NULL for none.
static const QObject* sListenedTo = NULL;


static std::string
range(int start, int end)
{
	return std::to_string(start) + ".." + std::to_string(end);
}


/*!	The toolkit's record of what was read follows the rows. */
static void
hear_of_rows(QAccessibleEvent* event)
{
	auto* changed = static_cast<QAccessibleTableModelChangeEvent*>(event);
	event->accessibleInterface()->tableInterface()->modelChange(changed);
	const std::string rows = range(changed->firstRow(), changed->lastRow());
	switch (changed->modelChangeType()) {
		case QAccessibleTableModelChangeEvent::ModelReset:
			sHeard.emplace_back("rows reset");
			break;
		case QAccessibleTableModelChangeEvent::RowsInserted:
			sHeard.push_back("rows inserted " + rows);
			break;
		case QAccessibleTableModelChangeEvent::RowsRemoved:
			sHeard.push_back("rows removed " + rows);
			break;
		default:
			break;
	}
}


static void
hear(QAccessibleEvent* event)
{
	switch (event->type()) {
		case QAccessible::TextInserted:
		{
			const auto* inserted = static_cast<QAccessibleTextInsertEvent*>(event);
			sHeard.push_back("inserted " + std::to_string(inserted->changePosition()) + " "
				+ inserted->textInserted().toStdString());
			break;
		}
		case QAccessible::TextRemoved:
		{
			const auto* removed = static_cast<QAccessibleTextRemoveEvent*>(event);
			sHeard.push_back("removed " + std::to_string(removed->changePosition()) + " "
				+ removed->textRemoved().toStdString());
			break;
		}
		case QAccessible::TextCaretMoved:
		{
			const auto* moved = static_cast<QAccessibleTextCursorEvent*>(event);
			sHeard.push_back("caret " + std::to_string(moved->cursorPosition()));
			break;
		}
		case QAccessible::TextSelectionChanged:
		{
			const auto* selected = static_cast<QAccessibleTextSelectionEvent*>(event);
			sHeard.push_back(
				"selected " + range(selected->selectionStart(), selected->selectionEnd()));
			break;
		}
		case QAccessible::TableModelChanged:
			hear_of_rows(event);
			break;
		default:
			break;
	}
}


// On the offscreen platform there is nobody whom the toolkit would tell anything. Both take its
// place for the kits.
bool
QAccessible::isActive()
{
	return sListenedTo != NULL;
}


void
QAccessible::updateAccessibility(QAccessibleEvent* event)
{
	if (sListenedTo != NULL && event->object() == sListenedTo)
		hear(event);
}


// #pragma mark -


ScreenReader::ScreenReader(BView* view)
	: fView(view)
{
	sHeard.clear();
	sListenedTo = ViewPeer::Of(view)->FocusWidget();
}


ScreenReader::~ScreenReader()
{
	sListenedTo = NULL;
}


int
ScreenReader::CountCharacters() const
{
	return _Text()->characterCount();
}


int
ScreenReader::Caret() const
{
	return _Text()->cursorPosition();
}


void
ScreenReader::SetCaret(int position)
{
	_Text()->setCursorPosition(position);
}


std::string
ScreenReader::Selection() const
{
	if (_Text()->selectionCount() == 0)
		return std::string();
	int start = 0;
	int end = 0;
	_Text()->selection(0, &start, &end);
	return range(start, end);
}


void
ScreenReader::Select(int start, int end)
{
	_Text()->setSelection(0, start, end);
}


void
ScreenReader::RemoveSelection()
{
	_Text()->removeSelection(0);
}


std::string
ScreenReader::Text(int start, int end) const
{
	return _Text()->text(start, end).toStdString();
}


/*!	What the text says at a position, and from where to where. */
static std::string
read(QAccessibleTextInterface* text, TextQuestion ask, int position, text_boundary boundary)
{
	int start = 0;
	int end = 0;
	const QString found = (text->*ask)(position,
		static_cast<QAccessible::TextBoundaryType>(boundary), &start, &end);
	return range(start, end) + " " + found.toStdString();
}


std::string
ScreenReader::Before(int position, text_boundary boundary) const
{
	return read(_Text(), &QAccessibleTextInterface::textBeforeOffset, position, boundary);
}


std::string
ScreenReader::At(int position, text_boundary boundary) const
{
	return read(_Text(), &QAccessibleTextInterface::textAtOffset, position, boundary);
}


std::string
ScreenReader::After(int position, text_boundary boundary) const
{
	return read(_Text(), &QAccessibleTextInterface::textAfterOffset, position, boundary);
}


std::string
ScreenReader::Attributes(int position) const
{
	int start = 0;
	int end = 0;
	const QString text = _Text()->attributes(position, &start, &end);
	return range(start, end) + " " + text.toStdString();
}


BRect
ScreenReader::PlaceOf(int position) const
{
	const QRect rect = _Text()->characterRect(position);
	const QPoint corner = ViewPeer::Of(fView)->Widget()->mapFromGlobal(rect.topLeft());
	return rect_from_toolkit(QRect(corner, rect.size()));
}


int
ScreenReader::PositionAt(BPoint where) const
{
	return accessible_position_at(fView, where);
}


void
ScreenReader::ScrollTo(int start, int end)
{
	_Text()->scrollToSubstring(start, end);
}


bool
ScreenReader::IsText() const
{
	return QAccessible::queryAccessibleInterface(ViewPeer::Of(fView)->FocusWidget())->role()
		== QAccessible::EditableText;
}


std::vector<std::string>
ScreenReader::Heard()
{
	std::vector<std::string> heard;
	heard.swap(sHeard);
	return heard;
}


QAccessibleTextInterface*
ScreenReader::_Text() const
{
	return QAccessible::queryAccessibleInterface(ViewPeer::Of(fView)->FocusWidget())
		->textInterface();
}
