/* SPDX-License-Identifier: Apache-2.0 */
/* The public headers and every function, used from plain C. */

#include "orv/liborv/decimal/arithmetic.h"
#include "orv/liborv/decimal/compare.h"
#include "orv/liborv/decimal/convert.h"
#include "orv/liborv/decimal/decimal.h"
#include "orv/liborv/platform.h"
#include "orv/liborv/system/codepage.h"
#include "orv/liborv/system/error.h"
#include "orv/liborv/unicode/unichar.h"
#include "orv/liborv/uuid/uuid.h"

#include <stdio.h>
#include <string.h>

static int failures = 0;

static void check(int condition, const char* what) {
    if (!condition) {
        fprintf(stderr, "failed: %s\n", what);
        ++failures;
    }
}

#define CHECK(condition) check((condition), #condition)

static void useUnicode(void) {
    CHECK(strlen(orvUnicodeVersion()) >= 5);
    CHECK(orvUniCharClass('A') == ORV_UNI_CLASS_UPPERCASE_LETTER);
    CHECK((orvUniCharProperties('A') & ORV_UNI_ID_START) != 0);
    CHECK(orvUniCharDigitValue(0x667) == 7);
    CHECK(orvUniCharIsAlphabetic('A') == 1);
    CHECK(orvUniCharIsDefined('A') == 1);
    CHECK(orvUniCharIsDecimalDigit('A') == 0);
    CHECK(orvUniCharIsControl('\n') == 1);
    CHECK(orvUniCharIsLetter('A') == 1);
    CHECK(orvUniCharIsLetterOrDecimalDigit('7') == 1);
    CHECK(orvUniCharIsLower('A') == 0);
    CHECK(orvUniCharIsUpper('A') == 1);
    CHECK(orvUniCharIsTitle('A') == 0);
    CHECK(orvUniCharToLower('A') == 'a');
    CHECK(orvUniCharToUpper(0xE4) == 0xC4);
    CHECK(orvUniCharToTitle(0x1C4) == 0x1C5);
}

static void useUUIDs(void) {
    OrvUUID random;
    OrvUUID named;
    CHECK(orvUUIDCreate(&random) == ORV_OK);
    CHECK(random.timeHiAndVersion >> 12 == 4);
    CHECK(orvUUIDCreateFromName(&random, "name", 4, &named) == ORV_OK);
    CHECK(named.timeHiAndVersion >> 12 == 3);
    CHECK(orvUUIDCreate(NULL) == ORV_ERROR_INVALID_ARGUMENT);
}

static void useSystem(void) {
    char codeset[64];
    CHECK(strcmp(orvStrError(ORV_ERROR_IO), "input/output error") == 0);
    CHECK(orvSystemCodePage() >= 0);
    CHECK(orvSystemCodeset(codeset, 1) < 0);
}

static void useDecimals(void) {
    const ODecimal32 three32 = orvDec32FromInt64(3);
    const ODecimal64 three64 = orvDec64FromInt64(3);
    const ODecimal128 three128 = orvDec128FromInt64(3);
    CHECK(orvDec32ToInt64(orvDec32Add(three32, three32)) == 6);
    CHECK(orvDec64ToInt64(orvDec64Multiply(three64, three64)) == 9);
    CHECK(orvDec128ToInt64(orvDec128Subtract(three128, three128)) == 0);
    CHECK(orvDec64QuietEqual(orvDec32ToDec64(three32), orvDec128ToDec64(three128)));
    CHECK(orvDec64Compare(three64, orvDec64Negate(three64)) == 1);
    CHECK(orvDec64Class(three64) == ORV_DEC_POSITIVE_NORMAL);
    CHECK(orvDec128IsFinite(orvDec128Divide(three128, three128)));
}

int main(void) {
    useDecimals();
    useUnicode();
    useUUIDs();
    useSystem();
    return failures == 0 ? 0 : 1;
}
