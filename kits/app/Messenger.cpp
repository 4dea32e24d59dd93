/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Messenger.h>

#include <Looper.h>
#include <LooperRegistry.h>
#include <MainServer.h>


BMessenger::BMessenger()
	: fLooperToken(0),
	  fHandlerToken(0)
{
}


/*!	For a handler, which must belong to a looper, or with NULL for a looper itself.
	\param _result Receives why the messenger is not valid.
*/
BMessenger::BMessenger(const BHandler* handler, const BLooper* looper, status_t* _result)
	: BMessenger()
{
	LooperRegistry* registry = LooperRegistry::Default();
	LooperRecordRef record;
	int32 handlerToken = 0;
	status_t result = B_OK;
	if (handler != NULL) {
		record = registry->Find(handler, &handlerToken);
		if (record == NULL)
			result = B_BAD_HANDLER;
		else if (looper != NULL && record != registry->Find(looper))
			result = B_MISMATCHED_VALUES;
	} else if (looper != NULL)
		record = registry->Find(looper);
	if (record == NULL && result == B_OK)
		result = B_BAD_VALUE;

	if (result == B_OK) {
		fLooperToken = record->Token();
		fHandlerToken = handlerToken;
	}
	if (_result != NULL)
		*_result = result;
}


/*!	Whether the looper is there and takes messages. */
bool
BMessenger::IsValid() const
{
	LooperRecordRef record = LooperRegistry::Default()->FindByToken(fLooperToken);
	return record != NULL && !record->IsDying();
}


/*!	The handler, NULL when it is gone. The caller must have a way to know that they live. */
BHandler*
BMessenger::Target(BLooper** _looper) const
{
	LooperRegistry* registry = LooperRegistry::Default();
	LooperRecordRef record = registry->FindByToken(fLooperToken);
	if (_looper != NULL)
		*_looper = record != NULL ? record->Looper() : NULL;
	if (record == NULL || fHandlerToken == 0)
		return NULL;

	return registry->HandlerByToken(fHandlerToken);
}


status_t
BMessenger::SendMessage(uint32 command, BHandler* replyTo) const
{
	BMessage message(command);
	return SendMessage(&message, replyTo);
}


/*!	Queues a copy. Waits for room as BLooper::PostMessage() does.
	Differs from Haiku: there are no replies and no time-out.
	\return \c B_BAD_PORT_ID when the looper is dying or gone, \c B_BAD_HANDLER when its handler is.
*/
status_t
BMessenger::SendMessage(BMessage* message, BHandler* /*replyTo*/, bigtime_t /*timeout*/) const
{
	if (message == NULL)
		return B_BAD_VALUE;

	LooperRegistry* registry = LooperRegistry::Default();
	LooperRecordRef record = registry->FindByToken(fLooperToken);
	if (record == NULL)
		return B_BAD_PORT_ID;
	if (fHandlerToken != 0 && registry->HandlerByToken(fHandlerToken) == NULL)
		return B_BAD_HANDLER;

	const status_t status = record->Post(message, fHandlerToken);
	MainServer::Shake();
	return status;
}
