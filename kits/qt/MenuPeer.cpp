/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <MenuPeer.h>

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QStyleOptionMenuItem>

#include <MenuItem.h>


/*!	Shows which item the keyboard is at while no menu is open; QStyle would not. */
class MenuBarWidget : public QMenuBar {
protected:
	void initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const override
	{
		QMenuBar::initStyleOption(option, action);
		if (hasFocus() && (option->state & QStyle::State_Selected) != 0)
			option->state |= QStyle::State_Sunken;
	}
};

static QWidget*
make_menu(bool isBar)
{
	if (!isBar)
		return new QMenu;

	QMenuBar* bar = new MenuBarWidget;
	bar->setNativeMenuBar(false);
	return bar;
}


MenuPeer::MenuPeer(bool isBar)
	: ViewPeer(make_menu(isBar)),
	  fIsBar(isBar)
{
}


void
MenuPeer::Append(QAction* action)
{
	Widget()->addAction(action);
}


QAction*
MenuPeer::Entrance() const
{
	return fIsBar ? NULL : static_cast<QMenu*>(Widget())->menuAction();
}


QSize
MenuPeer::MinSize()
{
	return PreferredSize();
}


QSize
MenuPeer::MaxSize()
{
	return QSize(QWIDGETSIZE_MAX, PreferredSize().height());
}


QSize
MenuPeer::PreferredSize()
{
	return Widget()->sizeHint();
}


/*!	Menus have the keyboard while they are open, and by themselves. */
void
MenuPeer::FlagsChanged()
{
}


// #pragma mark - MenuItemPeer


MenuItemPeer::MenuItemPeer(BMenuItem* item, QAction* entrance)
	: fAction(entrance),
	  fOwnsAction(entrance == NULL)
{
	if (!fOwnsAction)
		return;

	fAction = new QAction;
	QObject::connect(fAction, &QAction::triggered, [item] {
		item->Invoke();
	});
}


MenuItemPeer::~MenuItemPeer()
{
	if (fOwnsAction)
		delete fAction;
}
