/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
// Calls that are ambiguous on Haiku, or mean something else there than one thinks, each below one
// that is as it should be. The check "overloads" compiles the former by themselves and then all: each
// of the latter is to be an error, and nothing else.
#include <Bitmap.h>
#include <Button.h>
#include <Font.h>
#include <GroupLayout.h>
#include <List.h>
#include <ListView.h>
#include <Menu.h>
#include <MenuItem.h>
#include <Message.h>
#include <Messenger.h>
#include <ScrollView.h>
#include <SeparatorView.h>
#include <String.h>
#include <StringView.h>
#include <TextControl.h>
#include <TextView.h>
#include <TranslationUtils.h>
#include <Window.h>


#define RIGHT(statement) statement
#ifdef WITH_WRONG_CALLS
#	define WRONG(statement) statement
#else
#	define WRONG(statement)
#endif


// Nothing of this ever runs.
void
call_by_message(BMessage& message, BLooper* looper, const BMessenger& messenger)
{
	const char* text = NULL;
	RIGHT(message.GetPointer("window"));
	WRONG(message.GetPointer("window", NULL));
	RIGHT(message.FindString("text", 1, &text));
	WRONG(message.FindString("text", 0));
	WRONG(message.FindString("text", &text));
	WRONG(message.FindString("text", NULL));

	RIGHT(looper->PostMessage('post'));
	WRONG(looper->PostMessage(0));
	WRONG(looper->PostMessage(NULL));
	RIGHT(looper->PostMessage(&message));
	WRONG(looper->PostMessage(message));
	WRONG(looper->PostMessage(&message, NULL));

	RIGHT(messenger.SendMessage(&message));
	WRONG(messenger.SendMessage(&message, NULL));
	RIGHT(messenger.SendMessage('send'));
	WRONG(messenger.SendMessage(0));
	RIGHT(BMessenger{looper});
	WRONG(BMessenger{NULL});
}


void
call_for_texts(BString& string, BTextView* view)
{
	RIGHT(string = "5");
	WRONG(string = 5);
	WRONG(string = NULL);
	RIGHT(string << static_cast<int32>(5));
	WRONG(string << 5u);
	WRONG(string << true);
	WRONG(string << 5.0f);
	WRONG(string << NULL);
	WRONG(string[0] = 'a');

	RIGHT(view->Insert(0, "text", 4));
	WRONG(view->Insert("text", 4));
	WRONG(view->Insert("text"));
	RIGHT(view->SetText("text"));
	WRONG(view->SetText("text", 4));
	WRONG(view->SetText(NULL, 0, 0));
}


void
call_for_views(BView* view, BWindow* window, BMessage* message, const BBitmap* bitmap)
{
	RIGHT(new BButton("ok", "OK", message));
	WRONG(new BButton("OK", message));
	RIGHT(new BTextControl("name", "Name:", "", message));
	WRONG(new BTextControl("Name:", "", message));
	RIGHT(new BScrollView("scroll", view, 0u, false, true));
	WRONG(new BScrollView("scroll", view, 0u, false));
	RIGHT(new BSeparatorView(B_VERTICAL, B_PLAIN_BORDER));
	WRONG(new BSeparatorView(NULL, B_VERTICAL));
	RIGHT(new BStringView("name", "text"));
	WRONG(new BStringView(BRect(), "name", "text"));
	RIGHT(new BListView("list"));
	WRONG(new BListView(B_SINGLE_SELECTION_LIST));
	RIGHT(new BGroupLayout(B_VERTICAL));

	RIGHT(view->AddChild(view));
	WRONG(view->AddChild(NULL));
	RIGHT(window->AddChild(view));
	WRONG(window->AddChild(NULL));
	RIGHT(view->DrawString("text", BPoint(0, 0)));
	WRONG(view->DrawString("text"));
	WRONG(view->DrawString("text", NULL));
	WRONG(view->DrawString("text", 4));
	RIGHT(view->DrawBitmap(bitmap, BPoint(0, 0)));
	WRONG(view->DrawBitmap(bitmap));
	RIGHT(view->Invalidate());
	WRONG(view->Invalidate(NULL));
	RIGHT(view->SetToolTip("tip"));
	WRONG(view->SetToolTip(NULL));
}


void
call_for_rows(BListView* list, BMenu* menu, BMenuItem* item)
{
	RIGHT(list->Select(1));
	WRONG(list->Select(1, 2));
	RIGHT(list->RemoveItem(static_cast<int32>(0)));
	WRONG(list->RemoveItem(list->ItemAt(0)));
	WRONG(list->RemoveItem(NULL));
	RIGHT(menu->AddItem(item));
	WRONG(menu->AddItem(NULL));
	WRONG(menu->AddItem(item, 0));
}


void
call_for_pictures(BPositionIO* stream)
{
	RIGHT(BBitmap(BRect(), B_RGBA32, false));
	WRONG(BBitmap(BRect(), 0u, B_RGBA32));
	RIGHT(BTranslationUtils::GetBitmap(stream));
	WRONG(BTranslationUtils::GetBitmap(NULL));
	WRONG(BTranslationUtils::GetBitmap("picture"));
}
