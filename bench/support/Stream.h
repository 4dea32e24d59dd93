/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef STREAM_H
#define STREAM_H


#include <cstddef>
#include <cstdint>


// What the programs here need of sockets. Whatever fails ends the program.

// On 127.0.0.1. The port of a listening socket is the system's choice.
int ListenOnLoopback(uint16_t* _port);
int ConnectToLoopback(uint16_t port);

// In as many calls as it takes.
void SendFully(int socket, const void* data, size_t size);
void ReceiveFully(int socket, void* buffer, size_t size);


#endif // STREAM_H
