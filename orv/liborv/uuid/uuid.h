// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Makes universally unique identifiers (RFC 4122): random ones, and ones from names.

#ifndef ORV_LIBORV_UUID_UUID_H
#define ORV_LIBORV_UUID_UUID_H

#include "orv/liborv/platform.h"

#include <stddef.h>
#include <stdint.h>

ORV_EXTERN_C_BEGIN

/// A UUID in the fields of RFC 4122, section 4.1.2: 16 bytes without padding. The integers are in
/// host byte order; the last 8 bytes read as one big-endian number.
typedef struct OrvUUID {
    uint32_t timeLow;
    uint16_t timeMid;
    uint16_t timeHiAndVersion;    ///< version in the top 4 bits
    uint8_t clockSeqHiAndVariant; ///< variant in the top bits
    uint8_t clockSeqLow;
    uint8_t nodeBytes[6];
} OrvUUID;

/// Makes a random UUID (version 4) from the system's cryptographic random source.
///
/// May wait while the system starts and has not gathered randomness yet. Safe from any thread,
/// and after fork: the library keeps no random state.
///
/// \param uuid filled on success, and untouched on failure
/// \return 0, or a negative #OrvError: #ORV_ERROR_INVALID_ARGUMENT if uuid is null;
///         #ORV_ERROR_NOT_PERMITTED, #ORV_ERROR_NOT_SUPPORTED or #ORV_ERROR_IO if the system gives
///         no random bytes.
ORV_API int orvUUIDCreate(OrvUUID* uuid) ORV_NOEXCEPT;

/// Makes the UUID of a name (version 3, by MD5): the same name gives the same UUID everywhere.
///
/// With a namespace, the value is the one of RFC 4122, section 4.3. Without, the hash runs over
/// the name alone, as name-from-bytes functions of other platforms do.
///
/// \param nameSpace a namespace's UUID, or null
/// \param name      the bytes of the name; may be null if size is 0
/// \param size      how many bytes
/// \param uuid      filled on success, and untouched on failure; may be the namespace's own record
/// \return 0, or #ORV_ERROR_INVALID_ARGUMENT if uuid is null, or name is null and size is not 0.
ORV_API int orvUUIDCreateFromName(const OrvUUID* nameSpace, const void* name, size_t size,
                                  OrvUUID* uuid) ORV_NOEXCEPT;

ORV_EXTERN_C_END

#endif
