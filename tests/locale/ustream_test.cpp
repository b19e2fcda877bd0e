// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The operations of the stream classes, under their own types, with the standard library's
/// manipulators and iterators, and in locales.
#include "orv/liborvxx/locale/uiostream.h"
#include "orv/liborvxx/locale/ustringstream.h"
#include "orv/liborvxx/text/literals.h"
#include "tests/locale/counting_buffer.h"
#include "tests/support/in_all_threads.h"
#include "tests/support/shown_text.h"
#include "tests/support/text_in.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <iomanip>
#include <iterator>
#include <limits>
#include <locale>
#include <sstream>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using orv::char16;
using orv::char16_int;
using orv::uiostream;
using orv::uistream;
using orv::uistringstream;
using orv::ulocale;
using orv::uostream;
using orv::uostringstream;
using orv::ustring;
using orv::ustringstream;
using orvtest::CountingBuffer;
using orvtest::shown;
using orvtest::textIn;
using namespace orv::literals;

using Buffer = std::basic_stringbuf<char16>;

TEST(UOStream, OnNoBufferWritesNothing) {
    uostream os(nullptr);
    os << 1 << u"text" << 'c' << U'\U0001F600' << u"view"_u << std::endl;
    os.put(u'x').write(nullptr, 0).flush();
    EXPECT_EQ(os.rdstate() & std::ios_base::badbit, std::ios_base::badbit);
    EXPECT_EQ(os.tellp(), std::streampos(-1));
}

TEST(UIStream, OnNoBufferReadsNothing) {
    uistream is(nullptr);
    int number = 7;
    ustring word = u"word"_u;
    char32_t codePoint = U'x';
    is >> number >> word >> codePoint;
    EXPECT_TRUE(is.bad());
    EXPECT_EQ(number, 7);
    EXPECT_EQ(shown(word), "word");
    EXPECT_EQ(codePoint, U'x');
}

// Every way of reading leaves the stream its type.
TEST(UIStream, ChainsKeepTheType) {
    uistringstream is(u"1 2 3 4 5 6 7 8 9.5 10.5 11.5 0x12 1abcdefg,hi\nj;kl"_u);
    bool truth = false;
    short s = 0;
    unsigned short us = 0;
    int i = 0;
    unsigned int ui = 0;
    long l = 0;
    unsigned long ul = 0;
    long long ll = 0;
    float f = 0;
    double d = 0;
    long double ld = 0;
    void* pointer = nullptr;
    unsigned long long ull = 0;
    uistream& chained =
        is >> truth >> s >> us >> i >> ui >> l >> ul >> ll >> f >> d >> ld >> pointer >> ull;
    EXPECT_EQ(&chained, &is);
    EXPECT_TRUE(truth);
    EXPECT_EQ(s, 2);
    EXPECT_EQ(us, 3);
    EXPECT_EQ(i, 4);
    EXPECT_EQ(ui, 5U);
    EXPECT_EQ(l, 6);
    EXPECT_EQ(ul, 7U);
    EXPECT_EQ(ll, 8);
    EXPECT_EQ(f, 9.5F);
    EXPECT_EQ(d, 10.5);
    EXPECT_EQ(ld, 11.5L);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(pointer), 0x12U);
    EXPECT_EQ(ull, 1U);

    EXPECT_EQ(is.get(), char16_int(u'a'));
    char16 unit{};
    std::array<char16, 3> text;
    uistream& more = is.get(unit).unget().ignore().putback(u'b').seekg(1, std::ios_base::cur);
    EXPECT_EQ(unit, u'b');
    more.get(text.data(), 3);
    EXPECT_EQ(shown(ustring(text.data())), "cd");
    Buffer sink;
    uistream& rest = is.get(text.data(), 3, u'f').ignore(1).get(sink, u',').ignore(1, u',');
    EXPECT_EQ(shown(ustring(text.data())), "e");
    EXPECT_EQ(shown(sink.str()), "g");
    std::array<char16, 9> line;
    uistream& lines = rest.getline(line.data(), 9);
    EXPECT_EQ(shown(ustring(line.data())), "hi");
    lines.getline(line.data(), 9, u';').read(text.data(), 1);
    EXPECT_EQ(shown(ustring(line.data())), "j");
    EXPECT_EQ(text[0], u'k');
    uistream& end = is.seekg(uistream::pos_type(0)).get(sink);
    EXPECT_EQ(&end, &is);
    EXPECT_EQ(sink.str().size(), 1 + is.str().find(u'\n'));
}

