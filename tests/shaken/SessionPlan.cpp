/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
// What the user of a session does.

#include "Session.h"

#include "AppMessages.h"


static const char* const kAgreement = "Server Agreement";


void
Session::_Plan()
{
	_Add(
		"set the tracker",
		[this] {
			BMessage options(kMsgOptionsSave);
			options.AddString("nick", "Shaken");
			options.AddUInt16("icon", 130);
			options.AddString("tracker", ("127.0.0.1:" + std::to_string(fTrackerPort)).c_str());
			_PostToMain(&options);
		},
		NULL);
	for (size_t visits = 1 + _Choose(2); visits > 0; visits--)
		_PlanVisit();
	// Whatever is open is left to the program's end.
	_Add(
		"quit",
		[this] {
			fHasFinished = true;
			if (_Choose(2) == 0)
				_PostToMain(B_QUIT_REQUESTED);
			else
				PostMessage(B_QUIT_REQUESTED);
		},
		NULL);
}


void
Session::_PlanVisit()
{
	_Add(
		"connect",
		[this] {
			_Connect();
		},
		[this] {
			return _HasWindow(kAgreement);
		});
	_Add(
		"accept the agreement",
		[this] {
			_Press(kAgreement, "accept");
		},
		[this] {
			return _CountInChat("*** Agreement accepted ***\n") == fVisits
				&& _CountInChat("*** Logged in ***\n") == fVisits && !_HasWindow(kAgreement)
				&& _CountRows("Users Online", "userlist") > 0;
		});
	for (size_t activities = _Choose(6); activities > 0; activities--)
		_PlanActivity();
	_PlanEndOfVisit();
}


void
Session::_PlanActivity()
{
	switch (_Choose(10)) {
		case 0:
		{
			const std::string line = "line " + std::to_string(++fLines) + " <b>&%s";
			_Add(
				"chat",
				[this, line] {
					_Say(line);
				},
				[this, line] {
					return _HasSaid(line);
				});
			break;
		}
		case 1:
			_PlanConversation();
			break;
		case 2:
			_PlanFiles();
			break;
		case 3:
			_PlanFolder();
			break;
		case 4:
			_PlanTransfers();
			break;
		case 5:
			_AddDialog("Connect to Server", kMsgToolConnect);
			break;
		case 6:
			_AddDialog("Options", kMsgToolOptions);
			break;
		case 7:
			_AddDialog("About Palimbra", kMsgToolAbout);
			break;
		case 8:
			_AddDialog("Tracker", kMsgToolTracker);
			break;
		default:
			_AddCommand("/broadcast hear", "*** Broadcast: hear");
	}
}


void
Session::_PlanConversation()
{
	_Add(
		"private message",
		[this] {
			_OpenConversation();
		},
		[this] {
			return _HasWindow("Message — " + fPartner);
		});
	_Add(
		"talk",
		[this] {
			_Type("Message — " + fPartner, "pminput", "psst");
		},
		[this] {
			return _Transcript("Message — " + fPartner, "pmchat").find("You: psst")
				!= std::string::npos;
		});
	if (_Choose(2) == 0) {
		_Add(
			"end the talk",
			[this] {
				_PostTo("Message — " + fPartner, B_QUIT_REQUESTED);
			},
			NULL);
	}
}


void
Session::_PlanFiles()
{
	_Add(
		"files",
		[this] {
			_PostToMain(kMsgToolFiles);
		},
		[this] {
			return _CountRows("Files", "filelist") > 0;
		});
	if (_Choose(2) == 0)
		_Add(
			"close the files",
			[this] {
				_PostTo("Files", B_QUIT_REQUESTED);
			},
			NULL);
}


void
Session::_PlanFolder()
{
	_Add(
		"folder",
		[this] {
			BMessage open(kMsgOpenFolder);
			open.AddString("path", "Sizes");
			_PostToMain(&open);
		},
		[this] {
			return _CountRows("Files — Sizes", "filelist") > 0;
		});
}


void
Session::_PlanTransfers()
{
	_Add(
		"download",
		[this] {
			BMessage download(kMsgDownloadFile);
			download.AddString("path", "Sizes");
			download.AddString("name", "1 byte");
			_PostToMain(&download);
		},
		[this] {
			return _HasSaid("*** Download complete: 1 byte ***\n");
		});
	_Add(
		"upload",
		[this] {
			BMessage upload(kMsgUploadFile);
			upload.AddString("path", "Uploads");
			upload.AddString("name", "note");
			upload.AddString("localpath", "/proc/version");
			upload.AddInt64("size", 0);
			_PostToMain(&upload);
		},
		[this] {
			return _HasSaid("*** Upload complete: note ***\n");
		});
}


void
Session::_PlanEndOfVisit()
{
	switch (_Choose(5)) {
		case 0:
			_Add(
				"disconnect",
				[this] {
					_PostToMain(kMsgToolDisconnect);
				},
				[this] {
					return _HasSaid("*** Disconnected ***\n");
				});
			break;
		case 1:
			_AddCommand("/drop", "*** Connection lost ***\n");
			break;
		case 2:
			_AddCommand("/quit bye", "*** Server requested disconnect ***\n");
			break;
		default:
			// The next visit, or the end, finds the connection open.
			break;
	}
}


void
Session::_AddDialog(const char* title, uint32 what)
{
	_Add(
		title,
		[this, what] {
			_PostToMain(what);
		},
		[this, title] {
			return _HasWindow(title);
		});
	if (_Choose(2) == 0)
		_Add(
			"close",
			[this, title] {
				_PostTo(title, B_QUIT_REQUESTED);
			},
			NULL);
}


void
Session::_AddCommand(const std::string& command, const std::string& answer)
{
	_Add(
		command,
		[this, command] {
			_Say(command);
		},
		[this, answer] {
			return _HasSaid(answer);
		});
}
