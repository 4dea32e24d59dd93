/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Invoker.h>

#include <Handler.h>
#include <Message.h>


BInvoker::BInvoker()
	: fMessage(NULL)
{
}


/*!	\param message Owned by the invoker; NULL for none. */
BInvoker::BInvoker(BMessage* message, const BHandler* handler, const BLooper* looper)
	: fMessage(message)
{
	if (handler != NULL || looper != NULL)
		fMessenger = BMessenger(handler, looper);
}


BInvoker::~BInvoker()
{
	delete fMessage;
}


/*!	\param message Owned by the invoker; the one that it had is deleted. */
status_t
BInvoker::SetMessage(BMessage* message)
{
	if (message != fMessage) {
		delete fMessage;
		fMessage = message;
	}
	return B_OK;
}


/*!	The code of the message, 0 without one. */
uint32
BInvoker::Command() const
{
	return fMessage != NULL ? fMessage->what : 0;
}


/*!	\param handler NULL for the looper itself.
	\return An error when the handler belongs to no looper, or to another one; there is no target
	then.
*/
status_t
BInvoker::SetTarget(const BHandler* handler, const BLooper* looper)
{
	status_t result;
	fMessenger = BMessenger(handler, looper, &result);
	return result;
}


BHandler*
BInvoker::Target(BLooper** _looper) const
{
	return fMessenger.Target(_looper);
}


status_t
BInvoker::Invoke(BMessage* message)
{
	if (message == NULL)
		message = fMessage;
	if (message == NULL)
		return B_BAD_VALUE;

	BMessage copy(*message);
	return fMessenger.SendMessage(&copy);
}
