// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The failure codes of the C library, and their texts.

#ifndef ORV_LIBORV_SYSTEM_ERROR_H
#define ORV_LIBORV_SYSTEM_ERROR_H

#include "orv/liborv/platform.h"

ORV_EXTERN_C_BEGIN

/// What functions that can fail return. Failures are negative; 0 and above mean success.
/// The numbers are part of the interface: they are the same on every platform, whatever values
/// its own errno has.
typedef enum OrvError {
    ORV_OK = 0,
    ORV_ERROR_NOT_PERMITTED = -1,     ///< the system forbids the call
    ORV_ERROR_NOT_FOUND = -2,         ///< what was asked for does not exist
    ORV_ERROR_IO = -5,                ///< the system failed to deliver
    ORV_ERROR_INVALID_ARGUMENT = -22, ///< an argument breaks the function's contract
    ORV_ERROR_RANGE = -34,            ///< the result does not fit in the caller's buffer
    ORV_ERROR_NOT_SUPPORTED = -38     ///< the system has no such service
} OrvError;

/// The English text of a failure code: static, never null, safe from any thread.
/// 0 and every positive number give "no error"; a negative number that is no #OrvError gives
/// "unknown error".
ORV_API const char* orvStrError(int code) ORV_NOEXCEPT ORV_CONST_FUNCTION;

ORV_EXTERN_C_END

#endif
