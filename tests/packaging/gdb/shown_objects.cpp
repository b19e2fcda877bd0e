// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Objects for the debugger to show.
///
/// A comment "//= EXPRESSION | TEXT" says what GDB shows for an expression in main. A blank within
/// the text stands for itself; "[...]" for anything. Behind "WITHOUT DEBUG SYMBOLS" is what is
/// shown if the library has none.
#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/decimal/decimal.h"
#include "orv/liborvxx/locale/ulocale.h"
#include "orv/liborvxx/net/uri.h"
#include "orv/liborvxx/number/big_uint.h"
#include "orv/liborvxx/text/literals.h"
#include "orv/liborvxx/text/string_builder.h"
#include "orv/liborvxx/text/string_ref.h"
#include "orv/liborvxx/text/ustring.h"
#include "orv/liborvxx/uuid/uuid.h"

#include <cstddef>
#include <cstring>

using namespace orv::literals;

namespace {

constexpr std::size_t BYTES = 256;

// Memory in which no object has been made.
struct Rubbish {
    alignas(16) unsigned char bytes[BYTES];

    explicit Rubbish(int value) { std::memset(bytes, value, BYTES); }
};

} // namespace

extern "C" [[gnu::noinline]] void stopHere();
extern "C" void stopHere() {}

int main() {
    //= letter | 97 u'a'
    //= quote | 39 u'\''
    //= nul | 0 u'\0'
    //= surrogate | 55357 u'\ud83d'
    //= umlaut | 228 u'\u00e4'
    //= end | 65535 u'\uffff'
    const orv::char16 letter = u'a';
    const orv::char16 quote = u'\'';
    const orv::char16 nul = u'\0';
    const orv::char16 surrogate(0xD83D);
    const orv::char16 umlaut = u'\u00E4';
    const orv::char16_int end(0xFFFF);

    //= empty | u""
    //= inside | u"inside"
    //= outside | u"a text that is too long for the object itself"
    //= accents | u"gr\u00fc\u00df \U0001f600"
    //= lone | u"a\ud83db\ude00"
    //= controls | u"a\0b\n\t\"\\'\u007ff\u0085"
    //= endless | u"[...]"...
    //= &endless | (const orv::ustring *) 0x[...]
    const orv::ustring empty;
    const orv::ustring inside = u"inside"_u;
    const orv::ustring outside = u"a text that is too long for the object itself"_u;
    const orv::ustring accents = u"gr\u00FC\u00DF \U0001F600"_u;
    const orv::ustring lone = {u'a', orv::char16(0xD83D), u'b', orv::char16(0xDE00)};
    const orv::ustring controls = u"a\0b\n\t\"\\'\u007Ff\u0085"_u;
    const orv::ustring endless(100'000, u'x');

    //= view | u"side"
    //= ref | u"text"
    //= narrow | "gr\u00fcn\xff"
    //= wide | L"wide"
    //= builder | u"built"
    //= reference | u"inside"
    const orv::ustring_view view = orv::ustring_view(inside).substr(2);
    const orv::ustring_ref ref = orv::ustring_ref(outside).substr(2, 4);
    const orv::string_ref narrow = "gr\xC3\xBCn\xFF";
    const orv::wstring_ref wide = L"wide";
    orv::StringBuilder builder;
    builder.append(u"built"_u);
    const orv::ustring& reference = inside;

    //= zero | 0
    //= small | 4294967295
    //= power | 100000000000000000000000000000000000000000000000000
    //= huge | a number of 16000 bits
    //= huge.reserved_ = 3, huge | <not valid: 500 words where 3 have room>
    const orv::big_uint zero;
    const orv::big_uint small(0xFFFFFFFF);
    orv::big_uint powerStore;
    const orv::big_uint power = orv::big_uint::pow10(50, &powerStore);
    orv::big_uint huge = orv::big_uint::make_uninitialized(500);
    std::memset(huge.data(), 0xFF, 500 * sizeof(unsigned int));

    //= price | 19.90
    //= negative | -0.00
    //= tiny | 0.000012
    //= tinier | 1e-07
    //= thousands | 1.5e+04
    //= most | 9.999999999999999e+384
    //= nothing | nan
    //= infinite | -inf
    //= narrowest | 9999999
    //= widest | -1.234567890123456789012345678901234e-6143
    const orv::decimal::decimal64 price = 19.90_d64;
    const orv::decimal::decimal64 negative("-0.00");
    const orv::decimal::decimal64 tiny("12E-6");
    const orv::decimal::decimal64 tinier("1E-7");
    const orv::decimal::decimal64 thousands("15E+3");
    const orv::decimal::decimal64 most("9.999999999999999E384");
    const orv::decimal::decimal64 nothing("nan");
    const orv::decimal::decimal64 infinite("-inf");
    const orv::decimal::decimal32 narrowest("9999999");
    const orv::decimal::decimal128 widest("-1.234567890123456789012345678901234E-6143");

    //= id | 1b4e28ba-2fa1-41d2-883f-0016d3cca427
    //= uri | u"http://example.org/a?b#c"
    //= *uri.object_ | u"http://example.org/a?b#c"
    //= noUri | null
    //= *charset | u"UTF-8"
    //= locale | u"C" WITHOUT DEBUG SYMBOLS <not [...]>
    const orv::UUID id = orv::UUID::fromString("1b4e28ba-2fa1-41d2-883f-0016d3cca427");
    const orv::gref<orv::net::URI> uri = orv::net::URI::create(u"http://example.org/a?b#c"_u);
    const orv::gref<orv::net::URI> noUri;
    const orv::Charset* const charset = orv::Charset::UTF_8;
    const orv::ulocale& locale = orv::ulocale::classic();

    // What is not made yet, or damaged.
    //= *(orv::ustring*)zeros.bytes | [...]
    //= *(orv::ustring*)ones.bytes | <not [...]>
    //= *(orv::ustring_view*)ones.bytes | <not [...]>
    //= *(orv::ustring_view*)fives.bytes | <not [...]>
    //= *(orv::ustring_ref*)fives.bytes | <not [...]>
    //= *(orv::StringBuilder*)fives.bytes | <not [...]>
    //= *(orv::big_uint*)zeros.bytes | 0
    //= *(orv::big_uint*)fives.bytes | <not [...]>
    //= *(orv::net::URI*)fives.bytes | <not [...]>
    //= *(orv::gref<orv::net::URI>*)fives.bytes | <not [...]>
    //= *(orv::Charset*)fives.bytes | <not [...]>
    //= *(orv::decimal::decimal64*)ones.bytes | nan
    //= *(orv::UUID*)ones.bytes | ffffffff-ffff-ffff-ffff-ffffffffffff
    const Rubbish zeros(0);
    const Rubbish ones(0xFF);
    const Rubbish fives(0x55);

    // A view that says more than the memory has.
    //= overlong | u"inside[...]"...
    const orv::ustring_ref overlong(inside.data(), std::size_t{1} << 40);

    stopHere();
}
