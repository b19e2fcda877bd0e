// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief References of 65,535 units and more: their ranges wrap, and nothing reads outside the
/// text.
#include "orv/liborvxx/base/error.h"
#include "orv/liborvxx/net/uri_parser.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace {

using orv::char16;
using orv::ustring_ref;
using orv::net::URIParser;

// A text in a block of its own size, so that a read beyond it is seen by the sanitizer.
class Text {
public:
    // The unit sequence over and over between two texts, to a total of so many units.
    Text(std::string_view before, std::string_view filling, std::string_view after,
         std::size_t size)
        : size_(size), units_(std::make_unique<char16[]>(size)) {
        std::size_t i = 0;
        const auto put = [this, &i](char c) {
            units_[i++] = char16(static_cast<unsigned char>(c));
        };
        std::for_each(before.begin(), before.end(), put);
        for (std::size_t next = 0; i != size - after.size();) {
            put(filling[next]);
            next = next + 1 == filling.size() ? 0 : next + 1;
        }
        std::for_each(after.begin(), after.end(), put);
    }

    ustring_ref view() const { return {units_.get(), size_}; }

private:
    std::size_t size_;
    std::unique_ptr<char16[]> units_;
};

// The units that a range names whose ends have lost all but 16 bits; none if it is upside down.
std::optional<ustring_ref> wrapped(ustring_ref text, std::size_t begin, std::size_t end) {
    const std::size_t first = begin % 65'536;
    const std::size_t last = end % 65'536;
    if (first > last) {
        return std::nullopt;
    }
    return text.substr(first, last - first);
}

void expectRange(ustring_ref view, ustring_ref text, std::size_t begin, std::size_t end) {
    const auto expected = wrapped(text, begin, end);
    ASSERT_EQ(view.data() != nullptr, expected.has_value());
    if (expected) {
        ASSERT_EQ(view.data(), expected->data());
        ASSERT_EQ(view.size(), expected->size());
    }
}

// A result or the error for a digit that is missing; anything else fails the test.
template <typename Call>
void callLeniently(Call call) {
    try {
        call();
    } catch (const orv::AssertionError& error) {
        ASSERT_STREQ(error.what(), "toHexDigit[801]: assertion failed");
    }
}

void useEverything(const URIParser& uri, ustring_ref text) {
    callLeniently([&] { uri.getSchemeSpecificPart(text); });
    callLeniently([&] { uri.getAuthority(text); });
    callLeniently([&] { uri.getUserInfo(text); });
    callLeniently([&] { uri.getHost(text); });
    callLeniently([&] { uri.getPath(text); });
    callLeniently([&] { uri.getQuery(text); });
    callLeniently([&] { uri.getFragment(text); });
}

void normalizeInEveryWay(URIParser& uri, ustring_ref text) {
    for (unsigned int mask = 0; mask < 8; ++mask) {
        const auto flags = orv::Flags<URIParser::NormFlag>::fromMask(mask);
        callLeniently([&] { URIParser::normalize(text, &uri, flags); });
    }
}

using Accessor = ustring_ref (URIParser::*)(ustring_ref) const noexcept;

struct LongComponent {
    std::string_view before;
    std::string_view filling;
    std::string_view after;
    Accessor get;
};

const LongComponent COMPONENTS[] = {
    {"", "a", ":", &URIParser::getScheme},
    {"//", "%4a", "@h", &URIParser::getRawUserInfo},
    {"//u@", "a%4a", "", &URIParser::getRawHost},
    {"//[v1.", "A:", "]", nullptr},
    {"s://h:", "0", "/p", &URIParser::getPort},
    {"s:", "/", "?", nullptr},
    {"s:a", "/.", "?q", nullptr},
    {"", "%2E/%2e%2E/", "#", &URIParser::getRawPath},
    {"s://h/p?", "%c3%a9", "#f", &URIParser::getRawQuery},
    {"#", "?%7E", "", &URIParser::getRawFragment},
};

