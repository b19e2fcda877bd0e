// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The rules of UriSource.
#include "tests/support/uri_source.h"

#include "tests/support/uri_address_source.h"

#include <iterator>
#include <string>
#include <utility>

namespace orvtest {

namespace {

constexpr std::string_view LETTERS = "abcdefvxyzABCDEFVXYZ";
constexpr std::string_view DIGITS = "0123456789";
constexpr std::string_view SUB_DELIMS = "!$&'()*+,;=";

} // namespace

// URI-reference = URI / relative-ref
UriSentence UriSource::uriReference() {
    return numbers_.coin() ? uri() : relativeRef();
}

UriSentence UriSource::uri() {
    writeUri();
    return taken();
}

UriSentence UriSource::relativeRef() {
    writeRelativeRef();
    return taken();
}

// URI = scheme ":" hier-part [ "?" query ] [ "#" fragment ]
// hier-part = "//" authority path-abempty / path-absolute / path-rootless / path-empty
void UriSource::writeUri() {
    sentence_.scheme = rangeOf(&UriSource::scheme);
    put(':');
    sentence_.schemeSpecificPart.begin = sentence_.text.size();
    switch (numbers_.below(8)) {
    case 0:
        sentence_.path = rangeOf(&UriSource::pathAbsolute);
        sentence_.hierarchical = true;
        break;
    case 1:
    case 2:
        sentence_.path = rangeOf(&UriSource::pathRootless);
        break;
    case 3:
        sentence_.path = UriRange{sentence_.text.size(), sentence_.text.size()};
        break;
    default:
        authority();
        break;
    }
    queryAndFragment();
}

// relative-ref = relative-part [ "?" query ] [ "#" fragment ]
// relative-part = "//" authority path-abempty / path-absolute / path-noscheme / path-empty
void UriSource::writeRelativeRef() {
    switch (numbers_.below(4)) {
    case 0:
        sentence_.path = rangeOf(&UriSource::pathAbsolute);
        sentence_.hierarchical = true;
        break;
    case 1:
        sentence_.path = rangeOf(&UriSource::pathNoscheme);
        break;
    case 2:
        sentence_.path = UriRange{};
        break;
    default:
        authority();
        break;
    }
    queryAndFragment();
}

// query = fragment = *( pchar / "/" / "?" )
void UriSource::queryAndFragment() {
    if (numbers_.below(3) == 0) {
        put('?');
        const std::size_t begin = sentence_.text.size();
        repeat(size(), &UriSource::queryUnit);
        sentence_.query = UriRange{begin, sentence_.text.size()};
    }
    sentence_.schemeSpecificPart.end = sentence_.text.size();
    if (numbers_.below(3) == 0) {
        put('#');
        const std::size_t begin = sentence_.text.size();
        repeat(size(), &UriSource::queryUnit);
        sentence_.fragment = UriRange{begin, sentence_.text.size()};
    }
}

// scheme = ALPHA *( ALPHA / DIGIT / "+" / "-" / "." )
void UriSource::scheme() {
    putOneOf(LETTERS);
    for (std::size_t count = size(); count > 0; --count) {
        switch (numbers_.below(4)) {
        case 0:
            putOneOf(DIGITS);
            break;
        case 1:
            putOneOf("+-.");
            break;
        default:
            putOneOf(LETTERS);
            break;
        }
    }
}

// "//" authority path-abempty
// authority = [ userinfo "@" ] host [ ":" port ]
void UriSource::authority() {
    put('/');
    put('/');
    const std::size_t begin = sentence_.text.size();
    if (numbers_.below(3) == 0) {
        sentence_.userInfo = rangeOf(&UriSource::userInfo);
        put('@');
    }
    sentence_.host = rangeOf(&UriSource::host);
    if (numbers_.below(3) == 0) {
        put(':');
        sentence_.port = rangeOf(&UriSource::port);
    }
    sentence_.authority = UriRange{begin, sentence_.text.size()};
    sentence_.path = rangeOf(&UriSource::pathAbempty);
    sentence_.hierarchical = true;
}

// userinfo = *( unreserved / pct-encoded / sub-delims / ":" )
void UriSource::userInfo() {
    for (std::size_t count = size(); count > 0; --count) {
        switch (numbers_.below(5)) {
        case 0:
            put(':');
            break;
        case 1:
            putOneOf(DIGITS); // may be taken for a port before the "@" is seen
            break;
        case 2:
            pctEncoded();
            break;
        case 3:
            subDelim();
            break;
        default:
            unreserved();
            break;
        }
    }
}

// host = IP-literal / IPv4address / reg-name
void UriSource::host() {
    switch (numbers_.below(5)) {
    case 0:
    case 1:
        ipLiteral();
        break;
    case 2:
        ipv4Address();
        break;
    default:
        regName();
        break;
    }
}

// port = *DIGIT
void UriSource::port() {
    for (std::size_t count = size(); count > 0; --count) {
        putOneOf(numbers_.below(3) == 0 ? "0" : DIGITS);
    }
}

// IP-literal = "[" ( IPv6address / IPvFuture ) "]"
void UriSource::ipLiteral() {
    put('[');
    if (numbers_.below(4) == 0) {
        ipvFuture();
    } else {
        UriAddressSource(numbers_, sentence_).ipv6Address();
    }
    put(']');
}

// IPvFuture = %s"v" 1*HEXDIG "." 1*( unreserved / sub-delims / ":" )
void UriSource::ipvFuture() {
    const std::size_t begin = sentence_.text.size();
    // Of the places up to the end of the text.
    const auto trap = [this, begin](const AddressTrap& reasons) {
        sentence_.traps.resize(sentence_.text.size() - begin + 1, reasons);
    };
    const auto allTraps = [](const char* reason) {
        return AddressTrap{.soft = reason, .hard = reason, .colon = reason, .dot = reason};
    };
    const auto softTrap = [](const char* reason) {
        return AddressTrap{.soft = reason, .hard = nullptr, .colon = nullptr, .dot = nullptr};
    };
    trap(softTrap("IPv6 address field or double colon expected"));
    put('v');
    trap(allTraps("<HEXDIG> expected"));
    repeat(1 + size(), &UriSource::hexDigit);
    AddressTrap behindDigits = allTraps("'.' expected");
    behindDigits.dot = nullptr;
    trap(behindDigits);
    put('.');
    trap(softTrap("<unreserved>, <sub-delims> or ':' expected"));
    repeat(1 + size(), &UriSource::futureUnit);
    trap(softTrap("']' expected"));
}

// unreserved / sub-delims / ":"
void UriSource::futureUnit() {
    switch (numbers_.below(3)) {
    case 0:
        put(':');
        break;
    case 1:
        subDelim();
        break;
    default:
        unreserved();
        break;
    }
}

// IPv4address = dec-octet "." dec-octet "." dec-octet "." dec-octet, and what looks like one
void UriSource::ipv4Address() {
    for (int i = 0; i < 4; ++i) {
        if (i > 0) {
            put('.');
        }
        const unsigned value = numbers_.below(numbers_.below(4) == 0 ? 1000 : 256);
        for (const char digit : std::to_string(value)) {
            put(static_cast<unsigned char>(digit));
        }
    }
}

// reg-name = *( unreserved / pct-encoded / sub-delims )
void UriSource::regName() {
    for (std::size_t count = size(); count > 0; --count) {
        switch (numbers_.below(4)) {
        case 0:
            pctEncoded();
            break;
        case 1:
            subDelim();
            break;
        default:
            unreserved();
            break;
        }
    }
}

// path-abempty = *( "/" segment )
void UriSource::pathAbempty() {
    for (std::size_t count = size(); count > 0; --count) {
        put('/');
        segment();
    }
}

// path-absolute = "/" [ segment-nz *( "/" segment ) ]
void UriSource::pathAbsolute() {
    put('/');
    if (numbers_.coin()) {
        segmentNz();
        pathAbempty();
    }
}

// path-noscheme = segment-nz-nc *( "/" segment )
void UriSource::pathNoscheme() {
    segmentNzNc();
    pathAbempty();
}

// path-rootless = segment-nz *( "/" segment )
void UriSource::pathRootless() {
    segmentNz();
    pathAbempty();
}

// segment = *pchar
void UriSource::segment() {
    const unsigned shape = numbers_.below(8);
    if (shape < 2) { // segments of dots
        put('.');
        if (shape == 0) {
            put('.');
        }
    } else {
        repeat(size(), &UriSource::pchar);
    }
}

// segment-nz = 1*pchar
void UriSource::segmentNz() {
    pchar();
    segment();
}

// segment-nz-nc = 1*( unreserved / pct-encoded / sub-delims / "@" )
void UriSource::segmentNzNc() {
    repeat(1 + size(), &UriSource::pcharNc);
}

// pchar = unreserved / pct-encoded / sub-delims / ":" / "@"
void UriSource::pchar() {
    if (numbers_.below(5) == 0) {
        put(':');
    } else {
        pcharNc();
    }
}

void UriSource::pcharNc() {
    switch (numbers_.below(6)) {
    case 0:
        pctEncoded();
        break;
    case 1:
        subDelim();
        break;
    case 2:
        put('@');
        break;
    default:
        unreserved();
        break;
    }
}

// pchar / "/" / "?"
void UriSource::queryUnit() {
    if (numbers_.below(3) == 0) {
        putOneOf("/?");
    } else {
        pchar();
    }
}

// pct-encoded = "%" HEXDIG HEXDIG
void UriSource::pctEncoded() {
    const std::size_t begin = sentence_.text.size();
    put('%');
    hexDigit();
    hexDigit();
    sentence_.escapes.push_back({begin, sentence_.text.size()});
}

// unreserved = ALPHA / DIGIT / "-" / "." / "_" / "~", and those above 127
void UriSource::unreserved() {
    const unsigned choice = numbers_.below(wide_ ? 12 : 8);
    if (choice >= 8) {
        wideUnreserved();
    } else if (choice == 0) {
        putOneOf("-._~");
    } else if (choice < 3) {
        putOneOf(DIGITS);
    } else {
        putOneOf(LETTERS);
    }
}

// sub-delims = "!" / "$" / "&" / "'" / "(" / ")" / "*" / "+" / "," / ";" / "="
void UriSource::subDelim() {
    putOneOf(SUB_DELIMS);
}

// Letters, marks, digits, symbols, format characters, surrogates. Fullwidth delimiters are none.
void UriSource::wideUnreserved() {
    constexpr char16_t SAMPLES[] = {0x00A1, 0x00AD, 0x00B7, 0x00DF, 0x00E9, 0x00FF, 0x0130, 0x0301,
                                    0x0660, 0x200B, 0x200D, 0x2025, 0x2060, 0x20AC, 0xFB01, 0xFEFF,
                                    0xFF05, 0xFF0F, 0xFF11, 0xFF1A, 0xFFFC, 0xFFFD};
    switch (numbers_.below(6)) {
    case 0:
        put(0xC0 + numbers_.below(0x180 - 0xC0));
        break;
    case 1:
        put(0x4E00 + numbers_.below(0x9FA6 - 0x4E00));
        break;
    case 2:
        put(0xD800 + numbers_.below(0x400));
        put(0xDC00 + numbers_.below(0x400));
        break;
    case 3:
        put(0xD800 + numbers_.below(0x800));
        break;
    default:
        put(SAMPLES[numbers_.below(std::size(SAMPLES))]);
        break;
    }
}

void UriSource::hexDigit() {
    putOneOf("0123456789abcdefABCDEF");
}

UriSentence UriSource::taken() {
    return std::exchange(sentence_, UriSentence());
}

UriRange UriSource::rangeOf(Rule rule) {
    const std::size_t begin = sentence_.text.size();
    (this->*rule)();
    return {begin, sentence_.text.size()};
}

void UriSource::put(char32_t unit) {
    sentence_.text.push_back(static_cast<orv::char16>(static_cast<char16_t>(unit)));
}

void UriSource::putOneOf(std::string_view units) {
    put(static_cast<unsigned char>(units[numbers_.below(static_cast<unsigned>(units.size()))]));
}

void UriSource::repeat(std::size_t count, Rule rule) {
    for (; count > 0; --count) {
        (this->*rule)();
    }
}

// Often nothing, mostly a little, at times more.
std::size_t UriSource::size() {
    const unsigned choice = numbers_.below(32);
    return choice == 0 ? numbers_.below(40) : choice < 10 ? 0 : choice < 20 ? 1 : choice % 5;
}

} // namespace orvtest
