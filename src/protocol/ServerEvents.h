/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef SERVER_EVENTS_H
#define SERVER_EVENTS_H


#include "ParameterWalker.h"


class BMessage;


// What a server says by itself, read from the parameters of its transaction into the notification
// that tells of it (HotlineNotifications.h). Of a field that occurs twice the last occurrence
// counts, what is not there is 0 or empty. They return false, and leave the message alone, where
// there is nothing to tell; of users there always is.
bool ReadChat(ParameterWalker params, BMessage* _message);
bool ReadPrivateMessage(ParameterWalker params, BMessage* _message);
bool ReadUserChange(ParameterWalker params, BMessage* _message);
bool ReadUserLeave(ParameterWalker params, BMessage* _message);
bool ReadAgreement(ParameterWalker params, BMessage* _message);
bool ReadBroadcast(ParameterWalker params, BMessage* _message);


#endif // SERVER_EVENTS_H
