// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Random sentences of the grammar of URI references, the same in every run.
#ifndef ORV_TESTS_SUPPORT_URI_SOURCE_H
#define ORV_TESTS_SUPPORT_URI_SOURCE_H

#include "orv/liborvxx/text/string_ref.h"
#include "orv/liborvxx/text/ustring.h"
#include "tests/support/number_source.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace orvtest {

/// Units `begin` up to `end` of a text.
struct UriRange {
    std::size_t begin = 0;
    std::size_t end = 0;

    friend bool operator==(const UriRange&, const UriRange&) = default;
};

/// What the parser says of a unit put into an IP literal at some place, by the kind of the unit.
/// Null where such a unit is not wrong, or not at this place.
struct AddressTrap {
    const char* soft = nullptr;  ///< neither letter, digit, "." nor ":": may end an IPv6 address
    const char* hard = nullptr;  ///< a letter or digit that is no hexadecimal digit
    const char* colon = nullptr; ///< ":"
    const char* dot = nullptr;   ///< "."
};

/// A field of an IPv6 address, or an octet of the IPv4 address at its end.
struct AddressPiece {
    UriRange range;
    int octet = -1;                ///< 0 to 3; a field if negative
    const char* tooLong = nullptr; ///< what is wrong with a fifth digit of a field
};

/// A URI reference and its components, by construction.
struct UriSentence {
    orv::ustring text;
    std::optional<UriRange> scheme;
    UriRange schemeSpecificPart;
    std::optional<UriRange> authority;
    std::optional<UriRange> userInfo;
    std::optional<UriRange> host;
    std::optional<UriRange> port;
    UriRange path;
    std::optional<UriRange> query;
    std::optional<UriRange> fragment;
    bool hierarchical = false;

    std::vector<UriRange> escapes;    ///< in order
    std::vector<AddressTrap> traps;   ///< from behind the "[" up to the "]"; empty without brackets
    std::vector<AddressPiece> pieces; ///< of an IPv6 address

    orv::ustring_ref view(UriRange range) const {
        return {text.data() + range.begin, range.end - range.begin};
    }
};

/// Writes sentences of the grammar of RFC 3986, appendix A: a function for each rule, which stands
/// above it. Parts are often empty or of one unit, and hold delimiters of other parts wherever they
/// may.
class UriSource {
public:
    /// \p wide: with units above 127 that are unreserved.
    UriSource(std::uint64_t seed, bool wide) : numbers_(seed), wide_(wide) {}

    UriSentence uriReference();
    UriSentence uri();
    UriSentence relativeRef();

    NumberSource& numbers() { return numbers_; }

private:
    using Rule = void (UriSource::*)();

    void writeUri();
    void writeRelativeRef();
    void queryAndFragment();
    void scheme();
    void authority();
    void userInfo();
    void host();
    void port();
    void ipLiteral();
    void ipvFuture();
    void futureUnit();
    void ipv4Address();
    void regName();
    void pathAbempty();
    void pathAbsolute();
    void pathNoscheme();
    void pathRootless();
    void segment();
    void segmentNz();
    void segmentNzNc();
    void pchar();
    void pcharNc();
    void queryUnit();
    void pctEncoded();
    void unreserved();
    void subDelim();
    void wideUnreserved();
    void hexDigit();

    UriSentence taken();
    UriRange rangeOf(Rule rule);
    void put(char32_t unit);
    void putOneOf(std::string_view units);
    void repeat(std::size_t count, Rule rule);
    std::size_t size();

    NumberSource numbers_;
    bool wide_;
    UriSentence sentence_;
};

} // namespace orvtest

#endif
