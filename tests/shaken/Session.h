/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef SESSION_H
#define SESSION_H


#include <functional>
#include <random>
#include <string>
#include <vector>

#include <Message.h>

#include "App.h"


class BWindow;


/*!	The program with a user in it, who does what a seed says: connects, chats, opens windows, moves
	files, loses the line, quits. Everything is done in the application's handler, which locks the
	window that it uses.
*/
class Session : public App {
public:
	Session(unsigned seed, uint16 port, uint16 trackerPort);

	void ReadyToRun() override;
	void MessageReceived(BMessage* message) override;

	// Whether the user got to the end of what was to be done.
	bool HasFinished() const { return fHasFinished; }

private:
	// What the user does, and what is waited for afterwards. Nothing is waited for without it.
	struct Step {
		std::string name;
		std::function<void()> action;
		std::function<bool()> isDone;
	};

	void _Plan();
	void _PlanVisit();
	void _PlanEndOfVisit();
	void _PlanActivity();
	void _PlanConversation();
	void _PlanFiles();
	void _PlanFolder();
	void _PlanTransfers();
	void _Add(const std::string& name, const std::function<void()>& action,
		const std::function<bool()>& isDone);
	void _TakeStep();
	void _GiveUp();

	size_t _Choose(size_t count) { return fRandom() % count; }

	bool _With(const std::string& title, const std::function<void(BWindow*)>& use);
	bool _HasWindow(const std::string& title);
	void _PostToMain(BMessage* message);
	void _PostToMain(uint32 what);
	void _PostTo(const std::string& title, uint32 what);
	void _Press(const std::string& title, const char* control);
	void _Type(const std::string& title, const char* field, const std::string& text);
	void _Say(const std::string& text);
	std::string _Transcript(const std::string& title, const char* textView);
	size_t _CountInChat(const std::string& text);
	bool _HasSaid(const std::string& text);
	int32 _CountRows(const std::string& title, const char* list);

	void _Connect();
	void _OpenConversation();
	void _AddDialog(const char* title, uint32 what);
	void _AddCommand(const std::string& command, const std::string& answer);

	std::mt19937 fRandom;
	const uint16 fPort;
	const uint16 fTrackerPort;
	std::vector<Step> fSteps;
	size_t fNext;
	bool fHasActed;
	bool fHasFinished;
	bigtime_t fDeadline;
	size_t fSaidBefore; // of the chat, in bytes
	size_t fVisits;
	size_t fLines;
	std::string fPartner;
};


#endif // SESSION_H
