// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Checks that the macros of hostile_macros.h which name something of the library are
/// there after it, as they were.

namespace {
constexpr bool sameText(const char* a, const char* b) {
    for (; *a == *b; ++a, ++b) {
        if (*a == '\0') {
            return true;
        }
    }
    return false;
}
} // namespace

// The text that a macro stands for; its own name if there is no macro.
#define TEXT_OF(...) #__VA_ARGS__
#define EXPANDED(...) TEXT_OF(__VA_ARGS__)

static_assert(sameText(EXPANDED(min(x, y)), "(((x) < (y)) ? (x) : (y))"));
static_assert(sameText(EXPANDED(max(x, y)), "(((x) > (y)) ? (x) : (y))"));
static_assert(sameText(EXPANDED(FAR), ""));
static_assert(sameText(EXPANDED(IGNORE), "0"));
static_assert(sameText(EXPANDED(OVERFLOW), "3"));
static_assert(sameText(EXPANDED(REPLACE), "1"));
static_assert(sameText(EXPANDED(REPORT), "2"));
static_assert(sameText(EXPANDED(UNDERFLOW), "4"));
static_assert(sameText(EXPANDED(small), "char"));
static_assert(sameText(EXPANDED(unix), "1"));
// Where there was none there is none.
static_assert(sameText(EXPANDED(MALFORMED), "MALFORMED"));
