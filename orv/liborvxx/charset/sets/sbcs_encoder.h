// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `SBCSEncoder` and `SBCSSparseEncoder`, the encoders of the single-byte sets that have a
/// table.
#ifndef ORV_LIBORVXX_CHARSET_SETS_SBCS_ENCODER_H
#define ORV_LIBORVXX_CHARSET_SETS_SBCS_ENCODER_H

#include "orv/liborvxx/charset/charset_encoder.h"
#include "orv/liborvxx/charset/sets/set_definition.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace orv {

/// Whether \p entry is a byte, or 0xFFFF for a unit that has none.
constexpr bool isSbcsEntry(std::uint16_t entry) {
    return entry <= 0xFF || entry == 0xFFFF;
}

/// Encodes each unit by a borrowed table that reaches up to the highest unit with a byte: for sets
/// whose characters all lie low.
///
/// Whatever has no byte is what `unmappableCodeUnit` says of it; a unit is judged before the room.
/// Without state between calls.
class SBCSEncoder : public CharsetEncoder {
public:
    /// \p table has \p maxChar + 1 entries: a byte, or 0xFFFF for none.
    SBCSEncoder(Charset* charset, std::uint32_t maxChar, const std::uint16_t* table)
        : CharsetEncoder(charset, 1.0F, 1), maxChar_(maxChar), table_(table) {}

    /// Whether this encoder may be given the table: ASCII is the identity there, as its loop takes
    /// for granted, and the highest entry is the last one mapped.
    template <std::size_t SIZE>
    static constexpr bool fits(std::uint32_t maxChar, const std::uint16_t (&table)[SIZE]) {
        bool good = SIZE == maxChar + 1 && SIZE > 0x80 && table[SIZE - 1] != 0xFFFF;
        for (std::size_t unit = 0; unit < SIZE; ++unit) {
            good = good && (unit < 0x80 ? table[unit] == unit : isSbcsEntry(table[unit]));
        }
        return good;
    }

protected:
    CoderResult encodeLoop(Buffer<const char16>& in, Buffer<unsigned char>& out) override;

private:
    std::uint32_t maxChar_;
    const std::uint16_t* table_;
};

/// Encodes each unit by a borrowed table of pages of 2^Shift entries, of which only those with a
/// mapped unit are stored: for sets with a few characters far out.
///
/// Errors are those of `SBCSEncoder`. Without state between calls.
template <unsigned int Shift>
class SBCSSparseEncoder : public CharsetEncoder {
public:
    /// Entries of a page.
    static constexpr std::uint32_t PAGE = 1U << Shift;

    /// \p index has (\p maxChar >> Shift) + 1 entries: where a page begins in \p data, a multiple
    /// of its size, or 0xFFFF for a page without a mapped unit. \p data has entries as the table of
    /// `SBCSEncoder`, and ends with that of \p maxChar: the rest of the last page is not there.
    SBCSSparseEncoder(Charset* charset, std::uint32_t maxChar, const std::uint16_t* index,
                      const std::uint16_t* data)
        : CharsetEncoder(charset, 1.0F, 1), maxChar_(maxChar), index_(index), data_(data) {}

    /// Whether this encoder may be given the tables: ASCII is the identity there, as its loop takes
    /// for granted, the pages stand in ascending order, each once, and the data ends with the
    /// highest unit mapped.
    template <std::size_t INDEX_SIZE, std::size_t DATA_SIZE>
    static constexpr bool fits(std::uint32_t maxChar, const std::uint16_t (&index)[INDEX_SIZE],
                               const std::uint16_t (&data)[DATA_SIZE]) {
        std::size_t pages = 0;
        bool good = INDEX_SIZE == (maxChar >> Shift) + 1 && DATA_SIZE > 0x80;
        for (const std::uint16_t begin : index) {
            if (begin != 0xFFFF) {
                good = good && begin == pages * PAGE;
                ++pages;
            }
        }
        good = good && index[INDEX_SIZE - 1] != 0xFFFF && data[DATA_SIZE - 1] != 0xFFFF &&
               DATA_SIZE == (pages - 1) * PAGE + (maxChar & (PAGE - 1)) + 1;
        // The pages of ASCII are the first ones, so its units are the places.
        for (std::size_t place = 0; place < DATA_SIZE; ++place) {
            good = good && (place < 0x80 ? data[place] == place : isSbcsEntry(data[place]));
        }
        for (std::size_t page = 0; good && page < 0x80 / PAGE; ++page) {
            good = index[page] == page * PAGE;
        }
        return good;
    }

protected:
    CoderResult encodeLoop(Buffer<const char16>& in, Buffer<unsigned char>& out) override;

private:
    std::uint32_t maxChar_;
    const std::uint16_t* index_;
    const std::uint16_t* data_;
};

extern template class SBCSSparseEncoder<5>;
extern template class SBCSSparseEncoder<6>;
extern template class SBCSSparseEncoder<7>;

/// `makeEncoder` for the definitions of sets, with the tables checked at compile time.
template <const auto& MAX_CHAR, const auto& TABLE>
std::unique_ptr<CharsetEncoder> makeSbcsEncoder(Charset* charset) {
    static_assert(SBCSEncoder::fits(MAX_CHAR, TABLE));
    return makeEncoder<SBCSEncoder, MAX_CHAR, TABLE>(charset);
}
template <unsigned int Shift, const auto& MAX_CHAR, const auto& INDEX, const auto& DATA>
std::unique_ptr<CharsetEncoder> makeSbcsSparseEncoder(Charset* charset) {
    static_assert(SBCSSparseEncoder<Shift>::fits(MAX_CHAR, INDEX, DATA));
    return makeEncoder<SBCSSparseEncoder<Shift>, MAX_CHAR, INDEX, DATA>(charset);
}

} // namespace orv

#endif
