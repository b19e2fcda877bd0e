// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `gref` and `gref_base`: counts, life and death of the object, also over threads.
#include "orv/liborvxx/base/gref.h"

#include "tests/support/case_count.h"
#include "tests/support/in_all_threads.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstddef>
#include <stdexcept>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using orv::gref;
using orv::gref_base;
using orv::make_gref;
using orvtest::inAllThreads;
using orvtest::THREADS;

// Counts those that live, and all that ever died.
class Shared : public gref_base<Shared> {
public:
    explicit Shared(int number) : value(number) {
        if (number < 0) {
            throw std::invalid_argument("negative");
        }
        ++live;
    }

    gref<Shared> self() const { return gref_from_this(); }

    static inline std::atomic<int> live = 0;
    static inline std::atomic<int> ended = 0;
    int value;

private:
    friend class gref_base<Shared>;
    ~Shared() override {
        --live;
        ++ended;
    }
};

// Has its own way to end, and a count to start with.
class Pooled : public gref_base<Pooled> {
public:
    explicit Pooled(unsigned int count) : gref_base(count) {}
    ~Pooled() override = default;
    static inline int destroyed = 0;

protected:
    void destroy() override { ++destroyed; }
};

static_assert(sizeof(gref<Shared>) == sizeof(void*));
static_assert(std::is_nothrow_copy_constructible_v<gref<Shared>> &&
              std::is_nothrow_move_constructible_v<gref<Shared>> &&
              std::is_nothrow_copy_assignable_v<gref<Shared>> &&
              std::is_nothrow_move_assignable_v<gref<Shared>> &&
              std::is_nothrow_swappable_v<gref<Shared>>);
// A pointer is no reference by oversight, and one type's reference never another's.
static_assert(!std::is_convertible_v<Shared*, gref<Shared>> &&
              std::is_constructible_v<gref<Shared>, Shared*> &&
              !std::is_constructible_v<gref<Shared>, Pooled*> &&
              !std::is_constructible_v<gref<Shared>, const Shared*> &&
              !std::is_constructible_v<gref<Shared>, gref<Pooled>> &&
              !std::is_assignable_v<gref<Shared>&, gref<Pooled>> &&
              !std::is_assignable_v<gref<Shared>&, Shared*>);
static_assert(std::is_convertible_v<std::nullptr_t, gref<Shared>> &&
              !std::is_constructible_v<gref<Shared>, int> &&
              !std::is_convertible_v<gref<Shared>, bool> &&
              !std::is_convertible_v<gref<Shared>, Shared*>);
// The object is shared, not copied; nobody else ends it, or counts.
static_assert(!std::is_copy_constructible_v<Shared> && !std::is_copy_assignable_v<Shared> &&
              !std::is_destructible_v<Shared>);
template <typename T>
concept CountIsOpen = requires(T& object) {
    object.addRef();
}
|| requires(T& object) {
    object.release();
}
|| requires(T& object) {
    object.getRefCount();
};
static_assert(!CountIsOpen<Shared>);
static_assert(std::has_virtual_destructor_v<gref_base<Pooled>>);

class GrefTest : public testing::Test {
protected:
    GrefTest() { Shared::ended = 0; }
    ~GrefTest() override { EXPECT_EQ(Shared::live, 0); }
};

TEST_F(GrefTest, ANullOneRefersToNothing) {
    const gref<Shared> null;
    const gref<Shared> fromNull = nullptr;
    const gref<Shared> fromPointer(static_cast<Shared*>(nullptr));
    for (const gref<Shared>* ref : {&null, &fromNull, &fromPointer}) {
        EXPECT_FALSE(static_cast<bool>(*ref));
        EXPECT_TRUE(*ref == nullptr);
        EXPECT_TRUE(nullptr == *ref);
        EXPECT_EQ(ref->get(), nullptr);
        EXPECT_EQ(ref->useCount(), 0U);
    }
    const gref<Shared> copy = null;
    EXPECT_EQ(copy.get(), nullptr);
}

TEST_F(GrefTest, TheObjectDiesWithTheLastOne) {
    {
        gref<Shared> first = make_gref<Shared>(7);
        EXPECT_EQ(Shared::live, 1);
        EXPECT_EQ(first.useCount(), 1U);
        EXPECT_EQ(first->value, 7);
        EXPECT_EQ((*first).value, 7);
        EXPECT_EQ(first.get(), &*first);
        EXPECT_TRUE(first != nullptr);
        EXPECT_TRUE(static_cast<bool>(first));
        gref<Shared> second = first;
        EXPECT_EQ(first.useCount(), 2U);
        EXPECT_EQ(second.get(), first.get());
        first.reset();
        EXPECT_EQ(first.get(), nullptr);
        EXPECT_EQ(second.useCount(), 1U);
        EXPECT_EQ(Shared::live, 1);
    }
    EXPECT_EQ(Shared::live, 0);
    EXPECT_EQ(Shared::ended, 1);
}

TEST_F(GrefTest, ACopyThatGoesLeavesTheCountWhereItWas) {
    const gref<Shared> ref = make_gref<Shared>(1);
    for (int i = 0; i < 3; ++i) {
        const gref<Shared> copy = ref;
        EXPECT_EQ(ref.useCount(), 2U);
    }
    EXPECT_EQ(ref.useCount(), 1U);
}

