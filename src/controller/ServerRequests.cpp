/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ServerRequests.h"

#include <Message.h>

#include "ChatColors.h"
#include "ChatOutput.h"
#include "HotlineClient.h"
#include "Settings.h"


/*!	\param client The owner's own pointer, which is looked at anew each time. */
ServerRequests::ServerRequests(const std::unique_ptr<HotlineClient>& client, ChatOutput* chat)
	: fClient(client),
	  fChat(chat)
{
}


bool
ServerRequests::IsConnected() const
{
	return fClient != NULL && fClient->IsConnected();
}


void
ServerRequests::ListUsers()
{
	if (IsConnected())
		fClient->RequestUserList();
}


/*!	\param path \c NULL for the root. */
void
ServerRequests::ListFolder(const char* path)
{
	if (IsConnected())
		fClient->RequestFileList(path);
}


/*!	\param message A kMsgSendChat. */
void
ServerRequests::SendChat(const BMessage* message)
{
	const char* text = message->GetString("text", "");
	if (IsConnected() && text[0] != '\0')
		fClient->SendChat(text);
}


/*!	\param message A kMsgPMSend. */
void
ServerRequests::SendPrivateMessage(const BMessage* message)
{
	const uint16 socket = message->GetUInt16("socket", 0);
	const char* text = message->GetString("text", "");
	if (IsConnected() && socket != 0 && text[0] != '\0')
		fClient->SendPrivateMsg(socket, text);
}


/*!	\param message A kMsgDownloadFile. */
void
ServerRequests::Download(const BMessage* message)
{
	const char* name = message->GetString("name", "");
	if (name[0] == '\0' || !IsConnected())
		return;

	fChat->Announce("Requesting download", name, kRequestColor);
	fClient->RequestDownload(message->GetString("path", ""), name);
}


/*!	\param message A kMsgUploadFile. Only the low 32 bits of the file's size go to the server. */
void
ServerRequests::Upload(const BMessage* message)
{
	const char* name = message->GetString("name", "");
	const char* localPath = message->GetString("localpath", "");
	if (name[0] == '\0' || localPath[0] == '\0' || !IsConnected())
		return;

	fChat->Announce("Requesting upload", name, kRequestColor);
	fClient->RequestUpload(message->GetString("path", ""), name,
		static_cast<uint32>(message->GetInt64("size", static_cast<int64>(0))), localPath);
}


void
ServerRequests::Agree(const Settings& settings)
{
	if (IsConnected())
		fClient->SendAgreed(settings.Nickname(), settings.IconID());
}


void
ServerRequests::ChangeUser(const Settings& settings)
{
	if (IsConnected())
		fClient->ChangeNickAndIcon(settings.Nickname(), settings.IconID());
}
