// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Powers of ten as normalised divisors.
#include "orv/liborvxx/number/words/decimal_powers.h"

#include "orv/liborvxx/number/words/bits.h"
#include "orv/liborvxx/number/words/compare.h"
#include "orv/liborvxx/number/words/divide.h"
#include "orv/liborvxx/number/words/multiply.h"
#include "orv/liborvxx/number/words/rows.h"
#include "orv/liborvxx/number/words/shift.h"

namespace orv::words {

namespace {

constexpr unsigned GROUP_DIGITS = DECIMAL_GROUP_DIGITS;
constexpr Limb FIVE_GROUP = 19073486328125U; // 5^19, of 45 bits

// Words for 5^(19 * groups), which has up to 1.379 * groups + 1 of them; for the square of the next
// power, of two groups and some words more; and for a shift by up to two words.
constexpr unsigned placeWords(unsigned groups) {
    return groups * 7 / 5 / 2 * 2 + 12;
}

} // namespace

DecimalPowers::DecimalPowers(std::size_t digits) {
    std::array<unsigned, MAX_COUNT> groups{};
    auto e = static_cast<unsigned>((digits + GROUP_DIGITS - 1) / GROUP_DIGITS);
    unsigned total = placeWords((e + 1) / 2);
    assert(e > MAX_LAST_GROUPS);
    do {
        assert(count_ < MAX_COUNT);
        e = (e + 1) / 2;
        groups[count_++] = e;
        total += 2 * placeWords(e);
    } while (e > MAX_LAST_GROUPS);
    block_.reset(new Word[total]);
    product_ = block_.get();
    Word* next = product_ + placeWords(groups[0]);
    for (unsigned level = 0; level < count_; ++level) {
        places_[level].five = next;
        places_[level].divisor = next + placeWords(groups[level]);
        next += 2 * placeWords(groups[level]);
    }
    unsigned level = count_ - 1;
    setLast(groups[level]);
    normalise(level, groups[level]);
    while (level-- > 0) {
        set(level, groups[level]);
        normalise(level, groups[level]);
    }
}

// 5^(19 * groups), one group after the other.
void DecimalPowers::setLast(unsigned groups) noexcept {
    Place& place = places_[count_ - 1];
    store(place.five, FIVE_GROUP);
    place.n = 2;
    for (unsigned i = 1; i < groups; ++i) {
        const Limb carry = multiplyRow(place.five, place.five, place.n, FIVE_GROUP);
        store(place.five + place.n, carry);
        place.n += carry != 0 ? 2 : 0;
    }
    place.n = trimmedSize(place.five, place.n);
}

// The square of the next level's, or a group less.
void DecimalPowers::set(unsigned level, unsigned groups) noexcept {
    const Place& root = places_[level + 1];
    Place& place = places_[level];
    place.n = root.n * 2;
    if (groups % 2 == 0) {
        multiply(place.five, place.n, root.five, root.n, root.five, root.n);
    } else {
        multiply(product_, place.n, root.five, root.n, root.five, root.n);
        Word divisor[2];
        store(divisor, FIVE_GROUP);
        divide(place.five, place.n, nullptr, 0, product_, place.n, divisor, 2);
    }
    place.n = trimmedSize(place.five, place.n);
}

// 10^k is 5^k * 2^k: of the k zero bits, whole limbs are left out, and the others and as many more
// as bring the top bit up stand in the divisor.
void DecimalPowers::normalise(unsigned level, unsigned groups) noexcept {
    const Place& place = places_[level];
    DecimalPower& power = powers_[level];
    const unsigned bits = static_cast<unsigned>(highestSetBit(place.five, place.n)) + 1;
    power.digits = std::size_t{groups} * GROUP_DIGITS;
    const unsigned zeroBits = groups * GROUP_DIGITS;
    power.zeros = zeroBits / 64 * 2;
    power.shift = (64 - (bits + zeroBits) % 64) % 64;
    const unsigned total = zeroBits % 64 + power.shift;
    const unsigned dn = (bits + total) / 32;
    shiftLeft(place.divisor, dn, place.five, place.n, total);
    power.divisor = LongDivisor(place.divisor, dn);
}

} // namespace orv::words
