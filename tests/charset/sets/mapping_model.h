// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What decoders and encoders must do, by the mapping file and the rules of the set's form:
/// slow, obvious, and sharing nothing with the library.
#ifndef ORV_TESTS_CHARSET_SETS_MAPPING_MODEL_H
#define ORV_TESTS_CHARSET_SETS_MAPPING_MODEL_H

#include "orv/liborvxx/charset/charset.h"
#include "tests/support/mapping_file.h"

#include <cstddef>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace orvtest {

/// A set that is driven by tables.
struct MappedSet {
    const char* className;
    const char* name;

    /// The set, which must be registered.
    orv::Charset& charset() const;

    /// What its mapping file says; read once, and forgotten when another set's is asked for.
    const Mapping& mapping() const;
};

void PrintTo(const MappedSet& set, std::ostream* out);

/// All of them, in the order in which they are made.
const std::vector<MappedSet>& mappedSets();

/// Those whose characters have one byte, and the others.
std::vector<MappedSet> singleByteSets();
std::vector<MappedSet> multiByteSets();

/// The class name, for the name of a test.
struct ClassNameOf {
    template <typename Info>
    std::string operator()(const Info& info) const {
        return info.param.className;
    }
};

/// What stands at the front of an input of bytes.
struct FrontOfBytes {
    enum Kind { CHARACTER, INCOMPLETE, MALFORMED, UNMAPPABLE };

    Kind kind;
    /// Bytes of the character or of the error.
    unsigned int length;
    char32_t character;
};

/// The first sequence of \p n > 0 bytes.
FrontOfBytes frontOf(const Mapping& mapping, const unsigned char* bytes, std::size_t n);

/// The bytes of a code.
void appendCode(CharCode code, std::string& bytes);

/// The units of a character or of a lone surrogate.
void appendUnits(char32_t character, std::vector<orv::char16>& units);

} // namespace orvtest

#endif
