// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Out of memory at every allocation in turn: nothing leaks, nothing half-made stays, and
/// the library goes on. And how many allocations there are.
#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/text/cvtstr.h"
#include "orv/liborvxx/text/literals.h"
#include "orv/liborvxx/uuid/uuid.h"
#include "tests/support/counting_allocator.h"
#include "tests/support/scripted_charset.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>

namespace {

using namespace orv::literals;
using orv::char16;
using orv::Charset;

// How many allocations the call makes.
template <typename Call>
std::size_t allocationsOf(Call call) {
    const std::size_t before = orvtest::allocations();
    call();
    return orvtest::allocations() - before;
}

// Lets the first, the second, ... allocation of the call fail, until it gets through. After each,
// the blocks are counted once `restore` has run, and `check` looks around. Gives how often it
// failed.
template <typename Call, typename Restore, typename Check>
std::size_t failEachAllocation(Call call, Restore restore, Check check) {
    restore();
    const std::size_t live = orvtest::liveBlocks();
    for (std::size_t n = 1; n < 1000; ++n) {
        bool failed = false;
        orvtest::failAllocation(n);
        try {
            call();
        } catch (const std::bad_alloc&) {
            failed = true;
        }
        orvtest::failAllocation(0);
        restore();
        EXPECT_EQ(orvtest::liveBlocks(), live) << "after failure " << n;
        check();
        if (!failed) {
            return n - 1;
        }
    }
    ADD_FAILURE() << "the call never gets through";
    return 0;
}

void nothing() {}

// Long enough for a result on the heap.
const std::string BYTES = std::string(300, 'a') + "\xE2\x82\xAC\xFF";
const orv::ustring TEXT = orv::ustring(300, char16(u'a')) + orv::ustring(u"\u20AC\uFFFD"_u);
const std::string ENCODED = std::string(300, 'a') + "\xE2\x82\xAC\xEF\xBF\xBD";

class AllocationFailure : public testing::TestWithParam<Charset*> {};

TEST_P(AllocationFailure, InDecodeOfASet) {
    Charset& set = *GetParam();
    const auto call = [&] { set.decode(BYTES); };
    const orv::ustring expected = set.decode(BYTES);
    EXPECT_GT(failEachAllocation(call, call, [&] { EXPECT_EQ(set.decode(BYTES), expected); }), 0U);
}

TEST_P(AllocationFailure, InEncodeOfASet) {
    Charset& set = *GetParam();
    const auto call = [&] { set.encode(TEXT); };
    const std::string expected = set.encode(TEXT);
    EXPECT_GT(failEachAllocation(call, call, [&] { EXPECT_EQ(set.encode(TEXT), expected); }), 0U);
}

TEST_P(AllocationFailure, InNewCoders) {
    Charset& set = *GetParam();
    EXPECT_GT(failEachAllocation([&] { set.newDecoder(); }, nothing, nothing), 0U);
    EXPECT_GT(failEachAllocation([&] { set.newEncoder(); }, nothing, nothing), 0U);
}

TEST_P(AllocationFailure, InAWholeInput) {
    const auto decoder = GetParam()->newDecoder();
    decoder->onMalformedInput(orv::REPLACE).onUnmappableCharacter(orv::REPLACE);
    const orv::ustring text = decoder->decode(BYTES);
    EXPECT_GT(failEachAllocation([&] { decoder->decode(BYTES); }, nothing,
                                 [&] { EXPECT_EQ(decoder->decode(BYTES), text); }),
              0U);
    const auto encoder = GetParam()->newEncoder();
    encoder->onMalformedInput(orv::REPLACE).onUnmappableCharacter(orv::REPLACE);
    const std::string bytes = encoder->encode(TEXT);
    EXPECT_GT(failEachAllocation([&] { encoder->encode(TEXT); }, nothing,
                                 [&] { EXPECT_EQ(encoder->encode(TEXT), bytes); }),
              0U);
    EXPECT_GT(failEachAllocation([&] { encoder->canEncode(TEXT); }, nothing,
                                 [&] { EXPECT_TRUE(encoder->canEncode(TEXT)); }),
              0U);
}

TEST_P(AllocationFailure, InTheGrowthOfAWholeInput) {
    // Three bytes a unit, where little more than one is expected: the result grows.
    const orv::ustring wide(400, char16(u'\x20AC'));
    const auto encoder = Charset::UTF_8->newEncoder();
    const std::string bytes = encoder->encode(wide);
    EXPECT_GT(failEachAllocation([&] { encoder->encode(wide); }, nothing,
                                 [&] { EXPECT_EQ(encoder->encode(wide), bytes); }),
              1U);
}

std::string nameOf(const testing::TestParamInfo<Charset*>& set) {
    std::string name = orv::cvtstr<std::string>(set.param->name());
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Sets, AllocationFailure, testing::ValuesIn(Charset::availableCharsets()),
                         nameOf);

TEST(AllocationFailureElsewhere, InASetOfTheProgram) {
    // The first call of a set makes its coders; here each attempt has a set that was never used.
    static Charset* const set = &orvtest::scriptedCharset();
    const auto call = [] { set->encode(TEXT); };
    EXPECT_GT(failEachAllocation(call, call, [] { EXPECT_EQ(set->encode(u"a\u00E9"_u), "a?"); }),
              0U);
}

TEST(AllocationFailureElsewhere, InReplacements) {
    const auto encoder = Charset::UTF_8->newEncoder();
    failEachAllocation([&] { encoder->replaceWith("+-+"); }, nothing, nothing);
    EXPECT_EQ(encoder->replacement(), "+-+");
    EXPECT_TRUE(encoder->isLegalReplacement(std::string(200, 'x')));
    EXPECT_GT(failEachAllocation([&] { encoder->isLegalReplacement(std::string(200, 'x')); },
                                 nothing, nothing),
              0U);
}

TEST(AllocationFailureElsewhere, LookUpAllocatesNothing) {
    EXPECT_EQ(allocationsOf([] { Charset::forName(u"a-name-that-is-not-there-at-all"_u); }), 0U);
    EXPECT_EQ(allocationsOf([] { Charset::forName(u"csUTF8unicode-1-1-utf-8"_u); }), 0U);
    EXPECT_EQ(allocationsOf([] { Charset::defaultCharset(); }), 0U);
    EXPECT_EQ(failEachAllocation([] { Charset::availableCharsets(); }, nothing, nothing), 1U);
}

TEST(AllocationFailureElsewhere, InUuids) {
    const std::string text = "1b4e28ba-2fa1-41d2-883f-0016d3cca427";
    const orv::UUID id = orv::UUID::fromString(text);
    EXPECT_EQ(allocationsOf([&] { orv::UUID::fromString(text); }), 0U);
    EXPECT_EQ(failEachAllocation([&] { id.toString(); }, nothing, nothing), 1U);
    EXPECT_EQ(failEachAllocation([&] { id.toUString(); }, nothing, nothing), 1U);
    // A text that is none takes memory for its message.
    const std::string none(50, 'x');
    EXPECT_GT(failEachAllocation(
                  [&] {
                      try {
                          orv::UUID::fromString(none);
                      } catch (const std::invalid_argument&) {
                          return;
                      }
                  },
                  nothing, [&] { EXPECT_EQ(id.toString(), text); }),
              0U);
}

TEST(AllocationFailureElsewhere, InRegistration) {
    static Charset* other = nullptr;
    const std::size_t sets = Charset::availableCharsets().size();
    other = new orvtest::ScriptedCharset(9301, u"x-oom-other"_u, {u"x-oom-shared"_u});
    static Charset* made = nullptr;
    const std::size_t live = orvtest::liveBlocks();
    std::size_t failures = 0;
    for (std::size_t n = 1; made == nullptr && n < 100; ++n) {
        orvtest::failAllocation(n);
        try {
            made = new orvtest::ScriptedCharset(9302, u"x-oom"_u,
                                                {u"x-oom-a"_u, u"x-oom-shared"_u, u"x-oom-z"_u});
        } catch (const std::bad_alloc&) {
            ++failures;
        }
        orvtest::failAllocation(0);
        if (made == nullptr) {
            EXPECT_EQ(orvtest::liveBlocks(), live) << "after failure " << n;
            EXPECT_EQ(Charset::forName(u"x-oom"_u), nullptr);
            EXPECT_EQ(Charset::forName(u"x-oom-a"_u), nullptr);
            EXPECT_EQ(Charset::forName(u"x-oom-z"_u), nullptr);
            EXPECT_FALSE(Charset::isSupported(orv::ustring(u"x-oom-a"_u)));
            EXPECT_EQ(Charset::forName(u"x-oom-shared"_u), other)
                << "failure " << n << " of a set that never was takes the alias of another";
            EXPECT_EQ(Charset::availableCharsets().size(), sets + 1);
        }
    }
    EXPECT_GT(failures, 3U);
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(Charset::forName(u"x-oom"_u), made);
    EXPECT_EQ(Charset::forName(u"x-oom-z"_u), made);
    EXPECT_EQ(Charset::forName(u"x-oom-shared"_u), nullptr) << "two sets claim it now";
    EXPECT_EQ(made->encode(u"a\u00E9"_u), "a?");
}

// How many allocations there are.

class AllocationCount : public testing::TestWithParam<Charset*> {};

TEST_P(AllocationCount, ARepeatedCallAllocatesItsResultOnly) {
    Charset& set = *GetParam();
    const std::string bytes(1000, 'a');
    const orv::ustring text(1000, char16(u'a'));
    set.decode(bytes);
    set.encode(text);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(allocationsOf([&] { set.decode(bytes); }), 1U);
        EXPECT_EQ(allocationsOf([&] { set.encode(text); }), 1U);
        // A short result stays within the string object.
        EXPECT_EQ(allocationsOf([&] { set.decode("abc"); }), 0U);
        EXPECT_EQ(allocationsOf([&] { set.encode(u"abc"_u); }), 0U);
        EXPECT_EQ(allocationsOf([&] { set.decode(""); }), 0U);
        EXPECT_EQ(allocationsOf([&] { set.encode(u""_u); }), 0U);
        EXPECT_EQ(allocationsOf([&] { set.decode('a'); }), 0U);
        EXPECT_EQ(allocationsOf([&] { set.encode(char16(u'a')); }), 0U);
    }
}

