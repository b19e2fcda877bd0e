// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The walk along nested exceptions.
#include "orv/liborvxx/base/error.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <exception>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace {

using orv::get_nested_exceptions;
using testing::ElementsAre;
using testing::IsEmpty;

// A chain made as programs make it: each level catches the one below and throws its own around it.
// Level 1 is the deepest.
void throwChain(int levels) {
    if (levels == 1) {
        throw orv::ParseError("level 1", 1);
    }
    try {
        throwChain(levels - 1);
    } catch (...) {
        std::throw_with_nested(orv::RuntimeError("level " + std::to_string(levels)));
    }
}

template <typename Call>
std::exception_ptr caught(Call call) {
    try {
        call();
    } catch (...) {
        return std::current_exception();
    }
    return nullptr;
}

std::vector<std::string> messages(const std::vector<std::exception_ptr>& chain) {
    std::vector<std::string> texts;
    for (const std::exception_ptr& p : chain) {
        try {
            std::rethrow_exception(p);
        } catch (const std::exception& e) {
            texts.emplace_back(e.what());
        } catch (int number) {
            texts.push_back("int " + std::to_string(number));
        } catch (...) {
            texts.emplace_back("something else");
        }
    }
    return texts;
}

struct PlainNested : std::nested_exception {};
struct EmptyNested : std::runtime_error, std::nested_exception {
    EmptyNested() : std::runtime_error("nothing nested") {}
};

TEST(NestedExceptions, AnErrorWithoutAnyGivesAnEmptyList) {
    EXPECT_THAT(get_nested_exceptions(orv::ParseError("x", 0)), IsEmpty());
    EXPECT_THAT(get_nested_exceptions(std::make_exception_ptr(orv::ParseError("x", 0))), IsEmpty());
}

TEST(NestedExceptions, ANullPointerGivesAnEmptyList) {
    EXPECT_THAT(get_nested_exceptions(std::exception_ptr()), IsEmpty());
}

TEST(NestedExceptions, AnObjectThatIsNeitherGivesAnEmptyList) {
    EXPECT_THAT(get_nested_exceptions(std::make_exception_ptr(1)), IsEmpty());
    EXPECT_THAT(get_nested_exceptions(std::make_exception_ptr("text")), IsEmpty());
}

TEST(NestedExceptions, ANullNestedPointerGivesAnEmptyList) {
    // Made while no exception is handled, so it holds none.
    const EmptyNested error;
    ASSERT_EQ(error.nested_ptr(), nullptr);
    EXPECT_THAT(get_nested_exceptions(error), IsEmpty());
    EXPECT_THAT(get_nested_exceptions(std::make_exception_ptr(error)), IsEmpty());
}

TEST(NestedExceptions, RunFromTheNearestToTheDeepestWithoutTheErrorItself) {
    try {
        throwChain(3);
    } catch (const std::exception& e) {
        EXPECT_STREQ(e.what(), "level 3");
        EXPECT_THAT(messages(get_nested_exceptions(e)), ElementsAre("level 2", "level 1"));
    }
}

TEST(NestedExceptions, OfAPointerAreThoseOfWhatItHolds) {
    EXPECT_THAT(messages(get_nested_exceptions(caught([] { throwChain(4); }))),
                ElementsAre("level 3", "level 2", "level 1"));
    EXPECT_THAT(messages(get_nested_exceptions(caught([] { throwChain(1); }))), IsEmpty());
}

TEST(NestedExceptions, KeepTheirTypesAndFields) {
    const auto chain = get_nested_exceptions(caught([] { throwChain(2); }));
    ASSERT_EQ(chain.size(), 1U);
    try {
        std::rethrow_exception(chain.front());
    } catch (const orv::ParseError& e) {
        EXPECT_EQ(e.getErrorOffset(), 1U);
    }
}

TEST(NestedExceptions, EndAtAnObjectThatNestsNothingButHoldIt) {
    const auto p = caught([] {
        try {
            throw 42;
        } catch (int) {
            std::throw_with_nested(orv::IOError("outer"));
        }
    });
    EXPECT_THAT(messages(get_nested_exceptions(p)), ElementsAre("int 42"));
}

TEST(NestedExceptions, AreFoundUnderAnObjectThatIsNoStandardException) {
    const auto p = caught([] {
        try {
            throwChain(2);
        } catch (...) {
            throw PlainNested(); // derives from std::nested_exception alone
        }
    });
    EXPECT_THAT(messages(get_nested_exceptions(p)), ElementsAre("level 2", "level 1"));
    const auto around = caught([&] {
        try {
            std::rethrow_exception(p);
        } catch (...) {
            std::throw_with_nested(orv::IOError("outer"));
        }
    });
    EXPECT_THAT(messages(get_nested_exceptions(around)),
                ElementsAre("something else", "level 2", "level 1"));
}

TEST(NestedExceptions, OfALongChainAreAllFound) {
    constexpr int LEVELS = 3000;
    const auto chain = get_nested_exceptions(caught([] { throwChain(LEVELS); }));
    ASSERT_EQ(chain.size(), LEVELS - 1U);
    EXPECT_EQ(messages({chain.front()}).front(), "level 2999");
    EXPECT_EQ(messages({chain.back()}).front(), "level 1");
}

TEST(NestedExceptions, AreReadFromSeveralThreads) {
    const auto p = caught([] { throwChain(50); });
    std::vector<std::size_t> sizes(4);
    std::vector<std::thread> threads;
    for (std::size_t& size : sizes) {
        threads.emplace_back([&size, &p] {
            for (int i = 0; i < 20; ++i) {
                size = get_nested_exceptions(p).size();
                EXPECT_EQ(orv::to_string(p).substr(0, 4), "std:") << "the type that wraps both";
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_THAT(sizes, ElementsAre(49, 49, 49, 49));
}

} // namespace
