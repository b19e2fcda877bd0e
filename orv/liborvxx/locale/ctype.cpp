// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `std::ctype<char16>`.
#include "orv/liborvxx/locale/ctype.h"

#include "orv/liborv/unicode/unichar.h"
#include "orv/liborvxx/locale/char_class.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cstdint>
#include <iterator>

namespace {

using namespace orv::detail;
using orv::char16;
using Mask = std::ctype_base::mask;

struct Pair {
    Mask standard;
    unsigned classes;
};

// What each class of the standard library is in the table's bits. Of blank the table knows more
// than enough: see blankAlone.
constexpr Pair PAIRS[] = {
    {std::ctype_base::upper, CLASS_UPPER}, {std::ctype_base::lower, CLASS_LOWER},
    {std::ctype_base::alpha, CLASS_ALPHA}, {std::ctype_base::digit, CLASS_DIGIT},
    {std::ctype_base::alnum, CLASS_ALNUM}, {std::ctype_base::xdigit, CLASS_XDIGIT},
    {std::ctype_base::space, CLASS_SPACE}, {std::ctype_base::blank, CLASS_BLANK},
    {std::ctype_base::cntrl, CLASS_CNTRL}, {std::ctype_base::punct, CLASS_PUNCT},
    {std::ctype_base::graph, CLASS_GRAPH}, {std::ctype_base::print, CLASS_PRINT},
};

constexpr int MASK_BITS = sizeof(Mask) * CHAR_BIT;
constexpr Mask bitOf(int i) noexcept {
    return static_cast<Mask>(1ULL << i);
}

// What a single bit of the standard library's masks stands for. Which bits a mask shares with
// others differs between libraries; a bit stands for what all masks that have it agree on.
constexpr unsigned classesOfBit(Mask bit) noexcept {
    unsigned classes = 0;
    bool first = true;
    for (const Pair& pair : PAIRS) {
        if ((pair.standard & bit) != 0) {
            classes = first ? pair.classes : classes & pair.classes;
            first = false;
        }
    }
    return classes;
}

// Whether the bits of each mask together stand for what the mask stands for.
constexpr bool bitsMakeUpMasks() noexcept {
    return std::all_of(std::begin(PAIRS), std::end(PAIRS), [](const Pair& pair) {
        unsigned classes = 0;
        for (int i = 0; i < MASK_BITS; ++i) {
            classes |= (pair.standard & bitOf(i)) != 0 ? classesOfBit(bitOf(i)) : 0;
        }
        return classes == pair.classes;
    });
}
static_assert(bitsMakeUpMasks());

// The bits of blank that no other class has. Line feeds must not have them, though the table calls
// them blank-like.
constexpr Mask blankAlone() noexcept {
    unsigned long long others = 0;
    for (const Pair& pair : PAIRS) {
        others |= pair.standard == std::ctype_base::blank ? 0 : pair.standard;
    }
    return static_cast<Mask>(std::ctype_base::blank & ~others);
}

// The standard library's masks, by the table's.
constexpr auto STANDARD_MASKS = [] {
    std::array<Mask, 2 * CLASS_OTHER_LETTER> masks = {};
    for (unsigned classes = 0; classes < masks.size(); ++classes) {
        for (int i = 0; i < MASK_BITS; ++i) {
            const bool has = (classesOfBit(bitOf(i)) & classes) != 0;
            masks[classes] = static_cast<Mask>(masks[classes] | (has ? bitOf(i) : 0));
        }
        if ((classes & CLASS_CNTRL) != 0) {
            masks[classes] = static_cast<Mask>(masks[classes] & ~blankAlone());
        }
    }
    return masks;
}();

Mask maskOf(char16 c) noexcept {
    const Mask mask = STANDARD_MASKS[charClass(c)];
    return c == u'\t' ? static_cast<Mask>(mask | std::ctype_base::blank) : mask;
}

bool isOf(Mask classes, char16 c) noexcept {
    return (maskOf(c) & classes) != 0;
}

char16 upperOf(char16 c) noexcept {
    return static_cast<char16>(orv::touupper(c));
}

char16 lowerOf(char16 c) noexcept {
    return static_cast<char16>(orv::toulower(c));
}

char16 widened(char c) noexcept {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x80 ? char16(byte) : char16(u'\uFFFD');
}

char narrowed(char16 c, char dflt) noexcept {
    const auto unit = static_cast<std::uint32_t>(c);
    if (unit < 0x80) {
        return static_cast<char>(unit);
    }
    const int value = orvUniCharDigitValue(unit);
    return value >= 0 ? static_cast<char>('0' + value) : dflt;
}

} // namespace

std::locale::id std::ctype<char16>::id;

std::ctype<char16>::ctype(std::size_t refs) : std::locale::facet(refs) {}

std::ctype<char16>::ctype::~ctype() = default;

const char16* std::ctype<char16>::do_is(const char16* low, const char16* high, mask* masks) const {
    std::transform(low, high, masks, maskOf);
    return high;
}

bool std::ctype<char16>::do_is(mask m, char16 c) const {
    return isOf(m, c);
}

const char16* std::ctype<char16>::do_scan_is(mask m, const char16* low, const char16* high) const {
    return std::find_if(low, high, [m](char16 c) { return isOf(m, c); });
}

const char16* std::ctype<char16>::do_scan_not(mask m, const char16* low, const char16* high) const {
    return std::find_if_not(low, high, [m](char16 c) { return isOf(m, c); });
}

const char16* std::ctype<char16>::do_toupper(char16* low, const char16* high) const {
    std::transform(const_cast<const char16*>(low), high, low, upperOf);
    return high;
}

char16 std::ctype<char16>::do_toupper(char16 c) const {
    return upperOf(c);
}

const char16* std::ctype<char16>::do_tolower(char16* low, const char16* high) const {
    std::transform(const_cast<const char16*>(low), high, low, lowerOf);
    return high;
}

char16 std::ctype<char16>::do_tolower(char16 c) const {
    return lowerOf(c);
}

const char* std::ctype<char16>::do_widen(const char* low, const char* high, char16* out) const {
    std::transform(low, high, out, widened);
    return high;
}

char16 std::ctype<char16>::do_widen(char c) const {
    return widened(c);
}

const char16* std::ctype<char16>::do_narrow(const char16* low, const char16* high, char dflt,
                                            char* out) const {
    std::transform(low, high, out, [dflt](char16 c) { return narrowed(c, dflt); });
    return high;
}

char std::ctype<char16>::do_narrow(char16 c, char dflt) const {
    return narrowed(c, dflt);
}
