/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef KEPT_SELECTION_H
#define KEPT_SELECTION_H


#include <SupportDefs.h>


class BTextView;


/*!	Takes back what the user has selected in a text while it lives, and selects it again in the end.
	For whoever appends: a text view colors what is selected rather than what is inserted next, and
	an insertion drops the selection. Nothing happens when nothing is selected. On the thread of the
	view's window.
*/
class KeptSelection {
public:
	// The view is borrowed. Until the end nothing before the end of the selection changes.
	explicit KeptSelection(BTextView* text);
	KeptSelection(const KeptSelection&) = delete;
	~KeptSelection();

	KeptSelection& operator=(const KeptSelection&) = delete;

private:
	BTextView* fText;
	int32 fStart;
	int32 fEnd;
};


#endif // KEPT_SELECTION_H
