// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief A walk through the library on real files: text, character sets, errors, streams, numbers
/// and their text, decimals, URIs, UUIDs. Copy what you need.
///
///     tour EXAMPLES-FOLDER
#include "examples/tour/stock.h"

#include "orv/liborvxx/orvxx.h"

#include <array>
#include <exception>
#include <fstream>
#include <iomanip>
#include <ios>
#include <iostream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

using namespace orv::literals;

namespace {

// Prints text as UTF-8, whatever it holds.
std::string utf8(orv::ustring_ref text) {
    return orv::Charset::UTF_8->encode(text);
}

std::string bytesOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw std::runtime_error("cannot read " + path);
    }
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

void title(const char* text) {
    std::cout << '\n' << text << '\n';
}

void texts(const std::string& folder) {
    title("Text is UTF-16: views, strings, code points");
    const orv::ustring text =
        orv::Charset::UTF_8->decode(bytesOf(folder + "/samples/emoji.utf-8.txt"));
    const orv::ustring_ref line = orv::ustring_ref(text).substr(0, text.find(u'\n')); // no copy
    std::cout << "  " << utf8(line) << '\n'
              << "  " << line.size() << " units, "
              << orv::Char16::codePointCount(line, 0, line.size()) << " code points\n";

    constexpr orv::ustring_ref AWAY = u"OFF WE GO"_u; // a constant: no work at run time
    const auto found = line.find(u"Off"_u);
    std::cout << "  in any case, from unit " << found << ": " << std::boolalpha
              << orv::case_insensitive_equal_to<orv::ustring_ref>()(AWAY,
                                                                    line.substr(found, AWAY.size()))
              << '\n';
}

void builder(const std::string& folder) {
    title("Text under construction");
    const orv::ustring poem =
        orv::Charset::UTF_8->decode(bytesOf(folder + "/samples/greek.utf-8.txt"));
    orv::StringBuilder text;
    text.append(poem, 0, poem.find(u'\n')).setCharAt(0, u'τ');
    text.insert(0, u" units, which begin: "_u).insert(0, poem.size());
    std::cout << "  " << utf8(text.get()) << '\n';
}

void wholeTexts(const std::string& folder) {
    title("Bytes to text and back, at once");
    orv::Charset* const set = orv::Charset::forName(u"sjis"_u); // by any of its names
    const orv::ustring text = set->decode(bytesOf(folder + "/samples/japanese.shift_jis.txt"));
    const orv::ustring_ref line = orv::ustring_ref(text).substr(0, text.find(u'\n'));
    std::cout << "  " << utf8(set->name()) << ": " << utf8(line) << '\n';
    // These forms never fail: what has no counterpart becomes a replacement.
    std::cout << "  GBK and back: "
              << utf8(orv::Charset::forName(u"GBK"_u)->decode(
                     orv::Charset::forName(u"GBK"_u)->encode(line)))
              << "\n  US-ASCII: " << orv::Charset::US_ASCII->encode(line) << '\n';
}

void slices(const std::string& folder) {
    title("Decoding in slices, as bytes arrive");
    const std::string file = bytesOf(folder + "/samples/emoji.gb18030.txt");
    constexpr std::size_t SLICE = 10;
    const auto decoder = orv::Charset::forName(u"GB18030"_u)->newDecoder();
    std::array<unsigned char, 16> byteArray;
    std::array<orv::char16, 32> unitArray;
    orv::Buffer<unsigned char> bytes(byteArray.data(), byteArray.size());
    orv::Buffer<orv::char16> units(unitArray.data(), unitArray.size());
    for (std::size_t i = 0; i < 3; ++i) {
        bytes.put(reinterpret_cast<const unsigned char*>(file.data()) + i * SLICE, SLICE);
        bytes.flip();                         // from filling to reading
        decoder->decode(bytes, units, false); // a split character waits in the buffer
        std::cout << "  slice " << i + 1 << ": " << bytes.remaining() << " bytes wait, so far \""
                  << utf8({units.data(), units.position()}) << "\"\n";
        bytes.compact(); // what waits goes to the front
    }
}

