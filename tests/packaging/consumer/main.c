/* SPDX-License-Identifier: Apache-2.0 */
/* A program in C that uses the installed C library: it fails if an answer is wrong. */

#include "orv/liborv/decimal/arithmetic.h"
#include "orv/liborv/decimal/convert.h"
#include "orv/liborv/system/error.h"
#include "orv/liborv/unicode/unichar.h"
#include "orv/liborv/uuid/uuid.h"

#include <stdio.h>

int main(void) {
    OrvUUID id;
    if (orvUUIDCreate(&id) != ORV_OK || id.timeHiAndVersion >> 12 != 4) {
        fputs("orvUUIDCreate gave no random UUID\n", stderr);
        return 1;
    }
    if (orvUniCharToUpper(0xE4) != 0xC4) {
        fputs("orvUniCharToUpper gave no upper-case letter\n", stderr);
        return 1;
    }
    if (orvDec64ToInt32(orvDec64Add(orvDec64FromInt64(40), orvDec64FromInt64(2))) != 42) {
        fputs("orvDec64Add gave no 42\n", stderr);
        return 1;
    }
    return 0;
}