TEST(UIStream, ReadsIntoABuffer) {
    uistringstream is(u"abc d"_u);
    Buffer sink;
    uistream& chained = is >> &sink;
    EXPECT_EQ(&chained, &is);
    EXPECT_EQ(shown(sink.str()), "abc d");
    EXPECT_TRUE(is.eof());
}

TEST(UOStream, ChainsKeepTheType) {
    uostringstream os;
    Buffer source(u"source"_u);
    const std::array<char16, 2> text{u'v', u'w'};
    uostream& chained = os << true << ' ' << static_cast<short>(-2) << u' '
                           << static_cast<unsigned short>(3) << ' ' << -4 << ' ' << 5U << ' ' << -6L
                           << ' ' << 7UL << ' ' << -8LL << ' ' << 9ULL << ' ' << 1.5F << ' ' << 2.5
                           << ' ' << 3.5L << ' ' << &source << ' ' << nullptr << ' '
                           << reinterpret_cast<const void*>(std::uintptr_t{0x12});
    EXPECT_EQ(&chained, &os);
    uostream& more = os.put(u'u').write(text.data(), 2).flush();
    EXPECT_EQ(&more, &os);
    EXPECT_EQ(shown(os.str()), "1 -2 3 -4 5 -6 7 -8 9 1.5 2.5 3.5 source nullptr 0x12uvw");
    os.seekp(uostream::pos_type(0)).put(u'T').seekp(-1, std::ios_base::end).put(u'W');
    os.seekp(0, std::ios_base::beg).seekp(1, std::ios_base::cur).put(u'_');
    EXPECT_EQ(shown(os.str()), "T_-2 3 -4 5 -6 7 -8 9 1.5 2.5 3.5 source nullptr 0x12uvW");
}

TEST(UStream, SeekingInNoDirectionFails) {
    ustringstream stream(u"abc"_u);
    for (const int direction : {-1, 3, 1 << 20, std::numeric_limits<int>::min()}) {
        stream.seekg(0, direction);
        EXPECT_EQ(stream.rdstate(), std::ios_base::failbit);
        stream.clear();
        stream.seekp(0, direction);
        EXPECT_EQ(stream.rdstate(), std::ios_base::failbit);
        stream.clear();
    }
}

TEST(UStream, ManipulatorsOfAllKindsWork) {
    ustringstream stream;
    uostream& out = stream << std::hex << std::showbase << 255 << std::dec << std::endl
                           << std::boolalpha << true << std::ends << std::flush;
    EXPECT_EQ(&out, &stream);
    EXPECT_EQ(shown(stream.str()), std::string("0xff\ntrue") + '\0');
    uistringstream in(u"  ff x true"_u);
    int number = 0;
    char16 unit{};
    bool truth = false;
    uistream& read = in >> std::ws >> std::hex >> number >> unit >> std::boolalpha >> truth;
    EXPECT_EQ(&read, &in);
    EXPECT_EQ(number, 0xff);
    EXPECT_EQ(unit, u'x');
    EXPECT_TRUE(truth);
    EXPECT_EQ(in.width(), 0);
    // None of the standard's own takes a basic_ios.
    using Ios = std::basic_ios<char16>;
    Ios& (*const fillWithStars)(Ios&) = [](Ios& ios) -> Ios& {
        ios.fill(u'*');
        return ios;
    };
    in.clear();
    EXPECT_EQ(&(in >> fillWithStars), &in);
    EXPECT_EQ(in.fill(), u'*');
    EXPECT_EQ(&(out << fillWithStars), &stream);
    EXPECT_EQ(stream.fill(), u'*');
}

TEST(UStream, ManipulatorsWithArgumentsWork) {
    uostringstream os;
    os << std::setw(5) << 42 << std::setfill(char16(u'*')) << std::setw(4) << u"x" << std::setw(4)
       << u'y' << std::setw(4) << U'z' << std::setw(4) << std::u16string_view(u"v")
       << std::setprecision(3) << 3.14159 << std::setbase(16) << 255;
    EXPECT_EQ(shown(os.str()), "   42***x***y***z***v3.14ff");
}

