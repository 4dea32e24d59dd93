/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef DEMO_NOTICES_H
#define DEMO_NOTICES_H


#include "Transaction.h"

#include <cstdint>
#include <string>


namespace demo {


struct User;


// What the server says of its own accord, one function per kind. Line ends in texts are carriage
// returns on the wire; a line feed in a text given here becomes one.

Transaction chat_line(const User& speaker, const std::string& text);
Transaction chat_text(const std::string& text);
Transaction private_message(const User& sender, const std::string& text);
Transaction server_message(const std::string& text);
Transaction broadcast(const std::string& text);
Transaction agreement(const std::string& text);
Transaction no_agreement();
Transaction polite_quit(const std::string& text);
Transaction user_change(const User& user);
Transaction user_leave(uint16_t socket);
Transaction news_post(const std::string& text);
Transaction banner_notice();
Transaction unknown_notice();


} // namespace demo


#endif // DEMO_NOTICES_H
