/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "Agreements.h"

#include <Message.h>

#include "AgreementWindow.h"


Agreements::Agreements(BLooper* target)
	: fTarget(target)
{
}


/*!	\param agreement A kHLAgreement.
	\param connection The number of the connection that the answer is meant for.
	\return \c false where it would open one window too many.
*/
bool
Agreements::Ask(const BMessage* agreement, uint32 connection)
{
	int32 count = 0;
	fWindows.CountOpen();
	fWindows.UseFirst([&count, connection](const AgreementWindow* open) {
		if (open->Connection() == connection)
			count++;
		return false;
	});
	if (count >= kMaxOpen)
		return false;

	AgreementWindow* window = new AgreementWindow(BRect(150, 150, 600, 500), fTarget,
		agreement->GetString("text"), connection);
	// A closed one that is still listed may have been at this very address.
	fWindows.Remove(window);
	fWindows.Add(window);
	window->Show();
	return true;
}
