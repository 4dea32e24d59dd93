/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
// The least that shows a folder of many files with the toolkit: a list view with a model and a
// delegate of its own.

#include <string>
#include <vector>

#include <QApplication>
#include <QListView>
#include <QSocketNotifier>
#include <QtEndian>
#include <QVBoxLayout>

#include "Figures.h"
#include "FloorDelegate.h"
#include "FloorModel.h"
#include "ListingMeasure.h"
#include "Partner.h"
#include "Stream.h"


static const char* const kRowCount = "10000";

// Of a transaction, in bytes.
static const size_t kHeaderSize = 22;

// The rows of the program's window have this place, with their frame and scroll bar.
static const QPoint kWindowPlace(200, 150);
static const QSize kListSize(361, 286);

// In pixels.
static const int kFontSize = 12;


static int
open_connection(const Partner& partner)
{
	const int socket = ConnectToLoopback(partner.Port());
	char answer[8];
	SendFully(socket, "TRTPHOTL\0\1\0\2", 12);
	ReceiveFully(socket, answer, sizeof(answer));
	return socket;
}


static void
prepare(QListView* list)
{
	list->setUniformItemSizes(true);
	list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
	list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
	list->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
	list->setEditTriggers(QAbstractItemView::NoEditTriggers);
}


/*!	Asks for the files. */
static void
send_request(int socket)
{
	static const char kRequest[kHeaderSize] = {0, 0, 0, static_cast<char>(200), 0, 0, 0, 1, 0, 0, 0,
		0, 0, 0, 0, 2, 0, 0, 0, 2};
	SendFully(socket, kRequest, sizeof(kRequest));
}


static void
receive_rows(int socket, FloorModel& model)
{
	char header[kHeaderSize];
	ReceiveFully(socket, header, sizeof(header));
	std::vector<char> payload(qFromBigEndian<quint32>(header + 12) - 2);
	ReceiveFully(socket, payload.data(), payload.size());
	model.SetRows(FloorModel::ReadRows(payload));
}


/*!	Fonts and pictures have been used before, as they have in the program, which shows other windows
	first.
*/
static void
warm_up(FloorModel& model)
{
	const QString name = QStringLiteral("Logbook and Charts of 0123456789 (final).txt");
	model.SetRows({{name, 123, FloorRow::kPlain}, {name, 45678, FloorRow::kFolder},
		{name, 4567890, FloorRow::kStuffIt}, {name, 90, FloorRow::kImage}});
	Settle();
	model.SetRows({});
}


int
main(int argumentCount, char** arguments)
{
	const std::string rowCount = argumentCount > 1 ? arguments[1] : kRowCount;
	Partner partner({"listing", rowCount});

	QGuiApplication::setDesktopSettingsAware(false);
	QApplication::setStyle(QStringLiteral("fusion"));
	const QApplication application(argumentCount, arguments);
	QFont font(QStringLiteral("Noto Sans"));
	font.setPixelSize(kFontSize);
	QApplication::setFont(font);

	FloorModel model;
	FloorDelegate delegate(&model, QApplication::applicationDirPath() + QStringLiteral("/assets"));
	QWidget window;
	QVBoxLayout layout(&window);
	layout.setContentsMargins(0, 0, 0, 0);
	QListView* list = new QListView();
	layout.addWidget(list);
	list->setModel(&model);
	list->setItemDelegate(&delegate);
	prepare(list);
	// Where the program's window stands, so that the mouse is over neither.
	window.setGeometry(QRect(kWindowPlace, kListSize));
	window.setWindowTitle(QStringLiteral("Files"));
	window.show();
	warm_up(model);

	const int socket = open_connection(partner);
	send_request(socket);
	QSocketNotifier notifier(socket, QSocketNotifier::Read);
	QObject::connect(&notifier, &QSocketNotifier::activated, [socket, &model] {
		receive_rows(socket, model);
	});
	Settle();

	Figures figures;
	MeasureListing(list, std::stoi(rowCount), partner, figures);
	figures.Print();
	return 0;
}
