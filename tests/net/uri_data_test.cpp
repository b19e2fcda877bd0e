// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The store of components: classes of units, escapes, views, kinds of references.
#include "orv/liborvxx/net/uri_data.h"

#include "orv/liborv/unicode/unichar.h"
#include "orv/liborvxx/base/error.h"
#include "orv/liborvxx/text/literals.h"
#include "tests/support/shown_text.h"
#include "tests/support/text_in.h"
#include "tests/support/thrown_message.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using namespace orv::literals;
using orv::char16;
using orv::Charset;
using orv::ustring;
using orv::ustring_ref;
using orv::net::URIData;
using orvtest::shown;
using orvtest::thrownMessage;

// What derived classes see.
class Store : public URIData {
public:
    explicit Store(bool ascii, Charset* set = Charset::UTF_8) : URIData(ascii, set) {}

    using URIData::authority;
    using URIData::decode;
    using URIData::forHexDigit;
    using URIData::fragment;
    using URIData::GEN_DELIMS;
    using URIData::getAuthority;
    using URIData::getFragment;
    using URIData::getHost;
    using URIData::getPath;
    using URIData::getPort;
    using URIData::getQuery;
    using URIData::getRawAuthority;
    using URIData::getRawFragment;
    using URIData::getRawHost;
    using URIData::getRawPath;
    using URIData::getRawQuery;
    using URIData::getRawSchemeSpecificPart;
    using URIData::getRawUserInfo;
    using URIData::getScheme;
    using URIData::getSchemeSpecificPart;
    using URIData::getUserInfo;
    using URIData::hierarchical;
    using URIData::host;
    using URIData::is_ascii_unreserved;
    using URIData::is_pchar;
    using URIData::is_pchar_nc;
    using URIData::is_reserved;
    using URIData::is_sub_delim;
    using URIData::is_unreserved;
    using URIData::is_uri_char;
    using URIData::isAbsolutePathReference;
    using URIData::isAbsoluteURI;
    using URIData::isAuthorityDefined;
    using URIData::isFragmentDefined;
    using URIData::isHostDefined;
    using URIData::isNetworkPathReference;
    using URIData::isOpaque;
    using URIData::isPortDefined;
    using URIData::isQueryDefined;
    using URIData::isRelativePathReference;
    using URIData::isRelativeReference;
    using URIData::isSchemeDefined;
    using URIData::isUserInfoDefined;
    using URIData::path;
    using URIData::port;
    using URIData::query;
    using URIData::RESERVED;
    using URIData::scheme;
    using URIData::schemeSpecificPart;
    using URIData::SUB_DELIMS;
    using URIData::SubstrRange;
    using URIData::toHexDigit;
    using URIData::userInfo;
    using URIData::viewOf;
};

using Range = Store::SubstrRange;

static_assert(sizeof(Range) == 4 && !Range().isDefined() && Range().size() == 0);
static_assert(Range(3, 3).isDefined() && Range(3, 5).size() == 2 && !Range(5, 3).isDefined());
static_assert(Range(0x10002, 0x20005).begin == 2 && Range(0x10002, 0x20005).end == 5);

bool isOneOf(unsigned int value, std::string_view units) {
    return value < 128 && units.find(static_cast<char>(value)) != std::string_view::npos;
}

TEST(URIData, ClassifiesEveryUnit) {
    const std::string_view unreservedAscii =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~";
    const std::string_view subDelims = "!$&'()*+,;=";
    const std::string_view reserved = ":/?#[]@!$&'()*+,;=";
    for (const bool ascii : {false, true}) {
        const Store data(ascii);
        for (unsigned int value = 0; value < 0x10000; ++value) {
            const char16 c(value);
            const auto category = orvUniCharClass(value);
            const bool admitted = category != 0 && category != 57 && category != 61 &&
                                  (category < 48 || category > 55);
            const bool plain = isOneOf(value, unreservedAscii);
            const bool unreserved = plain || (value > 127 && !ascii && admitted);
            const bool pcharNc = unreserved || isOneOf(value, subDelims) || c == u'@';
            ASSERT_EQ(Store::is_ascii_unreserved(c), plain) << value;
            ASSERT_EQ(data.is_unreserved(c), unreserved) << value;
            ASSERT_EQ(Store::is_sub_delim(c), isOneOf(value, subDelims)) << value;
            ASSERT_EQ(Store::is_reserved(c), isOneOf(value, reserved)) << value;
            ASSERT_EQ(data.is_pchar_nc(c), pcharNc) << value;
            ASSERT_EQ(data.is_pchar(c), pcharNc || c == u':') << value;
            ASSERT_EQ(data.is_uri_char(c), unreserved || isOneOf(value, reserved) || c == u'%')
                << value;
        }
    }
}

