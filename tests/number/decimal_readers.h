// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The readers of decimal numbers under test: each name in all its shapes, which must agree.
#ifndef ORV_TESTS_NUMBER_DECIMAL_READERS_H
#define ORV_TESTS_NUMBER_DECIMAL_READERS_H

#include "orv/liborvxx/number/from_chars.h"
#include "orv/liborvxx/number/string_to_decimal.h"
#include "orv/liborvxx/text/char_iterator.h"
#include "tests/number/status_message.h"
#include "tests/support/shown_decimal.h"
#include "tests/support/text_in.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstddef>
#include <ostream>
#include <string>
#include <string_view>

namespace orvtest {

/// The shapes of one name.
template <class T, class CharT>
struct DecimalReaders {
    T (*ofView)(orv::basic_string_ref<CharT>, std::size_t*);
    T (*ofCursor)(orv::BasicCharIterator<CharT>&);
    T (*inC)(const CharT*, CharT**) noexcept;
};

/// \name One type for each name
/// @{
struct Stod32 {
    using Type = orv::decimal::decimal32;
    static constexpr int DIGITS = 7;
    static constexpr int LEAST = -101;
    static constexpr int GREATEST = 90;
    template <class C>
    static constexpr DecimalReaders<Type, C> readers{orv::stod32_c, orv::stod32_c, orv::strtod32_c};
};
struct Stod64 {
    using Type = orv::decimal::decimal64;
    static constexpr int DIGITS = 16;
    static constexpr int LEAST = -398;
    static constexpr int GREATEST = 369;
    template <class C>
    static constexpr DecimalReaders<Type, C> readers{orv::stod64_c, orv::stod64_c, orv::strtod64_c};
};
struct Stod128 {
    using Type = orv::decimal::decimal128;
    static constexpr int DIGITS = 34;
    static constexpr int LEAST = -6176;
    static constexpr int GREATEST = 6111;
    template <class C>
    static constexpr DecimalReaders<Type, C> readers{orv::stod128_c, orv::stod128_c,
                                                     orv::strtod128_c};
};
/// @}

using DecimalNames = testing::Types<Stod32, Stod64, Stod128>;

struct NameOfDecimalReader {
    template <class Name>
    static std::string GetName(int /*index*/) {
        return "Stod" + std::to_string(8 * sizeof(typename Name::Type));
    }
};

/// What a reader made of a text: the message is that of the shapes that throw.
struct DecimalOutcome {
    std::string value;
    std::size_t length = 0;
    std::string message;

    bool operator==(const DecimalOutcome&) const = default;

    friend std::ostream& operator<<(std::ostream& out, const DecimalOutcome& outcome) {
        return out << outcome.value << ", length " << outcome.length << ' ' << outcome.message;
    }
};

/// The shape of a view agrees with what `from_chars_c` found.
template <class Name, class CharT>
void expectDecimalViewAgrees(const std::basic_string<CharT>& text,
                             const orv::from_chars_result<typename Name::Type>& read,
                             const std::string& message) {
    const auto& readers = Name::template readers<CharT>;
    std::size_t index = 777;
    if (read) {
        EXPECT_EQ(shown(readers.ofView(text, &index)), shown(read.value));
        EXPECT_EQ(index, read.length);
        EXPECT_EQ(shown(readers.ofView(text, nullptr)), shown(read.value));
    } else {
        EXPECT_EQ(messageOf(read.status, [&] { readers.ofView(text, &index); }), message);
        EXPECT_EQ(index, 777U) << "a failure leaves the index";
    }
}

/// The shape with a cursor, which stands behind other text.
template <class Name, class CharT>
void expectDecimalCursorAgrees(const std::basic_string<CharT>& text,
                               const orv::from_chars_result<typename Name::Type>& read,
                               const std::string& message) {
    const auto& readers = Name::template readers<CharT>;
    const std::basic_string<CharT> whole = std::basic_string<CharT>(3, CharT(u'7')) + text;
    orv::BasicCharIterator<CharT> it{orv::basic_string_ref<CharT>(whole)};
    it.setPosition(3);
    if (read) {
        EXPECT_EQ(shown(readers.ofCursor(it)), shown(read.value));
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
void expectDecimalCAgrees(const std::basic_string<CharT>& text,
                          const orv::from_chars_result<typename Name::Type>& read) {
    const auto& readers = Name::template readers<CharT>;
    CharT* end = nullptr;
    errno = 5;
    EXPECT_EQ(shown(readers.inC(text.c_str(), &end)), shown(read.value));
    EXPECT_EQ(errno, 5);
    EXPECT_EQ(static_cast<std::size_t>(end - text.c_str()), read.length);
    EXPECT_EQ(shown(readers.inC(text.c_str(), nullptr)), shown(read.value));
}

/// Reads \p text in every shape.
template <class Name, class CharT>
DecimalOutcome readDecimalInShapes(const std::basic_string<CharT>& text) {
    const auto read = orv::from_chars_c<typename Name::Type>(orv::basic_string_ref<CharT>(text));
    std::string message;
    if (!read) {
        message =
            messageOf(read.status, [&] { Name::template readers<CharT>.ofView(text, nullptr); });
    }
    expectDecimalViewAgrees<Name>(text, read, message);
    expectDecimalCursorAgrees<Name>(text, read, message);
    expectDecimalCAgrees<Name>(text, read);
    return {shown(read.value), read.length, message};
}

/// Reads \p text, one unit for each byte, in every shape and in both types of characters.
template <class Name>
DecimalOutcome readDecimalEverywhere(std::string_view text) {
    const auto outcome = readDecimalInShapes<Name>(std::string(text));
    EXPECT_EQ(readDecimalInShapes<Name>(textIn<orv::char16>(text)), outcome);
    return outcome;
}

} // namespace orvtest

#endif
