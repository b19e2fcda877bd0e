// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief A program that uses the installed libraries: it fails if an answer is wrong.
#include "orv/liborvxx/base/error.h"
#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/decimal/decimal.h"
#include "orv/liborvxx/locale/charset_streambuf.h"
#include "orv/liborvxx/locale/ulocale.h"
#include "orv/liborvxx/locale/ustringstream.h"
#include "orv/liborvxx/net/uri.h"
#include "orv/liborvxx/number/big_uint.h"
#include "orv/liborvxx/number/from_chars.h"
#include "orv/liborvxx/number/number_to_string.h"
#include "orv/liborvxx/number/string_to_float.h"
#include "orv/liborvxx/number/string_to_int.h"
#include "orv/liborvxx/text/code_points.h"
#include "orv/liborvxx/text/cvtstr.h"
#include "orv/liborvxx/text/literals.h"
#include "orv/liborvxx/text/string_builder.h"
#include "orv/liborvxx/uuid/uuid.h"

#include <cstdio>
#include <locale>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>

namespace {

using namespace orv::literals;

int failures = 0;

void check(bool condition, const char* what) {
    if (!condition) {
        std::fprintf(stderr, "failed: %s\n", what);
        ++failures;
    }
}

// A public static pointer must be there for another file's static initialisers.
const orv::ustring earlyText = orv::Charset::UTF_8->decode("early");

void useCharsets() {
    check(earlyText == u"early"_u, "decoding while statics are initialised");
    orv::Charset* latin1 = orv::Charset::forName(u"latin1"_u);
    check(latin1 == orv::Charset::ISO_8859_1, "look-up of latin1");
    const orv::ustring text = latin1->decode("gr\xFC\xDF");
    check(text == u"gr\u00FC\u00DF"_u, "decoding from ISO-8859-1");
    check(orv::Charset::UTF_8->encode(text) == "gr\xC3\xBC\xC3\x9F", "encoding to UTF-8");

    const std::unique_ptr<orv::CharsetDecoder> decoder = orv::Charset::UTF_8->newDecoder();
    bool thrown = false;
    try {
        decoder->decode("\xFF");
    } catch (const orv::CharacterCodingError&) {
        thrown = true;
    }
    check(thrown, "an exception of the library reaches its handler");

    // Templates that the library instantiates.
    unsigned char bytes[2] = {};
    orv::Buffer<unsigned char> buffer(bytes, 2);
    buffer.put(static_cast<unsigned char>(7));
    check(buffer.remaining() == 1 && bytes[0] == 7, "a buffer over bytes");
    check(text.size() == 4 && orv::ustring_ref(text).find(u'\u00DF') == 3, "search in a view");
    check(orv::cvtstr<std::wstring>(orv::ustring_ref(text)) == L"gr\u00FC\u00DF", "cvtstr");
}

void useText() {
    orv::StringBuilder builder;
    builder.append(u"gr"_u).append(orv::char16(u'\u00FC')).append(u"n"_u);
    check(builder.toString() == u"gr\u00FCn"_u, "a text in pieces");
    check(orv::Char16::codePointAt(u"\U0001F600"_u, 0) == U'\U0001F600', "a code point");
}

void useNumbers() {
    check(orv::stoi_c("12 mm") == 12 && orv::to_string_c(-7) == "-7", "an integer and its text");
    check(orv::stod_c("0.1") == 0.1 && orv::to_ustring_c(0.25) == u"0.25"_u, "a fraction");
    orv::big_uint store;
    check(orv::big_uint::pow10(20, &store).to_string() == "100000000000000000000", "a big number");
}

void useURIs() {
    const orv::gref<orv::net::URI> base = orv::net::URI::create(u"http://example.org/a/b"_u);
    check(base->resolve(u"../c"_u)->toString() == u"http://example.org/c"_u, "resolution of a URI");
    bool thrown = false;
    try {
        orv::net::URI::create(u"http://[::"_u);
    } catch (const orv::net::URISyntaxError&) {
        thrown = true;
    }
    check(thrown, "a bad URI is refused");
}

void useStreams() {
    orv::ustringstream stream;
    stream << 42 << orv::char16(u' ') << 1.5 << u" end"_u;
    check(stream.str() == u"42 1.5 end"_u, "numbers written to a stream");
    int number = 0;
    double fraction = 0;
    orv::ustring word;
    stream >> number >> fraction >> word;
    check(number == 42 && fraction == 1.5 && word == u"end"_u, "numbers read from a stream");

    std::stringbuf bytes;
    orv::charset_streambuf units(bytes, *orv::Charset::UTF_8);
    units.sputc(u'\u00E4');
    check(units.pubsync() == 0 && bytes.str() == "\xC3\xA4", "a stream that encodes");

    check(orv::ulocale::classic().name() == u"C"_u, "the classic locale");
    const std::locale locale = orv::ulocale::classic();
    check(std::has_facet<std::num_put<orv::char16>>(locale), "facets of the classic locale");
}

void useDecimals() {
    const orv::decimal::decimal64 sum = orv::decimal::decimal64("0.10") + 0.2_d64;
    check(sum == 0.3_d64 && orv::to_string_c(sum) == "0.30", "a sum of decimals and its text");
    check(sqrt(2_d128) > 1.4142_d128, "arithmetic that the archive leaves to another one");
}

void useUUIDs() {
    const std::string text = "1b4e28ba-2fa1-41d2-883f-0016d3cca427";
    check(orv::UUID::fromString(text).toString() == text, "text of a UUID");
    check(orv::UUID::nameUUIDFromBytes("name", 4).version() == 3, "UUID of a name");
    check(orv::UUID::randomUUID() != orv::UUID::randomUUID(), "random UUIDs");
    bool thrown = false;
    try {
        orv::UUID::fromString("no UUID");
    } catch (const std::invalid_argument&) {
        thrown = true;
    }
    check(thrown, "a bad UUID text is refused");
}

} // namespace

int main() {
    useCharsets();
    useText();
    useNumbers();
    useDecimals();
    useURIs();
    useStreams();
    useUUIDs();
    return failures == 0 ? 0 : 1;
}