TEST(UStream, QuotedWorksInBothDirections) {
    ustringstream stream;
    const ustring text = u"a \"b\" \\c"_u;
    stream << std::quoted(text);
    EXPECT_EQ(shown(stream.str()), "\"a \\\"b\\\" \\\\c\"");
    ustring back;
    stream >> std::quoted(back);
    EXPECT_EQ(shown(back), shown(text));
}

TEST(UStream, StandardIteratorsWork) {
    uistringstream numbers(u"1 2 3"_u);
    const std::vector<int> read{std::istream_iterator<int, char16>(numbers),
                                std::istream_iterator<int, char16>()};
    EXPECT_EQ(read, (std::vector<int>{1, 2, 3}));
    uistringstream units(u" a b"_u);
    ustring text;
    using Unit = std::istreambuf_iterator<char16>;
    for (Unit unit(units.rdbuf()); unit != Unit(); ++unit) {
        text.push_back(*unit);
    }
    EXPECT_EQ(shown(text), " a b");
    uostringstream os;
    const char16 separator[] = {u';', u'\0'};
    std::copy(read.begin(), read.end(), std::ostream_iterator<int, char16>(os, separator));
    std::copy(text.begin(), text.end(), std::ostreambuf_iterator<char16>(os));
    EXPECT_EQ(shown(os.str()), "1;2;3; a b");
}

TEST(UStream, TemporariesKeepTheirType) {
    EXPECT_EQ(shown((uostringstream() << 1 << u"a" << 'b' << u"c"_u << std::hex << 255).str()),
              "1abcff");
    int number = 0;
    ustring word;
    char32_t codePoint = 0;
    EXPECT_TRUE((uistringstream(u"12 ab c"_u) >> number >> word >> codePoint).good() ||
                codePoint == U'c');
    EXPECT_EQ(number, 12);
    EXPECT_EQ(shown(word), "ab");
}

TEST(UStream, LoopEndsWithTheInput) {
    uistringstream is(u"1 2 3 x"_u);
    int sum = 0;
    int number = 0;
    while (is >> number) {
        sum += number;
    }
    EXPECT_EQ(sum, 6);
    EXPECT_EQ(is.rdstate(), std::ios_base::failbit);
    EXPECT_EQ(number, 0);
}

TEST(UStream, TiedStreamIsFlushed) {
    CountingBuffer tied;
    uostream out(&tied);
    uistringstream in(u"1"_u);
    in.tie(&out);
    int number = 0;
    in >> number;
    EXPECT_EQ(tied.syncs, 1);
    uostringstream os;
    os.tie(&out);
    os << u"text"_u;
    EXPECT_EQ(tied.syncs, 2);
    os.setstate(std::ios_base::failbit);
    os << u"text"_u;
    EXPECT_EQ(tied.syncs, 2);
}

TEST(UStream, UnitBufferedStreamIsFlushedAfterEachOutput) {
    CountingBuffer buffer;
    uostream out(&buffer);
    out << u"a"_u;
    EXPECT_EQ(buffer.syncs, 0);
    out << std::unitbuf << u"a"_u;
    EXPECT_EQ(buffer.syncs, 1);
    out << 1 << 'c' << u"text" << u'c';
    EXPECT_EQ(buffer.syncs, 5);
}

struct LocaleCase {
    const char* name;
    const char* number;
    const char* grouped;
};

