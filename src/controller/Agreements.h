/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef AGREEMENTS_H
#define AGREEMENTS_H


#include <SupportDefs.h>

#include "WindowList.h"


class AgreementWindow;
class BLooper;
class BMessage;


/*!	The windows in which servers ask for an agreement. Each answers for itself; they are known here so
	that a server cannot open any number of them. Lives in the main window's thread; borrows the
	windows, and the target that they post to.
*/
class Agreements {
public:
	// On behalf of one connection. What a former one has left open is no hindrance to the next.
	static const int32 kMaxOpen = 20;

	explicit Agreements(BLooper* target);

	[[nodiscard]] bool Ask(const BMessage* agreement, uint32 connection);

private:
	BLooper* fTarget;
	WindowList<AgreementWindow> fWindows;
};


#endif // AGREEMENTS_H
