/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef DEMO_TRANSFER_SESSION_H
#define DEMO_TRANSFER_SESSION_H


#include "FileObject.h"
#include "StreamChannel.h"
#include "TransferDesk.h"

#include <cstddef>
#include <cstdint>
#include <memory>


namespace demo {


class Server;


/*!	One connection to the transfer port: names an order by its reference, and then either gets what
	was ordered or delivers it. Belongs to the event loop and to its thread.
*/
class TransferSession : public StreamChannel, public FileObjectReader::Receiver {
public:
	TransferSession(int socket, Server& server);
	~TransferSession() override;

protected:
	size_t HandleInput(const uint8_t* bytes, size_t size) override;
	void RefillOutput() override;
	bool HasMoreOutput() const override { return fIsSending; }

private:
	size_t _HandleRequest(const uint8_t* bytes, size_t size);
	void _StartSending();
	void _StartReceiving(uint32_t announcedSize);
	bool HandleData(const uint8_t* bytes, size_t size) override;
	void _HandleUpload();

	Server& fServer;
	// Ends a connection that never says what it is for.
	uint64_t fEndTimer;
	bool fHasOrder = false;
	TransferOrder fOrder;
	bool fIsSending = false;

	std::unique_ptr<FileObjectReader> fReader;
	// The upload while it arrives; -1 when there is none, or when its content has been given away.
	int fFile = -1;
};


} // namespace demo


#endif // DEMO_TRANSFER_SESSION_H
