// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The exception classes: bases, messages, copies, and exceptions as text.
#include "orv/liborvxx/base/error.h"

#include "tests/support/thrown_message.h"

#include <gtest/gtest.h>

#include <climits>
#include <exception>
#include <ios>
#include <locale>
#include <sstream>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>

namespace {

using orv::AssertionError;
using orv::NotImplementedError;
using orv::OutOfRangeError;
using orv::ParseError;
using orvtest::thrownMessage;

// The direct base is the nearest of all bases: what converts to it, and nothing between.
template <typename Error, typename Base>
constexpr bool derives = std::is_base_of_v<Base, Error>&& std::is_convertible_v<Error*, Base*>;
template <typename Error>
constexpr bool isAValue = std::is_copy_constructible_v<Error>&& std::is_copy_assignable_v<Error>&&
                              std::has_virtual_destructor_v<Error> &&
                          !std::is_default_constructible_v<Error>;

static_assert(derives<orv::LogicError, std::logic_error>);
static_assert(derives<orv::RuntimeError, std::runtime_error>);
static_assert(derives<orv::IOError, orv::RuntimeError>);
static_assert(derives<orv::FileTypeError, orv::IOError>);
static_assert(derives<ParseError, orv::RuntimeError>);
static_assert(derives<OutOfRangeError, ParseError>);
static_assert(derives<AssertionError, orv::LogicError>);
static_assert(derives<NotImplementedError, orv::LogicError>);
static_assert(derives<orv::IllegalStateError, orv::LogicError>);
static_assert(derives<orv::UnsupportedOperationError, orv::LogicError>);

// A number that does not fit and an index out of range are two different things.
static_assert(!derives<OutOfRangeError, std::out_of_range> &&
              !derives<OutOfRangeError, std::logic_error>);
static_assert(!derives<ParseError, orv::IOError> && !derives<orv::IOError, std::ios_base::failure>);

static_assert(isAValue<orv::LogicError> && isAValue<orv::RuntimeError> && isAValue<orv::IOError> &&
              isAValue<orv::FileTypeError> && isAValue<ParseError> && isAValue<OutOfRangeError> &&
              isAValue<AssertionError> && isAValue<NotImplementedError> &&
              isAValue<orv::IllegalStateError> && isAValue<orv::UnsupportedOperationError>);

// No class holds a string of its own.
static_assert(sizeof(orv::LogicError) == sizeof(std::logic_error) &&
              sizeof(orv::FileTypeError) == sizeof(std::runtime_error) &&
              sizeof(AssertionError) == sizeof(std::logic_error) &&
              sizeof(OutOfRangeError) == sizeof(std::runtime_error) + sizeof(std::size_t));
// A message is no error by oversight.
static_assert(!std::is_convertible_v<const char*, orv::RuntimeError> &&
              !std::is_convertible_v<std::string, orv::LogicError>);

template <typename Error>
class MessageError : public testing::Test {};

using MessageErrors =
    testing::Types<orv::LogicError, orv::RuntimeError, orv::IOError, orv::FileTypeError,
                   orv::IllegalStateError, orv::UnsupportedOperationError>;
TYPED_TEST_SUITE(MessageError, MessageErrors);

TYPED_TEST(MessageError, TakesItsMessageAsEitherKindOfString) {
    EXPECT_STREQ(TypeParam("a message").what(), "a message");
    EXPECT_STREQ(TypeParam(std::string("a message")).what(), "a message");
    EXPECT_STREQ(TypeParam("").what(), "");
}

TYPED_TEST(MessageError, ACopySaysTheSame) {
    TypeParam copy("other");
    {
        const TypeParam original(std::string(1000, 'x'));
        EXPECT_EQ(TypeParam(original).what(), std::string(1000, 'x'));
        copy = original;
    }
    EXPECT_EQ(copy.what(), std::string(1000, 'x'));
}

TYPED_TEST(MessageError, IsCaughtAsAStandardException) {
    EXPECT_NO_THROW(
        try { throw TypeParam("text"); } catch (const std::exception& e) {
            EXPECT_STREQ(e.what(), "text");
        });
}

template <typename Error>
class OffsetError : public testing::Test {};

using OffsetErrors = testing::Types<ParseError, OutOfRangeError>;
TYPED_TEST_SUITE(OffsetError, OffsetErrors);

TYPED_TEST(OffsetError, KeepsMessageAndOffset) {
    EXPECT_STREQ(TypeParam("no digits", 7).what(), "no digits");
    EXPECT_STREQ(TypeParam(std::string("no digits"), 7).what(), "no digits");
    EXPECT_EQ(TypeParam("x", 7).getErrorOffset(), 7U);
    EXPECT_EQ(TypeParam(std::string("x"), 0).getErrorOffset(), 0U);
    EXPECT_EQ(TypeParam("x", SIZE_MAX).getErrorOffset(), SIZE_MAX);
}

TYPED_TEST(OffsetError, ACopyKeepsTheOffset) {
    const TypeParam original("x", 42);
    const TypeParam copy = original;
    EXPECT_EQ(copy.getErrorOffset(), 42U);
    TypeParam assigned("y", 1);
    assigned = original;
    EXPECT_EQ(assigned.getErrorOffset(), 42U);
    EXPECT_STREQ(assigned.what(), "x");
}

TEST(OutOfRangeErrorTest, IsCaughtAsAParseErrorWithItsOffset) {
    try {
        throw OutOfRangeError("too big", 5);
    } catch (const std::out_of_range&) {
        FAIL() << "not an index";
    } catch (const ParseError& e) {
        EXPECT_EQ(e.getErrorOffset(), 5U);
        EXPECT_STREQ(e.what(), "too big");
    }
}

TEST(AssertionErrorTest, MessageNamesThePlaceAndTheExpression) {
    struct Row {
        const char* expression;
        const char* file;
        int line;
        const char* function;
        const char* message;
    };
    for (const Row& row : {Row{"x", "a", 7, "f", "a[7] (f): assertion 'x' failed"},
                           Row{"x", "", 7, "f", "f[7]: assertion 'x' failed"},
                           Row{"x", nullptr, 7, "f", "f[7]: assertion 'x' failed"},
                           Row{"", "a", 7, "f", "a[7] (f): assertion failed"},
                           Row{nullptr, "a", 7, "f", "a[7] (f): assertion failed"},
                           Row{"", "", 7, "f", "f[7]: assertion failed"},
                           Row{nullptr, nullptr, 0, "f", "f[0]: assertion failed"},
                           Row{"n > 0", "dir/file.cpp", 1234567, "void f(int)",
                               "dir/file.cpp[1234567] (void f(int)): assertion 'n > 0' failed"},
                           Row{"x", "a", -1, "f", "a[-1] (f): assertion 'x' failed"},
                           Row{"x", "a", INT_MAX, "f", "a[2147483647] (f): assertion 'x' failed"},
                           Row{"x", "a", INT_MIN, "", "a[-2147483648] (): assertion 'x' failed"}}) {
        EXPECT_STREQ(AssertionError(row.expression, row.file, row.line, row.function).what(),
                     row.message);
        EXPECT_EQ(thrownMessage<AssertionError>([&] {
                      AssertionError::raise(row.expression, row.file, row.line, row.function);
                  }),
                  row.message);
    }
}

// Writes numbers in groups, as the locales of many countries do.
class Grouping : public std::numpunct<char> {
protected:
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

TEST(AssertionErrorTest, TheLineIsPlainWhateverTheGlobalLocale) {
    const std::locale before = std::locale::global(std::locale(std::locale(), new Grouping));
    std::ostringstream grouped;
    grouped << 1234567;
    const std::string message = AssertionError("x", "a", 1234567, "f").what();
    std::locale::global(before);
    EXPECT_EQ(grouped.str(), "1.234.567") << "the locale was in force";
    EXPECT_EQ(message, "a[1234567] (f): assertion 'x' failed");
}

TEST(AssertionErrorTest, ACopySaysTheSame) {
    const AssertionError original("x", "a", 7, "f");
    AssertionError copy("y", "b", 8, "g");
    copy = original;
    EXPECT_STREQ(copy.what(), original.what());
    EXPECT_STREQ(AssertionError(copy).what(), original.what());
}

TEST(NotImplementedErrorTest, MessageNamesTheMethod) {
    EXPECT_STREQ(NotImplementedError("Foo::bar").what(), "method not implemented: Foo::bar");
    EXPECT_STREQ(NotImplementedError("").what(), "method not implemented: ");
    EXPECT_EQ(thrownMessage<NotImplementedError>([] { NotImplementedError::raise("Foo::bar"); }),
              "method not implemented: Foo::bar");
}

// Exceptions as text.

class NoMessage : public std::exception {
public:
    const char* what() const noexcept override { return nullptr; }
};

struct NoException {};

template <typename>
struct Box {};

TEST(TypeInfoName, IsUndecorated) {
    EXPECT_EQ(orv::type_info_name(typeid(ParseError)), "orv::ParseError");
    EXPECT_EQ(orv::type_info_name(typeid(int)), "int");
    EXPECT_EQ(orv::type_info_name(typeid(unsigned long)), "unsigned long");
    EXPECT_EQ(orv::type_info_name(typeid(Box<int>)), "(anonymous namespace)::Box<int>");
    EXPECT_EQ(orv::type_info_name(typeid(NoException)), "(anonymous namespace)::NoException");
}

TEST(ExceptionText, BeginsWithTheNameOfTheDynamicType) {
    const ParseError error("no digits", 3);
    const std::exception& base = error;
    EXPECT_EQ(orv::to_string(base), "orv::ParseError: no digits");
    EXPECT_EQ(orv::to_string(orv::LogicError("m")), "orv::LogicError: m");
    EXPECT_EQ(orv::to_string(orv::RuntimeError("m")), "orv::RuntimeError: m");
    EXPECT_EQ(orv::to_string(orv::IOError("m")), "orv::IOError: m");
    EXPECT_EQ(orv::to_string(orv::FileTypeError("m")), "orv::FileTypeError: m");
    EXPECT_EQ(orv::to_string(OutOfRangeError("m", 0)), "orv::OutOfRangeError: m");
    EXPECT_EQ(orv::to_string(AssertionError("x", "a", 7, "f")),
              "orv::AssertionError: a[7] (f): assertion 'x' failed");
    EXPECT_EQ(orv::to_string(NotImplementedError("m")),
              "orv::NotImplementedError: method not implemented: m");
    EXPECT_EQ(orv::to_string(orv::IllegalStateError("m")), "orv::IllegalStateError: m");
    EXPECT_EQ(orv::to_string(orv::UnsupportedOperationError("m")),
              "orv::UnsupportedOperationError: m");
    EXPECT_EQ(orv::to_string(std::out_of_range("m")), "std::out_of_range: m");
    EXPECT_EQ(orv::to_string(orv::LogicError("")), "orv::LogicError: ");
}

TEST(ExceptionText, IsTheTypeAloneWhereThereIsNoMessage) {
    EXPECT_EQ(orv::to_string(NoMessage()), "(anonymous namespace)::NoMessage");
    EXPECT_EQ(orv::to_string(std::make_exception_ptr(NoMessage())),
              "(anonymous namespace)::NoMessage");
}

TEST(ExceptionText, OfAPointerIsThatOfWhatItHolds) {
    EXPECT_EQ(orv::to_string(std::exception_ptr()), "");
    EXPECT_EQ(orv::to_string(std::exception_ptr(nullptr)), "");
    EXPECT_EQ(orv::to_string(std::make_exception_ptr(ParseError("no digits", 3))),
              "orv::ParseError: no digits");
    EXPECT_EQ(orv::to_string(std::make_exception_ptr(1)), "non-standard exception type");
    EXPECT_EQ(orv::to_string(std::make_exception_ptr(NoException())),
              "non-standard exception type");
    EXPECT_EQ(orv::to_string(std::make_exception_ptr(std::string("x"))),
              "non-standard exception type");
    EXPECT_EQ(orv::to_string(std::make_exception_ptr("x")), "non-standard exception type");
}

TEST(ExceptionText, LeavesTheCurrentExceptionAlone) {
    try {
        throw ParseError("outer", 1);
    } catch (const ParseError&) {
        EXPECT_EQ(orv::to_string(std::make_exception_ptr(orv::IOError("inner"))),
                  "orv::IOError: inner");
        EXPECT_EQ(orv::to_string(std::current_exception()), "orv::ParseError: outer");
    }
}

} // namespace
