/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef PART_TEST_H
#define PART_TEST_H


#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ChatOutput.h"
#include "MessageRecorder.h"


/*!	What a part of the controller is given: a target that it posts to, and a chat that it speaks in.
	Both keep what they get.
*/
class PartTest : public testing::Test {
protected:
	PartTest();

	// What was posted to the target since the last call.
	std::vector<BMessage> Posted();
	// The next of it, when it has come.
	BMessage AwaitPosted();
	// What was said since the last call: each text behind its color, as in "c80000 text".
	std::string Said();

	RecorderOwner fTarget;
	RecorderOwner fChatWindow;
	ChatOutput fChat;

private:
	size_t fPostedSeen;
	size_t fSaidSeen;
};


#endif // PART_TEST_H
