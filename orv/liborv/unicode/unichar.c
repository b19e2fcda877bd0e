// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Looks up code points in the generated Unicode property tables.
///
/// The tables have two stages. The first gives for each run of UNICHAR_BLOCK_SIZE code points the
/// number of its block; equal blocks are stored once. The second gives for each place in a block
/// the number of a record. Code points with equal properties share a record, for which case
/// mappings are kept as distances and not as targets: the whole Latin alphabet needs two.

#include "orv/liborv/unicode/unichar.h"

/// What the tables know about a code point.
typedef struct UniCharRecord {
    int32_t lower; ///< distance to the lower-case mapping, 0 if there is none
    int32_t upper;
    int32_t title;
    int32_t properties;
    uint8_t charClass;
    int8_t digitValue;
} UniCharRecord;

#include "orv/liborv/unicode/tables/unichar_tables.inc"

/// The record of unassigned code points; the generator puts it first.
enum { UNASSIGNED_RECORD = 0 };

static inline const UniCharRecord* findRecord(uint32_t codePoint) {
    if (codePoint >= UNICHAR_CODE_POINTS)
        return &unicharRecords[UNASSIGNED_RECORD];
    const uint32_t block = unicharBlocks[codePoint / UNICHAR_BLOCK_SIZE];
    const uint32_t place = block * UNICHAR_BLOCK_SIZE + codePoint % UNICHAR_BLOCK_SIZE;
    return &unicharRecords[unicharPlaces[place]];
}

static inline int32_t hasProperty(uint32_t codePoint, int32_t properties) {
    return (findRecord(codePoint)->properties & properties) != 0;
}

const char* orvUnicodeVersion(void) {
    return UNICHAR_UNICODE_VERSION;
}

int32_t orvUniCharClass(uint32_t codePoint) {
    return findRecord(codePoint)->charClass;
}

int32_t orvUniCharProperties(uint32_t codePoint) {
    return findRecord(codePoint)->properties;
}

int32_t orvUniCharDigitValue(uint32_t codePoint) {
    return findRecord(codePoint)->digitValue;
}

int32_t orvUniCharIsAlphabetic(uint32_t codePoint) {
    return hasProperty(codePoint, ORV_UNI_ALPHABETIC);
}

int32_t orvUniCharIsDefined(uint32_t codePoint) {
    return hasProperty(codePoint, ORV_UNI_DEFINED);
}

int32_t orvUniCharIsDecimalDigit(uint32_t codePoint) {
    return hasProperty(codePoint, ORV_UNI_DECIMAL_DIGIT);
}

int32_t orvUniCharIsControl(uint32_t codePoint) {
    return hasProperty(codePoint, ORV_UNI_CONTROL);
}

int32_t orvUniCharIsLetter(uint32_t codePoint) {
    return hasProperty(codePoint, ORV_UNI_LETTER);
}

int32_t orvUniCharIsLetterOrDecimalDigit(uint32_t codePoint) {
    return hasProperty(codePoint, ORV_UNI_LETTER | ORV_UNI_DECIMAL_DIGIT);
}

int32_t orvUniCharIsLower(uint32_t codePoint) {
    return hasProperty(codePoint, ORV_UNI_LOWERCASE);
}

int32_t orvUniCharIsUpper(uint32_t codePoint) {
    return hasProperty(codePoint, ORV_UNI_UPPERCASE);
}

int32_t orvUniCharIsTitle(uint32_t codePoint) {
    return hasProperty(codePoint, ORV_UNI_TITLECASE);
}

// A distance is added modulo 2^32, which is what its conversion to unsigned gives.

uint32_t orvUniCharToLower(uint32_t codePoint) {
    return codePoint + (uint32_t)findRecord(codePoint)->lower;
}

uint32_t orvUniCharToUpper(uint32_t codePoint) {
    return codePoint + (uint32_t)findRecord(codePoint)->upper;
}

uint32_t orvUniCharToTitle(uint32_t codePoint) {
    return codePoint + (uint32_t)findRecord(codePoint)->title;
}
