/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TYPE_CONSTANTS_H
#define TYPE_CONSTANTS_H


enum {
	B_ANY_TYPE = 'ANYT',
	B_BOOL_TYPE = 'BOOL',
	B_DOUBLE_TYPE = 'DBLE',
	B_FLOAT_TYPE = 'FLOT',
	B_INT8_TYPE = 'BYTE',
	B_INT16_TYPE = 'SHRT',
	B_INT32_TYPE = 'LONG',
	B_INT64_TYPE = 'LLNG',
	B_MESSAGE_TYPE = 'MSGG',
	B_POINTER_TYPE = 'PNTR',
	B_RAW_TYPE = 'RAWT',
	B_REF_TYPE = 'RREF',
	B_STRING_TYPE = 'CSTR',
	B_UINT8_TYPE = 'UBYT',
	B_UINT16_TYPE = 'USHT',
	B_UINT32_TYPE = 'ULNG',
	B_UINT64_TYPE = 'ULLG'
};


#endif // TYPE_CONSTANTS_H
