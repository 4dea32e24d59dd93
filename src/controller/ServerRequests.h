/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef SERVER_REQUESTS_H
#define SERVER_REQUESTS_H


#include <memory>


class BMessage;
class ChatOutput;
class HotlineClient;
class Settings;


/*!	What the user asks of the server. Without a connection nothing is asked, nor anything said about
	it. Lives in the main window's thread; borrows the chat and the client, which may be another one
	or none at any time.
*/
class ServerRequests {
public:
	ServerRequests(const std::unique_ptr<HotlineClient>& client, ChatOutput* chat);

	bool IsConnected() const;

	void ListUsers();
	void ListFolder(const char* path);
	void SendChat(const BMessage* message);
	void SendPrivateMessage(const BMessage* message);
	void Download(const BMessage* message);
	void Upload(const BMessage* message);
	void Agree(const Settings& settings);
	void ChangeUser(const Settings& settings);

private:
	const std::unique_ptr<HotlineClient>& fClient;
	ChatOutput* fChat;
};


#endif // SERVER_REQUESTS_H
