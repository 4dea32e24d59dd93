/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef DEMO_PICTURE_H
#define DEMO_PICTURE_H


#include <cstdint>
#include <string>


namespace demo {


// Pictures that are drawn here, as whole files in the BMP format.

std::string night_picture(int32_t width, int32_t height);
std::string plain_picture(int32_t width, int32_t height, uint8_t red, uint8_t green, uint8_t blue);
std::string claim_of_a_picture(int32_t width, int32_t height);


} // namespace demo


#endif // DEMO_PICTURE_H
