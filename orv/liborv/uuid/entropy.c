// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Reads the system's random source.
///
/// The source is the system call alone. Where it is missing or forbidden the caller gets an error:
/// opening a device instead would be a file descriptor that no user of this library expects, and
/// a weaker source would be a silent lie.

#include "orv/liborv/uuid/entropy.h"

#include "orv/liborv/system/error.h"

#include <errno.h>
#include <stdint.h>
#include <sys/random.h>

static int errorFromErrno(int number) {
    switch (number) {
    case EPERM:
    case EACCES:
        return ORV_ERROR_NOT_PERMITTED;
    case ENOSYS:
        return ORV_ERROR_NOT_SUPPORTED;
    default:
        return ORV_ERROR_IO;
    }
}

int orvEntropyFill(OrvEntropySource source, void* buffer, size_t size) {
    uint8_t* next = buffer;
    while (size != 0) {
        const ssize_t count = source(next, size, 0);
        if (count > 0 && (size_t)count <= size) {
            next += count;
            size -= (size_t)count;
        } else if (count >= 0) {
            return ORV_ERROR_IO; // no progress, or more than was asked for: not to be trusted
        } else if (errno != EINTR) {
            return errorFromErrno(errno);
        }
    }
    return ORV_OK;
}

int orvEntropyRead(void* buffer, size_t size) {
    return orvEntropyFill(getrandom, buffer, size);
}
