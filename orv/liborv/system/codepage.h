// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief In which encoding the system keeps narrow text.

#ifndef ORV_LIBORV_SYSTEM_CODEPAGE_H
#define ORV_LIBORV_SYSTEM_CODEPAGE_H

#include "orv/liborv/platform.h"

#include <stddef.h>

ORV_EXTERN_C_BEGIN

/// The number of the system's ANSI code page, such as 1252, or 0 where the system has no code
/// pages.
ORV_API int orvSystemCodePage(void) ORV_NOEXCEPT;

/// Writes the name of the codeset of the environment's locale into a buffer, with a NUL behind it.
///
/// The locale is the one that LC_ALL names, else LC_CTYPE, else LANG; an empty variable counts as
/// unset, and with none set the locale is "C". The process's own locale is neither asked nor
/// changed. The name is the C library's: "UTF-8", "ISO-8859-15", and for the C locale
/// "ANSI_X3.4-1968", which is US-ASCII. When the locale is not installed, the name is the codeset
/// part of the variable's value ("KOI8-R" of "ru_RU.KOI8-R@x").
///
/// Safe from any thread as long as no other thread changes the environment.
///
/// \param buffer where to write; 64 bytes hold every name in use
/// \param size   bytes in the buffer, the NUL included
/// \return the length of the name without the NUL, at least 1; or
///         #ORV_ERROR_INVALID_ARGUMENT if buffer is null;
///         #ORV_ERROR_RANGE if the name does not fit, and then nothing is written;
///         #ORV_ERROR_NOT_FOUND if the locale is not installed and its name has no codeset part;
///         #ORV_ERROR_NOT_SUPPORTED if the system has code pages in place of locale codesets.
ORV_API int orvSystemCodeset(char* buffer, size_t size) ORV_NOEXCEPT;

ORV_EXTERN_C_END

#endif
