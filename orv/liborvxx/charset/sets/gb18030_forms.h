// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The linear index of GB18030: one number for each single byte, pair and four-byte form.
///
/// Counting all forms in order makes the long stretches in which characters and forms both count up
/// by one (most of the BMP, and all beyond) a matter of one addition. Only what lies between them
/// needs pages of a table.
#ifndef ORV_LIBORVXX_CHARSET_SETS_GB18030_FORMS_H
#define ORV_LIBORVXX_CHARSET_SETS_GB18030_FORMS_H

#include <cstdint>

namespace orv::gb18030 {

/// The first pair, 81 40; the first four-byte form, 81 30 81 30; and its first that is no
/// character of the BMP.
inline constexpr std::uint32_t FIRST_PAIR = 256;
inline constexpr std::uint32_t FIRST_QUAD = 24'322;
inline constexpr std::uint32_t END_OF_BMP = 63'742;
/// The form of U+10000, 90 30 81 30, and what lies between a form from there on and its code point.
inline constexpr std::uint32_t FIRST_SUPPLEMENTARY = 213'322;
inline constexpr std::uint32_t SUPPLEMENTARY_DELTA = FIRST_SUPPLEMENTARY - 0x10000;

/// Positions of a trail byte: 0x40 to 0xFE. That of 0x7F counts, though no form has it.
inline constexpr std::uint32_t TRAILS = 191;

/// Entries of an index from here on name a row of the range table in place of a page, counting
/// down from `FIRST_ROW`. The highest marks a page that is never reached.
inline constexpr std::uint32_t FIRST_LINEAR = 0xFFF2;
inline constexpr std::uint32_t FIRST_ROW = 0xFFFE;
inline constexpr unsigned int PAGE_SHIFT = 6;
inline constexpr std::uint32_t PAGE_MASK = 63;

constexpr bool isLead(std::uint32_t byte) noexcept {
    return byte - 0x81 <= 0xFE - 0x81;
}
constexpr bool isTrail(std::uint32_t byte) noexcept {
    return byte - 0x40 <= 0xFE - 0x40 && byte != 0x7F;
}
constexpr bool isDigit(std::uint32_t byte) noexcept {
    return byte - 0x30 <= 0x39 - 0x30;
}

/// The linear index of the pair.
constexpr std::uint32_t pairIndex(std::uint32_t b1, std::uint32_t b2) noexcept {
    return (b1 - 0x81) * TRAILS + (b2 - 0x40) + FIRST_PAIR;
}

/// The linear index of the four-byte form.
constexpr std::uint32_t quadIndex(std::uint32_t b1, std::uint32_t b2, std::uint32_t b3,
                                  std::uint32_t b4) noexcept {
    return (((b1 - 0x81) * 10 + (b2 - 0x30)) * 126 + (b3 - 0x81)) * 10 + (b4 - 0x30) + FIRST_QUAD;
}
static_assert(pairIndex(0, 0) == 0U - 24'447 && quadIndex(0, 0, 0, 0) == 0U - 1'662'896);
static_assert(quadIndex(0x90, 0x30, 0x81, 0x30) == FIRST_SUPPLEMENTARY);

/// Writes the pair of a linear index at \p dst.
inline void putPair(unsigned char* dst, std::uint32_t linear) noexcept {
    const std::uint32_t v = linear - FIRST_PAIR;
    dst[0] = static_cast<unsigned char>(0x81 + v / TRAILS);
    dst[1] = static_cast<unsigned char>(0x40 + v % TRAILS);
}

/// Writes the four-byte form of a linear index at \p dst.
inline void putQuad(unsigned char* dst, std::uint32_t linear) noexcept {
    // Each digit from the quotient of the one behind it: three divisions.
    const std::uint32_t tens = (linear - FIRST_QUAD) / 10;
    const std::uint32_t rows = tens / 126;
    dst[0] = static_cast<unsigned char>(0x81 + rows / 10);
    dst[1] = static_cast<unsigned char>(0x30 + rows % 10);
    dst[2] = static_cast<unsigned char>(0x81 + tens % 126);
    dst[3] = static_cast<unsigned char>(0x30 + (linear - FIRST_QUAD) % 10);
}

} // namespace orv::gb18030

#endif
