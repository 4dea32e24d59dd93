/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef QUIT_SIGNALS_H
#define QUIT_SIGNALS_H


class QObject;


/*!	Has the application asked to quit when the system wants the program to end: SIGTERM, SIGINT and
	SIGHUP. A signal that the program was started to ignore stays ignored. A limit for the size of
	files does not end it.
	\param application Owns what is needed for that. Main thread only, once.
*/
void watch_quit_signals(QObject* application);


#endif // QUIT_SIGNALS_H
