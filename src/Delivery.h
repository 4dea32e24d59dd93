/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef DELIVERY_H
#define DELIVERY_H


class BMessage;
class BMessenger;


// Posts a copy to a looper that may be gone by then: whoever keeps another looper's address for
// later keeps a messenger to it, too, and posts by that. Any thread.
bool Deliver(const BMessenger& target, BMessage* message);


#endif // DELIVERY_H
