/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef APP_DEFS_H
#define APP_DEFS_H


// The codes of the kits' own messages.
enum {
	B_ABOUT_REQUESTED = '_ABR',
	B_WINDOW_ACTIVATED = '_ACT',
	B_CANCEL = '_CNC',
	B_KEY_DOWN = '_KYD',
	B_KEY_UP = '_KYU',
	B_MINIMIZE = '_WMN',
	B_MOUSE_DOWN = '_MDN',
	B_MOUSE_MOVED = '_MMV',
	B_MOUSE_UP = '_MUP',
	B_PULSE = '_PUL',
	B_QUIT_REQUESTED = '_QRQ',
	B_READY_TO_RUN = '_RTR',
	B_REFS_RECEIVED = '_RRC',
	B_WINDOW_MOVED = '_WMV',
	B_WINDOW_RESIZED = '_WRS',
	B_ZOOM = '_WZM',

	B_CUT = 'CCUT',
	B_COPY = 'COPY',
	B_PASTE = 'PSTE',
	B_SELECT_ALL = 'SALL',
	B_UNDO = 'UNDO',
	B_REDO = 'REDO',
	B_CONTROL_INVOKED = 'CIVK',
	B_CONTROL_MODIFIED = 'CMOD',
	B_MESSAGE_NOT_UNDERSTOOD = 'MNOT',
	B_NO_REPLY = 'NONE',
	B_REPLY = 'RPLY',
	B_SIMPLE_DATA = 'DATA'
};


#endif // APP_DEFS_H
