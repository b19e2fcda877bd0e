// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Fills UUID records from random bytes and from hashes.

#include "orv/liborv/uuid/uuid.h"

#include "orv/liborv/system/error.h"
#include "orv/liborv/uuid/entropy.h"
#include "orv/liborv/uuid/md5.h"

#include <string.h>

enum { UUID_SIZE = 16 };

_Static_assert(sizeof(OrvUUID) == UUID_SIZE, "the record crosses library boundaries as 16 bytes");
_Static_assert(offsetof(OrvUUID, clockSeqHiAndVariant) == 8,
               "callers read the last 8 bytes as one number");

static void toNetworkOrder(const OrvUUID* uuid, uint8_t bytes[UUID_SIZE]) {
    bytes[0] = (uint8_t)(uuid->timeLow >> 24);
    bytes[1] = (uint8_t)(uuid->timeLow >> 16);
    bytes[2] = (uint8_t)(uuid->timeLow >> 8);
    bytes[3] = (uint8_t)uuid->timeLow;
    bytes[4] = (uint8_t)(uuid->timeMid >> 8);
    bytes[5] = (uint8_t)uuid->timeMid;
    bytes[6] = (uint8_t)(uuid->timeHiAndVersion >> 8);
    bytes[7] = (uint8_t)uuid->timeHiAndVersion;
    bytes[8] = uuid->clockSeqHiAndVariant;
    bytes[9] = uuid->clockSeqLow;
    memcpy(bytes + 10, uuid->nodeBytes, sizeof uuid->nodeBytes);
}

/// Makes the record of 16 bytes in network order, with the version and the variant of RFC 4122 set
/// over the bits that stood there.
static OrvUUID fromNetworkOrder(const uint8_t bytes[UUID_SIZE], unsigned version) {
    OrvUUID uuid;
    uuid.timeLow = (uint32_t)bytes[0] << 24 | (uint32_t)bytes[1] << 16 | (uint32_t)bytes[2] << 8 |
                   (uint32_t)bytes[3];
    uuid.timeMid = (uint16_t)(bytes[4] << 8 | bytes[5]);
    uuid.timeHiAndVersion = (uint16_t)(version << 12 | (bytes[6] & 0x0FU) << 8 | bytes[7]);
    uuid.clockSeqHiAndVariant = (bytes[8] & 0x3F) | 0x80;
    uuid.clockSeqLow = bytes[9];
    memcpy(uuid.nodeBytes, bytes + 10, sizeof uuid.nodeBytes);
    return uuid;
}

int orvUUIDCreate(OrvUUID* uuid) {
    if (uuid == NULL)
        return ORV_ERROR_INVALID_ARGUMENT;
    uint8_t bytes[UUID_SIZE];
    const int result = orvEntropyRead(bytes, sizeof bytes);
    if (result < 0)
        return result;
    *uuid = fromNetworkOrder(bytes, 4);
    return ORV_OK;
}

int orvUUIDCreateFromName(const OrvUUID* nameSpace, const void* name, size_t size, OrvUUID* uuid) {
    if (uuid == NULL || (name == NULL && size != 0))
        return ORV_ERROR_INVALID_ARGUMENT;
    OrvMD5 hash;
    orvMD5Init(&hash);
    if (nameSpace != NULL) {
        uint8_t bytes[UUID_SIZE];
        toNetworkOrder(nameSpace, bytes);
        orvMD5Update(&hash, bytes, sizeof bytes);
    }
    orvMD5Update(&hash, name, size);
    uint8_t digest[ORV_MD5_DIGEST_SIZE];
    orvMD5Final(&hash, digest);
    *uuid = fromNetworkOrder(digest, 3);
    return ORV_OK;
}
