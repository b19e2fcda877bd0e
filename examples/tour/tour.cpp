// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief A walk through the library: text, character sets, errors, numbers and their text,
/// decimals, URIs, UUIDs. Copy what you need.
#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/charset/coding_error.h"
#include "orv/liborvxx/decimal/decimal.h"
#include "orv/liborvxx/net/uri.h"
#include "orv/liborvxx/number/big_uint.h"
#include "orv/liborvxx/number/binary16.h"
#include "orv/liborvxx/number/from_chars.h"
#include "orv/liborvxx/number/make_binary.h"
#include "orv/liborvxx/number/number_to_string.h"
#include "orv/liborvxx/number/string_to_float.h"
#include "orv/liborvxx/text/char_iterator.h"
#include "orv/liborvxx/text/code_points.h"
#include "orv/liborvxx/text/literals.h"
#include "orv/liborvxx/text/string_builder.h"
#include "orv/liborvxx/uuid/uuid.h"

#include <array>
#include <iomanip>
#include <iostream>
#include <stdexcept>
#include <string>
#include <string_view>

using namespace orv::literals;

namespace {

// Prints text as UTF-8, whatever it holds.
std::string utf8(orv::ustring_ref text) {
    return orv::Charset::UTF_8->encode(text);
}

void title(const char* text) {
    std::cout << '\n' << text << '\n';
}

void texts() {
    title("Text is UTF-16: views, strings, code points");
    constexpr orv::ustring_ref greeting = u"Καλημέρα, 🌍!"_u; // a constant: no work at run time
    orv::ustring text = greeting.to_string();                // an owner, with all of std::string
    text += u" Γειά."_u.to_string();
    std::cout << "  " << utf8(text) << '\n'
              << "  " << text.size() << " units, "
              << orv::Char16::codePointCount(text, 0, text.size()) << " code points\n";

    const orv::ustring_ref word = greeting.substr(0, greeting.find(u',')); // a view: no copy
    std::cout << "  the first word: " << utf8(word) << '\n';
}

void builder() {
    title("Text under construction");
    orv::StringBuilder text;
    text.append(u"pi is "_u).append(3.14159).append(u'!').insert(0, true).insert(4, u": "_u);
    std::cout << "  " << utf8(text.get()) << '\n';
    text.deleteChars(0, text.indexOf(u"pi"_u)).reverse();
    std::cout << "  " << utf8(text.get()) << '\n';
}

void wholeTexts() {
    title("Bytes to text and back, at once");
    orv::Charset* const latin1 = orv::Charset::forName(u"latin1"_u); // by any of its names
    const orv::ustring text = latin1->decode("Ma\xEDs, gr\xFC\xDF dich");
    std::cout << "  " << utf8(latin1->name()) << ": " << utf8(text) << '\n';
    // These forms never fail: what has no counterpart becomes a replacement.
    std::cout << "  US-ASCII: " << orv::Charset::US_ASCII->encode(text) << '\n';
}

void slices() {
    title("Decoding in slices, as bytes arrive");
    const std::array<std::string_view, 3> arrivals = {"\xE2\x82", "\xAC 5, ca", "f\xC3\xA9"};
    const auto decoder = orv::Charset::UTF_8->newDecoder();
    std::array<unsigned char, 16> byteArray;
    std::array<orv::char16, 16> unitArray;
    orv::Buffer<unsigned char> bytes(byteArray.data(), byteArray.size());
    orv::Buffer<orv::char16> units(unitArray.data(), unitArray.size());
    for (std::size_t i = 0; i < arrivals.size(); ++i) {
        const bool last = i + 1 == arrivals.size();
        bytes.put(reinterpret_cast<const unsigned char*>(arrivals[i].data()), arrivals[i].size());
        bytes.flip();                        // from filling to reading
        decoder->decode(bytes, units, last); // a split character waits in the buffer
        std::cout << "  slice " << i + 1 << ": " << arrivals[i].size() << " bytes came, "
                  << bytes.remaining() << " wait, text so far: \""
                  << utf8({units.data(), units.position()}) << "\"\n";
        bytes.compact(); // what waits goes to the front
    }
    decoder->flush(units);
}

void errors() {
    title("Bad input: throw, replace, or ask where");
    const std::string bad = "caf\xC3!";
    const auto decoder = orv::Charset::UTF_8->newDecoder();
    try {
        decoder->decode(bad);
    } catch (const orv::MalformedInputError& error) {
        std::cout << "  a malformed sequence of " << error.getInputLength() << " bytes\n";
    }
    decoder->onMalformedInput(orv::REPLACE);
    std::cout << "  replaced: " << utf8(decoder->decode(bad)) << '\n';

    const auto encoder = orv::Charset::US_ASCII->newEncoder();
    const orv::ustring_ref text = u"10 €"_u;
    orv::Buffer<const orv::char16> in(text.data(), text.size());
    std::array<unsigned char, 16> array{};
    orv::Buffer<unsigned char> out(array.data(), array.size());
    const orv::CoderResult result = encoder->encode(in, out, true);
    if (result.kind == orv::CoderResult::UNMAPPABLE) {
        std::cout << "  no counterpart in US-ASCII: unit " << in.position() << ", U+" << std::hex
                  << std::uppercase << static_cast<unsigned>(in.get(in.position())) << std::dec
                  << '\n';
    }
}

void numbers() {
    title("Exact numbers");
    orv::big_uint factorial(1U);
    for (unsigned i = 2; i <= 30; ++i) {
        if (const unsigned carry = factorial.multiply(i)) { // what did not fit ...
            factorial.prepend(carry);                       // ... becomes the top word
        }
    }
    std::cout << "  30! = " << factorial.to_string() << '\n';

    orv::big_uint power;
    power.set_size(7); // the width comes first, as in a register
    power.set_bit(200);
    std::cout << "  2^200 has " << power.ilog10() + 1 << " digits: " << power.to_string() << '\n'
              << "  123456789 / 10^13 as a double: " << std::nouppercase << std::setprecision(9)
              << orv::make_double(false, -13, orv::big_uint(123456789U)) << '\n'
              << "  the nearest half to 1/3: " << std::setprecision(6)
              << orv::_binary16_to_double(orv::_double_to_binary16(1.0 / 3)) << '\n';
}

void numberText() {
    title("Numbers from text and to text, in every locale alike");
    // A cursor stands behind each number that was read.
    orv::BasicCharIterator<orv::char16> cursor(u"6.02214076e23 0x1p-1074 \u0661\u0662.5 mole"_u);
    for (int i = 0; i < 3; ++i) {
        std::cout << "  " << orv::to_string_c(orv::stod_c(cursor)) << '\n';
    }
    // What is no number is a status, where an exception would be too much.
    const auto refused = orv::from_chars_c<double>(cursor.text().substr(cursor.position()));
    std::cout << "  \"" << utf8(cursor.text().substr(cursor.position())) << "\" is "
              << (refused ? "a number" : "none") << '\n';
}

void decimals() {
    title("Decimals: what is written with a point is exact");
    using orv::decimal::decimal64;
    std::cout << "  0.1 + 0.2 is 0.3: " << std::boolalpha << (0.1_d64 + 0.2_d64 == 0.3_d64)
              << ", as doubles: " << (0.1 + 0.2 == 0.3) << '\n';
    const decimal64 net = decimal64("19.90") * 3; // keeps its zero
    const decimal64 tax = round(net * 0.19_d64, 2);
    std::cout << "  " << net << " + " << tax << " = " << net + tax << '\n'
              << "  a third: " << orv::to_string_c(1_d128 / 3) << '\n'
              << "  the double 0.1 as a person reads it: " << decimal64(0.1) << '\n';
}

void uris() {
    title("URIs: parse, take apart, resolve, compare");
    using orv::net::URI;
    const auto uri = URI::create(u"http://example.org/caf%C3%A9/menü?size=XL&q=a+b#top"_u);
    std::cout << "  in ASCII: " << utf8(uri->toASCIIString()) << "\n  segments:";
    for (const orv::net::EncodedText segment : uri->pathSegments()) { // views, no allocation
        std::cout << ' ' << utf8(segment.decoded());
    }
    std::cout << "\n  size: " << utf8(uri->queryParameters().find(u"size"_u).raw()) << '\n'
              << "  a neighbour: " << utf8(uri->resolve(u"../images/"_u)->toString()) << '\n'
              << "  scheme and host match in any case: " << std::boolalpha
              << (uri == URI::create(u"HTTP://EXAMPLE.ORG/caf%c3%a9/menü?size=XL&q=a+b#top"_u))
              << '\n';
    // Bad text is a result, where an exception would be too much.
    const auto refused = URI::tryCreate(u"http://[::1.2.3.256]/"_u);
    std::cout << "  " << std::string_view(refused.reason) << ", index " << refused.index << '\n';
}

void uuids() {
    title("UUIDs");
    const orv::UUID named = orv::UUID::nameUUIDFromBytes("orvxx", 5);
    std::cout << "  of a name: " << named.toString() << ", version " << named.version() << '\n'
              << "  parsed again it is "
              << (orv::UUID::fromString(named.toString()) == named ? "the same" : "another") << '\n'
              << "  a random one has version " << orv::UUID::randomUUID().version() << '\n';
    try {
        orv::UUID::fromString("not-a-uuid");
    } catch (const std::invalid_argument& error) {
        std::cout << "  " << error.what() << '\n';
    }
}

} // namespace

int main() {
    std::cout << "A tour of orvxx";
    texts();
    builder();
    wholeTexts();
    slices();
    errors();
    numbers();
    numberText();
    decimals();
    uris();
    uuids();
}
