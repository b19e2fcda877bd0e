// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Reading of numbers ([facet.num.get.virtuals]): what a field is worth, and in which state
/// that leaves the stream.
#include "orv/liborvxx/locale/num_get.h"

#include "orv/liborvxx/locale/detail/nearest_float.h"
#include "orv/liborvxx/locale/detail/number_field.h"
#include "orv/liborvxx/locale/detail/number_punctuation.h"
#include "orv/liborvxx/locale/numpunct.h"
#include "orv/liborvxx/text/ustring.h"

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <locale>
#include <type_traits>

namespace {

using orv::char16;
using orv::detail::FieldCursor;
using orv::detail::NumberPunctuation;
using State = std::ios_base::iostate;
using Iterator = std::istreambuf_iterator<char16>;

struct Limits {
    std::uint64_t positive;
    std::uint64_t negative;
};

// The largest magnitudes of a type.
template <class Integer>
constexpr Limits limitsOf() noexcept {
    const auto most = static_cast<std::uint64_t>(std::numeric_limits<Integer>::max());
    return {most, std::is_signed_v<Integer> ? most + 1 : most};
}

// Reads an integer, of which what is beyond the limits becomes a limit, and negates it in 64 bits.
std::uint64_t readInteger(FieldCursor& in, const std::ios_base& str, State& err,
                          std::ios_base::fmtflags basefield, Limits limits, bool isSigned) {
    const NumberPunctuation punctuation(str);
    const auto field = orv::detail::scanInteger(in, punctuation, basefield);
    std::uint64_t result = 0;
    if (!field.isValid) {
        err |= std::ios_base::failbit;
    } else {
        const std::uint64_t most = field.isNegative ? limits.negative : limits.positive;
        const bool fits = !field.isTooLarge && field.magnitude <= most;
        result = fits ? field.magnitude : most;
        if (!fits) {
            err |= std::ios_base::failbit;
        }
        if (field.isNegative && (fits || isSigned)) {
            result = -result;
        }
    }
    if (in.isAtEnd()) {
        err |= std::ios_base::eofbit;
    }
    return result;
}

template <class Integer>
Iterator getInteger(Iterator in, Iterator end, std::ios_base& str, State& err, Integer& v) {
    FieldCursor cursor(in, end);
    v = static_cast<Integer>(readInteger(cursor, str, err, str.flags() & std::ios_base::basefield,
                                         limitsOf<Integer>(), std::is_signed_v<Integer>));
    return cursor.position();
}

template <class Float, class Digits>
Float readFloat(FieldCursor& in, const NumberPunctuation& punctuation, State& err) {
    using Range = std::numeric_limits<Float>;
    Digits digits;
    const auto field = orv::detail::scanFloat(in, punctuation, digits);
    if (!field.isValid) {
        err |= std::ios_base::failbit;
        return 0;
    }
    const auto value = orv::detail::nearestFloat<Float>(field.isNegative, digits, field.exponent);
    if (std::isinf(value)) {
        err |= std::ios_base::failbit;
        return value > 0 ? Range::max() : Range::lowest();
    }
    return value;
}

template <class Float>
Iterator getFloat(Iterator in, Iterator end, std::ios_base& str, State& err, Float& v) {
    using orv::detail::DecimalDigitsFor;
    using orv::detail::HexDigits;
    const NumberPunctuation punctuation(str);
    FieldCursor cursor(in, end);
    const bool isHex = (str.flags() & std::ios_base::floatfield) ==
                       (std::ios_base::fixed | std::ios_base::scientific);
    v = isHex ? readFloat<Float, HexDigits>(cursor, punctuation, err)
              : readFloat<Float, DecimalDigitsFor<Float>>(cursor, punctuation, err);
    if (cursor.isAtEnd()) {
        err |= std::ios_base::eofbit;
    }
    return cursor.position();
}

// How far text agrees with a name of a truth value.
class NameMatch {
public:
    explicit NameMatch(const orv::ustring& name) noexcept : name_(name) {}

    // Whether the units so far are the beginning of the name, and it goes on.
    bool goesOn() const noexcept { return matches_ && length_ < name_.size(); }
    bool goesOnWith(char16 unit) const noexcept { return goesOn() && name_[length_] == unit; }
    bool isWhole() const noexcept { return matches_ && length_ == name_.size() && length_ > 0; }

