// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief How a character set of the catalogue is defined: its names and its two coders.
#ifndef ORV_LIBORVXX_CHARSET_SETS_SET_DEFINITION_H
#define ORV_LIBORVXX_CHARSET_SETS_SET_DEFINITION_H

#include "orv/liborvxx/charset/charset.h"

#include <initializer_list>
#include <memory>

namespace orv {

/// What one set has of its own. Each is a constant, which needs no code at load.
struct SetDefinition {
    /// The number in IANA's registry of character sets, 0 if there is none.
    int mibEnum;
    ustring_ref name;
    std::initializer_list<ustring_ref> aliases;
    /// Make new coders of the given set.
    std::unique_ptr<CharsetDecoder> (*newDecoder)(Charset* charset);
    std::unique_ptr<CharsetEncoder> (*newEncoder)(Charset* charset);
};

/// The set that a definition defines.
template <const SetDefinition& DEFINITION>
class DefinedSet final : public Charset {
public:
    DefinedSet() : Charset(DEFINITION.mibEnum, DEFINITION.name, DEFINITION.aliases) {}

    std::unique_ptr<CharsetDecoder> newDecoder() override { return DEFINITION.newDecoder(this); }
    std::unique_ptr<CharsetEncoder> newEncoder() override { return DEFINITION.newEncoder(this); }
};

/// For the members of a definition: a new \p Coder that is given the set and borrows the constant
/// \p TABLES.
template <typename Coder, const auto&... TABLES>
std::unique_ptr<CharsetDecoder> makeDecoder(Charset* charset) {
    return std::make_unique<Coder>(charset, TABLES...);
}
template <typename Coder, const auto&... TABLES>
std::unique_ptr<CharsetEncoder> makeEncoder(Charset* charset) {
    return std::make_unique<Coder>(charset, TABLES...);
}

} // namespace orv

#endif
