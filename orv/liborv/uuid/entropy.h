// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Random bytes from the system. Internal to the C library.

#ifndef ORV_LIBORV_UUID_ENTROPY_H
#define ORV_LIBORV_UUID_ENTROPY_H

#include "orv/liborv/platform.h"

#include <stddef.h>
#include <sys/types.h>

ORV_EXTERN_C_BEGIN

/// A source in the manner of getrandom(2): writes up to size bytes and returns how many, or
/// returns -1 with errno set.
typedef ssize_t (*OrvEntropySource)(void* buffer, size_t size, unsigned int flags);

/// Fills the buffer from the source, with as many calls as it takes: after an interruption by a
/// signal it asks again, after a short read for the rest.
/// \return 0, or a negative #OrvError, with the contents of the buffer unspecified
int orvEntropyFill(OrvEntropySource source, void* buffer, size_t size);

/// Fills the buffer from the system's cryptographic random source.
/// \return as orvEntropyFill()
int orvEntropyRead(void* buffer, size_t size);

ORV_EXTERN_C_END

#endif
