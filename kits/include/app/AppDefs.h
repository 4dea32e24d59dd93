/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef APP_DEFS_H
#define APP_DEFS_H


// The codes of the kits' own messages.
enum {
	B_ABOUT_REQUESTED = '_ABR',
	B_KEY_DOWN = '_KYD',
	B_QUIT_REQUESTED = '_QRQ',
	B_READY_TO_RUN = '_RTR',
	B_REFS_RECEIVED = '_RRC'
};


#endif // APP_DEFS_H