TEST(URIData, AdmitsTextBeyondAsciiButSeparatorsControlsAndTheEndMark) {
    const Store ascii(true);
    const Store any(false);
    EXPECT_FALSE(ascii.is_unreserved(u'\u00E9'));
    EXPECT_TRUE(any.is_unreserved(u'\u00E9'));
    EXPECT_TRUE(any.is_unreserved(u'\xD83D')); // characters beyond U+FFFF come in two
    for (const char16_t c : {u'\u00A0', u'\x85', u'\u2028', u'\xE000', u'\u0378', u'\xFFFF'}) {
        EXPECT_FALSE(ascii.is_unreserved(c));
        EXPECT_FALSE(any.is_unreserved(c));
    }
}

TEST(URIData, NamesItsDelimiters) {
    EXPECT_EQ(shown(Store::GEN_DELIMS), ":/?#[]@");
    EXPECT_EQ(shown(Store::SUB_DELIMS), "!$&'()*+,;=");
    EXPECT_EQ(shown(Store::RESERVED), ":/?#[]@!$&'()*+,;=");
}

TEST(URIData, ReadsHexDigitsOfEitherCaseAndNoOtherUnit) {
    const std::string_view upper = "0123456789ABCDEF";
    const std::string_view lower = "0123456789abcdef";
    for (unsigned int value = 0; value < 0x10000; ++value) {
        if (isOneOf(value, upper) || isOneOf(value, lower)) {
            const auto digit = static_cast<char>(value);
            const auto number = (value < 'a' ? upper : lower).find(digit);
            ASSERT_EQ(Store::toHexDigit(char16(value)), number);
        } else if (value < 0x180 || value > 0xFF00) {
            ASSERT_EQ(thrownMessage<orv::AssertionError>(
                          [=] { static_cast<void>(Store::toHexDigit(char16(value))); }),
                      "toHexDigit[801]: assertion failed");
        }
    }
}

TEST(URIData, WritesTheLowFourBitsAsADigit) {
    const std::string_view upper = "0123456789ABCDEF";
    for (unsigned int value = 0; value < 0x100; ++value) {
        EXPECT_EQ(static_cast<char>(Store::forHexDigit(value)), upper[value & 15]);
    }
    EXPECT_EQ(Store::forHexDigit(0x1A), u'A');
}

TEST(URIData, MakesAByteOfTwoDigits) {
    EXPECT_EQ(Store::decode(u'f', u'3'), 0xF3);
    EXPECT_EQ(Store::decode(u'0', u'A'), 0x0A);
    const auto message = [](char16 high, char16 low) {
        return thrownMessage<orv::AssertionError>([=] { Store::decode(high, low); });
    };
    EXPECT_EQ(message(u'g', u'0'), "toHexDigit[801]: assertion failed");
    EXPECT_EQ(message(u'0', u'g'), "toHexDigit[801]: assertion failed");
}

TEST(URIDataDecode, ReadsARunOfEscapesAsOneSequenceOfBytes) {
    const Store data(false);
    EXPECT_EQ(shown(data.decode(u"%C3%A9x%41"_u)), "<00E9>xA");
    EXPECT_EQ(shown(data.decode(u"a%f0%9F%98%80b%20"_u)), "a<D83D><DE00>b ");
    EXPECT_EQ(shown(data.decode(u"%C3x%A9"_u)), "<FFFD>x<FFFD>"); // two runs, two bad bytes
    EXPECT_EQ(shown(data.decode(u"plain\u00E9"_u)), "plain<00E9>");
    EXPECT_TRUE(data.decode(u""_u).empty());
    EXPECT_TRUE(data.decode(ustring_ref()).empty());
}