void errors(const std::string& folder) {
    title("Bad input: throw, replace, or ask where");
    const std::string bad = bytesOf(folder + "/samples/broken-overlong.utf-8.txt");
    const auto decoder = orv::Charset::UTF_8->newDecoder();
    try {
        decoder->decode(bad);
    } catch (const orv::MalformedInputError& error) {
        std::cout << "  a malformed sequence of " << error.getInputLength() << " bytes\n";
    }
    decoder->onMalformedInput(orv::REPLACE);
    const std::string replaced = utf8(decoder->decode(bad));
    std::cout << "  replaced: " << replaced.substr(0, replaced.find('\n')) << '\n';

    const auto encoder = orv::Charset::US_ASCII->newEncoder();
    const orv::ustring text =
        orv::Charset::UTF_8->decode(bytesOf(folder + "/samples/french.utf-8.txt"));
    orv::Buffer<const orv::char16> in(text.data(), text.size());
    std::array<unsigned char, 64> array{};
    orv::Buffer<unsigned char> out(array.data(), array.size());
    const orv::CoderResult result = encoder->encode(in, out, true);
    if (result.kind == orv::CoderResult::UNMAPPABLE) {
        std::cout << "  no counterpart in US-ASCII: unit " << in.position() << ", U+" << std::hex
                  << std::uppercase << std::setfill('0') << std::setw(4)
                  << static_cast<unsigned>(in.get(in.position())) << std::dec << '\n';
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
    std::cout << "  30! = " << factorial.to_string() << '\n'
              << "  123456789 / 10^13 as a double: " << std::nouppercase << std::setprecision(9)
              << orv::make_double(false, -13, orv::big_uint(123456789U)) << '\n'
              << "  the nearest half to 1/3: " << std::setprecision(6)
              << orv::_binary16_to_double(orv::_double_to_binary16(1.0 / 3)) << '\n';
}

void numberText(const std::string& folder) {
    title("Numbers from text and to text, in every locale alike");
    const std::string file = bytesOf(folder + "/tour/constants.txt");
    orv::string_ref rest = file;
    while (!rest.empty()) {
        const orv::string_ref line = rest.substr(0, rest.find('\n'));
        // What is no number is a status, where an exception would be too much.
        if (const auto read = orv::from_chars_c<double>(line)) {
            std::cout << "  " << orv::to_string_c(read.value) << line.substr(read.length) << '\n';
        } else {
            std::cout << "  no number: \"" << line << "\"\n";
        }
        rest = rest.substr(line.size() + 1);
    }
    // A cursor stands behind each number that was read.
    orv::BasicCharIterator<orv::char16> cursor(u"\u0661\u0662.5 0x1p-1074 and so on"_u);
    const double first = orv::stod_c(cursor);
    const double second = orv::stod_c(cursor);
    std::cout << "  " << orv::to_string_c(first) << " and " << orv::to_string_c(second)
              << ", then \"" << utf8(cursor.text().substr(cursor.position())) << "\"\n";
}

void streams(const std::vector<stock::Item>& items) {
    title("Streams over UTF-16: a file in windows-1252 with decimal commas, and a table in UTF-8");
    orv::charset_streambuf terminal(*std::cout.rdbuf(), *orv::Charset::UTF_8);
    orv::uostream out(&terminal);
    out.imbue(stock::punctuation());
    for (const stock::Item& item : items) {
        out << u"  " << std::setw(3) << item.count << u" × " << std::setw(8) << item.price << u" = "
            << std::setw(8) << item.count * item.price << u"  " << item.link << u'\n';
    }
    out << u"  1234567.5 is " << std::fixed << std::setprecision(2) << 1234567.5 << u", true is "
        << std::boolalpha << true << std::endl;
}

void decimals(const std::vector<stock::Item>& items) {
    title("Decimals: what is written with a point is exact");
    using orv::decimal::decimal64;
    decimal64 net = 0_d64;
    for (const stock::Item& item : items) {
        net += item.count * item.price;
    }
    const decimal64 tax = round(net * 0.19_d64, 2);
    std::cout << "  " << net << " + " << tax << " = " << net + tax << '\n'
              << "  0.1 + 0.2 is 0.3: " << std::boolalpha << (0.1_d64 + 0.2_d64 == 0.3_d64)
              << ", as doubles: " << (0.1 + 0.2 == 0.3) << '\n'
              << "  a third: " << orv::to_string_c(1_d128 / 3) << '\n';
}

void uris(const std::vector<stock::Item>& items) {
    title("URIs: parse, take apart, resolve, compare");
    using orv::net::URI;
    const auto base = URI::create(u"HTTPS://Shop.Example.org/a/b/"_u);
    for (const stock::Item& item : items) {
        const auto uri = base->resolve(item.link)->normalize();
        std::cout << "  " << utf8(uri->toASCIIString()) << "\n    segments:";
        for (const orv::net::EncodedText segment : uri->pathSegments()) { // views, no allocation
            std::cout << ' ' << utf8(segment.decoded());
        }
        std::cout << '\n';
    }
    // Bad text is a result, where an exception would be too much.
    const auto refused = URI::tryCreate(u"http://[::1.2.3.256]/"_u);
    std::cout << "  " << refused.reason << ", index " << refused.index << '\n';
}

void uuids(const std::vector<stock::Item>& items) {
    title("UUIDs");
    for (const stock::Item& item : items) {
        std::cout << "  " << item.id.toString() << ", version " << item.id.version() << '\n';
    }
    const orv::UUID named = orv::UUID::nameUUIDFromBytes("orvxx", 5);
    std::cout << "  of a name: " << named.toString() << ", version " << named.version() << '\n';
    try {
        orv::UUID::fromString("not-a-uuid");
    } catch (const std::invalid_argument& error) {
        std::cout << "  " << error.what() << '\n';
    }
}

void tour(const std::string& folder) {
    std::cout << "A tour of orvxx";
    texts(folder);
    builder(folder);
    wholeTexts(folder);
    slices(folder);
    errors(folder);
    numbers();
    numberText(folder);
    const std::vector<stock::Item> items = stock::read(folder + "/tour/stock.windows-1252.txt");
    streams(items);
    decimals(items);
    uris(items);
    uuids(items);
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: tour EXAMPLES-FOLDER\n";
        return 2;
    }
    try {
        tour(argv[1]);
    } catch (const std::exception& error) {
        std::cerr << "tour: " << error.what() << '\n';
        return 2;
    }
}
