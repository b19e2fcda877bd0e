// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Views: search and comparison as the standard view has them, for any text, needle and
/// position.
///
/// Input: two positions, a count and the needle's length, one byte each; then needle and text. The
/// same bytes serve as narrow text, and as UTF-16 text in which some units lie above U+00FF.
#include "fuzz/check.h"
#include "fuzz/input.h"

#include "orv/liborvxx/text/string_ref.h"
#include "orv/liborvxx/text/utf16_interop.h"

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>

namespace {

struct Numbers {
    std::size_t pos;
    std::size_t pos2;
    std::size_t count;
};

// From 0xF0 on, the numbers that arithmetic goes wrong with.
std::size_t chooseNumber(std::uint8_t choice) {
    return choice < 0xF0 ? choice : static_cast<std::size_t>(-1) - (choice - 0xF0U);
}

int sign(int value) {
    return value < 0 ? -1 : value > 0 ? 1 : 0;
}

// What the call gives, or nothing if it throws std::out_of_range.
template <typename Call>
auto orOutOfRange(Call call) -> std::optional<decltype(call())> {
    try {
        return call();
    } catch (const std::out_of_range&) {
        return std::nullopt;
    }
}

// The oracle is the standard view over the plain character type; CharT may be char16.
template <typename CharT, typename Plain>
class Checker {
public:
    using Ref = orv::basic_string_ref<CharT>;
    using View = std::basic_string_view<Plain>;

    // Both texts end with a 0 that does not count.
    Checker(const std::basic_string<CharT>& text, const std::basic_string<CharT>& needle,
            const Numbers& n)
        : ref_(text.data(), text.size()), needle_(needle.data(), needle.size()), view_(plain(text)),
          plainNeedle_(plain(needle)), n_(n) {}

    void search() const {
        const CharT* const s = needle_.data();
        const Plain* const p = plainNeedle_.data();
        const std::size_t pos = n_.pos;
        const std::size_t count = std::min(n_.count, needle_.size());
        FUZZ_CHECK(ref_.find(needle_, pos) == view_.find(plainNeedle_, pos));
        FUZZ_CHECK(ref_.find(s, pos) == view_.find(p, pos));
        FUZZ_CHECK(ref_.find(s, pos, count) == view_.find(p, pos, count));
        FUZZ_CHECK(ref_.rfind(needle_, pos) == view_.rfind(plainNeedle_, pos));
        FUZZ_CHECK(ref_.rfind(s, pos) == view_.rfind(p, pos));
        // The one that differs on purpose: it searches forward.
        FUZZ_CHECK(ref_.rfind(s, pos, count) == view_.find(p, pos, count));
        FUZZ_CHECK(ref_.find_first_of(needle_, pos) == view_.find_first_of(plainNeedle_, pos));
        FUZZ_CHECK(ref_.find_first_of(s, pos) == view_.find_first_of(p, pos));
        FUZZ_CHECK(ref_.find_first_of(s, pos, count) == view_.find_first_of(p, pos, count));
        FUZZ_CHECK(ref_.find_first_not_of(needle_, pos) ==
                   view_.find_first_not_of(plainNeedle_, pos));
        FUZZ_CHECK(ref_.find_first_not_of(s, pos, count) == view_.find_first_not_of(p, pos, count));
        FUZZ_CHECK(ref_.find_last_of(needle_, pos) == view_.find_last_of(plainNeedle_, pos));
        FUZZ_CHECK(ref_.find_last_of(s, pos, count) == view_.find_last_of(p, pos, count));
        FUZZ_CHECK(ref_.find_last_not_of(needle_, pos) ==
                   view_.find_last_not_of(plainNeedle_, pos));
        FUZZ_CHECK(ref_.find_last_not_of(s, pos, count) == view_.find_last_not_of(p, pos, count));
        if (!needle_.empty()) {
            searchUnit(s[0], p[0]);
        }
    }

    void compare() const {
        const std::size_t pos = n_.pos;
        const std::size_t n = n_.count;
        const CharT* const s = needle_.data();
        checkCompare(ref_, needle_, view_, plainNeedle_);
        checkCompare(needle_, ref_, plainNeedle_, view_);
        FUZZ_CHECK(sign(ref_.compare(s)) == sign(view_.compare(plainNeedle_.data())));
        FUZZ_CHECK(signOf([&] { return ref_.compare(pos, n, needle_); }) ==
                   signOf([&] { return view_.compare(pos, n, plainNeedle_); }));
        FUZZ_CHECK(signOf([&] { return ref_.compare(pos, n, needle_, n_.pos2, n); }) ==
                   signOf([&] { return view_.compare(pos, n, plainNeedle_, n_.pos2, n); }));
        FUZZ_CHECK(signOf([&] { return ref_.compare(pos, n, s); }) ==
                   signOf([&] { return view_.compare(pos, n, plainNeedle_.data()); }));
        const std::size_t count = std::min(n, needle_.size());
        FUZZ_CHECK(signOf([&] { return ref_.compare(pos, n, s, count); }) ==
                   signOf([&] { return view_.compare(pos, n, plainNeedle_.data(), count); }));
    }

