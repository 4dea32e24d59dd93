/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef LOOPER_PRIVATE_H
#define LOOPER_PRIVATE_H


#include <Looper.h>
#include <LooperRecord.h>
#include <MainServer.h>


/*!	What the application and the windows may do with a looper beyond its public face. Static only.
*/
class LooperPrivate {
public:
	static void ServeByMainThread(BLooper* looper);
	static void Start(BLooper* looper);
	static bool IsStarted(const BLooper* looper);

	static void BeginDestruction(BLooper* looper);
	static bool IsDying(const BLooper* looper);
	static void Delete(BLooper* looper);

	// Whether the handler's filters let a message through to it.
	static bool PassesFilters(BMessage* message, BHandler* handler);

private:
	friend class BLooper;
	friend class MainServer;

	static status_t _Loop(void* data);
	static void _DeliverNext(const LooperRecordRef& record);
};


#endif // LOOPER_PRIVATE_H
