/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TYPE_CONSTANTS_H
#define TYPE_CONSTANTS_H


enum {
	B_ANY_TYPE = 'ANYT',
	B_BOOL_TYPE = 'BOOL',
	B_INT16_TYPE = 'SHRT',
	B_INT32_TYPE = 'LONG',
	B_INT64_TYPE = 'LLNG',
	B_MESSENGER_TYPE = 'MSNG',
	B_POINTER_TYPE = 'PNTR',
	B_RAW_TYPE = 'RAWT',
	B_REF_TYPE = 'RREF',
	B_STRING_TYPE = 'CSTR',
	B_UINT16_TYPE = 'USHT',
	B_UINT32_TYPE = 'ULNG'
};


#endif // TYPE_CONSTANTS_H
