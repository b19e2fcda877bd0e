// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Cuts a text into pieces of a given encoded size.
#include "bench/workload.h"

#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/text/cvtstr.h"
#include "orv/liborvxx/text/utf16_interop.h"

#include <string_view>

namespace bench {

namespace {

// Length of the character that begins the text, in units.
std::size_t characterLength(std::u16string_view text) {
    return text[0] >= 0xD800 && text[0] <= 0xDBFF ? 2 : 1;
}

} // namespace

Pieces makePieces(const char* charset, Script script, std::size_t bytes, std::size_t count) {
    orv::Charset* const set = orv::Charset::forName(orv::to_ustring(
        std::u16string(charset, charset + std::char_traits<char>::length(charset))));
    // No set takes fewer bytes than units; so there is text for all, and a character beyond the
    // last piece, which is looked at.
    const std::u16string text = makeText(script, bytes * count + 2);
    std::u16string_view rest = text;
    Pieces pieces(count);
    for (Piece& piece : pieces) {
        std::size_t units = 0;
        for (;;) {
            const std::size_t next = characterLength(rest.substr(units));
            const std::string more = set->encode(orv::as_ustring_ref(rest.substr(units, next)));
            if (piece.bytes.size() + more.size() > bytes) {
                break;
            }
            piece.bytes += more;
            units += next;
        }
        piece.text = rest.substr(0, units);
        rest.remove_prefix(units);
    }
    return pieces;
}

} // namespace bench