// Sets whose result is as long as is first expected, here and in general.
INSTANTIATE_TEST_SUITE_P(Sets, AllocationCount,
                         testing::Values(Charset::UTF_8, Charset::CESU_8, Charset::US_ASCII,
                                         Charset::ISO_8859_1, Charset::forName(u"ISO-8859-2"_u),
                                         Charset::forName(u"KOI8-R"_u),
                                         Charset::forName(u"windows-1252"_u)),
                         nameOf);

class AllocationCountOfSteps : public testing::TestWithParam<Charset*> {};

TEST_P(AllocationCountOfSteps, StepsAllocateNothing) {
    const auto decoder = GetParam()->newDecoder();
    decoder->onMalformedInput(orv::REPLACE);
    unsigned char bytes[] = {'a', 'b', 0xFF, 'c'};
    char16 units[16];
    EXPECT_EQ(allocationsOf([&] {
                  orv::Buffer<const unsigned char> in(bytes, 4);
                  orv::Buffer<char16> out(units, 16);
                  decoder->decode(in, out, true);
                  decoder->flush(out);
                  decoder->reset();
              }),
              0U);
}

INSTANTIATE_TEST_SUITE_P(Sets, AllocationCountOfSteps,
                         testing::ValuesIn(Charset::availableCharsets()), nameOf);

} // namespace