TEST(UStream, NumbersFollowTheLocaleInBothDirections) {
    for (const auto& [name, number, grouped] :
         {LocaleCase{"C", "1234567.5", "-1234567"},
          LocaleCase{"de_DE", "1.234.567,5", "-1.234.567"},
          LocaleCase{"fr_FR", "1<202F>234<202F>567,5", "-1<202F>234<202F>567"},
          LocaleCase{"de_CH", "1<2019>234<2019>567.5", "-1<2019>234<2019>567"},
          LocaleCase{"en_IN", "12,34,567.5", "-12,34,567"},
          LocaleCase{"ps_AF", "1<066C>234<066C>567<066B>5", "-1<066C>234<066C>567"}}) {
        SCOPED_TRACE(name);
        const ulocale loc(textIn<char16>(name));
        ustringstream stream;
        stream.imbue(loc);
        stream << std::fixed << std::setprecision(1) << 1234567.5;
        EXPECT_EQ(shown(stream.str()), number);
        double back = 0;
        stream >> back;
        EXPECT_EQ(back, 1234567.5);
        EXPECT_TRUE(stream.eof());

        ustringstream integers;
        integers.imbue(loc);
        integers << -1234567;
        EXPECT_EQ(shown(integers.str()), grouped);
        int integer = 0;
        integers >> integer;
        EXPECT_EQ(integer, -1234567);
    }
}

TEST(UStream, DecimalCommaNeedsTheLocale) {
    uostringstream os;
    os << 1.5 << ' ';
    os.imbue(ulocale(u"de_DE"_u));
    os << 1.5;
    EXPECT_EQ(shown(os.str()), "1.5 1,5");
}

TEST(UStream, IntegersHeedEveryFlag) {
    uostringstream os;
    os << std::setw(5) << 42 << std::setw(4);
    os << std::left << -7 << std::showpos << 8 << std::noshowpos << std::hex << 255 << std::dec;
    os.imbue(ulocale(u"de_DE"_u));
    os << u' ' << -1234567 << u' ' << 18446744073709551615U;
    EXPECT_EQ(shown(os.str()), "   42-7  +8ff -1.234.567 18.446.744.073.709.551.615");
    os.imbue(ulocale::classic());
    os.str(ustring());
    os.width(-9);
    os << 7;
    EXPECT_EQ(shown(os.str()), "7");
    EXPECT_EQ(os.width(), 0);
}

TEST(UStream, DigitOfAnotherScriptIsNoNumber) {
    uistringstream is(u"\u0663"_u);
    int number = 7;
    is >> number;
    EXPECT_EQ(is.rdstate(), std::ios_base::failbit);
    EXPECT_EQ(number, 0);
    is.clear();
    EXPECT_EQ(is.get(), char16_int(u'\u0663'));
}

TEST(UStream, NamesOfTruthAreThoseOfTheLocale) {
    const ulocale german(u"de_DE"_u);
    uostringstream os;
    os.imbue(german);
    os << std::boolalpha << true << ' ' << false;
    const auto& names = std::use_facet<std::numpunct<wchar_t>>(std::locale(german));
    std::string expected;
    for (const wchar_t c : names.truename() + L' ' + names.falsename()) {
        expected += static_cast<char>(c);
    }
    EXPECT_EQ(shown(os.str()), expected);
}

TEST(UStream, ClassicLocaleOnANewStreamChangesNothing) {
    uostringstream fresh;
    uostringstream imbued;
    imbued.imbue(ulocale::classic());
    fresh << 1234567.5 << ' ' << true << ' ' << -1;
    imbued << 1234567.5 << ' ' << true << ' ' << -1;
    EXPECT_EQ(shown(imbued.str()), shown(fresh.str()));
    EXPECT_TRUE(imbued.getloc() == fresh.getloc());
}

TEST(UStream, NamesOfTruthFollowTheFacet) {
    struct German : std::numpunct<char16> {
        ustring do_truename() const override { return u"wahr"_u; }
        ustring do_falsename() const override { return u"falsch"_u; }
    };
    ustringstream stream;
    stream.imbue(std::locale(ulocale::classic(), new German));
    stream << std::boolalpha << true << ' ' << false;
    EXPECT_EQ(shown(stream.str()), "wahr falsch");
    bool truth = false;
    bool lie = true;
    stream >> truth >> lie;
    EXPECT_TRUE(truth);
    EXPECT_FALSE(lie);
}

TEST(UStream, StreamsAreMadeInAllThreads) {
    orvtest::inAllThreads([](std::size_t thread) {
        for (int i = 0; i < 50; ++i) {
            ustringstream stream;
            stream << thread << ' ' << i;
            std::size_t number = 0;
            int turn = 0;
            stream >> number >> turn;
            EXPECT_EQ(number, thread);
            EXPECT_EQ(turn, i);
        }
    });
}

} // namespace
