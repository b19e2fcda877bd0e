// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Makes the numbers from a generator of its own, so that they do not change with the
/// library.
#include "bench/number_texts.h"

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdlib>

namespace bench {

namespace {

// So many that no branch predictor learns them.
constexpr std::size_t COUNT = 100000;

class Random {
public:
    explicit Random(std::uint64_t seed) : state_(seed) {}

    // splitmix64
    std::uint64_t next() {
        state_ += 0x9E3779B97F4A7C15U;
        std::uint64_t z = state_;
        z = (z ^ z >> 30U) * 0xBF58476D1CE4E5B9U;
        z = (z ^ z >> 27U) * 0x94D049BB133111EBU;
        return z ^ z >> 31U;
    }

    std::uint64_t below(std::uint64_t limit) { return next() % limit; }
    double unit() { return static_cast<double>(next() >> 11U) * 0x1p-53; }

private:
    std::uint64_t state_;
};

// As std::to_chars writes.
template <class... How>
std::string printed(How... how) {
    std::array<char, 64> text{};
    return {text.data(), std::to_chars(text.data(), text.data() + text.size(), how...).ptr};
}

template <class Make>
NumberSet<double> floats(const char* name, Make make) {
    NumberSet<double> set{name, {}, {}, {}};
    for (std::size_t i = 0; i < COUNT; ++i) {
        const std::string text = make();
        set.values.push_back(std::strtod(text.c_str(), nullptr));
        set.narrow.add(text);
        set.wide.add(text);
    }
    return set;
}

template <class Make>
NumberSet<std::int64_t> integers(const char* name, Make make) {
    NumberSet<std::int64_t> set{name, {}, {}, {}};
    for (std::size_t i = 0; i < COUNT; ++i) {
        const std::int64_t value = make();
        const std::string text = printed(value);
        set.values.push_back(value);
        set.narrow.add(text);
        set.wide.add(text);
    }
    return set;
}

double anyFinite(Random& random) {
    for (;;) {
        const auto value = std::bit_cast<double>(random.next());
        if (std::isfinite(value)) {
            return value;
        }
    }
}

} // namespace

const std::vector<NumberSet<double>>& floatSets() {
    static const auto sets = [] {
        Random random(20);
        std::vector<NumberSet<double>> list;
        list.push_back(floats("coordinates", [&] {
            return printed(random.unit() * 360 - 180, std::chars_format::fixed,
                           15); // -65.613616999999977
        }));
        list.push_back(floats("17 digits", [&] {
            return printed(anyFinite(random), std::chars_format::scientific, 16);
        }));
        list.push_back(floats("whole numbers", [&] {
            return printed(random.below(std::uint64_t{1} << random.below(54)));
        }));
        list.push_back(floats("money", [&] {
            const std::string whole = printed(random.below(std::uint64_t{1} << random.below(24)));
            return whole + '.' + printed(100 + random.below(100)).substr(1);
        }));
        return list;
    }();
    return sets;
}

const std::vector<NumberSet<std::int64_t>>& integerSets() {
    static const auto sets = [] {
        Random random(21);
        std::vector<NumberSet<std::int64_t>> list;
        list.push_back(integers("up to 4 digits",
                                [&] { return static_cast<std::int64_t>(random.below(10000)); }));
        list.push_back(integers("any length", [&] {
            const auto bits = static_cast<std::int64_t>(random.next());
            return bits >> random.below(64);
        }));
        return list;
    }();
    return sets;
}

} // namespace bench
