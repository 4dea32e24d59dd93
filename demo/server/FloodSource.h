/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef DEMO_FLOOD_SOURCE_H
#define DEMO_FLOOD_SOURCE_H


#include "Transaction.h"

#include <cstddef>


namespace demo {


/*!	Many lines of chat that are made one by one, when the line has room for the next, so that a
	flood costs no memory however long it is and however slowly it is read.
*/
class FloodSource {
public:
	void Start(unsigned long lines, size_t lineSize);
	bool HasMore() const { return fNext <= fLines; }
	Transaction Next();

private:
	unsigned long fLines = 0;
	unsigned long fNext = 1;
	size_t fLineSize = 0;
};


} // namespace demo


#endif // DEMO_FLOOD_SOURCE_H
