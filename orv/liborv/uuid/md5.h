// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The MD5 message digest (RFC 1321), for name-based UUIDs. Internal to the C library.
///
/// MD5 is broken as a cryptographic hash. It stands here because version 3 UUIDs are defined by it.

#ifndef ORV_LIBORV_UUID_MD5_H
#define ORV_LIBORV_UUID_MD5_H

#include "orv/liborv/platform.h"

#include <stddef.h>
#include <stdint.h>

ORV_EXTERN_C_BEGIN

enum { ORV_MD5_BLOCK_SIZE = 64, ORV_MD5_DIGEST_SIZE = 16 };

/// A digest in the making.
typedef struct OrvMD5 {
    uint32_t state[4];
    uint64_t size; ///< bytes taken in so far, modulo 2^64
    uint8_t block[ORV_MD5_BLOCK_SIZE];
} OrvMD5;

/// Starts a digest.
void orvMD5Init(OrvMD5* md5);

/// Takes in bytes. The digest does not depend on how the input is cut up. With size 0 data may be
/// null.
void orvMD5Update(OrvMD5* md5, const void* data, size_t size);

/// Ends the digest and writes it. The state is used up: the next use starts with orvMD5Init().
void orvMD5Final(OrvMD5* md5, uint8_t digest[ORV_MD5_DIGEST_SIZE]);

ORV_EXTERN_C_END

#endif
