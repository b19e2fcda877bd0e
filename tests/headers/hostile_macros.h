// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What may stand before the library's headers: those of ICU, and macros that the headers
/// of systems and of other libraries define, as bad as they come.

#include <unicode/uchar.h>
#include <unicode/ucnv.h>
#include <unicode/unistr.h>
#include <unicode/ustring.h>
#include <unicode/utypes.h>

// Windows.
#define min(a, b) (((a) < (b)) ? (a) : (b))
#define max(a, b) (((a) > (b)) ? (a) : (b))
#define CALLBACK
#define CONST const
#define DELETE 0x00010000L
#define ERROR 0
#define FAR
#define IGNORE 0
#define IN
#define INTERFACE 0
#define NEAR
#define NO_ERROR 0L
#define OPAQUE 2
#define OPTIONAL
#define OUT
#define REPLACE 1
#define REPORT 2
#define STRICT 1
#define TRANSPARENT 1
#define VOID void
#define far
#define interface struct
#define near
#define small char

// C libraries.
#define DOMAIN 1
#define I _Complex_I
#define OVERFLOW 3
#define PLOSS 6
#define SING 2
#define TLOSS 5
#define UNDERFLOW 4
#define linux 1
#define unix 1

// Toolkits.
#undef FALSE
#undef TRUE
#define Bool int
#define FALSE 0
#define None 0L
#define Status int
#define Success 0
#define TRUE 1
#define check(condition) assert(condition)
#define emit
#define foreach for
#define signals public
#define slots
