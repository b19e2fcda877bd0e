// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Text written to the stream classes: padding, states, exceptions and types of results.
#include "orv/liborvxx/locale/ustringstream.h"
#include "orv/liborvxx/text/literals.h"
#include "tests/support/shown_text.h"

#include <gtest/gtest.h>

#include <concepts>
#include <iomanip>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using orv::char16;
using orv::uiostream;
using orv::ulocale;
using orv::uostream;
using orv::uostringstream;
using orv::ustring;
using orv::ustring_ref;
using orv::ustring_view;
using orv::ustringstream;
using orvtest::shown;
using namespace orv::literals;

using PlainOut = std::basic_ostream<char16>;

// Types of results.

template <class Stream, class Text>
using Inserted = decltype(std::declval<Stream&>() << std::declval<const Text&>());

template <class Stream, class... Texts>
constexpr bool KEEPS_TYPE = (std::same_as<Inserted<Stream, Texts>, Stream&> && ...);

template <class Stream>
constexpr bool TEXT_KEEPS_TYPE =
    KEEPS_TYPE<Stream, char, char*, const char*, char[4], char16, char16*, const char16*, char16[4],
               char16_t, char16_t*, const char16_t*, char16_t[4], char32_t, ustring, ustring_view,
               std::u16string, std::u16string_view>;
static_assert(TEXT_KEEPS_TYPE<uostream> && TEXT_KEEPS_TYPE<uiostream>);
static_assert(TEXT_KEEPS_TYPE<uostringstream> && TEXT_KEEPS_TYPE<ustringstream>);
static_assert(KEEPS_TYPE<PlainOut, char16_t, const char16_t*, char16_t[4], char32_t, std::u16string,
                         std::u16string_view>);

enum Unscoped { ENUMERATOR };

template <class Stream, class... Values>
constexpr bool IS_UOSTREAM = (std::same_as<Inserted<Stream, Values>, uostream&> && ...);

template <class Stream>
constexpr bool NUMBERS_GIVE_UOSTREAM =
    IS_UOSTREAM<Stream, bool, signed char, unsigned char, short, unsigned short, int, unsigned int,
                long, unsigned long, long long, unsigned long long, float, double, long double,
                void*, const void*, const int*, std::nullptr_t, Unscoped, ustring_ref,
                std::basic_streambuf<char16>*, std::basic_stringbuf<char16>*>;
static_assert(NUMBERS_GIVE_UOSTREAM<uostream> && NUMBERS_GIVE_UOSTREAM<uiostream>);
static_assert(NUMBERS_GIVE_UOSTREAM<uostringstream> && NUMBERS_GIVE_UOSTREAM<ustringstream>);

template <class Stream, class Text>
concept Inserts = requires(Stream& stream, const Text& text) {
    stream << text;
};

template <class Stream, class... Texts>
constexpr bool INSERTS_NONE = !(Inserts<Stream, Texts> || ...);

template <class Stream>
constexpr bool NO_OTHER_TEXT =
    INSERTS_NONE<Stream, wchar_t, wchar_t*, const wchar_t*, wchar_t[4], std::wstring, char8_t,
                 const char8_t*, char8_t[4], std::u8string, char32_t*, const char32_t*, char32_t[4],
                 std::u32string>;
static_assert(NO_OTHER_TEXT<uostream> && NO_OTHER_TEXT<uiostream> && NO_OTHER_TEXT<PlainOut>);
static_assert(NO_OTHER_TEXT<uostringstream> && NO_OTHER_TEXT<ustringstream>);

// Output.

template <class Text>
std::string padded(const Text& text, std::ios_base::fmtflags adjustment) {
    uostringstream os;
    os.fill(u'*');
    os.setf(adjustment, std::ios_base::adjustfield);
    os.width(5);
    os << text;
    EXPECT_EQ(os.width(), 0);
    EXPECT_TRUE(os.good());
    return shown(os.str());
}

template <class Text>
void expectPadding(const Text& text, const std::string& shownText, const std::string& padding) {
    EXPECT_EQ(padded(text, {}), padding + shownText);
    EXPECT_EQ(padded(text, std::ios_base::right), padding + shownText);
    EXPECT_EQ(padded(text, std::ios_base::internal), padding + shownText);
    EXPECT_EQ(padded(text, std::ios_base::left), shownText + padding);
}

