/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TRANSFER_PARTNER_H
#define TRANSFER_PARTNER_H


// The server's end of transfers, as many at once as there are connections.

// Reads a request and sends a file of that many bytes.
void ServeFiles(int listener, long size);

// Takes what comes.
void ServeUploads(int listener);


#endif // TRANSFER_PARTNER_H
