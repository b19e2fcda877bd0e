// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `StringCharSequence`, and the two interfaces as a program meets them.
#include "orv/liborvxx/text/char_sequence.h"

#include "orv/liborvxx/text/literals.h"
#include "orv/liborvxx/text/string_builder.h"
#include "tests/support/thrown_message.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>

namespace {

using namespace orv::literals;
using orv::Appendable;
using orv::CharSequence;
using orv::StringBuilder;
using orv::StringCharSequence;
using orv::ustring;

static_assert(std::is_abstract_v<CharSequence> && std::has_virtual_destructor_v<CharSequence> &&
              std::is_abstract_v<Appendable> && std::has_virtual_destructor_v<Appendable>);
// No interface object is cut off its class by a copy.
static_assert(!std::is_copy_constructible_v<CharSequence> &&
              !std::is_copy_assignable_v<CharSequence> && !std::is_copy_assignable_v<Appendable>);
static_assert(sizeof(CharSequence) == sizeof(void*) && sizeof(Appendable) == sizeof(void*) &&
              sizeof(StringCharSequence) == sizeof(void*) + sizeof(ustring));
static_assert(std::is_nothrow_constructible_v<StringCharSequence, ustring> &&
              std::is_nothrow_move_constructible_v<StringCharSequence> &&
              !std::is_convertible_v<ustring, StringCharSequence> &&
              !std::is_constructible_v<StringCharSequence, std::nullptr_t>);

template <typename Call>
std::string outOfRange(Call call) {
    return orvtest::thrownMessage<std::out_of_range>(call);
}

TEST(StringCharSequenceTest, HoldsAText) {
    const StringCharSequence copied(u"abc"_u);
    EXPECT_EQ(copied.length(), 3U);
    EXPECT_EQ(copied.charAt(0), u'a');
    EXPECT_EQ(copied.charAt(2), u'c');
    EXPECT_EQ(copied.toString(), u"abc"_u);
    EXPECT_EQ(copied.str(), u"abc"_u);
    EXPECT_EQ(StringCharSequence(orv::ustring_ref()).length(), 0U) << "of a null view";
    ustring text(100, u'x');
    const orv::char16* const units = text.data();
    StringCharSequence taken(std::move(text));
    EXPECT_EQ(taken.str().data(), units);
    taken.str() = u"other"_u;
    EXPECT_EQ(taken.toString(), u"other"_u);
    StringCharSequence copy = taken;
    copy.str() += u'!';
    EXPECT_EQ(copy.toString(), u"other!"_u);
    EXPECT_EQ(taken.toString(), u"other"_u);
}

TEST(StringCharSequenceTest, ABadIndexIsAnInvalidPosition) {
    const StringCharSequence text(u"abc"_u);
    EXPECT_EQ(outOfRange([&] { static_cast<void>(text.charAt(3)); }), "invalid string position");
    EXPECT_EQ(outOfRange([&] { static_cast<void>(text.charAt(std::size_t(-1))); }),
              "invalid string position");
}

TEST(StringCharSequenceTest, GivesPartsOfItsOwn) {
    std::unique_ptr<CharSequence> part;
    {
        const StringCharSequence text(u"abcde"_u);
        EXPECT_EQ(text.subSequence(0, 5)->toString(), u"abcde"_u);
        EXPECT_EQ(text.subSequence(0, 0)->length(), 0U);
        EXPECT_EQ(text.subSequence(5, 5)->length(), 0U);
        part = text.subSequence(1, 4);
    }
    EXPECT_EQ(part->toString(), u"bcd"_u);
    EXPECT_NE(dynamic_cast<StringCharSequence*>(part.get()), nullptr);
    EXPECT_EQ(part->subSequence(1, 2)->toString(), u"c"_u);
}

TEST(StringCharSequenceTest, ABadRangeIsToldWithOneBracketMissing) {
    const StringCharSequence text(u"abc"_u);
    EXPECT_EQ(outOfRange([&] { text.subSequence(3, 2); }), "subSequence: start (3 > end (2)");
    EXPECT_EQ(outOfRange([&] { text.subSequence(9, 8); }), "subSequence: start (9 > end (8)")
        << "told before the end";
    EXPECT_EQ(outOfRange([&] { text.subSequence(5000000000, 4000000000); }),
              "subSequence: start (5000000000 > end (4000000000)");
    EXPECT_EQ(outOfRange([&] { text.subSequence(0, 4); }),
              "subSequence: end (4) > this->length() (3)");
    EXPECT_EQ(outOfRange([&] { text.subSequence(0, 18446744073709551615U); }),
              "subSequence: end (18446744073709551615) > this->length() (3)");
}

// Writes to whatever takes units, reading whatever has them.
void copyTo(Appendable& out, CharSequence* in) {
    out.append(u'<').append(in).append(u"|"_u).append(in, 1, 2).append(u"a>b"_u, 1, 2);
}

TEST(CharSequenceTest, ABuilderIsBothSidesOfTheInterfaces) {
    StringBuilder out;
    StringBuilder in(u"xyz"_u);
    StringCharSequence other(u"123"_u);
    copyTo(out, &in);
    copyTo(out, &other);
    copyTo(out, nullptr);
    EXPECT_EQ(out.get(), u"<xyz|y><123|2><null|u>"_u);
    const CharSequence& read = out;
    EXPECT_EQ(read.length(), 22U);
    EXPECT_EQ(read.charAt(1), u'x');
    EXPECT_EQ(read.subSequence(1, 4)->toString(), u"xyz"_u);
    EXPECT_EQ(read.toString(), out.get());
}

TEST(CharSequenceTest, AnObjectIsDeletedThroughEitherInterface) {
    const std::unique_ptr<CharSequence> sequence = std::make_unique<StringBuilder>(u"a"_u);
    const std::unique_ptr<Appendable> appendable =
        std::make_unique<StringBuilder>(ustring(100, u'x'));
    EXPECT_EQ(sequence->length(), 1U);
    appendable->append(u'y');
}

} // namespace
