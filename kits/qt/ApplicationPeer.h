/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef APPLICATION_PEER_H
#define APPLICATION_PEER_H


#include <memory>

#include <SupportDefs.h>


class QApplication;
class QObject;


/*!	The QApplication, set up as the kits need it, and the main thread's event loops. There
	is one.
*/
class ApplicationPeer {
public:
	ApplicationPeer();
	ApplicationPeer(const ApplicationPeer&) = delete;
	~ApplicationPeer();

	ApplicationPeer& operator=(const ApplicationPeer&) = delete;

	// Processes what there is, and waits for it first, without end or for some microseconds.
	static void ProcessEvents();
	static void ProcessEvents(bigtime_t timeout);

private:
	std::unique_ptr<QApplication> fApplication;
	std::unique_ptr<QObject> fServerWatch;
};


#endif // APPLICATION_PEER_H
