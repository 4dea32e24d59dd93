/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ScriptedWindow.h"

#include <gtest/gtest.h>

#include <MenuBar.h>
#include <MenuItem.h>

#include "ExpectSoon.h"


ScriptedWindow::ScriptedWindow(uint32 flags)
	: BWindow(BRect(100, 100, 399, 299), "Scripted", B_TITLED_WINDOW, flags),
	  fReceived(std::make_shared<std::vector<uint32>>())
{
}


ScriptedWindow::~ScriptedWindow()
{
	if (onDestroy)
		onDestroy();
}


void
ScriptedWindow::MessageReceived(BMessage* message)
{
	fReceived->push_back(message->what);
	if (onMessage)
		onMessage(message);
}


bool
ScriptedWindow::QuitRequested()
{
	return onQuitRequested ? onQuitRequested() : true;
}


// #pragma mark - WindowCloser


WindowCloser::WindowCloser(BWindow* window)
	: fWindow(window),
	  fMessenger(window)
{
}


WindowCloser::~WindowCloser()
{
	if (fMessenger.IsValid() && fWindow->Lock())
		fWindow->Quit();
}


// #pragma mark - OwnedWindow


OwnedWindow::OwnedWindow(uint32 flags)
	: fWindow(new ScriptedWindow(flags)),
	  fCloser(fWindow)
{
}


// #pragma mark -


BMenu*
AddMenu(BWindow* window, const std::vector<BMenuItem*>& items)
{
	BMenu* menu = new BMenu("Server");
	for (BMenuItem* item : items)
		menu->AddItem(item);
	BMenuBar* bar = new BMenuBar("bar");
	bar->AddItem(menu);
	window->AddChild(bar);
	return menu;
}


void
ShowAndWait(ScriptedWindow* window)
{
	const std::shared_ptr<std::vector<uint32>> received = window->Received();
	window->Show();
	ASSERT_EQ(B_OK, window->PostMessage('here'));
	ASSERT_SOON(!received->empty());
	received->clear();
}