    void add(char16 unit) noexcept {
        matches_ = goesOnWith(unit);
        ++length_;
    }

private:
    const orv::ustring& name_;
    std::size_t length_ = 0;
    bool matches_ = true;
};

// Takes units only for as long as a name needs them; the one behind is looked at.
Iterator getName(Iterator in, Iterator end, const std::ios_base& str, State& err, bool& v) {
    const std::locale locale = str.getloc();
    const auto& facet = std::use_facet<std::numpunct<char16>>(locale);
    const orv::ustring trueName = facet.truename();
    const orv::ustring falseName = facet.falsename();
    NameMatch isTrue(trueName);
    NameMatch isFalse(falseName);
    while ((isTrue.goesOn() || isFalse.goesOn()) && in != end) {
        const char16 unit = *in;
        if (!isTrue.goesOnWith(unit) && !isFalse.goesOnWith(unit)) {
            break;
        }
        isTrue.add(unit);
        isFalse.add(unit);
        ++in;
    }
    const bool isUnique = isTrue.isWhole() != isFalse.isWhole();
    v = isUnique && isTrue.isWhole();
    if (!isUnique) {
        err |= std::ios_base::failbit;
    }
    if (in == end) {
        err |= std::ios_base::eofbit;
    }
    return in;
}

} // namespace

std::locale::id std::num_get<char16>::id;

std::num_get<char16>::num_get(std::size_t refs) : std::locale::facet(refs) {}

std::num_get<char16>::num_get::~num_get() = default;

Iterator std::num_get<char16>::do_get(Iterator in, Iterator end, std::ios_base& str, State& err,
                                      void*& v) const {
    FieldCursor cursor(in, end);
    const auto address =
        readInteger(cursor, str, err, std::ios_base::hex, limitsOf<std::uintptr_t>(), false);
    v = std::bit_cast<void*>(static_cast<std::uintptr_t>(address));
    return cursor.position();
}

Iterator std::num_get<char16>::do_get(Iterator in, Iterator end, std::ios_base& str, State& err,
                                      long double& v) const {
    return getFloat(in, end, str, err, v);
}

Iterator std::num_get<char16>::do_get(Iterator in, Iterator end, std::ios_base& str, State& err,
                                      double& v) const {
    return getFloat(in, end, str, err, v);
}

Iterator std::num_get<char16>::do_get(Iterator in, Iterator end, std::ios_base& str, State& err,
                                      float& v) const {
    return getFloat(in, end, str, err, v);
}

Iterator std::num_get<char16>::do_get(Iterator in, Iterator end, std::ios_base& str, State& err,
                                      unsigned long long& v) const {
    return getInteger(in, end, str, err, v);
}

Iterator std::num_get<char16>::do_get(Iterator in, Iterator end, std::ios_base& str, State& err,
                                      long long& v) const {
    return getInteger(in, end, str, err, v);
}

Iterator std::num_get<char16>::do_get(Iterator in, Iterator end, std::ios_base& str, State& err,
                                      unsigned long& v) const {
    return getInteger(in, end, str, err, v);
}

Iterator std::num_get<char16>::do_get(Iterator in, Iterator end, std::ios_base& str, State& err,
                                      long& v) const {
    return getInteger(in, end, str, err, v);
}

Iterator std::num_get<char16>::do_get(Iterator in, Iterator end, std::ios_base& str, State& err,
                                      unsigned int& v) const {
    return getInteger(in, end, str, err, v);
}

Iterator std::num_get<char16>::do_get(Iterator in, Iterator end, std::ios_base& str, State& err,
                                      unsigned short& v) const {
    return getInteger(in, end, str, err, v);
}

// Not by a virtual function: another facet may override that of long.
Iterator std::num_get<char16>::do_get(Iterator in, Iterator end, std::ios_base& str, State& err,
                                      bool& v) const {
    if ((str.flags() & std::ios_base::boolalpha) != 0) {
        return getName(in, end, str, err, v);
    }
    long number = 0;
    const Iterator behind = getInteger(in, end, str, err, number);
    v = number != 0;
    if (number != 0 && number != 1) {
        err |= std::ios_base::failbit;
    }
    return behind;
}