TEST_F(GrefTest, AMoveLeavesNullAndTheCount) {
    gref<Shared> a = make_gref<Shared>(1);
    Shared* const object = a.get();
    gref<Shared> b = std::move(a);
    EXPECT_EQ(a.get(), nullptr); // NOLINT(bugprone-use-after-move): null by contract
    EXPECT_EQ(b.get(), object);
    EXPECT_EQ(b.useCount(), 1U);
    gref<Shared> c = make_gref<Shared>(2);
    c = std::move(b);
    EXPECT_EQ(Shared::ended, 1) << "what c referred to";
    EXPECT_EQ(b.get(), nullptr); // NOLINT(bugprone-use-after-move)
    EXPECT_EQ(c.get(), object);
    EXPECT_EQ(c.useCount(), 1U);
}

TEST_F(GrefTest, AssignmentDropsWhatWasThere) {
    gref<Shared> a = make_gref<Shared>(1);
    const gref<Shared> b = make_gref<Shared>(2);
    a = b;
    EXPECT_EQ(Shared::live, 1);
    EXPECT_EQ(b.useCount(), 2U);
    a = nullptr;
    EXPECT_EQ(b.useCount(), 1U);
    EXPECT_EQ(a.get(), nullptr);
}

TEST_F(GrefTest, AssignmentToItselfKeepsTheObject) {
    gref<Shared> ref = make_gref<Shared>(1);
    gref<Shared>& same = ref;
    ref = same;
    EXPECT_EQ(ref.useCount(), 1U);
    ref = std::move(same);
    ASSERT_NE(ref.get(), nullptr);
    EXPECT_EQ(ref.useCount(), 1U);
    swap(ref, same);
    EXPECT_EQ(ref->value, 1);
}

TEST_F(GrefTest, SwapExchangesAndCountsNothing) {
    gref<Shared> a = make_gref<Shared>(1);
    gref<Shared> b;
    swap(a, b);
    EXPECT_EQ(a.get(), nullptr);
    EXPECT_EQ(b->value, 1);
    EXPECT_EQ(b.useCount(), 1U);
}

TEST_F(GrefTest, AnObjectHandsOutReferencesToItself) {
    gref<Shared> ref = make_gref<Shared>(1);
    const Shared& object = *ref;
    gref<Shared> self = object.self();
    EXPECT_EQ(self.get(), ref.get());
    EXPECT_EQ(ref.useCount(), 2U);
    ref.reset();
    EXPECT_EQ(Shared::live, 1);
    EXPECT_EQ(self->value, 1);
}

TEST_F(GrefTest, APointerMayBeTakenUpAgain) {
    const gref<Shared> ref = make_gref<Shared>(1);
    const gref<Shared> again(ref.get());
    EXPECT_EQ(ref.useCount(), 2U);
}

TEST_F(GrefTest, AConstructorThatThrowsLeavesNothing) {
    EXPECT_THROW(static_cast<void>(make_gref<Shared>(-1)), std::invalid_argument);
    EXPECT_EQ(Shared::live, 0);
}

TEST_F(GrefTest, AClassMayHaveItsOwnEndAndItsOwnFirstCount) {
    Pooled object(1);
    Pooled::destroyed = 0;
    {
        const gref<Pooled> ref(&object);
        EXPECT_EQ(ref.useCount(), 2U);
    }
    EXPECT_EQ(Pooled::destroyed, 0) << "one count is left";
    Pooled other(0);
    {
        const gref<Pooled> ref(&other);
        EXPECT_EQ(ref.useCount(), 1U);
    }
    EXPECT_EQ(Pooled::destroyed, 1);
}

TEST_F(GrefTest, CopiesOnManyThreadsLeaveTheCountWhereItWas) {
    const gref<Shared> ref = make_gref<Shared>(42);
    const std::size_t rounds = orvtest::caseCount(100000);
    inAllThreads([&](std::size_t) {
        for (std::size_t i = 0; i < rounds; ++i) {
            const gref<Shared> copy = ref;
            const gref<Shared> again = copy->self();
            EXPECT_EQ(again->value, 42);
        }
    });
    EXPECT_EQ(ref.useCount(), 1U);
    EXPECT_EQ(Shared::ended, 0);
}

TEST_F(GrefTest, WhicheverThreadComesLastEndsTheObjectOnce) {
    const std::size_t rounds = orvtest::caseCount(50000);
    // Each thread has a reference of its own to each object, and writes to it before it lets go.
    class Written : public gref_base<Written> {
    public:
        explicit Written(std::atomic<std::size_t>& sum) : sum_(sum) {}
        ~Written() override {
            for (const int mark : marks) {
                sum_ += static_cast<std::size_t>(mark);
            }
        }
        int marks[THREADS] = {};

    private:
        std::atomic<std::size_t>& sum_;
    };
    std::atomic<std::size_t> sum = 0;
    std::vector<std::vector<gref<Written>>> refs(THREADS);
    for (std::size_t i = 0; i < rounds; ++i) {
        const gref<Written> ref = make_gref<Written>(sum);
        for (auto& own : refs) {
            own.push_back(ref);
        }
    }
    EXPECT_EQ(sum, 0U);
    inAllThreads([&](std::size_t thread) {
        for (gref<Written>& ref : refs[thread]) {
            ref->marks[thread] = 1;
            ref.reset();
        }
    });
    EXPECT_EQ(sum, rounds * THREADS) << "the last one sees what all have written";
}

} // namespace
