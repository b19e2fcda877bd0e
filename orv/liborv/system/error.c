// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The texts of the failure codes.

#include "orv/liborv/system/error.h"

const char* orvStrError(int code) {
    if (code >= 0)
        return "no error";
    switch (code) {
    case ORV_ERROR_NOT_PERMITTED:
        return "operation not permitted";
    case ORV_ERROR_NOT_FOUND:
        return "not found";
    case ORV_ERROR_IO:
        return "input/output error";
    case ORV_ERROR_INVALID_ARGUMENT:
        return "invalid argument";
    case ORV_ERROR_RANGE:
        return "result too large for the buffer";
    case ORV_ERROR_NOT_SUPPORTED:
        return "not supported by the system";
    default:
        return "unknown error";
    }
}
