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
	if (fWindows.CountOpen() >= kMaxOpen)
		return false;

	AgreementWindow* window = new AgreementWindow(BRect(150, 150, 600, 500), fTarget,
		agreement->GetString("text"), connection);
	fWindows.Add(window);
	window->Show();
	return true;
}