TEST(URIDataDecode, ReadsBytesInTheCharsetOfTheStore) {
    EXPECT_EQ(shown(Store(true, Charset::ISO_8859_1).decode(u"%C3%A9"_u)), "<00C3><00A9>");
    EXPECT_EQ(shown(Store(true, Charset::US_ASCII).decode(u"%41%E9"_u)), "A<FFFD>");
    EXPECT_EQ(shown(Store(true, Charset::UTF_16BE).decode(u"x%20%ACy"_u)), "x<20AC>y");
}

TEST(URIDataDecode, RaisesForMissingAndBadDigits) {
    const Store data(false);
    for (const std::string_view text :
         {"%", "%4", "%4g", "%g4", "a%41%", "a%41%4", "%41x%2", "%%41"}) {
        // In a block of its own size, so that a read beyond it would be seen.
        const ustring units = orvtest::textIn<char16>(text);
        const std::vector<char16> block(units.begin(), units.end());
        const ustring_ref view(block.data(), block.size());
        EXPECT_EQ(thrownMessage<orv::AssertionError>([&] { static_cast<void>(data.decode(view)); }),
                  "toHexDigit[801]: assertion failed")
            << text;
    }
}

TEST(URIDataDecode, TakesTheUnitAtTheStartForAPercentSignAsIsMeant) {
    EXPECT_EQ(shown(Store::decode(Charset::UTF_8, u"x41%42c%44"_u, 0)), "ABcD");
    EXPECT_EQ(shown(Store::decode(Charset::UTF_8, u"%%%41z"_u, 2)), "%%Az");
    for (const auto& [text, start] : {std::pair(u""_u, 0U), std::pair(u"ab"_u, 0U),
                                      std::pair(u"a%41"_u, 4U), std::pair(u"abcd"_u, 2U)}) {
        EXPECT_EQ(thrownMessage<orv::AssertionError>([text = text, start = start] {
                      static_cast<void>(Store::decode(Charset::UTF_8, text, start));
                  }),
                  "toHexDigit[801]: assertion failed");
    }
}

TEST(URIData, StartsWithNothingDefined) {
    const Store data(false);
    EXPECT_FALSE(data.isSchemeDefined() || data.isAuthorityDefined() || data.isUserInfoDefined() ||
                 data.isHostDefined() || data.isPortDefined() || data.isQueryDefined() ||
                 data.isFragmentDefined());
    EXPECT_TRUE(data.isRelativeReference() && data.isRelativePathReference());
    EXPECT_FALSE(data.isAbsoluteURI() || data.isOpaque() || data.isNetworkPathReference() ||
                 data.isAbsolutePathReference());
    const ustring_ref text = u"text"_u;
    for (const ustring_ref part :
         {data.getScheme(text), data.getRawSchemeSpecificPart(text), data.getRawAuthority(text),
          data.getRawUserInfo(text), data.getRawHost(text), data.getPort(text),
          data.getRawPath(text), data.getRawQuery(text), data.getRawFragment(text)}) {
        EXPECT_EQ(shown(part), "(null)");
    }
    EXPECT_TRUE(data.getSchemeSpecificPart(text).empty() && data.getAuthority(text).empty() &&
                data.getUserInfo(text).empty() && data.getHost(text).empty() &&
                data.getPath(text).empty() && data.getQuery(text).empty() &&
                data.getFragment(text).empty());
}

TEST(URIData, GivesEachComponentItsOwnRange) {
    Store data(false);
    const ustring_ref text = u"ABC%44EFGHI%4A%4B%4C%4D"_u;
    data.scheme = Range(0, 1);
    data.schemeSpecificPart = Range(1, 7);
    data.authority = Range(2, 6);
    data.userInfo = Range(3, 6);
    data.host = Range(6, 8);
    data.port = Range(8, 10);
    data.path = Range(10, 14);
    data.query = Range(14, 17);
    data.fragment = Range(17, 23);
    EXPECT_EQ(shown(data.getScheme(text)), "A");
    EXPECT_EQ(shown(data.getRawSchemeSpecificPart(text)), "BC%44E");
    EXPECT_EQ(shown(data.getRawAuthority(text)), "C%44");
    EXPECT_EQ(shown(data.getRawUserInfo(text)), "%44");
    EXPECT_EQ(shown(data.getRawHost(text)), "EF");
    EXPECT_EQ(shown(data.getPort(text)), "GH");
    EXPECT_EQ(shown(data.getRawPath(text)), "I%4A");
    EXPECT_EQ(shown(data.getRawQuery(text)), "%4B");
    EXPECT_EQ(shown(data.getRawFragment(text)), "%4C%4D");
    EXPECT_EQ(shown(data.getSchemeSpecificPart(text)), "BCDE");
    EXPECT_EQ(shown(data.getAuthority(text)), "CD");
    EXPECT_EQ(shown(data.getUserInfo(text)), "D");
    EXPECT_EQ(shown(data.getHost(text)), "EF");
    EXPECT_EQ(shown(data.getPath(text)), "IJ");
    EXPECT_EQ(shown(data.getQuery(text)), "K");
    EXPECT_EQ(shown(data.getFragment(text)), "LM");
    EXPECT_EQ(data.getRawHost(text).data(), text.data() + 6);
}

