// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `StringBuilder` out of memory: the text stays as it was. What appending allocates.
#include "orv/liborvxx/text/literals.h"
#include "orv/liborvxx/text/string_builder.h"
#include "tests/support/counting_allocator.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <new>
#include <vector>

namespace {

using namespace orv::literals;
using orv::StringBuilder;
using orv::ustring;

using Edit = std::function<void(StringBuilder&)>;

// Each makes a text that has no room left longer.
std::vector<Edit> growingEdits() {
    return {
        [](auto& text) { text.append(u'x'); },
        [](auto& text) { text.append(u"xyz"_u); },
        [](auto& text) { text.append(u"xyz"_u, 1, 2); },
        [](auto& text) { text.append(&text); },
        [](auto& text) { text.append(&text, 0, 1); },
        [](auto& text) { text.append(nullptr); },
        [](auto& text) { text.append(true); },
        [](auto& text) { text.append(1); },
        [](auto& text) { text.append(1.5); },
        [](auto& text) { text.appendCodePoint(0x10000); },
        [](auto& text) { text.insert(2, u'x'); },
        [](auto& text) { text.insert(0, u"xyz"_u); },
        [](auto& text) { text.insert(1, orv::ustring_ref(text.get())); },
        [](auto& text) { text.insert(3, false); },
        [](auto& text) { text.insert(3, 123456); },
        [](auto& text) { text.replace(0, 1, u"xyz"_u); },
        [](auto& text) { text.setLength(text.length() + 1); },
        [](auto& text) { text.ensureCapacity(10000); },
    };
}

ustring fullText() {
    ustring text(100, u'a');
    text.resize(text.capacity(), u'b');
    return text;
}

TEST(StringBuilderAllocation, AFailureLeavesTheText) {
    const ustring before = fullText();
    std::size_t number = 0;
    for (const Edit& edit : growingEdits()) {
        SCOPED_TRACE(number++);
        StringBuilder text(fullText());
        ASSERT_EQ(text.capacity(), text.length()) << "no room";
        bool failed = false;
        orvtest::failAllocation(1);
        try {
            edit(text);
        } catch (const std::bad_alloc&) {
            failed = true;
        }
        orvtest::failAllocation(0);
        EXPECT_TRUE(failed);
        EXPECT_EQ(text.get(), before);
        edit(text);
        EXPECT_NE(text.capacity(), before.capacity());
    }
}

TEST(StringBuilderAllocation, WithinTheCapacityNothingIsAllocated) {
    StringBuilder text(10000);
    text.append(u"text"_u);
    const std::size_t before = orvtest::allocations();
    for (int i = 0; i < 100; ++i) {
        text.append(u'x').append(u"xyz"_u).append(u"xyz"_u, 1, 3).append(true).append(nullptr);
        text.append(i).append(1.0 / (i + 1)).appendCodePoint(0x10000).insert(0, -1LL);
        text.insert(1, u'y').replace(0, 2, u"abc"_u).deleteChars(0, 3).reverse();
    }
    text.append(&text, 0, 100);
    EXPECT_EQ(orvtest::allocations(), before);
}

TEST(StringBuilderAllocation, ManyShortTextsTakeFewAllocations) {
    const std::size_t before = orvtest::allocations();
    StringBuilder text;
    StringBuilder other(u"abc"_u);
    for (int i = 0; i < 10000; ++i) {
        text.append(u'x').append(u"xyz"_u).append(&other);
    }
    EXPECT_EQ(text.length(), 70000U);
    EXPECT_LT(orvtest::allocations() - before, 40U);
}

TEST(StringBuilderAllocation, ReleaseHandsOutTheTextItself) {
    StringBuilder text(fullText());
    const std::size_t before = orvtest::allocations();
    const ustring released = text.release();
    EXPECT_EQ(orvtest::allocations(), before);
    EXPECT_EQ(released.size(), fullText().size());
}

} // namespace
