/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "TransferSession.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#include <unistd.h>

#include "ByteOrder.h"
#include "Notices.h"
#include "Server.h"
#include "TimerQueue.h"
#include "Transaction.h"


namespace demo {


static const char kMagic[] = {'H', 'T', 'X', 'F'};
static const size_t kRequestSize = 16;
static const size_t kChunkSize = 64 * 1024;
static const std::chrono::milliseconds kTimeToAsk(60000);


TransferSession::TransferSession(int socket, Server& server)
	: StreamChannel(socket, server.Timers()),
	  fServer(server),
	  fEndTimer(server.Timers().Add(kTimeToAsk, [this] {
		  Drop();
	  }))
{
}


TransferSession::~TransferSession()
{
	fServer.Timers().Cancel(fEndTimer);
	if (fFile >= 0)
		close(fFile);
}


size_t
TransferSession::HandleInput(const uint8_t* bytes, size_t size)
{
	if (!fHasOrder)
		return _HandleRequest(bytes, size);
	if (fReader == NULL)
		return size;

	FileObjectReader::State state = fReader->Feed(bytes, size);
	if (state == FileObjectReader::kComplete)
		_HandleUpload();
	if (state == FileObjectReader::kComplete || state == FileObjectReader::kBroken)
		Finish();
	return size;
}


void
TransferSession::RefillOutput()
{
	uint8_t chunk[kChunkSize];
	while (fIsSending && CountQueued() < kRefillBelow) {
		ssize_t count = fOrder.content.Read(chunk, sizeof(chunk));
		if (count > 0)
			Write(chunk, static_cast<size_t>(count));
		if (count < 0 || fOrder.content.IsAtEnd()) {
			fIsSending = false;
			Finish();
		}
	}
}


size_t
TransferSession::_HandleRequest(const uint8_t* bytes, size_t size)
{
	bool isStranger = memcmp(bytes, kMagic, std::min(size, sizeof(kMagic))) != 0;
	if (!isStranger && size < kRequestSize)
		return 0;
	if (isStranger || !fServer.Transfers().Take(read_32(bytes + 4), &fOrder)) {
		Finish();
		return size;
	}

	fServer.Timers().Cancel(fEndTimer);
	fHasOrder = true;
	if (fOrder.kind == TransferOrder::kSend)
		_StartSending();
	else
		_StartReceiving(read_32(bytes + 8));
	return kRequestSize;
}


void
TransferSession::_StartSending()
{
	if (fOrder.trouble == Trouble::kHangsUp) {
		Finish();
		return;
	}
	if (fOrder.trouble == Trouble::kCutShort)
		fOrder.content.CutAt(fOrder.content.Size() / 2);
	fIsSending = fOrder.trouble != Trouble::kSilent;
}


/*!	\param announcedSize What the connection says; it has to be what the request said before.
*/
void
TransferSession::_StartReceiving(uint32_t announcedSize)
{
	fFile = DiskContent::CreateFile();
	if (fFile < 0 || announcedSize != fOrder.announcedSize) {
		Finish();
		return;
	}
	fReader = std::make_unique<FileObjectReader>(*this, announcedSize);
}


bool
TransferSession::HandleData(const uint8_t* bytes, size_t size)
{
	while (size > 0) {
		ssize_t written = write(fFile, bytes, size);
		if (written < 0 && errno == EINTR)
			continue;
		if (written <= 0)
			return false;
		bytes += written;
		size -= static_cast<size_t>(written);
	}
	return true;
}


/*!	Puts the whole file on the shelf and tells everybody. */
void
TransferSession::_HandleUpload()
{
	FileRecord file;
	file.name = fOrder.name;
	file.type = fReader->Type();
	file.creator = fReader->Creator();
	uint64_t size = fReader->DataSize();
	file.data = std::make_shared<DiskContent>(fFile, size);
	fFile = -1;
	if (!fServer.Files().AddUpload(fOrder.folder, file))
		return;
	std::string place = fOrder.folder.empty() ? "the entrance" : fOrder.folder.back();
	fServer.SendToAll(chat_text(fOrder.nick + " has left \"" + fOrder.name + "\" ("
		+ std::to_string(size) + " bytes) in " + place + "."));
}


} // namespace demo
