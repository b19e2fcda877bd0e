// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `UUID`: a 128-bit identifier in the layout of RFC 4122.
#ifndef ORV_LIBORVXX_UUID_UUID_H
#define ORV_LIBORVXX_UUID_UUID_H

#include "orv/liborv/uuid/uuid.h"
#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/text/string_ref.h"
#include "orv/liborvxx/text/ustring.h"

#include <compare>
#include <cstddef>
#include <functional>
#include <string>

namespace orv {

/// A universally unique identifier (RFC 4122): a value of 16 bytes, with the layout of `OrvUUID`.
///
/// Ordered as an unsigned 128-bit number, which is the order of the text form.
/// \code
/// orv::UUID id = orv::UUID::randomUUID();
/// std::string text = id.toString(); // such as "1b4e28ba-2fa1-41d2-883f-0016d3cca427"
/// bool same = orv::UUID::fromString(text) == id;
/// \endcode
class ORVXX_API UUID {
public:
    /// The nil UUID: all bytes 0.
    constexpr UUID() noexcept = default;

    /// \name From and to the C record
    /// @{
    UUID(const OrvUUID& record) noexcept : record_(record) {}
    UUID& operator=(const OrvUUID& record) noexcept {
        record_ = record;
        return *this;
    }
    const OrvUUID& record() const noexcept { return record_; }
    /// @}

    /// From the two 64-bit halves of the number: \p msb holds `timeLow`, `timeMid` and
    /// `timeHiAndVersion`, \p lsb the last 8 bytes.
    UUID(std::size_t msb, std::size_t lsb) noexcept;

    /// The two halves.
    std::size_t getMostSignificantBits() const noexcept;
    std::size_t getLeastSignificantBits() const noexcept;

    /// The version, 0 to 15: 1 for a time-based value, 3 for a named, 4 for a random one.
    int version() const noexcept;
    /// The variant: 0, 2 (RFC 4122), 6 or 7.
    int variant() const noexcept;

    /// \name Fields of version 1 (RFC 4122, sections 4.1.4 to 4.1.6)
    /// \exception UnsupportedOperationError "not a time-based UUID" for any other version
    /// @{

    /// 100-nanosecond intervals since 15 October 1582, 60 bits.
    std::size_t timestamp() const;
    /// 14 bits.
    unsigned short clockSequence() const;
    /// 48 bits.
    std::size_t node() const;
    /// @}

    /// All bytes 0.
    bool isNil() const noexcept;

    /// XOR of the two halves.
    std::size_t hashCode() const noexcept;

    bool equals(const UUID& other) const noexcept;

    /// -1, 0 or 1 by the unsigned 128-bit value.
    int compareTo(const UUID& other) const noexcept;

    /// 36 units in the form 8-4-4-4-12, lower-case hexadecimal.
    std::string toString() const;
    ustring toUString() const;

    /// Parses five groups of hexadecimal digits separated by "-": 1 to 8, 4, 4, 4 and 12 digits.
    /// Short groups are numbers without leading zeros: "1-2-3-4-5" is a UUID. The UTF-16 form takes
    /// the digits of every script, as `Char16::digit` does. \exception std::invalid_argument
    /// "invalid UUID string: " and the text
    static UUID fromString(string_ref text);
    static UUID fromString(ustring_ref text);

    /// A new random UUID (version 4), from the system's random source.
    /// \exception RuntimeError "orvUUIDCreate() failed: " and the reason
    static UUID randomUUID();

    /// The UUID of a name (version 3, MD5 of the \p size bytes alone); the same bytes give the same
    /// value. \p data may be null if \p size is 0.
    /// \exception RuntimeError "orvUUIDCreateForName() failed: " and the reason
    static UUID nameUUIDFromBytes(const void* data, std::size_t size);

    friend bool operator==(const UUID& a, const UUID& b) noexcept { return a.equals(b); }
    friend std::strong_ordering operator<=>(const UUID& a, const UUID& b) noexcept {
        return a.compareTo(b) <=> 0;
    }

private:
    OrvUUID record_ = {};
};

static_assert(sizeof(UUID) == 16);

} // namespace orv

/// Hash of a UUID: its `hashCode`.
template <>
struct std::hash<orv::UUID> {
    std::size_t operator()(const orv::UUID& id) const noexcept { return id.hashCode(); }
};

#endif
