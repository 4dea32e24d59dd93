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


/*!	What the user asks of the server. Without a connection every request does nothing, and no line
	appears in the chat. Lives in the main window's thread; borrows the chat and the client, which
	may be another one or none at any time.
*/
class ServerRequests {
public:
	ServerRequests(const std::unique_ptr<HotlineClient>& client, ChatOutput* chat);
	ServerRequests(std::unique_ptr<HotlineClient>&&, ChatOutput*) = delete;

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
