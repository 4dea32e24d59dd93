/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <ListViewPeer.h>

#include <algorithm>
#include <cmath>

#include <QAccessible>
#include <QHelpEvent>
#include <QItemSelectionModel>

#include <ClientScope.h>
#include <ColorConversion.h>
#include <GeometryConversion.h>
#include <InterfaceDefs.h>
#include <ListDelegate.h>
#include <ListModel.h>
#include <ListWidget.h>
#include <TextConversion.h>
#include <ToolTipPrivate.h>
#include <WindowPeer.h>


// In pixels, without a frame.
static const int kMinWidth = 60;
static const int kMinHeight = 60;

static const int32 kManyRows = 1000;

static const QChar kEllipsis(0x2026);


/*!	Whether that is how a row draws its name: whole, or as much of it as fits. */
static bool
is_drawn_name(const QString& drawn, const QString& name)
{
	return drawn == name || (drawn.endsWith(kEllipsis) && name.startsWith(drawn.chopped(1)));
}


ListViewPeer::ListViewPeer(list_view_type type)
	: ViewPeer(new ListWidget(this)),
	  fRows(static_cast<ListWidget*>(Widget())),
	  fModel(new ListModel(this)),
	  fType(type),
	  fShownCount(0),
	  fRowHeight(0),
	  fFirstChanged(-1),
	  fLastChanged(-1),
	  fIsDrawing(false),
	  fIsSelecting(false),
	  fHasSelected(false)
{
	GetCanvas()->viewColor = ui_color(B_LIST_BACKGROUND_COLOR);
	fModel->setParent(fRows);
	fRows->setModel(fModel);
	ListDelegate* delegate = new ListDelegate(this);
	delegate->setParent(fRows);
	fRows->setItemDelegate(delegate);
	fRows->setSelectionMode(type == B_SINGLE_SELECTION_LIST ? QAbstractItemView::SingleSelection
															: QAbstractItemView::ExtendedSelection);
	QObject::connect(fRows->selectionModel(), &QItemSelectionModel::selectionChanged, fRows,
		[this]() {
			_SelectionChanged();
		});
}


ListViewPeer::~ListViewPeer() = default;


// #pragma mark - Rows


void
ListViewPeer::Add(BListItem* item)
{
	_Update(item, fItems.empty());
	fItems.push_back(item);
	ScheduleFlush();
}


/*!	A row that Qt has not heard of just goes. */
void
ListViewPeer::Remove(int32 index)
{
	if (index >= fShownCount) {
		fItems.erase(fItems.begin() + index);
		return;
	}
	// QListView would select another row instead.
	if (fRows->currentIndex().row() == index)
		fRows->selectionModel()->setCurrentIndex(QModelIndex(), QItemSelectionModel::NoUpdate);

	_MakeReaderForget();
	fModel->BeginRemove(index);
	fItems.erase(fItems.begin() + index);
	fShownCount--;
	fModel->EndRemove();
	// What has changed behind it has moved up.
	if (fFirstChanged > index)
		fFirstChanged--;
}


/*!	Told at once for all: a screen reader that has read the rows makes each removal a walk over
	them. Qt forgets the selection then and says nothing.
*/
void
ListViewPeer::RemoveAll()
{
	for (BListItem* item : fSelected)
		item->Deselect();
	fSelected.clear();
	fFirstChanged = -1;
	fLastChanged = -1;
	if (fShownCount == 0) {
		fItems.clear();
		return;
	}
	fModel->BeginReset();
	fItems.clear();
	fShownCount = 0;
	fModel->EndReset();
}


void
ListViewPeer::Sort(int (*compare)(const void*, const void*))
{
	fModel->BeginReset();
	std::stable_sort(fItems.begin(), fItems.end(), [compare](BListItem* a, BListItem* b) {
		return compare(&a, &b) < 0;
	});
	fShownCount = static_cast<int32>(fItems.size());
	fModel->EndReset();
}


void
ListViewPeer::Invalidate(int32 index)
{
	fFirstChanged = fFirstChanged < 0 ? index : std::min(fFirstChanged, index);
	fLastChanged = std::max(fLastChanged, index);
	ScheduleFlush();
}