    void extract() const {
        const std::size_t pos = n_.pos;
        const std::size_t n = n_.count;
        const auto part = orOutOfRange([&] { return ref_.substr(pos, n); });
        const auto expected = orOutOfRange([&] { return view_.substr(pos, n); });
        FUZZ_CHECK(part.has_value() == expected.has_value());
        if (part) {
            FUZZ_CHECK(part->size() == expected->size());
            FUZZ_CHECK(reinterpret_cast<const Plain*>(part->data()) == expected->data());
        }
        std::basic_string<CharT> copied(ref_.size(), CharT());
        const auto count = orOutOfRange([&] { return ref_.copy(copied.data(), n, pos); });
        FUZZ_CHECK(count.has_value() == expected.has_value());
        if (count) {
            FUZZ_CHECK(*count == expected->size());
            FUZZ_CHECK(plain(copied).substr(0, *count) == *expected);
        }
        const auto unit = orOutOfRange([&] { return static_cast<Plain>(ref_.at(pos)); });
        FUZZ_CHECK(unit == orOutOfRange([&] { return view_.at(pos); }));
    }

private:
    static View plain(const std::basic_string<CharT>& text) {
        return View(reinterpret_cast<const Plain*>(text.data()), text.size());
    }

    void searchUnit(CharT c, Plain p) const {
        const std::size_t pos = n_.pos;
        FUZZ_CHECK(ref_.find(c, pos) == view_.find(p, pos));
        FUZZ_CHECK(ref_.rfind(c, pos) == view_.rfind(p, pos));
        FUZZ_CHECK(ref_.find_first_of(c, pos) == view_.find_first_of(p, pos));
        FUZZ_CHECK(ref_.find_first_not_of(c, pos) == view_.find_first_not_of(p, pos));
        FUZZ_CHECK(ref_.find_last_of(c, pos) == view_.find_last_of(p, pos));
        FUZZ_CHECK(ref_.find_last_not_of(c, pos) == view_.find_last_not_of(p, pos));
    }

    template <typename Call>
    static std::optional<int> signOf(Call call) {
        const auto value = orOutOfRange(call);
        return value ? std::optional(sign(*value)) : std::nullopt;
    }

    static void checkCompare(Ref a, Ref b, View plainA, View plainB) {
        const int value = a.compare(b);
        FUZZ_CHECK(sign(value) == sign(plainA.compare(plainB)));
        FUZZ_CHECK((a == b) == (plainA == plainB));
        FUZZ_CHECK((a < b) == (plainA < plainB));
        const std::size_t shared = std::min(a.size(), b.size());
        if (plainA.substr(0, shared) == plainB.substr(0, shared)) {
            FUZZ_CHECK(value == (a.size() < b.size() ? -1 : a.size() > b.size() ? 2 : 0));
        } else if constexpr (std::is_same_v<CharT, orv::char16>) {
            std::size_t i = 0;
            while (plainA[i] == plainB[i]) {
                ++i;
            }
            FUZZ_CHECK(value == static_cast<int>(plainA[i]) - static_cast<int>(plainB[i]));
        }
    }

    Ref ref_;
    Ref needle_;
    View view_;
    View plainNeedle_;
    Numbers n_;
};

template <typename CharT, typename Plain>
void check(const std::basic_string<CharT>& text, const std::basic_string<CharT>& needle,
           const Numbers& numbers) {
    const Checker<CharT, Plain> checker(text, needle, numbers);
    checker.search();
    checker.compare();
    checker.extract();
}

// Units that differ in either byte, from an alphabet as small as that of the bytes.
orv::ustring spread(const std::string& bytes) {
    orv::ustring units = fuzz::widen(bytes);
    for (orv::char16& c : units) {
        const auto value = static_cast<unsigned int>(c);
        c = orv::char16(value % 3 == 0 ? value << 8 : value);
    }
    return units;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    Numbers numbers;
    numbers.pos = chooseNumber(input.byte());
    numbers.pos2 = chooseNumber(input.byte());
    numbers.count = chooseNumber(input.byte());
    const std::string needle = input.bytes(input.byte());
    const std::string text = input.rest();
    check<char, char>(text, needle, numbers);
    check<orv::char16, char16_t>(spread(text), spread(needle), numbers);
    check<char16_t, char16_t>(orv::to_u16string(spread(text)), orv::to_u16string(spread(needle)),
                              numbers);
    return 0;
}
