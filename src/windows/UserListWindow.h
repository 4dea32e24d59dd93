/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef USER_LIST_WINDOW_H
#define USER_LIST_WINDOW_H


#include <memory>
#include <unordered_map>

#include <Messenger.h>
#include <String.h>
#include <Window.h>


class BBitmap;
class BListView;
class BLooper;
class BScrollView;
class BStringView;
class UserItem;


/*!	Who is on the server, in the order of arrival, kept in step by the controller's messages.
	Owns its rows and the pictures that they draw. Lives as long as the program: closing it
	minimizes it.
*/
class UserListWindow : public BWindow {
public:
	UserListWindow(BRect frame, BLooper* target);
	~UserListWindow() override;

	void MessageReceived(BMessage* message) override;
	bool QuitRequested() override;

	const BBitmap* IconForID(uint16 id);

private:
	struct IconEntry {
		uint16 id;
		std::unique_ptr<BBitmap> bitmap; // empty where there is no such picture
	};

	// An icon has 64 KiB of pixels at most, so that these have 16 MiB.
	static const int32 kMaxCachedIcons = 256;

	void _HandleAdd(const BMessage* message);
	void _HandleRemove(const BMessage* message);
	void _HandleInvoked();
	std::unique_ptr<BBitmap> _LoadIcon(uint16 id) const;
	UserItem* _FindUser(uint16 socket, int32* _index) const;
	int32 _IndexOf(const UserItem* user) const;
	void _RemoveAll();
	void _UpdateTitle();

	BListView* fUserList;
	// The list's rows by socket: there may be as many as there are sockets.
	std::unordered_map<uint16, UserItem*> fUsers;
	int64 fNextNumber;
	BScrollView* fUserScroll;
	BStringView* fCountLabel;
	BLooper* fTarget;
	BMessenger fMessenger{fTarget};
	// The number of the connection whose users are listed.
	uint32 fConnection;
	IconEntry fIconCache[kMaxCachedIcons];
	int32 fIconCacheCount;
	// With the cache full, the picture that was read last.
	std::unique_ptr<BBitmap> fUncachedIcon;
	BString fAssetsDir; // empty where the program's own folder is unknown
};


#endif // USER_LIST_WINDOW_H