/*!	\return Where a row stands in the view, seen or not. */
QRect
ListViewPeer::FrameOf(int32 index)
{
	_TellRows();
	return fRows->visualRect(fModel->index(index)).translated(fRows->viewport()->pos());
}


/*!	\return The row at a place in the view, -1 if there is none. */
int32
ListViewPeer::IndexAt(const QPoint& place)
{
	_TellRows();
	return fRows->indexAt(place - fRows->viewport()->pos()).row();
}


void
ListViewPeer::ScrollTo(int32 index)
{
	_TellRows();
	fRows->scrollTo(fModel->index(index));
}


// #pragma mark - Selection


/*!	\param extend Whether what is selected stays so, in lists where more than one row can be. */
bool
ListViewPeer::Select(int32 index, bool extend)
{
	_TellRows();
	fIsSelecting = true;
	fHasSelected = false;
	const bool keeps = extend && fType == B_MULTIPLE_SELECTION_LIST;
	fRows->selectionModel()->setCurrentIndex(fModel->index(index),
		keeps ? QItemSelectionModel::Select : QItemSelectionModel::ClearAndSelect);
	fIsSelecting = false;
	return fHasSelected;
}


bool
ListViewPeer::Deselect(int32 first, int32 last)
{
	_TellRows();
	fIsSelecting = true;
	fHasSelected = false;
	fRows->selectionModel()->select(QItemSelection(fModel->index(first), fModel->index(last)),
		QItemSelectionModel::Deselect);
	fIsSelecting = false;
	return fHasSelected;
}


/*!	\return The selected rows in their order. */
std::vector<int32>
ListViewPeer::Selection() const
{
	std::vector<int32> rows;
	for (const QModelIndex& index : fRows->selectionModel()->selectedIndexes())
		rows.push_back(index.row());
	std::sort(rows.begin(), rows.end());
	return rows;
}


// #pragma mark - View


QSize
ListViewPeer::MinSize()
{
	const int frame = 2 * fRows->frameWidth();
	return QSize(kMinWidth + frame, kMinHeight + frame);
}


QSize
ListViewPeer::MaxSize()
{
	return QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
}


QSize
ListViewPeer::PreferredSize()
{
	return fRows->sizeHint();
}


/*!	Rows set the font that they draw with, too; that changes nothing else. */
void
ListViewPeer::FontChanged()
{
	if (fIsDrawing)
		return;
	ViewPeer::FontChanged();
	bool isFirst = true;
	for (BListItem* item : fItems) {
		_Update(item, isFirst);
		isFirst = false;
	}
	fRows->doItemsLayout();
}


void
ListViewPeer::ColorsChanged()
{
	if (fIsDrawing)
		return;
	QPalette palette = fRows->palette();
	palette.setColor(QPalette::Base, color_to_toolkit(GetCanvas()->viewColor));
	fRows->setPalette(palette);
}


void
ListViewPeer::FlagsChanged()
{
	const bool navigable = (View()->Flags() & B_NAVIGABLE) != 0;
	fRows->setFocusPolicy(navigable ? Qt::StrongFocus : Qt::NoFocus);
}


/*!	It is asked for when the mouse rests, and belongs to a row: it says nothing about the list. */
void
ListViewPeer::ToolTipChanged(const char* /*text*/)
{
}


/*!	\param frame Of the row, in the coordinates of the painter. */
void
ListViewPeer::DrawRow(QPainter* painter, const QRect& frame, int32 index)
{
	DrawScope scope(this, painter);
	if (!scope.MayDraw()) {
		WindowPeer::Of(View()->Window())->Life()->RepaintLater(fRows->viewport());
		return;
	}
	// One row's colors and font are not the next one's.
	const Canvas canvas = *GetCanvas();
	fIsDrawing = true;
	fItems[index]->DrawItem(_List(), rect_from_toolkit(frame));
	fIsDrawing = false;
	*GetCanvas() = canvas;
}


int
ListViewPeer::HeightOf(int32 index) const
{
	return static_cast<int>(std::ceil(fItems[index]->Height()));
}


/*!	A row is called by its text; one that has none, by the first string that it draws. */
QString
ListViewPeer::NameOf(int32 index)
{
	const BStringItem* item = dynamic_cast<BStringItem*>(fItems[index]);
	if (item != NULL)
		return text_from_bytes(item->Text());
	const std::vector<std::string> strings = _StringsOf(index);
	return strings.empty() ? QString() : text_from_bytes(strings.front().c_str());
}


