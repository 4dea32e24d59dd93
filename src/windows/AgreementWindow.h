/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef AGREEMENT_WINDOW_H
#define AGREEMENT_WINDOW_H


#include <Messenger.h>
#include <Window.h>


class BLooper;
class BTextView;


/*!	Shows the server's agreement and posts exactly one answer, kMsgAcceptAgreement or
	kMsgDeclineAgreement, whichever way the user leaves it.
*/
class AgreementWindow : public BWindow {
public:
	AgreementWindow(BRect frame, BLooper* target, const char* text, uint32 connection = 0);
	~AgreementWindow() override;

	// The number of the connection that it asks for.
	uint32 Connection() const { return fConnection; }

	void MessageReceived(BMessage* message) override;
	bool QuitRequested() override;

private:
	void _Answer(uint32 answer);

	BTextView* fTextView;
	BLooper* fTarget;
	BMessenger fMessenger{fTarget};
	const uint32 fConnection;
	bool fResponded;
};


#endif // AGREEMENT_WINDOW_H
