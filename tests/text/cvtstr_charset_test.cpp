// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `cvtstr` between narrow text and UTF-16, and error texts, under the default character set
/// of the process.
///
/// The set is chosen when the library is loaded, so this program is run once for each choice. The
/// variable `EXPECTED_CHARSET` names the set that the environment should lead to; the expectations
/// are those of the set that is in force.
#include "orv/liborvxx/base/error.h"
#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/text/cvtstr.h"
#include "orv/liborvxx/text/literals.h"
#include "tests/text/text_of.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <stdexcept>
#include <string>

namespace {

using namespace orv::literals;
using orv::Charset;
using orv::cvtstr;
using orv::string_ref;
using orv::ustring;
using orv::ustring_ref;
using orvtest::unitsOf;

// What one text is as bytes in each of the sets.
struct Spelling {
    ustring_ref text;
    const char* utf8;
    const char* cesu8;
    const char* latin1;
    const char* ascii;

    std::string expected() const {
        const Charset* const set = Charset::defaultCharset();
        return set == Charset::UTF_8        ? utf8
               : set == Charset::CESU_8     ? cesu8
               : set == Charset::ISO_8859_1 ? latin1
                                            : ascii;
    }
};

constexpr Spelling SPELLINGS[] = {
    {u"plain"_u, "plain", "plain", "plain", "plain"},
    {u"caf\u00E9"_u, "caf\xC3\xA9", "caf\xC3\xA9", "caf\xE9", "caf?"},
    {u"5\u20AC."_u, "5\xE2\x82\xAC.", "5\xE2\x82\xAC.", "5?.", "5?."},
    {u"<\U0001F600>"_u, "<\xF0\x9F\x98\x80>", "<\xED\xA0\xBD\xED\xB8\x80>", "<?>", "<?>"},
};

TEST(CvtstrCharset, TheSetIsTheOneThatTheEnvironmentNames) {
    const char* const expected = std::getenv("EXPECTED_CHARSET");
    if (expected != nullptr) {
        EXPECT_EQ(Charset::defaultCharset()->name(),
                  Charset::forName(orvtest::textOf<orv::char16>(expected))->name());
    } else {
        EXPECT_NE(Charset::defaultCharset(), nullptr);
    }
}

TEST(CvtstrCharset, EncodesByTheDefaultSet) {
    for (const Spelling& s : SPELLINGS) {
        EXPECT_EQ(cvtstr<std::string>(s.text), s.expected());
        EXPECT_EQ(cvtstr<std::string>(s.text), Charset::defaultCharset()->encode(s.text));
    }
}

TEST(CvtstrCharset, DecodesByTheDefaultSet) {
    for (const Spelling& s : SPELLINGS) {
        const std::string bytes = s.expected();
        if (bytes.find('?') == std::string::npos) {
            EXPECT_EQ(cvtstr<ustring>(string_ref(bytes)), s.text);
        }
    }
}

TEST(CvtstrCharset, ALoneSurrogateBecomesTheReplacementOfTheEncoder) {
    for (const unsigned int unit : {0xD800U, 0xDBFFU, 0xDC00U, 0xDFFFU}) {
        EXPECT_EQ(cvtstr<std::string>(unitsOf({'a', unit, 'b'})), "a?b") << unit;
    }
    EXPECT_EQ(cvtstr<std::string>(unitsOf({'a', 0xD800})), "a?") << "also at the end";
}

TEST(CvtstrCharset, ABadByteBecomesTheReplacementCharacterEachByItself) {
    const std::string bytes = "a\xFF\xFFz\xFF";
    const ustring_ref expected = Charset::defaultCharset() == Charset::ISO_8859_1
                                     ? u"a\u00FF\u00FFz\u00FF"_u
                                     : u"a\uFFFD\uFFFDz\uFFFD"_u;
    EXPECT_NO_THROW(EXPECT_EQ(cvtstr<ustring>(string_ref(bytes)), expected));
}

TEST(CvtstrCharset, EveryByteDecodesAsTheSetSays) {
    for (int byte = 0; byte <= 0xFF; ++byte) {
        const bool known = byte < 0x80 || Charset::defaultCharset() == Charset::ISO_8859_1;
        EXPECT_EQ(cvtstr<ustring>(std::string(1, static_cast<char>(byte))),
                  unitsOf({known ? static_cast<unsigned int>(byte) : 0xFFFDU}));
    }
}

TEST(CvtstrCharset, NulsInsideAreKept) {
    using namespace std::string_literals;
    EXPECT_EQ(cvtstr<ustring>(string_ref("a\0b"s)), u"a\0b"_u);
    EXPECT_EQ(cvtstr<std::string>(u"a\0b"_u), "a\0b"s);
}

TEST(CvtstrCharset, TheLocaleOfTheMomentDoesNotMatter) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    for (const char* const locale : {"C", "C.UTF-8"}) {
        ASSERT_NE(std::setlocale(LC_ALL, locale), nullptr);
        for (const Spelling& s : SPELLINGS) {
            EXPECT_EQ(cvtstr<std::string>(s.text), s.expected()) << locale;
        }
    }
    std::setlocale(LC_ALL, before.c_str());
}

TEST(CvtstrCharset, LongTextsConvertWhole) {
    ustring text;
    std::string bytes;
    for (int i = 0; i < 20'000; ++i) {
        const Spelling& s = SPELLINGS[static_cast<std::size_t>(i) % std::size(SPELLINGS)];
        text += s.text;
        bytes += s.expected();
    }
    EXPECT_EQ(cvtstr<std::string>(ustring_ref(text)), bytes);
}

TEST(ExceptionAsUString, IsTheTextOfToString) {
    EXPECT_EQ(orv::to_ustring(orv::ParseError("bad number", 3)), u"orv::ParseError: bad number"_u);
    EXPECT_EQ(orv::to_ustring(std::runtime_error("x")), u"std::runtime_error: x"_u);
}

TEST(ExceptionAsUString, ReadsTheMessageInTheDefaultSet) {
    for (const Spelling& s : SPELLINGS) {
        const std::string bytes = s.expected();
        ustring expected = u"orv::RuntimeError: "_u;
        expected += cvtstr<ustring>(string_ref(bytes));
        EXPECT_EQ(orv::to_ustring(orv::RuntimeError(bytes)), expected);
    }
}

TEST(ExceptionAsUString, TakesAPointerToo) {
    EXPECT_EQ(orv::to_ustring(std::exception_ptr()), u""_u);
    EXPECT_EQ(orv::to_ustring(std::make_exception_ptr(orv::IOError("no disk"))),
              u"orv::IOError: no disk"_u);
    EXPECT_EQ(orv::to_ustring(std::make_exception_ptr(1)), u"non-standard exception type"_u);
}

} // namespace
