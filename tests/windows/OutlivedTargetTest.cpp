/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <cstddef>
#include <functional>

#include "AgreementWindow.h"
#include "AppMessages.h"
#include "ChatWindow.h"
#include "ConnectWindow.h"
#include "FileListWindow.h"
#include "MessageWindow.h"
#include "OptionsWindow.h"
#include "TrackerWindow.h"
#include "UserListWindow.h"
#include "WindowTest.h"


static const BRect kFrame(10, 10, 400, 300);


/*!	Recorders that live at the same address, one after the other. */
class PlacedRecorder : public MessageRecorder {
public:
	static void* operator new(size_t) { return sPlace; }
	static void operator delete(void*) {}

private:
	alignas(std::max_align_t) static unsigned char sPlace[];
};

alignas(std::max_align_t) unsigned char PlacedRecorder::sPlace[sizeof(PlacedRecorder)];


/*!	Windows whose target has gone, and in whose place there is another looper by now. */
class OutlivedTargetTest : public WindowTest {
protected:
	using Opener = std::function<BWindow*(BLooper*)>;
	using Use = std::function<void()>;

	// What the user does in the window reaches the target, and not who stands where that was.
	void ExpectHarmless(const Opener& open, const Use& use)
	{
		RecorderOwner target(new PlacedRecorder);
		Open(open(target.get()));
		use();
		EXPECT_EQ(1, target->CountMessages());

		Open(open(target.get()));
		const BLooper* const place = target.get();
		target.reset();
		target.reset(new PlacedRecorder);
		ASSERT_EQ(place, target.get());
		use();
		EXPECT_EQ(0, target->CountMessages());
		// The window goes while the recorder is still there.
		fWindow.reset();
	}
};


TEST_F(OutlivedTargetTest, Agreement_AnswersNobody)
{
	ExpectHarmless(
		[](BLooper* target) {
			return new AgreementWindow(kFrame, target, "Be kind.");
		},
		[this] {
			fWindow->Invoke("accept");
		});
}


TEST_F(OutlivedTargetTest, Chat_IsSentToNobody)
{
	ExpectHarmless(
		[](BLooper* target) {
			return new ChatWindow(kFrame, target);
		},
		[this] {
			fWindow->Post(built_message(kMsgEnableChat, "enabled", true));
			fWindow->SetText("chatinput", "hello");
			fWindow->Invoke("chatinput");
		});
}


TEST_F(OutlivedTargetTest, ConnectWindow_AsksNobody)
{
	ExpectHarmless(
		[](BLooper* target) {
			return new ConnectWindow(kFrame, target);
		},
		[this] {
			fWindow->SetText("address", "server.example");
			fWindow->Invoke("connect");
		});
}


TEST_F(OutlivedTargetTest, FileList_TellsNobodyThatItCloses)
{
	ExpectHarmless(
		[](BLooper* target) {
			return new FileListWindow(kFrame, target, "folder", "", 0);
		},
		[this] {
			CloseAndWait();
		});
}


TEST_F(OutlivedTargetTest, FileList_RequestsOfNobody)
{
	ExpectHarmless(
		[](BLooper* target) {
			return new FileListWindow(kFrame, target, "folder", "", 0);
		},
		[this] {
			fWindow->Post(built_message(kMsgFileEntry, "name", "file"));
			InvokeRow("filelist", 0);
		});
}


TEST_F(OutlivedTargetTest, Message_IsSentToNobody)
{
	ExpectHarmless(
		[](BLooper* target) {
			return new MessageWindow(kFrame, target, 5, "Ann");
		},
		[this] {
			fWindow->SetText("pminput", "hello");
			fWindow->Invoke("pminput");
		});
}


TEST_F(OutlivedTargetTest, MessageWindow_TellsNobodyThatItCloses)
{
	ExpectHarmless(
		[](BLooper* target) {
			return new MessageWindow(kFrame, target, 5, "Ann");
		},
		[this] {
			CloseAndWait();
		});
}


TEST_F(OutlivedTargetTest, Options_AreSavedByNobody)
{
	ExpectHarmless(
		[](BLooper* target) {
			return new OptionsWindow(kFrame, target, "Ann", 137, "", "");
		},
		[this] {
			fWindow->Invoke("save");
		});
}


TEST_F(OutlivedTargetTest, Tracker_ConnectsNobody)
{
	ExpectHarmless(
		[](BLooper* target) {
			return new TrackerWindow(kFrame, target, "127.0.0.1:1");
		},
		[this] {
			fWindow->Post(built_message(kMsgTrackerServer, "ip", "10.0.0.1"));
			InvokeRow("serverlist", 0);
		});
}


TEST_F(OutlivedTargetTest, UserList_OpensNothing)
{
	ExpectHarmless(
		[](BLooper* target) {
			return new UserListWindow(kFrame, target);
		},
		[this] {
			fWindow->Post(built_message(kMsgAddUser, "socket", static_cast<uint16>(5)));
			InvokeRow("userlist", 0);
		});
}
