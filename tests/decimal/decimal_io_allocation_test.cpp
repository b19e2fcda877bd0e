// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Reading and writing decimal numbers takes memory for long texts only, and says so if
/// there is none.
#include "orv/liborvxx/decimal/decimal_io.h"
#include "orv/liborvxx/locale/uistream.h"
#include "orv/liborvxx/locale/uostream.h"
#include "tests/decimal/decimal_locales.h"
#include "tests/support/counting_allocator.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <ios>
#include <istream>
#include <locale>
#include <new>
#include <ostream>
#include <streambuf>
#include <string>

namespace {

using orv::decimal::decimal64;
using orvtest::number;

// The calls of `operator new` that an action makes.
template <class Action>
std::size_t allocationsOf(Action action) {
    const std::size_t before = orvtest::allocations();
    action();
    return orvtest::allocations() - before;
}

// Reads and writes an array.
template <class CharT>
class ArrayBuffer : public std::basic_streambuf<CharT> {
public:
    ArrayBuffer(CharT* text, std::size_t size) {
        this->setg(text, text, text + size);
        this->setp(text, text + size);
    }

    std::size_t written() const { return static_cast<std::size_t>(this->pptr() - this->pbase()); }
};

TEST(DecimalIoAllocation, IsNotNeededToReadText) {
    const std::string text = "12345678901234567890123456789.0123456789";
    const std::locale german("de_DE.UTF-8");
    EXPECT_EQ(allocationsOf([&] {
                  orv::decimal::strtod64(text);
                  orv::decimal::strtod128(text.c_str());
                  orv::decimal::strtod64(german, text);
                  orv::decimal::strtod128(german, text);
              }),
              0);
}

TEST(DecimalIoAllocation, IsNotNeededToReadFromStreams) {
    char text[] = "1.5 1.234,5 ";
    ArrayBuffer buffer(text, sizeof text - 1);
    std::istream is(&buffer);
    const std::locale german("de_DE.UTF-8");
    decimal64 first;
    decimal64 second;
    EXPECT_EQ(allocationsOf([&] {
                  is >> first;
                  is.imbue(german);
                  is >> second;
              }),
              0);
    EXPECT_EQ(orvtest::bitsOf(first), orvtest::bitsOf(number<decimal64>(15, -1)));
    EXPECT_EQ(orvtest::bitsOf(second), orvtest::bitsOf(number<decimal64>(12345, -1)));
}

TEST(DecimalIoAllocation, IsNotNeededInStreamsOverUnits) {
    orv::char16 text[] = {u'1', u'.', u'5', u' ', u' '};
    ArrayBuffer buffer(text, sizeof text / sizeof text[0]);
    orv::uistream is(&buffer);
    orv::uostream os(&buffer);
    decimal64 value;
    EXPECT_EQ(allocationsOf([&] {
                  is >> value;
                  os << value + 1;
              }),
              0);
    EXPECT_EQ(orvtest::bitsOf(value), orvtest::bitsOf(number<decimal64>(15, -1)));
    EXPECT_EQ(buffer.written(), 3);
    EXPECT_TRUE(text[0] == u'2' && text[1] == u'.' && text[2] == u'5');
}

TEST(DecimalIoAllocation, IsNotNeededForShortStrings) {
    const decimal64 x = number<decimal64>(123456, -2);
    EXPECT_EQ(allocationsOf([&] { to_string(x, 2); }), 0);
    EXPECT_EQ(allocationsOf([&] { to_string(std::locale::classic(), x, 2); }), 0);
    // Once only where a string has to.
    EXPECT_EQ(allocationsOf([&] { to_string(x, 50); }), 1);
    EXPECT_EQ(allocationsOf([&] { to_string(x, 500); }), 1);
}

TEST(DecimalIoAllocation, IsNeededInStreamsFromTheSixtyFourthCharacterOn) {
    char text[200];
    for (const std::streamsize places : {10, 61, 62, 63}) {
        ArrayBuffer buffer(text, sizeof text);
        std::ostream os(&buffer);
        os.setf(std::ios::fixed);
        os.precision(places);
        const decimal64 five = number<decimal64>(5, 0);
        EXPECT_EQ(allocationsOf([&] { os << five; }), places < 62 ? 0 : 1) << places;
        EXPECT_EQ(buffer.written(), static_cast<std::size_t>(places) + 2);
    }
}

TEST(DecimalIoAllocation, ThatFailsThrowsAndLeavesTheStreamAsItWas) {
    char text[200];
    ArrayBuffer buffer(text, sizeof text);
    std::ostream os(&buffer);
    os.setf(std::ios::fixed);
    os.precision(100);
    os.width(150);
    const decimal64 five = number<decimal64>(5, 0);
    orvtest::failAllocation(1);
    EXPECT_THROW(os << five, std::bad_alloc);
    EXPECT_TRUE(os.good());
    EXPECT_EQ(os.width(), 150);
    EXPECT_EQ(buffer.written(), 0);

    orvtest::failAllocation(1);
    EXPECT_THROW(to_string(five, 100), std::bad_alloc);
    orvtest::failAllocation(1);
    EXPECT_THROW(to_string(five, 30), std::bad_alloc);
    orvtest::failAllocation(0);
}

} // namespace
