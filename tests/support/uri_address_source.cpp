// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The rules of UriAddressSource.
#include "tests/support/uri_address_source.h"

#include <string>

namespace orvtest {

namespace {

constexpr const char* FIELD = "IPv6 address field expected";
constexpr const char* FIELD_OR_COLONS = "IPv6 address field or double colon expected";
constexpr const char* COLONS = "single or double colon expected";
constexpr const char* END = "end of IPv6 address expected";
constexpr const char* FIELD_OR_END = "IPv6 address field or end of address expected";
constexpr const char* COLON_OR_END = "single colon or end of IPv6 address expected";
constexpr const char* BRACKET = "']' expected";

} // namespace

//                            6( h16 ":" ) ls32
//                       "::" 5( h16 ":" ) ls32
// [               h16 ] "::" 4( h16 ":" ) ls32
// [ *1( h16 ":" ) h16 ] "::" 3( h16 ":" ) ls32
// [ *2( h16 ":" ) h16 ] "::" 2( h16 ":" ) ls32
// [ *3( h16 ":" ) h16 ] "::"    h16 ":"   ls32
// [ *4( h16 ":" ) h16 ] "::"              ls32
// [ *5( h16 ":" ) h16 ] "::"              h16
// [ *6( h16 ":" ) h16 ] "::"
void UriAddressSource::ipv6Address() {
    const unsigned shape = numbers_.below(9);
    trap(FIELD_OR_COLONS);
    if (shape == 0) {
        fields(6);
        ls32();
        return;
    }
    if (const unsigned before = numbers_.below(shape); before > 0) {
        fields(before - 1);
        h16();
    }
    twofold();
    if (shape < 7) {
        fields(6 - shape);
        ls32();
    } else if (shape == 7) {
        h16();
    }
}

// count( h16 ":" )
void UriAddressSource::fields(unsigned count) {
    for (; count > 0; --count) {
        h16();
        single();
    }
}

// ls32 = ( h16 ":" h16 ) / IPv4address
void UriAddressSource::ls32() {
    if (numbers_.coin()) {
        h16();
        single();
        h16();
    } else {
        ipv4Address();
    }
}

// h16 = 1*4HEXDIG
void UriAddressSource::h16() {
    const std::size_t first = sentence_.text.size();
    const unsigned digits = 1 + numbers_.below(4);
    ++fields_;
    for (unsigned i = 0; i < digits; ++i) {
        put({&"0123456789abcdefABCDEF"[numbers_.below(22)], 1});
        trapBehindField();
    }
    sentence_.pieces.push_back(
        {.range = {first, sentence_.text.size()}, .octet = -1, .tooLong = behindField()});
}

// IPv4address = dec-octet "." dec-octet "." dec-octet "." dec-octet
void UriAddressSource::ipv4Address() {
    for (int octet = 0; octet < 4; ++octet) {
        decOctet(octet);
        if (octet < 3) {
            put(".");
            trap(AddressTrap{.soft = "digit expected",
                             .hard = "digit expected",
                             .colon = "digit expected",
                             .dot = "digit expected"});
        }
    }
}

// dec-octet = DIGIT / %x31-39 DIGIT / "1" 2DIGIT / "2" %x30-34 DIGIT / "25" %x30-35
void UriAddressSource::decOctet(int octet) {
    constexpr const char* END_OF_IPV4 = "letter, digit and '.' not allowed here";
    constexpr unsigned LIMITS[] = {256, 256, 10, 1};
    const std::size_t first = sentence_.text.size();
    const std::string digits = std::to_string(numbers_.below(LIMITS[numbers_.below(4)]));
    if (octet == 0) { // a field, until its "." is seen
        ++fields_;
    }
    for (const char& digit : digits) {
        put({&digit, 1});
        if (octet == 0) {
            trapBehindField();
        } else if (octet < 3) {
            trap(AddressTrap{.soft = "'.' expected",
                             .hard = "'.' expected",
                             .colon = "'.' expected",
                             .dot = nullptr});
        } else {
            trap(AddressTrap{
                .soft = BRACKET, .hard = END_OF_IPV4, .colon = END, .dot = END_OF_IPV4});
        }
    }
    sentence_.pieces.push_back(
        {.range = {first, sentence_.text.size()}, .octet = octet, .tooLong = nullptr});
}

void UriAddressSource::single() {
    put(":");
    trap(FIELD);
    // Another one makes a double colon.
    sentence_.traps.back().colon = sawTwofold_ ? COLON_OR_END : nullptr;
}

void UriAddressSource::twofold() {
    put(":");
    // What is wrong with a unit between the two is wrong for the whole.
    trap(sentence_.text.size() - begin_ == 1 ? FIELD_OR_COLONS : FIELD);
    sentence_.traps.back().colon = nullptr;
    put(":");
    sawTwofold_ = true;
    ++fields_;
    trap(behindTwofold());
}

const char* UriAddressSource::behindField() const {
    return fields_ == 8 ? END : sawTwofold_ ? COLON_OR_END : COLONS;
}

const char* UriAddressSource::behindTwofold() const {
    return fields_ == 8 ? END : FIELD_OR_END;
}

void UriAddressSource::trapBehindField() {
    trap(behindField());
    // The field may be the first octet of an IPv4 address behind six fields, or behind "::".
    if (fields_ == 7 || (sawTwofold_ && fields_ < 7)) {
        sentence_.traps.back().dot = nullptr;
    }
}

// The reasons that go with what is expected at the end of the text.
void UriAddressSource::trap(const char* expected) {
    const bool mayEnd = expected == END || expected == FIELD_OR_END || expected == COLON_OR_END;
    const bool mayBeColon =
        expected == COLONS || expected == COLON_OR_END || expected == FIELD_OR_COLONS;
    trap(AddressTrap{.soft = mayEnd ? BRACKET : expected,
                     .hard = expected,
                     .colon = mayBeColon ? nullptr : expected,
                     .dot = expected});
}

void UriAddressSource::trap(const AddressTrap& reasons) {
    sentence_.traps.push_back(reasons);
}

void UriAddressSource::put(std::string_view units) {
    for (const char unit : units) {
        sentence_.text.push_back(
            static_cast<orv::char16>(static_cast<char16_t>(static_cast<unsigned char>(unit))));
    }
}

} // namespace orvtest
