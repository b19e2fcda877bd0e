// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Text read from the stream classes: units, words, code points and lines, with states,
/// exceptions and types of results.
#include "orv/liborvxx/locale/ustringstream.h"
#include "orv/liborvxx/text/literals.h"
#include "tests/support/shown_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <concepts>
#include <cstddef>
#include <ios>
#include <istream>
#include <stdexcept>
#include <streambuf>
#include <string>
#include <utility>
#include <vector>

namespace {

using orv::char16;
using orv::uiostream;
using orv::uistream;
using orv::uistringstream;
using orv::ustring;
using orv::ustringstream;
using orvtest::shown;
using namespace orv::literals;

using PlainIn = std::basic_istream<char16>;

template <class Stream, class Text>
using Extracted = decltype(std::declval<Stream&>() >> std::declval<Text&>());

template <class Stream>
constexpr bool READING_KEEPS_TYPE =
    (std::same_as<Extracted<Stream, char16>, Stream&> &&
     std::same_as<Extracted<Stream, char16[4]>, Stream&> &&
     std::same_as<Extracted<Stream, char16_t>, Stream&> &&
     std::same_as<Extracted<Stream, char32_t>, Stream&> &&
     std::same_as<Extracted<Stream, ustring>, Stream&> &&
     std::same_as<decltype(getline(std::declval<Stream&>(), std::declval<ustring&>())), Stream&> &&
     std::same_as<decltype(getline(std::declval<Stream&>(), std::declval<ustring&>(), u';')),
                  Stream&>);
static_assert(READING_KEEPS_TYPE<uistream> && READING_KEEPS_TYPE<uiostream>);
static_assert(READING_KEEPS_TYPE<uistringstream> && READING_KEEPS_TYPE<ustringstream>);
static_assert(std::same_as<Extracted<PlainIn, char16_t>, PlainIn&>);
static_assert(std::same_as<Extracted<PlainIn, char32_t>, PlainIn&>);

TEST(UStreamText, UnitsAndWordsSkipWhiteSpace) {
    uistringstream is(u" \u3000a\u2028b  word\u00A0more \u2003x"_u);
    char16 unit{};
    char16_t second = 0;
    ustring word;
    ustring more;
    char32_t codePoint = 0;
    uistringstream& chained = is >> unit >> second >> word >> more >> codePoint;
    EXPECT_EQ(&chained, &is);
    EXPECT_EQ(unit, u'a');
    EXPECT_EQ(second, u'b');
    EXPECT_EQ(shown(word), "word");
    EXPECT_EQ(shown(more), "more");
    EXPECT_EQ(codePoint, U'x');
    EXPECT_TRUE(is.good());
}

TEST(UStreamText, WhiteSpaceCountsWithNoskipws) {
    uistringstream is(u"   "_u);
    is >> std::noskipws;
    char16_t unit = 0;
    char32_t codePoint = 0;
    char16 third{};
    is >> unit >> codePoint >> third;
    EXPECT_EQ(unit, u' ');
    EXPECT_EQ(codePoint, U' ');
    EXPECT_EQ(third, u' ');
    EXPECT_TRUE(is.good());
}

TEST(UStreamText, WordEndsAtTheWidth) {
    uistringstream is(u"abcdef"_u);
    ustring word;
    is.width(2);
    is >> word;
    EXPECT_EQ(shown(word), "ab");
    EXPECT_EQ(is.width(), 0);
    char16 text[4];
    is >> text;
    EXPECT_EQ(shown(text), "cde");
    EXPECT_TRUE(is.good());
    is >> text;
    EXPECT_EQ(shown(text), "f");
    EXPECT_EQ(is.rdstate(), std::ios_base::eofbit);
}

TEST(UStreamText, EndOfInputFailsAndKeepsTheValue) {
    uistringstream is(u"  "_u);
    char16_t unit = u'x';
    is >> unit;
    EXPECT_EQ(unit, u'x');
    EXPECT_EQ(is.rdstate(), std::ios_base::eofbit | std::ios_base::failbit);
    uistringstream empty(u" "_u);
    empty >> std::noskipws;
    char32_t codePoint = U'x';
    empty >> codePoint;
    EXPECT_EQ(codePoint, U' ');
    empty >> codePoint;
    EXPECT_EQ(codePoint, U' ');
    EXPECT_EQ(empty.rdstate(), std::ios_base::eofbit | std::ios_base::failbit);
}

TEST(UStreamText, CodePointJoinsAPairAndKeepsALoneSurrogate) {
    ustring text = u"\U0001F600\U0010FFFF"_u;
    text += char16(0xD800);
    text += u'a';
    text += char16(0xDC00);
    text += char16(0xD801);
    text += char16(0xD802);
    uistringstream is(text);
    std::vector<char32_t> read;
    char32_t codePoint = 0;
    while (is >> codePoint) {
        read.push_back(codePoint);
    }
    EXPECT_EQ(read,
              (std::vector<char32_t>{0x1F600, 0x10FFFF, 0xD800, U'a', 0xDC00, 0xD801, 0xD802}));
    EXPECT_EQ(is.rdstate(), std::ios_base::eofbit | std::ios_base::failbit);
}

TEST(UStreamText, LoneSurrogateAtTheEndSetsEofbitOnly) {
    uistringstream is(ustring(1, char16(0xD83D)));
    char32_t codePoint = 0;
    is >> codePoint;
    EXPECT_EQ(codePoint, char32_t{0xD83D});
    EXPECT_EQ(is.rdstate(), std::ios_base::eofbit);
}

// Gives some units one by one, and throws then.
struct Breaking : std::basic_streambuf<char16> {
    explicit Breaking(ustring text) : text_(std::move(text)) {}

protected:
    int_type underflow() override {
        if (next_ == text_.size()) {
            throw std::domain_error("broken");
        }
        return text_[next_];
    }
    int_type uflow() override {
        const int_type unit = underflow();
        ++next_;
        return unit;
    }

private:
    ustring text_;
    std::size_t next_ = 0;
};

TEST(UStreamText, ExceptionWhileReadingSetsBadbitAndPassesWhenAskedFor) {
    for (const bool passing : {false, true}) {
        for (const char32_t first : {U'\0', U'\xD83D'}) {
            Breaking buffer(first == 0 ? ustring() : ustring(1, char16(first)));
            uistream is(&buffer);
            is >> std::noskipws;
            char32_t codePoint = 0;
            if (passing) {
                is.exceptions(std::ios_base::badbit);
                EXPECT_THROW(is >> codePoint, std::domain_error);
            } else {
                is >> codePoint;
            }
            EXPECT_EQ(is.rdstate(), std::ios_base::badbit);
        }
        Breaking buffer(u"a"_u);
        uistream is(&buffer);
        char16_t unit = u'x';
        is >> unit;
        EXPECT_EQ(unit, u'a');
        EXPECT_TRUE(is.good());
        is >> unit;
        EXPECT_TRUE(is.bad());
        EXPECT_EQ(unit, u'a');
    }
}

TEST(UStreamText, LinesEndAtTheDelimiter) {
    uistringstream is(u"one\n\ntwo;three"_u);
    ustring line;
    EXPECT_TRUE(getline(is, line));
    EXPECT_EQ(shown(line), "one");
    EXPECT_TRUE(getline(is, line));
    EXPECT_EQ(shown(line), "");
    EXPECT_TRUE(getline(is, line, u';'));
    EXPECT_EQ(shown(line), "two");
    EXPECT_TRUE(std::getline(is, line, char16(u'e')));
    EXPECT_EQ(shown(line), "thr");
    EXPECT_TRUE(std::getline(is, line));
    EXPECT_EQ(shown(line), "e");
    EXPECT_EQ(is.rdstate(), std::ios_base::eofbit);
    EXPECT_FALSE(getline(is, line));
    EXPECT_EQ(shown(line), "e"); // no sentry, no change
}

TEST(UStreamText, LineOfNothingFails) {
    uistringstream is(u""_u);
    ustring line = u"before"_u;
    EXPECT_FALSE(getline(is, line));
    EXPECT_EQ(shown(line), "");
    EXPECT_EQ(is.rdstate(), std::ios_base::eofbit | std::ios_base::failbit);
}

TEST(UStreamText, LineEndsAtTheEndMark) {
    uistringstream is(u"ab\uFFFFc\nd"_u);
    ustring line;
    EXPECT_TRUE(getline(is, line));
    EXPECT_EQ(shown(line), "ab");
    EXPECT_EQ(is.rdstate(), std::ios_base::eofbit);
    is.clear();
    is.ignore(2);
    is.clear();
    EXPECT_FALSE(getline(is, line)); // and does not get over it
    EXPECT_EQ(shown(line), "");
}

TEST(UStreamText, LinesOfEveryLengthEndAtTheFirstOfDelimiterAndEndMark) {
    const char16 mark = std::char_traits<char16>::to_char_type(std::char_traits<char16>::eof());
    for (std::size_t length = 0; length <= 80; ++length) {
        for (std::size_t place = 0; place <= length + 2; ++place) {
            ustring text = ustring(length, u'x') + ustring(u";yy"_u);
            text[place] = mark;
            uistringstream is(text);
            ustring line;
            getline(is, line, u';');
            ASSERT_EQ(line.size(), std::min(length, place)) << length << ", mark at " << place;
            ASSERT_EQ(is.good(), length < place) << length << ", mark at " << place;
        }
    }
}

TEST(UStreamText, LinesOfABufferThatHoldsNoneReadyAreRead) {
    Breaking buffer(u"ab\ncd"_u);
    uistream is(&buffer);
    ustring line;
    EXPECT_TRUE(getline(is, line));
    EXPECT_EQ(shown(line), "ab");
    EXPECT_FALSE(getline(is, line));
    EXPECT_EQ(is.rdstate(), std::ios_base::badbit);
    is.clear();
    is.exceptions(std::ios_base::badbit);
    EXPECT_THROW(getline(is, line), std::domain_error);
}

TEST(UStreamText, LongLinesAreReadWhole) {
    for (const std::size_t size : {1U, 127U, 128U, 129U, 1000U, 100000U}) {
        const ustring text(size, u'x');
        uistringstream is(text + ustring(1, u'\n') + text);
        ustring line;
        EXPECT_TRUE(getline(is, line));
        EXPECT_EQ(line, text);
        EXPECT_TRUE(is.good());
        EXPECT_TRUE(getline(is, line));
        EXPECT_EQ(line, text);
        EXPECT_TRUE(is.eof());
    }
}

} // namespace
