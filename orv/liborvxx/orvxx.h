// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The whole library in one include: every public header, each with what it is for.
///
/// Handy for a small program. A larger one compiles faster with the headers that it uses.
#ifndef ORV_LIBORVXX_ORVXX_H
#define ORV_LIBORVXX_ORVXX_H

// Base: errors and small types.
#include "orv/liborvxx/base/error.h"        // exceptions that subsystems share, and as text
#include "orv/liborvxx/base/flags.h"        // combinations of the values of an enumeration
#include "orv/liborvxx/base/gref.h"         // counted references
#include "orv/liborvxx/base/heap_profile.h" // the hooks of a heap profiler
#include "orv/liborvxx/base/optional.h"     // a value that may be absent
#include "orv/liborvxx/base/platform.h"     // what differs between compilers

// Text in UTF-16.
#include "orv/liborvxx/text/case_insensitive.h" // keys of containers without regard to case
#include "orv/liborvxx/text/char16.h"           // one code unit
#include "orv/liborvxx/text/char_iterator.h"    // the cursor of parsers
#include "orv/liborvxx/text/char_sequence.h"    // any run of units, anything that takes units
#include "orv/liborvxx/text/char_traits.h"      // what strings and streams of units stand on
#include "orv/liborvxx/text/code_points.h"      // classes, case and digits of code points
#include "orv/liborvxx/text/cvtstr.h"           // narrow, UTF-16 and wide strings of each other
#include "orv/liborvxx/text/literals.h"         // u"text"_u
#include "orv/liborvxx/text/string_builder.h"   // a text that grows
#include "orv/liborvxx/text/string_ref.h"       // the view in which text is passed
#include "orv/liborvxx/text/ustring.h"          // the standard string of units
#include "orv/liborvxx/text/utf16_interop.h"    // units as char16_t and back

// Character sets.
#include "orv/liborvxx/charset/buffer.h"          // cursors over memory, for coders
#include "orv/liborvxx/charset/charset.h"         // character sets by name
#include "orv/liborvxx/charset/charset_decoder.h" // bytes to UTF-16
#include "orv/liborvxx/charset/charset_encoder.h" // UTF-16 to bytes
#include "orv/liborvxx/charset/coder_result.h"    // what stopped a coder, what to do about it
#include "orv/liborvxx/charset/coding_error.h"    // the exceptions of coders

// Exact numbers, and numbers as text.
#include "orv/liborvxx/number/big_uint.h"          // large unsigned integers
#include "orv/liborvxx/number/binary16.h"          // half precision
#include "orv/liborvxx/number/float_class.h"       // what kind of value a float is
#include "orv/liborvxx/number/from_chars.h"        // numbers from text, with a status
#include "orv/liborvxx/number/make_binary.h"       // floating point from a coefficient, base 10
#include "orv/liborvxx/number/number_status.h"     // how the reading of a number went
#include "orv/liborvxx/number/number_to_string.h"  // numbers as strings
#include "orv/liborvxx/number/pack_binary.h"       // floating point from a coefficient, base 2
#include "orv/liborvxx/number/pack_decimal.h"      // decimals from a large coefficient
#include "orv/liborvxx/number/string_to_decimal.h" // decimals from text, with exceptions
#include "orv/liborvxx/number/string_to_float.h"   // floating point from text, with exceptions
#include "orv/liborvxx/number/string_to_int.h"     // integers from text, with exceptions
#include "orv/liborvxx/number/to_chars.h"          // numbers as text in the caller's memory

// Decimal floating point. The first header has all of it.
#include "orv/liborvxx/decimal/binary_to_decimal.h" // the decimal that a binary number shows
#include "orv/liborvxx/decimal/decimal.h"           // everything below
#include "orv/liborvxx/decimal/decimal128.h"        // 34 digits
#include "orv/liborvxx/decimal/decimal32.h"         // 7 digits
#include "orv/liborvxx/decimal/decimal64.h"         // 16 digits
#include "orv/liborvxx/decimal/decimal_access.h"    // what a decimal is made of
#include "orv/liborvxx/decimal/decimal_functions.h" // the functions of the C library by width
#include "orv/liborvxx/decimal/decimal_fwd.h"       // names of the types
#include "orv/liborvxx/decimal/decimal_hash.h"      // hashes
#include "orv/liborvxx/decimal/decimal_io.h"        // text and streams, in the style of a locale
#include "orv/liborvxx/decimal/decimal_layout.h"    // the formats in numbers
#include "orv/liborvxx/decimal/decimal_limits.h"    // std::numeric_limits
#include "orv/liborvxx/decimal/decimal_literal_value.h" // how literals are read
#include "orv/liborvxx/decimal/decimal_literals.h"      // 1.50_d64
#include "orv/liborvxx/decimal/decimal_math.h"          // mathematical functions
#include "orv/liborvxx/decimal/decimal_operators.h"     // operators and conversions
#include "orv/liborvxx/decimal/decimal_traits.h"        // what functions ask of their operands
#include "orv/liborvxx/decimal/make_decimal.h"          // decimals from an integer, base 10

// Locales and streams over UTF-16.
#include "orv/liborvxx/locale/char_class.h"        // <cctype> of units
#include "orv/liborvxx/locale/charset_streambuf.h" // text over bytes of any character set
#include "orv/liborvxx/locale/ctype.h"             // std::ctype<char16>
#include "orv/liborvxx/locale/num_get.h"           // std::num_get<char16>
#include "orv/liborvxx/locale/num_put.h"           // std::num_put<char16>
#include "orv/liborvxx/locale/numpunct.h"          // std::numpunct<char16>
#include "orv/liborvxx/locale/uiostream.h"         // input and output
#include "orv/liborvxx/locale/uistream.h"          // input
#include "orv/liborvxx/locale/ulocale.h"           // a locale with the facets of streams
#include "orv/liborvxx/locale/uostream.h"          // output
#include "orv/liborvxx/locale/ustringstream.h"     // streams over a string

// URIs.
#include "orv/liborvxx/net/uri.h"              // an immutable URI
#include "orv/liborvxx/net/uri_data.h"         // where the components lie
#include "orv/liborvxx/net/uri_parser.h"       // the parser
#include "orv/liborvxx/net/uri_parts.h"        // segments of paths, parameters of queries
#include "orv/liborvxx/net/uri_syntax_error.h" // the exception for bad text

// UUIDs.
#include "orv/liborvxx/uuid/uuid.h" // identifiers of 128 bits

#endif