TEST(URIData, CutsViewsToTheTextAndKeepsEmptyOnesFromBeingNull) {
    const ustring_ref text = u"abcd"_u;
    EXPECT_EQ(shown(Store::viewOf(text, Range(1, 9))), "bcd");
    EXPECT_EQ(shown(Store::viewOf(text, Range(1, 1))), "");
    EXPECT_EQ(shown(Store::viewOf(text, Range(4, 4))), "");
    EXPECT_EQ(shown(Store::viewOf(text, Range(7, 9))), "");
    EXPECT_EQ(Store::viewOf(text, Range(7, 9)).data(), text.end());
    EXPECT_EQ(shown(Store::viewOf(text, Range(2, 1))), "(null)");
    EXPECT_EQ(shown(Store::viewOf(ustring_ref(), Range(0, 0))), "");
    EXPECT_EQ(shown(Store::viewOf(ustring_ref(), Range(3, 9))), "");
    EXPECT_EQ(shown(Store::viewOf(ustring_ref(), Range())), "(null)");
}

TEST(URIData, KeepsTheLowSixteenBitsOfIndicesAsIsMeant) {
    const Range range(0xFFFE, 0x10001);
    EXPECT_EQ(range.begin, 0xFFFE);
    EXPECT_EQ(range.end, 1);
    EXPECT_FALSE(range.isDefined());
    EXPECT_EQ(shown(Store::viewOf(u"abcd"_u, Range(0x10001, 0x30003))), "bc");
}

TEST(URIData, TellsTheKindsOfReferencesApart) {
    const Range there(0, 0);
    for (unsigned int bits = 0; bits < 16; ++bits) {
        Store data(false);
        const bool scheme = (bits & 1) != 0;
        const bool authority = (bits & 2) != 0;
        const bool fragment = (bits & 4) != 0;
        data.hierarchical = (bits & 8) != 0;
        data.scheme = scheme ? there : Range();
        data.authority = authority ? there : Range();
        data.fragment = fragment ? there : Range();
        EXPECT_EQ(data.isRelativeReference(), !scheme);
        EXPECT_EQ(data.isAbsoluteURI(), scheme && !fragment);
        EXPECT_EQ(data.isOpaque(), scheme && !data.hierarchical);
        EXPECT_EQ(data.isNetworkPathReference(), !scheme && authority);
        EXPECT_EQ(data.isAbsolutePathReference(), data.hierarchical && !scheme && !authority);
        EXPECT_EQ(data.isRelativePathReference(), !scheme && !data.hierarchical);
    }
}

TEST(URIData, KnowsWhichComponentsAreDefined) {
    const std::array<Range Store::*, 7> ranges = {
        &Store::scheme, &Store::authority, &Store::userInfo, &Store::host,
        &Store::port,   &Store::query,     &Store::fragment};
    for (std::size_t i = 0; i != ranges.size(); ++i) {
        Store data(false);
        data.*ranges[i] = Range(5, 5);
        const std::array<bool, 7> defined = {data.isSchemeDefined(),   data.isAuthorityDefined(),
                                             data.isUserInfoDefined(), data.isHostDefined(),
                                             data.isPortDefined(),     data.isQueryDefined(),
                                             data.isFragmentDefined()};
        for (std::size_t k = 0; k != defined.size(); ++k) {
            EXPECT_EQ(defined[k], k == i);
        }
    }
}

} // namespace
