/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef ENTRY_LINE_H
#define ENTRY_LINE_H


#include <TextControl.h>


/*!	A field without a label, whose line Return sends and nothing else.
	A text control by itself sends a changed line also when the focus goes elsewhere; and one that
	has lost the focus and got it back does not answer Return until the line is changed. Belongs to
	the thread of its window.
*/
class EntryLine : public BTextControl {
public:
	EntryLine(const char* name, BMessage* message);

	status_t Invoke(BMessage* message = NULL) override;
};


#endif // ENTRY_LINE_H
