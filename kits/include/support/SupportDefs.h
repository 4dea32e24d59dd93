/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef SUPPORT_DEFS_H
#define SUPPORT_DEFS_H


#include <cinttypes>
#include <cstddef>
#include <cstdint>
#include <sys/types.h>

#include <Errors.h>


typedef int8_t int8;
typedef uint8_t uint8;
typedef int16_t int16;
typedef uint16_t uint16;
typedef int32_t int32;
typedef uint32_t uint32;
typedef int64_t int64;
typedef uint64_t uint64;

typedef int32 status_t;
// In microseconds.
typedef int64 bigtime_t;
typedef uint32 type_code;


#define B_PRId8 PRId8
#define B_PRIu8 PRIu8
#define B_PRId16 PRId16
#define B_PRIu16 PRIu16
#define B_PRIx16 PRIx16
#define B_PRId32 PRId32
#define B_PRIi32 PRIi32
#define B_PRIu32 PRIu32
#define B_PRIx32 PRIx32
#define B_PRId64 PRId64
#define B_PRIu64 PRIu64
#define B_PRIx64 PRIx64
#define B_PRIuSIZE "zu"
#define B_PRIdSSIZE "zd"
#define B_PRIdBIGTIME B_PRId64
// off_t is a long where the program is built for 64 bits.
#define B_PRIdOFF "ld"


#define min_c(a, b) ((a) > (b) ? (b) : (a))
#define max_c(a, b) ((a) > (b) ? (a) : (b))


#endif // SUPPORT_DEFS_H
