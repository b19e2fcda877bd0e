// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief A program that uses the installed libraries: it fails if an answer is wrong.
#include "orv/liborvxx/base/error.h"
#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/decimal/decimal.h"
#include "orv/liborvxx/number/number_to_string.h"
#include "orv/liborvxx/text/code_points.h"
#include "orv/liborvxx/text/cvtstr.h"
#include "orv/liborvxx/text/literals.h"
#include "orv/liborvxx/uuid/uuid.h"

#include <cstdio>
#include <memory>
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
    useDecimals();
    useUUIDs();
    return failures == 0 ? 0 : 1;
}
