// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Asks the system for its code page or its locale's codeset.

// newlocale and nl_langinfo_l belong to this edition of POSIX.
#define _POSIX_C_SOURCE 200809L

#include "orv/liborv/system/codepage.h"

#include "orv/liborv/system/error.h"

#if defined(_WIN32)

#include <windows.h>

int orvSystemCodePage(void) {
    return (int)GetACP();
}

int orvSystemCodeset(char* buffer, size_t size) {
    (void)size;
    return buffer == NULL ? ORV_ERROR_INVALID_ARGUMENT : ORV_ERROR_NOT_SUPPORTED;
}

#else

#include <langinfo.h>
#include <limits.h>
#include <locale.h>
#include <stdlib.h>
#include <string.h>

int orvSystemCodePage(void) {
    return 0;
}

/// The name of the environment's character locale, or an empty text if no variable is set.
static const char* environmentLocale(void) {
    static const char* const variables[] = {"LC_ALL", "LC_CTYPE", "LANG"};
    for (size_t i = 0; i < sizeof variables / sizeof variables[0]; ++i) {
        const char* value = getenv(variables[i]);
        if (value != NULL && value[0] != '\0')
            return value;
    }
    return "";
}

static int copyName(const char* name, size_t length, char* buffer, size_t size) {
    if (length == 0)
        return ORV_ERROR_NOT_FOUND;
    if (length >= size || length > INT_MAX)
        return ORV_ERROR_RANGE;
    memcpy(buffer, name, length);
    buffer[length] = '\0';
    return (int)length;
}

/// Copies what stands between the "." and the "@" of `language_TERRITORY.codeset@modifier`.
static int copyCodesetPart(const char* locale, char* buffer, size_t size) {
    const size_t bare = strcspn(locale, "@");
    const char* dot = memchr(locale, '.', bare);
    if (dot == NULL)
        return ORV_ERROR_NOT_FOUND;
    return copyName(dot + 1, (size_t)(locale + bare - (dot + 1)), buffer, size);
}

int orvSystemCodeset(char* buffer, size_t size) {
    if (buffer == NULL)
        return ORV_ERROR_INVALID_ARGUMENT;
    const locale_t locale = newlocale(LC_CTYPE_MASK, "", (locale_t)0);
    if (locale == (locale_t)0)
        return copyCodesetPart(environmentLocale(), buffer, size);
    const char* name = nl_langinfo_l(CODESET, locale);
    const int result = copyName(name, strlen(name), buffer, size);
    freelocale(locale);
    return result;
}

#endif
