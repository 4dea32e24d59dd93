/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef LISTING_MEASURE_H
#define LISTING_MEASURE_H


class Figures;
class Partner;
class QListView;


// What the two listings have in common: they are filled, shown and scrolled in the same way. Main
// thread only.

// The list in the window whose title begins so; NULL while there is none.
QListView* FindList(const char* title);

// Serves the toolkit for a while, so that what is left to do gets done.
void Settle();

// Lets the partner send, waits until that many rows have arrived and been painted, and then goes
// through all of them. Says how large the list is, too.
void MeasureListing(QListView* list, int rowCount, Partner& partner, Figures& figures);


#endif // LISTING_MEASURE_H
