/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "Banners.h"

#include <cstddef>
#include <cstdint>

#include "Picture.h"


namespace demo {


static const int32_t kWidth = 468;
static const int32_t kHeight = 60;
// The most that clients fetch, in bytes.
static const size_t kLargest = 524288;


static std::string
night()
{
	return night_picture(kWidth, kHeight);
}


static std::string
tall()
{
	return night_picture(kWidth, 2 * kHeight);
}


static std::string
tiny()
{
	return plain_picture(1, 1, 200, 0, 0);
}


static std::string
wide()
{
	return plain_picture(20000, 8, 0, 100, 0);
}


static std::string
half()
{
	std::string bytes = night();
	return bytes.substr(0, bytes.size() / 2);
}


static std::string
noise()
{
	std::string bytes;
	for (uint32_t i = 0, value = 1; i < 5000; i++) {
		value = value * 1664525 + 1013904223;
		bytes.push_back(static_cast<char>(value >> 24));
	}
	return bytes;
}


// Bytes behind the picture do it no harm.
static std::string
largest()
{
	std::string bytes = night();
	bytes.resize(kLargest);
	return bytes;
}


static std::string
too_large()
{
	std::string bytes = night();
	bytes.resize(kLargest + 1);
	return bytes;
}


static std::string
enormous()
{
	return claim_of_a_picture(60000, 60000);
}


static std::string
empty()
{
	return "";
}


static const struct {
	const char* kind;
	std::string (*make)();
} kBanners[] = {
	{"night", night},
	{"tall", tall},
	{"tiny", tiny},
	{"wide", wide},
	{"half", half},
	{"noise", noise},
	{"largest", largest},
	{"toolarge", too_large},
	{"enormous", enormous},
	{"empty", empty},
};


bool
make_banner(const std::string& kind, std::string* _bytes)
{
	for (const auto& banner : kBanners) {
		if (kind == banner.kind) {
			*_bytes = banner.make();
			return true;
		}
	}
	return false;
}


std::string
banner_kinds()
{
	std::string kinds;
	for (const auto& banner : kBanners)
		kinds += (kinds.empty() ? "" : ", ") + std::string(banner.kind);
	return kinds;
}


} // namespace demo
