/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef DESCRIPTOR_RESERVE_H
#define DESCRIPTOR_RESERVE_H


class QObject;


/*!	Keeps some descriptors for the windows. To paint a window that has a new size Qt asks the display
	for memory to share, which comes as a descriptor; where there is none left for it, it waits for
	ever. Main thread only, once.
	\param application Owns what is needed for that.
*/
void reserve_descriptors(QObject* application);


#endif // DESCRIPTOR_RESERVE_H
