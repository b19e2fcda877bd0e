// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `Optional`, a value that may be absent.
#ifndef ORV_LIBORVXX_BASE_OPTIONAL_H
#define ORV_LIBORVXX_BASE_OPTIONAL_H

#include "orv/liborvxx/base/platform.h"

#include <concepts>
#include <cstddef>
#include <exception>
#include <optional>
#include <type_traits>
#include <utility>

namespace orv {

/// Thrown where the value of an empty `Optional` is read.
class ORVXX_API BadOptionalAccess : public std::exception {
public:
    BadOptionalAccess() noexcept = default;
    BadOptionalAccess(const BadOptionalAccess&) noexcept = default;
    BadOptionalAccess& operator=(const BadOptionalAccess&) noexcept = default;
    ~BadOptionalAccess() override;

    /// "bad optional access"
    const char* what() const noexcept override;
};

template <typename T>
class Optional;

namespace detail {

/// Whether a `U` is a pointer that would make a `T` of another meaning: a text of a null pointer, a
/// truth value of any.
template <typename U, typename T>
inline constexpr bool
    isMistakenPointer = (std::is_null_pointer_v<std::remove_cvref_t<U>> && !std::is_pointer_v<T>) ||
                        (std::is_pointer_v<std::decay_t<U>> && std::is_same_v<T, bool>);

/// What makes a `T` in an `Optional<T>`.
template <typename U, typename T>
concept ValueFor = std::convertible_to<U&&, T> && !isMistakenPointer<U, T>;

/// What is no value but another form of an `Optional<T>`.
template <typename U, typename T>
concept OptionalOf = std::same_as<std::remove_cvref_t<U>, Optional<T>> ||
    std::same_as<std::remove_cvref_t<U>, std::optional<T>>;

} // namespace detail

/// A value of type \p T, or none. As `std::optional`, with which it converts both ways; but reading
/// what is not there throws `BadOptionalAccess`, through every accessor.
///
/// \code
/// orv::Optional<orv::ustring_ref> query;   // none
/// bool absent = !query.hasValue();
/// int port = orv::Optional<int>(8080).value();
/// \endcode
template <typename T>
class Optional {
public:
    using value_type = T;

    /// None.
    constexpr Optional() noexcept = default;
    constexpr Optional(std::nullopt_t) noexcept {}

    /// A value: of type `T`, or what converts to it without a cast. A null pointer is no text, and
    /// no pointer is a truth value.
    // The constraint leaves copies out. NOLINTBEGIN(bugprone-forwarding-reference-overload)
    template <typename U = T>
    requires(detail::ValueFor<U, T> && !detail::OptionalOf<U, T>) constexpr Optional(
        U&& value) noexcept(std::is_nothrow_constructible_v<T, U&&>)
        : value_(std::forward<U>(value)) {}
    // NOLINTEND(bugprone-forwarding-reference-overload)

    /// From and to the standard form. From nothing else: what is no value for this class must not
    /// become one on the way.
    template <typename U>
    requires std::same_as<U, std::optional<T>>
    constexpr Optional(U value) noexcept(std::is_nothrow_move_constructible_v<T>)
        : value_(std::move(value)) {}
    constexpr operator const std::optional<T>&() const noexcept { return value_; }

    constexpr bool hasValue() const noexcept { return value_.has_value(); }
    /// Whether there is a value. Not for `bool`, which it would be taken for: ask `hasValue()`.
    explicit constexpr operator bool() const noexcept requires(!std::same_as<T, bool>) {
        return hasValue();
    }

    /// The value. \exception BadOptionalAccess if there is none
    constexpr T& value() & { return *checked(*this); }
    constexpr const T& value() const& { return *checked(*this); }
    constexpr T&& value() && { return std::move(*checked(*this)); }
    constexpr T& operator*() & { return value(); }
    constexpr const T& operator*() const& { return value(); }
    constexpr T&& operator*() && { return std::move(*this).value(); }
    constexpr T* operator->() { return &value(); }
    constexpr const T* operator->() const { return &value(); }

    /// The value, or \p other if there is none.
    template <std::convertible_to<T> U>
    constexpr T valueOr(U&& other) const& {
        return value_.value_or(std::forward<U>(other));
    }
    template <std::convertible_to<T> U>
    constexpr T valueOr(U&& other) && {
        return std::move(value_).value_or(std::forward<U>(other));
    }

    /// Makes a value in place and returns it.
    template <typename... Args>
    constexpr T& emplace(Args&&... args) {
        return value_.emplace(std::forward<Args>(args)...);
    }

    /// Drops the value.
    constexpr void reset() noexcept { value_.reset(); }

    constexpr void swap(Optional& other) noexcept(noexcept(value_.swap(other.value_))) {
        value_.swap(other.value_);
    }

    /// Two are equal if neither has a value, or both have equal ones.
    friend constexpr bool operator==(const Optional& a, const Optional& b) {
        return a.value_ == b.value_;
    }
    friend constexpr bool operator==(const Optional& a, const std::optional<T>& b) {
        return a.value_ == b;
    }
    friend constexpr bool operator==(const Optional& a, std::nullopt_t) noexcept {
        return !a.hasValue();
    }
    /// Whether the value of \p a is \p b.
    template <typename U>
    requires(detail::ValueFor<const U&, T> && !detail::OptionalOf<U, T>) friend constexpr bool
    operator==(const Optional& a, const U& b) {
        return a.value_ == b;
    }

private:
    // The standard form of `self`, which has a value.
    template <typename Self>
    static constexpr auto& checked(Self& self) {
        if (!self.hasValue()) {
            throw BadOptionalAccess();
        }
        return self.value_;
    }

    std::optional<T> value_;
};

/// Exchanges two.
template <typename T>
constexpr void swap(Optional<T>& a, Optional<T>& b) noexcept(noexcept(a.swap(b))) {
    a.swap(b);
}

} // namespace orv

#endif
