/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef APP_MESSAGES_H
#define APP_MESSAGES_H


#include <SupportDefs.h>


/*!	What windows, worker threads and the controller (MainWindow) post to one another.
	A control carries the bare code to its own window; the window adds the fields listed here and
	posts the message to the controller, so some codes travel twice. Whoever reads a field has a
	default for its absence. The events of the control connection have a catalogue of their own,
	HotlineNotification; no code is in both.
	What a window that belongs to one connection posts to the controller, kMsgAddUser,
	kMsgEnableChat and the messages of a banner have another field "connection" uint32, the number
	of that connection (ConnectionMark.h).
*/
enum AppMessage : uint32 {
	// Menu items and toolbar buttons -> controller, without fields.
	kMsgToolConnect = 'tbcn',
	kMsgToolDisconnect = 'tbdc',
	kMsgToolChat = 'tbch',
	kMsgToolUsers = 'tbus',
	kMsgToolFiles = 'tbfl',
	kMsgToolTracker = 'tbtr',
	kMsgToolOptions = 'tbop',
	kMsgToolAbout = 'taba', // posted by the application, too

	// Connecting.
	kMsgConnectBtn = 'conn', // bare: the Connect button -> its window
	// Connect or tracker window -> controller: "address", "login" and "password" string, "port"
	// int16 (the bits of an unsigned port).
	kMsgConnectServer = 'HLGO',

	// Chat.
	kMsgSendChat = 'snch', // bare: entry line -> its window; then -> controller: "text" string
	// Controller -> chat window: "text" string,
	// "color" int32 = red << 24 | green << 16 | blue << 8 | alpha. What others say is marked with its
	// connection.
	kMsgAppendChat = 'apch',
	kMsgEnableChat = 'ench', // controller -> chat window: "enabled" bool

	// Chat or message window -> controller: there was no memory for what it should have shown.
	kMsgTextFull = 'txfl',

	// User list. "socket" is the server's id of a user, "icon" a number of a picture.

	// Controller -> user list window, for a new or a changed user: "socket", "icon" and "color"
	// (status word) uint16, "nick" string.
	kMsgAddUser = 'uadd',
	kMsgRemoveUser = 'urdl', // controller -> user list window: "socket" uint16
	kMsgRemoveAll = 'ural', // controller -> user list window
	kMsgUserInvoked = 'uinv', // list -> its window, with the list's own fields
	kMsgOpenPM = 'oppm', // user list window -> controller: "socket" uint16, "nick" string

	// Private messages.

	// Bare: entry line -> its window; then -> controller: "socket" uint16, "text" string.
	kMsgPMSend = 'pmsd',
	kMsgPMReceived = 'pmrv', // controller -> message window: "nick" and "text" string
	// Closing message window -> controller: "socket" uint16, "window" pointer.
	kMsgPMWinClosed = 'pmcl',

	// Files. "path" is a folder on the server, with slashes, empty for the root.
	kMsgFileEntry = 'flen', // controller -> file list window: the fields of kHLFileListReceived
	kMsgFileClear = 'flcl', // -> file list window
	kMsgOpenFolder = 'flof', // file list window -> controller: "path" string
	kMsgFileInvoked = 'flin', // list -> its window, with the list's own fields
	kMsgFileWinClosed = 'fwcl', // closing file list window -> controller: "window" pointer
	kMsgDownloadFile = 'fldl', // file list window -> controller: "path" and "name" string
	kMsgDownloadBtn = 'fldb', // bare: the Download button -> its window
	kMsgUploadBtn = 'flub', // bare: the Upload button -> its window
	// File panel -> file list window: "refs" entry_ref; then -> controller: "path", "name" and
	// "localpath" string, "size" int64 (bytes).
	kMsgUploadFile = 'flup',

	// Transfer threads -> controller.
	kMsgDownloadDone = 'dlok', // "filename" string, "success" bool
	kMsgUploadDone = 'ulok', // "filename" string, "success" bool
	kMsgBannerData = 'bndl', // "data" raw: the bytes of the picture file
	kMsgBannerFetched = 'bnfe', // a banner's transfer has ended, with or without such bytes
	kMsgBannerDecoded = 'bnde', // a banner has become a picture, or is none

	// Options.
	kMsgIconSelected = 'icsl', // list -> its window, with the list's own fields
	// Bare: the Save button -> its window; then -> controller: "nick" and "tracker" string,
	// "icon" uint16.
	kMsgOptionsSave = 'opsa',

	// Agreement.
	kMsgAcceptAgreement = 'agac', // the Accept button -> its window; then -> controller
	// The Decline button -> its window; then -> controller, also when the window is closed
	// without an answer.
	kMsgDeclineAgreement = 'agdc',

	// Private to the tracker window.
	kMsgTrackerRefresh = 'trrf', // bare: the Refresh button -> its window
	kMsgTrackerInvoke = 'trco', // list -> its window, with the list's own fields
	// Fetch thread -> window: "name", "desc" and "ip" string, "port" and "users" int16.
	kMsgTrackerServer = 'trad',
	kMsgTrackerDone = 'trdn', // fetch thread -> window
	kMsgTrackerError = 'trer', // fetch thread -> window: "error" string

	// Private to the about window.
	kMsgOK = 'abok', // bare: the OK button -> its window
	kMsgScroll = 'scrl' // timer -> the credits
};


#endif // APP_MESSAGES_H
