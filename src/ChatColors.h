/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef CHAT_COLORS_H
#define CHAT_COLORS_H


#include <GraphicsDefs.h>


// The colors of the chat window's lines, by their kind. They are fixed, whatever colors the desktop
// has.
static constexpr rgb_color kChatColor = {0, 0, 0, 255};
static constexpr rgb_color kSuccessColor = {0, 128, 0, 255};
static constexpr rgb_color kFailureColor = {200, 0, 0, 255};
static constexpr rgb_color kDisconnectColor = {180, 0, 0, 255};
static constexpr rgb_color kServerColor = {0, 100, 0, 255};
static constexpr rgb_color kRequestColor = {100, 100, 100, 255};
static constexpr rgb_color kServerMessageColor = {128, 0, 128, 255};
static constexpr rgb_color kBroadcastColor = {200, 100, 0, 255};


#endif // CHAT_COLORS_H