TEST(UStreamText, IsPaddedToTheWidth) {
    const ustring text = u"ab"_u;
    expectPadding(u"ab"_u, "ab", "***");
    expectPadding(text, "ab", "***");
    expectPadding(ustring_view(text), "ab", "***");
    expectPadding(text.c_str(), "ab", "***");
    expectPadding("ab", "ab", "***");
    expectPadding(u"ab", "ab", "***");
    expectPadding(std::u16string_view(u"ab"), "ab", "***");
    expectPadding(std::u16string(u"ab"), "ab", "***");
    expectPadding('a', "a", "****");
    expectPadding(u'a', "a", "****");
    expectPadding(char16(u'a'), "a", "****");
    expectPadding(U'a', "a", "****");
    expectPadding(U'\U0001F600', "<D83D><DE00>", "***");
    expectPadding(u""_u, "", "*****");
    expectPadding("", "", "*****");
    expectPadding(u"abcde"_u, "abcde", "");
    expectPadding("abcdefg", "abcdefg", "");
}

TEST(UStreamText, NoWidthMeansNoPadding) {
    uostringstream os;
    os.fill(u'*');
    os.width(-3);
    os << u"a"_u << "b" << u'c' << U'd' << 'e';
    EXPECT_EQ(shown(os.str()), "abcde");
    EXPECT_EQ(os.width(), 0);
}

TEST(UStreamText, NarrowTextIsWidenedByteByByte) {
    uostringstream os;
    os << "a\x7F\x80\xC3" << '\xFF' << '\0';
    EXPECT_EQ(shown(os.str()), std::string("a\x7F<FFFD><FFFD><FFFD>") + '\0');
    for (const std::size_t size : {63U, 64U, 65U, 1000U}) {
        uostringstream more;
        more.width(static_cast<std::streamsize>(size) + 1);
        more << std::string(size, 'x').c_str();
        EXPECT_EQ(shown(more.str()), ' ' + std::string(size, 'x'));
    }
}

TEST(UStreamText, NarrowTextIsWidenedByTheLocale) {
    struct Greek : std::ctype<char16> {
        using std::ctype<char16>::do_widen;
        char16 do_widen(char c) const override { return c == 'a' ? u'\u03B1' : u'?'; }
    };
    uostringstream os;
    os.imbue(std::locale(ulocale::classic(), new Greek));
    os << "ab" << 'a';
    EXPECT_EQ(shown(os.str()), "<03B1>?<03B1>");
}

TEST(UStreamText, CodePointsBecomeUtf16) {
    uostringstream os;
    os << U'a' << U'\uFFFD' << U'\U00010000' << U'\U0010FFFF' << U'\uE000' << char32_t{0xD7FF};
    EXPECT_EQ(shown(os.str()), "a<FFFD><D800><DC00><DBFF><DFFF><E000><D7FF>");
    for (const char32_t none : {0xD800U, 0xDBFFU, 0xDC00U, 0xDFFFU, 0x110000U, 0xFFFFFFFFU}) {
        uostringstream replaced;
        replaced << none;
        EXPECT_EQ(shown(replaced.str()), "<FFFD>");
    }
    uostringstream mark(u"abcd"_u);
    mark.width(2); // written in a block, which carries the end mark as well
    mark << U'\uFFFF';
    EXPECT_EQ(shown(mark.str()), " <FFFF>cd");
}

TEST(UStreamText, CodePointsBecomeUtf16OnStandardStreamsToo) {
    std::basic_stringbuf<char16> buffer;
    std::basic_ostream<char16> os(&buffer);
    os.imbue(ulocale::classic());
    os << char32_t{0xD800} << U'\U0001F600' << char32_t{0x110000};
    EXPECT_EQ(shown(buffer.str()), "<FFFD><D83D><DE00><FFFD>");
}

