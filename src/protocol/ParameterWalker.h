/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef PARAMETER_WALKER_H
#define PARAMETER_WALKER_H


#include <cstddef>

#include <SupportDefs.h>


class BString;
struct HotlineParam;


/*!	Walks the parameters of one received transaction.
	Borrows the bytes, which must outlive it and the parameters that it hands out. Goes by the
	lengths alone and never reads past the given size.
*/
class ParameterWalker {
public:
	ParameterWalker(const uint8* bytes, size_t size);

	bool Next(HotlineParam* _param);

private:
	const uint8* fBytes;
	size_t fSize;
	size_t fPosition;
};


// How a value is read when its length is not the expected one. Where it is too short, nothing is
// written.
void ReadParamUInt16(const HotlineParam& param, uint16* _value);
void ReadParamUInt32(const HotlineParam& param, uint32* _value);
void ReadParamNumber(const HotlineParam& param, uint32* _value);
void ReadParamText(const HotlineParam& param, BString* _text);
void ReadParamText(const HotlineParam& param, uint16 limit, BString* _text);


#endif // PARAMETER_WALKER_H
