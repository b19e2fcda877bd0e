// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The readers of numbers under test: each name in all its shapes, which must agree.
#ifndef ORV_TESTS_NUMBER_NUMBER_READERS_H
#define ORV_TESTS_NUMBER_NUMBER_READERS_H

#include "orv/liborvxx/number/from_chars.h"
#include "orv/liborvxx/text/char_iterator.h"
#include "tests/number/status_message.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstddef>
#include <string>

namespace orvtest {

/// The shapes of one name.
template <class T, class CharT>
struct NumberReaders {
    T (*ofView)(orv::basic_string_ref<CharT>, std::size_t*);
    T (*ofCursor)(orv::BasicCharIterator<CharT>&);
    T (*inC)(const CharT*, CharT**) noexcept;
};

// A name is a type with the `Type` of its numbers, its `readers`, and `keyOf`: what tells two
// numbers apart.

/// The shape of a view agrees with what `from_chars_c` found.
template <class Name, class CharT>
void expectViewAgrees(const std::basic_string<CharT>& text,
                      const orv::from_chars_result<typename Name::Type>& read,
                      const std::string& message) {
    const auto& readers = Name::template readers<CharT>;
    std::size_t index = 777;
    if (read) {
        EXPECT_EQ(Name::keyOf(readers.ofView(text, &index)), Name::keyOf(read.value));
        EXPECT_EQ(index, read.length);
        EXPECT_EQ(Name::keyOf(readers.ofView(text, nullptr)), Name::keyOf(read.value));
    } else {
        EXPECT_EQ(messageOf(read.status, [&] { readers.ofView(text, &index); }), message);
        EXPECT_EQ(index, 777U) << "a failure leaves the index";
    }
}

/// The shape with a cursor, which stands behind other text.
template <class Name, class CharT>
void expectCursorAgrees(const std::basic_string<CharT>& text,
                        const orv::from_chars_result<typename Name::Type>& read,
                        const std::string& message) {
    const auto& readers = Name::template readers<CharT>;
    const std::basic_string<CharT> whole = std::basic_string<CharT>(3, CharT(u'7')) + text;
    orv::BasicCharIterator<CharT> it{orv::basic_string_ref<CharT>(whole)};
    it.setPosition(3);
    if (read) {
        EXPECT_EQ(Name::keyOf(readers.ofCursor(it)), Name::keyOf(read.value));
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
void expectCAgrees(const std::basic_string<CharT>& text,
                   const orv::from_chars_result<typename Name::Type>& read) {
    const auto& readers = Name::template readers<CharT>;
    CharT* end = nullptr;
    errno = 5;
    EXPECT_EQ(Name::keyOf(readers.inC(text.c_str(), &end)), Name::keyOf(read.value));
    EXPECT_EQ(errno, read.status == orv::number_status::out_of_range ? 34 : 5);
    EXPECT_EQ(static_cast<std::size_t>(end - text.c_str()), read.length);
    EXPECT_EQ(Name::keyOf(readers.inC(text.c_str(), nullptr)), Name::keyOf(read.value));
}

/// What all shapes of a name found in a text; the message is that of the shapes that throw.
template <class Name>
struct NumberRead {
    orv::from_chars_result<typename Name::Type> found;
    std::string message;
};

/// Reads \p text in every shape.
template <class Name, class CharT>
NumberRead<Name> readInShapes(const std::basic_string<CharT>& text) {
    const auto read = orv::from_chars_c<typename Name::Type>(orv::basic_string_ref<CharT>(text));
    std::string message;
    if (!read) {
        message =
            messageOf(read.status, [&] { Name::template readers<CharT>.ofView(text, nullptr); });
    }
    expectViewAgrees<Name>(text, read, message);
    expectCursorAgrees<Name>(text, read, message);
    expectCAgrees<Name>(text, read);
    return {read, message};
}

} // namespace orvtest

#endif
