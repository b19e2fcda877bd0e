// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Streams and locales when memory runs out: each allocation of a piece of work fails once,
/// and the work either throws, or leaves a state that says so; nothing is lost.
#include "orv/liborvxx/locale/ulocale.h"
#include "orv/liborvxx/locale/ustringstream.h"
#include "orv/liborvxx/text/literals.h"
#include "tests/support/counting_allocator.h"

#include <gtest/gtest.h>

#include <ios>
#include <limits>
#include <new>
#include <string>
#include <utility>

namespace {

using orv::uistringstream;
using orv::ulocale;
using orv::uostringstream;
using orv::ustring;
using orv::ustringstream;
using namespace orv::literals;

const ustring LONG_TEXT(300, u'x');
const std::string LONG_NARROW_TEXT(300, 'x');

// How often the work was told of a failure: one throws, the other sets a state.
struct Failures {
    int thrown = 0;
    int states = 0;
};

// Runs the work with its first allocation failing, then its second, until there is none left to
// fail. The work returns the state that its streams end in.
template <typename Work>
Failures failEach(Work work) {
    EXPECT_EQ(work(), std::ios_base::goodbit); // and makes what is made once in a program
    Failures failures;
    const std::size_t before = orvtest::liveBlocks();
    for (std::size_t n = 1;; ++n) {
        const std::size_t calls = orvtest::allocations();
        std::ios_base::iostate state = std::ios_base::goodbit;
        bool thrown = false;
        orvtest::failAllocation(n);
        try {
            state = work();
        } catch (const std::bad_alloc&) {
            thrown = true;
        }
        orvtest::failAllocation(0);
        EXPECT_EQ(orvtest::liveBlocks(), before) << n;
        if (orvtest::allocations() - calls < n) {
            EXPECT_FALSE(thrown);
            EXPECT_EQ(state, std::ios_base::goodbit);
            return failures;
        }
        EXPECT_TRUE(thrown || (state & std::ios_base::badbit) != 0) << n;
        failures.thrown += thrown ? 1 : 0;
        failures.states += thrown ? 0 : 1;
    }
}

TEST(UStreamAllocation, StreamsOfNoTextTakeNoMemory) {
    const ustringstream first; // the classic locale is made with the first stream
    const std::size_t before = orvtest::allocations();
    {
        uistringstream in;
        uostringstream out;
        ustringstream both;
        uostringstream moved(std::move(out));
        moved << 123 << u"text"_u.substr(0, 3);
        EXPECT_TRUE(moved.good());
    }
    EXPECT_LE(orvtest::allocations() - before, 1U); // the text of one stream
}

template <typename Value>
void expectNoMemoryFor(Value value, std::ios_base::fmtflags flags = std::ios_base::dec) {
    ustringstream stream(LONG_TEXT);
    stream.flags(flags | std::ios_base::skipws);
    const std::size_t before = orvtest::allocations();
    stream << value << ' ';
    stream.width(40);
    stream << value << ' ';
    Value first{};
    Value second{};
    stream >> first >> second;
    EXPECT_EQ(orvtest::allocations(), before) << value;
    EXPECT_TRUE(stream.good()) << value;
    EXPECT_EQ(first, value);
    EXPECT_EQ(second, value);
}

TEST(UStreamAllocation, OrdinaryNumbersTakeNoMemory) {
    expectNoMemoryFor(0);
    expectNoMemoryFor(short{-12345});
    expectNoMemoryFor(-1234567890L);
    expectNoMemoryFor(~0ULL);
    expectNoMemoryFor(~0ULL, std::ios_base::hex | std::ios_base::showbase);
    expectNoMemoryFor(true);
    expectNoMemoryFor(true, std::ios_base::boolalpha);
    expectNoMemoryFor(1.5F);
    expectNoMemoryFor(-123.456);
    expectNoMemoryFor(1e300);
    if (std::numeric_limits<long double>::digits <= 64) {
        expectNoMemoryFor(1.25e-300L);
    }
    expectNoMemoryFor(0.1, std::ios_base::fixed | std::ios_base::scientific);
}

TEST(UStreamAllocation, LocalesOfNamesThrow) {
    EXPECT_GE(failEach([] {
                  const ulocale german(u"de_DE"_u);
                  return german.name().empty() ? std::ios_base::badbit : std::ios_base::goodbit;
              }).thrown,
              5);
}

TEST(UStreamAllocation, NewStreamThrows) {
    const Failures failures = failEach([] {
        uistringstream in(LONG_TEXT);
        uostringstream out(LONG_TEXT);
        ustringstream both(LONG_TEXT);
        return in.rdstate() | out.rdstate() | both.rdstate();
    });
    EXPECT_GE(failures.thrown, 3);
    EXPECT_EQ(failures.states, 0);
}

TEST(UStreamAllocation, TextOfTheStreamThrows) {
    const Failures failures = failEach([] {
        ustringstream stream;
        stream.str(LONG_TEXT);
        const ustring copy = stream.str();
        EXPECT_EQ(copy, LONG_TEXT);
        return stream.rdstate();
    });
    EXPECT_GE(failures.thrown, 2);
    EXPECT_EQ(failures.states, 0);
}

template <typename Write>
void expectBadOnOutput(Write write) {
    const Failures quiet = failEach([&] {
        uostringstream out;
        out.width(200); // beyond what the buffer has room for
        write(out);
        return out.rdstate();
    });
    EXPECT_EQ(quiet.thrown, 0);
    EXPECT_GE(quiet.states, 1);
    const Failures loud = failEach([&] {
        uostringstream out;
        out.exceptions(std::ios_base::badbit);
        out.width(200);
        write(out);
        return out.rdstate();
    });
    EXPECT_EQ(loud.thrown, quiet.states);
    EXPECT_EQ(loud.states, 0);
}

TEST(UStreamAllocation, OutputSetsBadbitOrThrowsTheCause) {
    expectBadOnOutput([](uostringstream& out) { out << LONG_TEXT; });
    expectBadOnOutput([](uostringstream& out) { out << LONG_NARROW_TEXT.c_str(); });
    expectBadOnOutput([](uostringstream& out) { out << u'c'; });
    expectBadOnOutput([](uostringstream& out) { out << U'\U0001F600'; });
    expectBadOnOutput([](uostringstream& out) { out << 123456; });
    expectBadOnOutput([](uostringstream& out) { out.put(u'c').write(LONG_TEXT.data(), 300); });
    expectBadOnOutput([](uostringstream& out) { out << 'c'; });
}

template <typename Read>
void expectBadOnInput(Read read) {
    const auto work = [&](std::ios_base::iostate mask) {
        return failEach([&] {
            uistringstream in(LONG_TEXT);
            in.exceptions(mask);
            ustring text;
            read(in, text);
            return in.rdstate() & ~std::ios_base::eofbit;
        });
    };
    const Failures quiet = work(std::ios_base::goodbit);
    const Failures loud = work(std::ios_base::badbit);
    EXPECT_GE(quiet.states, 1);
    EXPECT_EQ(loud.states, 0);
    EXPECT_EQ(loud.thrown, quiet.thrown + quiet.states);
}

TEST(UStreamAllocation, InputSetsBadbitOrThrowsTheCause) {
    expectBadOnInput([](uistringstream& in, ustring& text) { getline(in, text); });
    expectBadOnInput([](uistringstream& in, ustring& text) { getline(in, text, u';'); });
    expectBadOnInput([](uistringstream& in, ustring& text) { in >> text; });
}

} // namespace