TEST(UStreamText, NullPointerSetsBadbit) {
    for (int type = 0; type < 3; ++type) {
        uostringstream os;
        switch (type) {
        case 0:
            os << static_cast<const char*>(nullptr);
            break;
        case 1:
            os << static_cast<const char16*>(nullptr);
            break;
        default:
            os << static_cast<const char16_t*>(nullptr);
            break;
        }
        EXPECT_EQ(os.rdstate(), std::ios_base::badbit) << type;
        EXPECT_EQ(shown(os.str()), "");
    }
}

TEST(UStreamText, ViewUsesUpTheWidthAlsoInABadState) {
    uostream os(nullptr);
    os.width(5);
    os << u"a"_u;
    EXPECT_TRUE(os.bad());
    EXPECT_EQ(os.width(), 0);
    os.width(5);
    os << 'a';
    EXPECT_EQ(os.width(), 5); // as the standard library's
}

TEST(UStreamText, NothingIsWrittenInABadState) {
    uostringstream os;
    os.setstate(std::ios_base::eofbit);
    os << u"a"_u << "b" << u'c' << U'd' << 'e' << std::u16string(u"f");
    EXPECT_EQ(shown(os.str()), "");
    EXPECT_TRUE(os.eof());
    EXPECT_FALSE(os.bad());
}

// Takes a number of units, and then fails or throws.
struct Narrow : std::basic_streambuf<char16> {
    explicit Narrow(int room, bool throwing = false) : room_(room), throwing_(throwing) {}
    ustring text;

protected:
    int_type overflow(int_type unit) override {
        if (room_ == 0) {
            if (throwing_) {
                throw std::domain_error("full");
            }
            return traits_type::eof();
        }
        --room_;
        text.push_back(traits_type::to_char_type(unit));
        return unit;
    }

private:
    int room_;
    bool throwing_;
};

TEST(UStreamText, ShortWriteSetsBadbit) {
    for (int room = 0; room < 5; ++room) {
        for (const auto adjustment : {std::ios_base::left, std::ios_base::right}) {
            Narrow buffer(room);
            uostream os(&buffer);
            os.setf(adjustment, std::ios_base::adjustfield);
            os.width(5);
            os << u"abc"_u;
            EXPECT_EQ(os.rdstate(), std::ios_base::badbit);
            EXPECT_EQ(os.width(), 0);
            EXPECT_EQ(shown(buffer.text),
                      std::string(adjustment == std::ios_base::left ? "abc  " : "  abc")
                          .substr(0, static_cast<std::size_t>(room)));
        }
    }
}

TEST(UStreamText, ExceptionOfTheBufferSetsBadbitAndPassesWhenAskedFor) {
    Narrow buffer(1, true);
    uostream os(&buffer);
    os.width(3);
    os << u"ab"_u;
    EXPECT_EQ(os.rdstate(), std::ios_base::badbit);
    EXPECT_EQ(os.width(), 0);
    os.clear();
    os.exceptions(std::ios_base::badbit);
    EXPECT_THROW(os << u"ab"_u, std::domain_error);
    EXPECT_EQ(os.rdstate(), std::ios_base::badbit);
    os.exceptions(std::ios_base::goodbit);
    os.clear();
    os.exceptions(std::ios_base::badbit);
    EXPECT_THROW(os << "ab", std::domain_error);
}

TEST(UStreamText, FailureToWidenSetsBadbit) {
    struct Throwing : std::ctype<char16> {
        using std::ctype<char16>::do_widen;
        char16 do_widen(char) const override { throw std::domain_error("widen"); }
    };
    uostringstream os;
    os.imbue(std::locale(ulocale::classic(), new Throwing));
    os << "text";
    EXPECT_EQ(os.rdstate(), std::ios_base::badbit);
    os.clear();
    os.exceptions(std::ios_base::badbit);
    EXPECT_THROW(os << 'c', std::domain_error);
}

TEST(UStreamText, PlainStreamTakesUtf16) {
    std::basic_stringbuf<char16> buffer;
    PlainOut os(&buffer);
    os.imbue(ulocale::classic());
    os << u"ab" << u'c' << U'\U0001F600' << std::u16string(u"d") << std::u16string_view(u"e");
    EXPECT_EQ(shown(buffer.str()), "abc<D83D><DE00>de");
}

} // namespace
