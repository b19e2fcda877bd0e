// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `SBCSDecoder`, the decoder of the single-byte sets that have a table.
#ifndef ORV_LIBORVXX_CHARSET_SETS_SBCS_DECODER_H
#define ORV_LIBORVXX_CHARSET_SETS_SBCS_DECODER_H

#include "orv/liborvxx/charset/charset_decoder.h"
#include "orv/liborvxx/charset/sets/set_definition.h"

#include <memory>

namespace orv {

/// Decodes each byte to the entry of a borrowed table of 256 units.
///
/// `Total` is 1 for a table that maps every byte: there is no test, and the result is never an
/// error. It is 0 for a table with entries of `UNMAPPABLE`, which are unmappable of length 1; a
/// byte is judged before the room. Without state between calls.
template <int Total>
class SBCSDecoder : public CharsetDecoder {
    static_assert(Total == 0 || Total == 1);

public:
    SBCSDecoder(Charset* charset, const char16 (&table)[256])
        : CharsetDecoder(charset, 1.0F, 1), table_(table) {}

    /// Whether this decoder may be given \p table: ASCII is the identity there, as its loop takes
    /// for granted, and it is total or not, as the argument says.
    static constexpr bool fits(const char16 (&table)[256]) {
        bool ascii = true;
        bool total = true;
        for (unsigned int byte = 0; byte < 256; ++byte) {
            ascii = ascii && (byte >= 0x80 || table[byte] == char16(byte));
            total = total && table[byte] != UNMAPPABLE;
        }
        return ascii && total == (Total == 1);
    }

protected:
    CoderResult decodeLoop(Buffer<const unsigned char>& in, Buffer<char16>& out) override;

private:
    const char16* table_;
};

extern template class SBCSDecoder<0>;
extern template class SBCSDecoder<1>;

/// `makeDecoder` for the definitions of sets, with the table checked at compile time.
template <int Total, const auto& TABLE>
std::unique_ptr<CharsetDecoder> makeSbcsDecoder(Charset* charset) {
    static_assert(SBCSDecoder<Total>::fits(TABLE));
    return makeDecoder<SBCSDecoder<Total>, TABLE>(charset);
}

} // namespace orv

#endif
