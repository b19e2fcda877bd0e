// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decimal text of word arrays, in groups of 19 digits.
#include "orv/liborvxx/number/words/text.h"

#include "orv/liborvxx/number/words/decimal_digits.h"
#include "orv/liborvxx/number/words/decimal_powers.h"
#include "orv/liborvxx/number/words/long_division.h"
#include "orv/liborvxx/number/words/shift.h"
#include "orv/liborvxx/text/char16.h"

#include <algorithm>
#include <cassert>
#include <memory>

namespace orv::words {

namespace {

// More words than this are divided by a power of ten of half the size.
constexpr unsigned MAX_SHORT = 60;

template <class Unit>
constexpr Unit ZERO(static_cast<Unit>('0'));

// Writes all 19 digits.
template <class Unit>
void writeGroup(Unit* text, Limb value) noexcept {
    constexpr Limb LOW = 10000000000000000U;
    const auto high = static_cast<Word>(value / LOW);
    value %= LOW;
    text[0] = static_cast<Unit>(static_cast<char>('0' + high / 100));
    text[1] = static_cast<Unit>(static_cast<char>('0' + high / 10 % 10));
    text[2] = static_cast<Unit>(static_cast<char>('0' + high % 10));
    writeEight(text + 3, static_cast<Word>(value / 100000000));
    writeEight(text + 11, static_cast<Word>(value % 100000000));
}

// Divides n words Count times by 10^19, in one pass: a division waits for the one before in the
// same column and for the one to the left, so those of a slanting line run side by side.
template <unsigned Count>
void takeGroups(Word* p, unsigned n, Limb (&groups)[Count]) noexcept {
    std::fill(groups, groups + Count, Limb{0});
    for (unsigned i = n; i > 0;) {
        i -= 2;
        Limb limb = load(p + i);
        for (Limb& group : groups) {
            limb = divideTwoByOne(group, limb, DECIMAL_GROUP, DECIMAL_GROUP_RECIPROCAL);
        }
        store(p + i, limb);
    }
}

unsigned withoutZeroLimbs(const Word* p, unsigned n) noexcept {
    while (n > 0 && load(p + n - 2) == 0) {
        n -= 2;
    }
    return n;
}

template <unsigned Count, class Unit>
void writeGroups(Unit* end, Word* p, unsigned n) noexcept {
    Limb groups[Count];
    takeGroups(p, n, groups);
    for (const Limb group : groups) {
        end -= DECIMAL_GROUP_DIGITS;
        writeGroup(end, group);
    }
}

// In time O(n^2).
template <class Unit>
void writeShort(Unit* text, std::size_t digits, Word* p, unsigned n) noexcept {
    constexpr unsigned COUNT = 4;
    for (n = withoutZeroLimbs(p, n); n > 2; n = withoutZeroLimbs(p, n)) {
        if (digits > COUNT * DECIMAL_GROUP_DIGITS) {
            writeGroups<COUNT>(text + digits, p, n);
            digits -= COUNT * DECIMAL_GROUP_DIGITS;
        } else {
            writeGroups<1>(text + digits, p, n);
            digits -= DECIMAL_GROUP_DIGITS;
        }
    }
    writeDigits(text, digits, n == 0 ? 0 : load(p));
}

// The number in p is divided by the power of about half its digits; the quotient makes the upper
// digits, the remainder the lower ones.
template <class Unit>
class HalvesWriter {
public:
    HalvesWriter(std::size_t digits, unsigned n)
        : powers_(digits), scratch_(new Word[scratchWords(n)]) {}

    void write(Unit* text, std::size_t digits, Word* p, unsigned n) noexcept {
        write(text, digits, p, n, 0, scratch_.get());
    }

private:
    // A quotient and a dividend take less than n + 4 words each. What is then needed for the halves
    // of the number, beside the quotient, is less.
    unsigned scratchWords(unsigned n) const noexcept {
        const unsigned dn = powers_[0].divisor.n;
        return 2 * (n + 4) + longDivisionScratch(dn, dn);
    }

    void write(Unit* text, std::size_t digits, Word* p, unsigned n, unsigned level,
               Word* scratch) noexcept {
        n = withoutZeroLimbs(p, n);
        if (n <= MAX_SHORT) {
            writeShort(text, digits, p, n);
            return;
        }
        while (digits <= powers_[level].digits) {
            ++level;
        }
        const DecimalPower& power = powers_[level];
        const std::size_t high = digits - power.digits;
        const unsigned dn = power.divisor.n;
        if (n < power.zeros + dn) { // less than the power
            std::fill_n(text, high, ZERO<Unit>);
            write(text + high, power.digits, p, n, level + 1, scratch);
            return;
        }
        const unsigned qn = divide(p, n, power, scratch);
        write(text, high, scratch, qn, level + 1, scratch + qn);
        write(text + high, power.digits, p, power.zeros + dn, level + 1, scratch);
    }

    // The remainder stays in p, and the quotient goes to scratch; its words are returned. The
    // power's zero words take no part.
    static unsigned divide(Word* p, unsigned n, const DecimalPower& power, Word* scratch) noexcept {
        Word* const top = p + power.zeros;
        const unsigned dn = power.divisor.n;
        const unsigned un = n - power.zeros + 2;
        const unsigned qn = un - dn;
        Word* const u = scratch + qn;
        shiftLeft(u, un, top, un - 2, power.shift);
        divideNormalised(scratch, qn, u, power.divisor, u + un);
        shiftRight(top, dn, u, dn, power.shift);
        return qn;
    }

    DecimalPowers powers_;
    std::unique_ptr<Word[]> scratch_;
};

} // namespace

template <class Unit>
void writeDecimal(Unit* text, std::size_t digits, Word* p, unsigned n) {
    assert(n % 2 == 0);
    if (n <= MAX_SHORT) {
        writeShort(text, digits, p, n);
    } else {
        HalvesWriter<Unit>(digits, n).write(text, digits, p, n);
    }
}

template void writeDecimal(char*, std::size_t, Word*, unsigned);
template void writeDecimal(char16*, std::size_t, Word*, unsigned);

} // namespace orv::words
