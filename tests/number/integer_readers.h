// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The readers of integers under test: each name in all its shapes, which must agree.
#ifndef ORV_TESTS_NUMBER_INTEGER_READERS_H
#define ORV_TESTS_NUMBER_INTEGER_READERS_H

#include "orv/liborvxx/number/from_chars.h"
#include "orv/liborvxx/number/string_to_int.h"
#include "orv/liborvxx/text/char_iterator.h"
#include "tests/number/status_message.h"
#include "tests/support/text_in.h"
#include "tests/support/thrown_message.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace orvtest {

/// The shapes of one name.
template <class T, class CharT>
struct IntegerReaders {
    T (*ofView)(orv::basic_string_ref<CharT>, std::size_t*, int);
    T (*ofCursor)(orv::BasicCharIterator<CharT>&, int);
    T (*inC)(const CharT*, CharT**, int) noexcept;
};

/// \name One type for each name
/// @{
struct Stoi {
    using Type = std::int32_t;
    template <class C>
    static constexpr IntegerReaders<Type, C> readers{orv::stoi_c, orv::stoi_c, orv::strtoi_c};
};
struct Stol {
    using Type = std::int32_t;
    template <class C>
    static constexpr IntegerReaders<Type, C> readers{orv::stol_c, orv::stol_c, orv::strtol_c};
};
struct Stoll {
    using Type = std::int64_t;
    template <class C>
    static constexpr IntegerReaders<Type, C> readers{orv::stoll_c, orv::stoll_c, orv::strtoll_c};
};
struct Stoui {
    using Type = std::uint32_t;
    template <class C>
    static constexpr IntegerReaders<Type, C> readers{orv::stoui_c, orv::stoui_c, orv::strtoui_c};
};
struct Stoul {
    using Type = std::uint32_t;
    template <class C>
    static constexpr IntegerReaders<Type, C> readers{orv::stoul_c, orv::stoul_c, orv::strtoul_c};
};
struct Stoull {
    using Type = std::uint64_t;
    template <class C>
    static constexpr IntegerReaders<Type, C> readers{orv::stoull_c, orv::stoull_c, orv::strtoull_c};
};
/// @}

using IntegerNames = testing::Types<Stoi, Stol, Stoll, Stoui, Stoul, Stoull>;
using SignedIntegerNames = testing::Types<Stoi, Stol, Stoll>;
using UnsignedIntegerNames = testing::Types<Stoui, Stoul, Stoull>;

/// What a reader made of a text. The message is that of the shapes that throw.
template <class T>
struct IntegerOutcome {
    T value = 0;
    std::size_t length = 0;
    std::string message;

    bool operator==(const IntegerOutcome&) const = default;

    friend std::ostream& operator<<(std::ostream& out, const IntegerOutcome& outcome) {
        return out << outcome.value << ", length " << outcome.length << ' ' << outcome.message;
    }
};

/// The shape of a view agrees with what `from_chars_c` found.
template <class Name, class CharT>
void expectViewAgrees(const std::basic_string<CharT>& text, int radix,
                      const orv::from_chars_result<typename Name::Type>& read,
                      const std::string& message) {
    const auto& readers = Name::template readers<CharT>;
    std::size_t index = 777;
    if (read) {
        EXPECT_EQ(readers.ofView(text, &index, radix), read.value);
        EXPECT_EQ(index, read.length);
        EXPECT_EQ(readers.ofView(text, nullptr, radix), read.value);
    } else {
        EXPECT_EQ(messageOf(read.status, [&] { readers.ofView(text, &index, radix); }), message);
        EXPECT_EQ(index, 777U) << "a failure leaves the index";
    }
}

/// The shape with a cursor, which stands behind other text.
template <class Name, class CharT>
void expectCursorAgrees(const std::basic_string<CharT>& text, int radix,
                        const orv::from_chars_result<typename Name::Type>& read,
                        const std::string& message) {
    const auto& readers = Name::template readers<CharT>;
    const std::basic_string<CharT> whole = std::basic_string<CharT>(3, CharT(u'7')) + text;
    orv::BasicCharIterator<CharT> it{orv::basic_string_ref<CharT>(whole)};
    it.setPosition(3);
    if (read) {
        EXPECT_EQ(readers.ofCursor(it, radix), read.value);
    } else {
        EXPECT_EQ(messageOf(read.status, [&] { readers.ofCursor(it, radix); }), message);
    }
    const std::size_t expected = 3 + (read ? read.length : 0);
    EXPECT_EQ(it.position(), expected);
    EXPECT_EQ(it.current(),
              expected < whole.size() ? whole[expected] : orv::BasicCharIterator<CharT>::END_MARK);
}

/// The shape of the C library.
template <class Name, class CharT>
void expectCAgrees(const std::basic_string<CharT>& text, int radix,
                   const orv::from_chars_result<typename Name::Type>& read) {
    const auto& readers = Name::template readers<CharT>;
    CharT* end = nullptr;
    errno = 5;
    EXPECT_EQ(readers.inC(text.c_str(), &end, radix), read.value);
    EXPECT_EQ(errno, read.status == orv::number_status::out_of_range ? 34 : 5);
    EXPECT_EQ(static_cast<std::size_t>(end - text.c_str()), read.length);
    EXPECT_EQ(readers.inC(text.c_str(), nullptr, radix), read.value);
}

/// Reads \p text in every shape.
template <class Name, class CharT>
IntegerOutcome<typename Name::Type> readInShapes(const std::basic_string<CharT>& text, int radix) {
    const auto read =
        orv::from_chars_c<typename Name::Type>(orv::basic_string_ref<CharT>(text), radix);
    std::string message;
    if (!read) {
        message = messageOf(read.status,
                            [&] { Name::template readers<CharT>.ofView(text, nullptr, radix); });
    }
    expectViewAgrees<Name>(text, radix, read, message);
    expectCursorAgrees<Name>(text, radix, read, message);
    expectCAgrees<Name>(text, radix, read);
    return {read.value, read.length, message};
}

/// Reads \p text, one unit for each byte, in every shape and in both types of characters.
template <class Name>
IntegerOutcome<typename Name::Type> readEverywhere(std::string_view text, int radix = 10) {
    const auto outcome = readInShapes<Name>(std::string(text), radix);
    EXPECT_EQ(readInShapes<Name>(textIn<orv::char16>(text), radix), outcome);
    return outcome;
}

/// A number read.
template <class Name>
IntegerOutcome<typename Name::Type> number(typename Name::Type value, std::size_t length) {
    return {value, length, ""};
}

/// No number read.
template <class Name>
IntegerOutcome<typename Name::Type> noNumber(const std::string& message) {
    return {0, 0, message};
}

/// A number read that does not fit.
template <class Name>
IntegerOutcome<typename Name::Type> outOfRange(typename Name::Type limit, std::size_t length) {
    return {limit, length, "number out of range"};
}

} // namespace orvtest

#endif
