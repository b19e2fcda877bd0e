// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `Flags`, a combination of the values of an enumeration.
#ifndef ORV_LIBORVXX_BASE_FLAGS_H
#define ORV_LIBORVXX_BASE_FLAGS_H

#include <type_traits>

namespace orv {

/// A set of the values of \p E, an enumeration in which each value is a bit of its own.
///
/// \code
/// using orv::net::URIParser;
/// orv::Flags<URIParser::NormFlag> flags = URIParser::NORM_CASE;
/// flags |= URIParser::NORM_PATH;
/// bool percentToo = flags.has(URIParser::NORM_PERCENT); // false
/// \endcode
template <typename E>
requires std::is_enum_v<E>
class Flags {
public:
    /// The unsigned integer that holds the bits.
    using mask_type = std::make_unsigned_t<std::underlying_type_t<E>>;

    /// None.
    constexpr Flags() noexcept = default;

    /// One.
    constexpr Flags(E flag) noexcept : mask_(static_cast<mask_type>(flag)) {}

    /// Those whose bits are set in \p mask.
    static constexpr Flags fromMask(mask_type mask) noexcept {
        Flags flags;
        flags.mask_ = mask;
        return flags;
    }

    constexpr mask_type mask() const noexcept { return mask_; }

    /// Whether \p flags, one or several, are all among them.
    constexpr bool has(Flags flags) const noexcept { return (*this & flags) == flags; }

    /// Whether there is any.
    explicit constexpr operator bool() const noexcept { return mask_ != 0; }

    constexpr Flags& operator|=(Flags other) noexcept {
        mask_ = static_cast<mask_type>(mask_ | other.mask_);
        return *this;
    }
    constexpr Flags& operator&=(Flags other) noexcept {
        mask_ = static_cast<mask_type>(mask_ & other.mask_);
        return *this;
    }
    constexpr Flags& operator^=(Flags other) noexcept {
        mask_ = static_cast<mask_type>(mask_ ^ other.mask_);
        return *this;
    }
    friend constexpr Flags operator|(Flags a, Flags b) noexcept { return a |= b; }
    friend constexpr Flags operator&(Flags a, Flags b) noexcept { return a &= b; }
    friend constexpr Flags operator^(Flags a, Flags b) noexcept { return a ^= b; }

    /// All bits that are not set, also those that no value of the enumeration has.
    friend constexpr Flags operator~(Flags a) noexcept {
        return fromMask(static_cast<mask_type>(~a.mask_));
    }

    friend constexpr bool operator==(Flags a, Flags b) noexcept = default;

private:
    mask_type mask_ = 0;
};

} // namespace orv

#endif
