// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The tables of the single-byte sets beside the catalogue of their shapes.
#ifndef ORV_TESTS_CHARSET_SETS_SINGLE_BYTE_SHAPES_H
#define ORV_TESTS_CHARSET_SETS_SINGLE_BYTE_SHAPES_H

#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/text/utf16_interop.h"

#include <cstddef>
#include <cstdint>
#include <ostream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace orvtest {

/// A row of the catalogue, and the tables that it is about.
struct SingleByteShape {
    const char* className;
    std::u16string_view name;
    /// The bytes without a character, in hexadecimal, with runs as "A1-A3". The decoder is the
    /// total one exactly if there is none.
    std::string_view unmapped;
    /// The argument of the paged encoder; 0 for the direct one, which has no index.
    unsigned int shift;
    std::uint32_t maxChar;
    std::size_t indexEntries;
    std::size_t pages;
    /// Of whole pages; the array ends with the entry of the highest unit.
    std::size_t dataEntries;

    std::span<const orv::char16> decodeTable;
    std::uint32_t tableMaxChar;
    unsigned int tableShift;
    std::span<const std::uint16_t> index;
    std::span<const std::uint16_t> data;

    orv::Charset& charset() const { return *orv::Charset::forName(orv::as_ustring_ref(name)); }
};

/// The 26 rows.
const std::vector<SingleByteShape>& singleByteShapes();

/// The class name, for the name of a test.
struct ShapeName {
    template <typename Info>
    std::string operator()(const Info& info) const {
        return info.param.className;
    }
};

/// So that a failure tells which set it is about.
inline void PrintTo(const SingleByteShape& shape, std::ostream* out) {
    *out << shape.className;
}

} // namespace orvtest

#endif
