/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "KeptSelection.h"

#include <TextView.h>


KeptSelection::KeptSelection(BTextView* text)
	: fText(text),
	  fStart(0),
	  fEnd(0)
{
	fText->GetSelection(&fStart, &fEnd);
	if (fStart < fEnd)
		fText->Select(fStart, fStart);
}


KeptSelection::~KeptSelection()
{
	if (fStart < fEnd)
		fText->Select(fStart, fEnd);
}