/*!	All that a row draws besides its name, which it may have cut to fit. */
QString
ListViewPeer::DescriptionOf(int32 index)
{
	const std::vector<std::string> strings = _StringsOf(index);
	const QString name = NameOf(index);
	bool isNameDrawn = false;
	QString description;
	for (const std::string& string : strings) {
		const QString text = text_from_bytes(string.c_str());
		if (!isNameDrawn && is_drawn_name(text, name)) {
			isNameDrawn = true;
			continue;
		}
		if (!description.isEmpty())
			description += QLatin1String(", ");
		description += text;
	}
	return description;
}


/*!	The mouse rests.
	\param frame Of the row under it, where it rests over one.
*/
void
ListViewPeer::ShowToolTip(QHelpEvent* event, const QRect& frame)
{
	ClientScope scope(View()->Window());
	if (!scope.MayEnter())
		return;
	BToolTip* tip = NULL;
	const QPoint place = event->pos() + fRows->viewport()->pos();
	if (_List()->GetToolTipAt(point_from_toolkit(place), &tip))
		tip->Show(event->globalPos(), fRows->viewport(), frame);
}


void
ListViewPeer::InvokeSelection()
{
	ClientScope scope(View()->Window());
	if (scope.MayEnter() && !fSelected.empty())
		_List()->Invoke();
}


void
ListViewPeer::Flush()
{
	_TellRows();
	if (fFirstChanged >= 0 && fFirstChanged < fShownCount) {
		const int32 last = std::min(fLastChanged, fShownCount - 1);
		emit fModel->dataChanged(fModel->index(fFirstChanged), fModel->index(last));
	}
	fFirstChanged = -1;
	fLastChanged = -1;
}


void
ListViewPeer::_TellRows()
{
	const int32 count = static_cast<int32>(fItems.size()) - fShownCount;
	if (count == 0)
		return;
	fModel->BeginInsert(fShownCount, count);
	fShownCount += count;
	fModel->EndInsert();
}


/*!	What a screen reader knows of the rows is numbered anew when one is removed, which takes as long
	as all of it. Of many rows it is told that they may be others now, and asks again for what it
	wants to know.
*/
void
ListViewPeer::_MakeReaderForget()
{
	if (fShownCount <= kManyRows || !QAccessible::isActive())
		return;
	QAccessibleTableModelChangeEvent event(fRows, QAccessibleTableModelChangeEvent::ModelReset);
	QAccessible::updateAccessibility(&event);
}


/*!	Lists whose rows are all of one height are laid out much faster. */
void
ListViewPeer::_Update(BListItem* item, bool isFirst)
{
	item->Update(_List(), &GetCanvas()->font);
	const int height = static_cast<int>(std::ceil(item->Height()));
	if (isFirst)
		fRowHeight = height;
	if (isFirst || height != fRowHeight)
		fRows->setUniformItemSizes(height == fRowHeight);
}


/*!	By the user, or by the program. The items know it from here on. */
void
ListViewPeer::_SelectionChanged()
{
	for (BListItem* item : fSelected)
		item->Deselect();
	fSelected.clear();
	for (int32 index : Selection()) {
		fSelected.push_back(fItems[index]);
		fSelected.back()->Select();
	}
	fHasSelected = true;
	if (fIsSelecting)
		return;
	ClientScope scope(View()->Window());
	if (scope.MayEnter())
		_List()->_SelectionChanged();
}


/*!	\return What a row draws as text, in order. It is asked to draw, but nothing is seen of it. */
std::vector<std::string>
ListViewPeer::_StringsOf(int32 index)
{
	std::vector<std::string> strings;
	DrawScope scope(this, NULL);
	if (!scope.MayDraw())
		return strings;
	const Canvas canvas = *GetCanvas();
	fIsDrawing = true;
	GetCanvas()->SetRecorder(&strings);
	fItems[index]->DrawItem(_List(),
		BRect(0, 0, static_cast<float>(fRows->viewport()->width() - 1),
			static_cast<float>(HeightOf(index) - 1)));
	fIsDrawing = false;
	*GetCanvas() = canvas;
	return strings;
}
