/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "EntryLine.h"

#include <cstring>

#include <InterfaceDefs.h>
#include <Message.h>
#include <MessageFilter.h>
#include <TextView.h>


/*!	Takes Return from the field, and has the line sent whether or not it has been changed. */
class ReturnFilter : public BMessageFilter {
public:
	// The line is borrowed; it owns the view that owns the filter.
	explicit ReturnFilter(EntryLine* line)
		: BMessageFilter(B_KEY_DOWN),
		  fLine(line)
	{
	}

	filter_result Filter(BMessage* message, BHandler** /*_target*/) override
	{
		// With the command key it would be a shortcut.
		const bool isReturn = strcmp(message->GetString("bytes", ""), "\n") == 0
			&& (message->GetInt32("modifiers", 0) & B_COMMAND_KEY) == 0;
		if (!isReturn || !fLine->IsEnabled())
			return B_DISPATCH_MESSAGE;
		fLine->Invoke();
		return B_SKIP_MESSAGE;
	}

private:
	EntryLine* fLine;
};


/*!	\param message Owned by the line. */
EntryLine::EntryLine(const char* name, BMessage* message)
	: BTextControl(name, NULL, "", message, B_WILL_DRAW | B_NAVIGABLE)
{
	TextView()->AddFilter(new ReturnFilter(this));
}


/*!	Sends nothing on behalf of a field that has just lost the focus: its view has none any more.
	\return \c B_OK then as well.
*/
status_t
EntryLine::Invoke(BMessage* message)
{
	if (!TextView()->IsFocus())
		return B_OK;
	return BTextControl::Invoke(message);
}
