/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef DEMO_BANNERS_H
#define DEMO_BANNERS_H


#include <string>


namespace demo {


/*!	The file of the banner of that kind.
	\return \c false when there is no such kind.
*/
bool make_banner(const std::string& kind, std::string* _bytes);
/*!	The kinds, separated by commas. */
std::string banner_kinds();


} // namespace demo


#endif // DEMO_BANNERS_H
