/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "Display.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <memory>

#include <xcb/xtest.h>


namespace bench {


// In pixels. What is smaller belongs to a toolkit and is never seen.
static const uint16_t kSmallestWindow = 60;


template<typename Value>
using Owned = std::unique_ptr<Value, decltype(&free)>;


template<typename Value>
static Owned<Value>
checked(Value* value, const char* what)
{
	if (value == NULL) {
		fprintf(stderr, "bench_screen: no %s\n", what);
		exit(1);
	}
	return Owned<Value>(value, free);
}


double
Now()
{
	timespec now;
	clock_gettime(CLOCK_MONOTONIC, &now);
	return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
}


Display::Display()
	: fConnection(xcb_connect(NULL, NULL)),
	  fScreen(NULL)
{
	if (xcb_connection_has_error(fConnection) != 0) {
		fprintf(stderr, "bench_screen: no X server\n");
		exit(1);
	}
	fScreen = xcb_setup_roots_iterator(xcb_get_setup(fConnection)).data;
}


Display::~Display()
{
	xcb_disconnect(fConnection);
}


/*!	Says "ready" on the standard output, then waits for a window, in the frame that the window
	manager has put around it, to be shown.
	\return When that was, as Now().
*/
double
Display::WaitForFirstWindow()
{
	const uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
	xcb_change_window_attributes(fConnection, fScreen->root, XCB_CW_EVENT_MASK, &events);
	// Once this is answered, the events are on their way.
	checked(xcb_get_input_focus_reply(fConnection, xcb_get_input_focus(fConnection), NULL),
		"answer");
	printf("ready\n");
	fflush(stdout);

	for (;;) {
		const Owned<xcb_generic_event_t> event = checked(xcb_wait_for_event(fConnection), "event");
		if ((event->response_type & 0x7f) != XCB_MAP_NOTIFY)
			continue;
		const double when = Now();
		xcb_map_notify_event_t mapped;
		memcpy(&mapped, event.get(), sizeof(mapped));
		const Owned<xcb_get_geometry_reply_t> geometry(
			xcb_get_geometry_reply(fConnection, xcb_get_geometry(fConnection, mapped.window), NULL),
			free);
		if (geometry != NULL && geometry->width >= kSmallestWindow
			&& geometry->height >= kSmallestWindow)
			return when;
	}
}


Pixels
Display::Read(xcb_window_t window, const Area& area)
{
	const Owned<xcb_get_image_reply_t> image
		= checked(xcb_get_image_reply(fConnection,
					  xcb_get_image(fConnection, XCB_IMAGE_FORMAT_Z_PIXMAP, window, area.left,
						  area.top, area.width, area.height, ~0U),
					  NULL),
			"picture");
	Pixels pixels(static_cast<size_t>(area.width) * area.height);
	const auto size = static_cast<size_t>(xcb_get_image_data_length(image.get()));
	if (size < pixels.size() * sizeof(uint32_t)) {
		fprintf(stderr, "bench_screen: not 32 bits a pixel\n");
		exit(1);
	}
	memcpy(pixels.data(), xcb_get_image_data(image.get()), pixels.size() * sizeof(uint32_t));
	return pixels;
}


/*!	Presses a key and lets go of it, in whichever window has the focus. The server has done so when
	this returns.
*/
void
Display::PressKey(uint32_t keysym)
{
	const uint8_t code = _KeyCode(keysym);
	xcb_test_fake_input(fConnection, XCB_KEY_PRESS, code, XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
	xcb_test_fake_input(fConnection, XCB_KEY_RELEASE, code, XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
	checked(xcb_get_input_focus_reply(fConnection, xcb_get_input_focus(fConnection), NULL),
		"answer");
}


uint8_t
Display::_KeyCode(uint32_t keysym)
{
	const xcb_setup_t* setup = xcb_get_setup(fConnection);
	const auto count = static_cast<uint8_t>(setup->max_keycode - setup->min_keycode + 1);
	const Owned<xcb_get_keyboard_mapping_reply_t> mapping
		= checked(xcb_get_keyboard_mapping_reply(fConnection,
					  xcb_get_keyboard_mapping(fConnection, setup->min_keycode, count), NULL),
			"keyboard");
	const xcb_keysym_t* symbols = xcb_get_keyboard_mapping_keysyms(mapping.get());
	for (unsigned int i = 0; i < count; i++) {
		if (symbols[i * mapping->keysyms_per_keycode] == keysym)
			return static_cast<uint8_t>(setup->min_keycode + i);
	}
	fprintf(stderr, "bench_screen: no such key\n");
	exit(1);
}


} // namespace bench
