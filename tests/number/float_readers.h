// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The readers of floating-point numbers under test: each name in all its shapes, which must
/// agree.
#ifndef ORV_TESTS_NUMBER_FLOAT_READERS_H
#define ORV_TESTS_NUMBER_FLOAT_READERS_H

#include "orv/liborvxx/number/from_chars.h"
#include "orv/liborvxx/number/string_to_float.h"
#include "orv/liborvxx/text/char_iterator.h"
#include "tests/number/status_message.h"
#include "tests/support/text_in.h"
#include "tests/support/thrown_message.h"

#include <gtest/gtest.h>

#include <bit>
#include <cerrno>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace orvtest {

/// The shapes of one name.
template <class T, class CharT>
struct FloatReaders {
    T (*ofView)(orv::basic_string_ref<CharT>, std::size_t*);
    T (*ofCursor)(orv::BasicCharIterator<CharT>&);
    T (*inC)(const CharT*, CharT**) noexcept;
};

/// \name One type for each name
/// @{
struct Stof {
    using Type = float;
    static constexpr const char* TOO_LARGE = "string to float conversion out of range";
    template <class C>
    static constexpr FloatReaders<Type, C> readers{orv::stof_c, orv::stof_c, orv::strtof_c};
};
struct Stod {
    using Type = double;
    static constexpr const char* TOO_LARGE = "string to double conversion out of range";
    template <class C>
    static constexpr FloatReaders<Type, C> readers{orv::stod_c, orv::stod_c, orv::strtod_c};
};
struct Stold {
    using Type = long double;
    static constexpr const char* TOO_LARGE = "string to long double conversion out of range";
    template <class C>
    static constexpr FloatReaders<Type, C> readers{orv::stold_c, orv::stold_c, orv::strtold_c};
};
/// @}

using FloatNames = testing::Types<Stof, Stod, Stold>;

/// The bits of a number, which tell zeros apart. A long double has those of a double.
/// @{
inline std::uint64_t bitsOf(float value) {
    return std::bit_cast<std::uint32_t>(value);
}
inline std::uint64_t bitsOf(double value) {
    return std::bit_cast<std::uint64_t>(value);
}
inline std::uint64_t bitsOf(long double value) {
    return bitsOf(static_cast<double>(value));
}
/// @}

/// What a reader made of a text: the message is that of the shapes that throw.
template <class T>
struct FloatOutcome {
    T value = 0;
    std::size_t length = 0;
    std::string message;

    bool operator==(const FloatOutcome& other) const {
        return bitsOf(value) == bitsOf(other.value) && length == other.length &&
               message == other.message;
    }

    friend std::ostream& operator<<(std::ostream& out, const FloatOutcome& outcome) {
        return out << outcome.value << ", length " << outcome.length << ' ' << outcome.message;
    }
};

/// The shape of a view agrees with what `from_chars_c` found.
template <class Name, class CharT>
void expectFloatViewAgrees(const std::basic_string<CharT>& text,
                           const orv::from_chars_result<typename Name::Type>& read,
                           const std::string& message) {
    const auto& readers = Name::template readers<CharT>;
    std::size_t index = 777;
    if (read) {
        EXPECT_EQ(bitsOf(readers.ofView(text, &index)), bitsOf(read.value));
        EXPECT_EQ(index, read.length);
        EXPECT_EQ(bitsOf(readers.ofView(text, nullptr)), bitsOf(read.value));
    } else {
        EXPECT_EQ(messageOf(read.status, [&] { readers.ofView(text, &index); }), message);
        EXPECT_EQ(index, 777U) << "a failure leaves the index";
    }
}

/// The shape with a cursor, which stands behind other text.
template <class Name, class CharT>
void expectFloatCursorAgrees(const std::basic_string<CharT>& text,
                             const orv::from_chars_result<typename Name::Type>& read,
                             const std::string& message) {
    const auto& readers = Name::template readers<CharT>;
    const std::basic_string<CharT> whole = std::basic_string<CharT>(3, CharT(u'7')) + text;
    orv::BasicCharIterator<CharT> it{orv::basic_string_ref<CharT>(whole)};
    it.setPosition(3);
    if (read) {
        EXPECT_EQ(bitsOf(readers.ofCursor(it)), bitsOf(read.value));
    } else {
        EXPECT_EQ(messageOf(read.status, [&] { readers.ofCursor(it); }), message);
    }
    const std::size_t expected = 3 + (read ? read.length : 0);
    EXPECT_EQ(it.position(), expected);
    EXPECT_EQ(it.current(),
              expected < whole.size() ? whole[expected] : orv::BasicCharIterator<CharT>::END_MARK);
}

/// The shape of the C library.
template <class Name, class CharT>
void expectFloatCAgrees(const std::basic_string<CharT>& text,
                        const orv::from_chars_result<typename Name::Type>& read) {
    const auto& readers = Name::template readers<CharT>;
    CharT* end = nullptr;
    errno = 5;
    EXPECT_EQ(bitsOf(readers.inC(text.c_str(), &end)), bitsOf(read.value));
    EXPECT_EQ(errno, read.status == orv::number_status::out_of_range ? 34 : 5);
    EXPECT_EQ(static_cast<std::size_t>(end - text.c_str()), read.length);
    EXPECT_EQ(bitsOf(readers.inC(text.c_str(), nullptr)), bitsOf(read.value));
}

/// Reads \p text in every shape.
template <class Name, class CharT>
FloatOutcome<typename Name::Type> readFloatInShapes(const std::basic_string<CharT>& text) {
    const auto read = orv::from_chars_c<typename Name::Type>(orv::basic_string_ref<CharT>(text));
    std::string message;
    if (!read) {
        message =
            messageOf(read.status, [&] { Name::template readers<CharT>.ofView(text, nullptr); });
    }
    expectFloatViewAgrees<Name>(text, read, message);
    expectFloatCursorAgrees<Name>(text, read, message);
    expectFloatCAgrees<Name>(text, read);
    return {read.value, read.length, message};
}

/// Reads \p text, one unit for each byte, in every shape and in both types of characters.
template <class Name>
FloatOutcome<typename Name::Type> readFloatEverywhere(std::string_view text) {
    const auto outcome = readFloatInShapes<Name>(std::string(text));
    EXPECT_EQ(readFloatInShapes<Name>(textIn<orv::char16>(text)), outcome);
    return outcome;
}

} // namespace orvtest

#endif