void check(const LongComponent& component, std::size_t size) {
    const std::size_t fixed = component.before.size() + component.after.size();
    // To whole escapes.
    const std::size_t filled = (size - fixed) / component.filling.size() * component.filling.size();
    const std::size_t total = filled + fixed;
    const Text block(component.before, component.filling, component.after, total);
    const ustring_ref text = block.view();

    orv::BasicCharIterator<char16> it(text);
    const auto uri = URIParser::parseURIReference(it, false);
    ASSERT_TRUE(it.atEnd());
    if (component.get != nullptr) {
        expectRange((uri.get()->*component.get)(text), text, component.before.size(),
                    component.before.size() + filled);
    }
    const std::size_t colon = component.before.starts_with("s:") ? 2
                              : component.after == ":"           ? total
                                                                 : 0;
    const std::size_t hash = component.after.starts_with('#')    ? total - component.after.size()
                             : component.before.starts_with('#') ? 0
                                                                 : total;
    expectRange(uri->getRawSchemeSpecificPart(text), text, colon, hash);
    useEverything(*uri, text);
    normalizeInEveryWay(*uri, text);
    callLeniently([&] { URIParser::normalize(text); });

    // Against a text that ends early, the same.
    const Text cut(component.before, component.filling, "", component.before.size() + 4);
    useEverything(*uri, cut.view());
    normalizeInEveryWay(*uri, cut.view());
}

TEST(URILongText, WrapsRangesAsIsMeantAndReadsNothingOutsideTheText) {
    for (const LongComponent& component : COMPONENTS) {
        for (const std::size_t size : {65'535U, 65'536U, 65'537U, 131'072U}) {
            for (const std::size_t more : {0U, 1U, 2U}) {
                SCOPED_TRACE(std::string(component.before) + std::to_string(size + more));
                check(component, size + more);
            }
        }
    }
}

TEST(URILongText, TakesTenMillionUnits) {
    for (const LongComponent& component : COMPONENTS) {
        SCOPED_TRACE(component.before);
        check(component, 10'000'000);
    }
}

TEST(URILongText, TellsPositionsOfErrorsInFull) {
    const Text block("s:", "a", " ", 10'000'000);
    orv::BasicCharIterator<char16> it(block.view());
    URIParser::parseURI(it);
    EXPECT_EQ(it.position(), 9'999'999U);
    const Text bad("s:", "a", "%4", 70'000);
    orv::BasicCharIterator<char16> badIt(bad.view());
    try {
        URIParser::parseURI(badIt);
        FAIL();
    } catch (const orv::ParseError& error) {
        EXPECT_EQ(error.getErrorOffset(), 69'998U);
        EXPECT_EQ(badIt.position(), 69'998U);
    }
}

// An escape at the very end of a text, cut at every place.
TEST(URILongText, ReadsNoDigitsBehindTheEnd) {
    for (const std::string_view text :
         {"%", "%4", "/a%", "/a%4", "//h%", "//h%4", "?%", "?%4", "#%", "#%4", "//[", "//[v",
          "//[:", "//[1", "s:%", "s:/%4"}) {
        const Text block(text, "a", "", text.size());
        orv::BasicCharIterator<char16> it(block.view());
        EXPECT_THROW(URIParser::parseURIReference(it), orv::ParseError) << text;
    }
}

// The ranges of a long text in front of which something stands wrap to what stands there.
TEST(URILongText, ReadsUnitsBeforeTheReferenceWhereRangesWrapToThem) {
    const Text block("%zz%4", "a", "?%41", 65'536 + 8);
    orv::BasicCharIterator<char16> it(block.view());
    it.setPosition(5);
    const auto uri = URIParser::parseURIReference(it);
    expectRange(uri->getRawPath(block.view()), block.view(), 5, 65'536 + 4);
    expectRange(uri->getRawQuery(block.view()), block.view(), 5, 8);
    useEverything(*uri, block.view());
    normalizeInEveryWay(*uri, block.view());
}

} // namespace
