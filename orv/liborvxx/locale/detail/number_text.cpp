// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Writes the parts of a number with their padding and separators.
#include "orv/liborvxx/locale/detail/number_text.h"

#include "orv/liborvxx/locale/detail/digit_grouping.h"

namespace orv::detail {

namespace {

using Out = std::ostreambuf_iterator<char16>;

// Stops at the first unit that is not taken: a text may be long without end.
void repeat(Out& out, std::uint64_t count, char16 unit) {
    for (; count > 0 && !out.failed(); --count) {
        *out = unit;
    }
}

void write(Out& out, std::string_view text) {
    for (const char c : text) {
        *out = char16(static_cast<unsigned char>(c));
    }
}

void writeGrouped(Out& out, const NumberPunctuation& punctuation, GroupPlaces places,
                  const NumberText& text) {
    const char16 separator(punctuation.separator);
    for (const char c : text.integer) {
        if (places.beforeDigit()) {
            *out = separator;
        }
        *out = char16(static_cast<unsigned char>(c));
    }
    for (std::uint64_t count = text.integerZeros; count > 0 && !out.failed(); --count) {
        if (places.beforeDigit()) {
            *out = separator;
        }
        *out = char16(u'0');
    }
}

// How many units of fill go where.
struct Padding {
    std::uint64_t before = 0;
    std::uint64_t inside = 0;
    std::uint64_t behind = 0;
};

Padding takeWidth(std::ios_base& stream, std::uint64_t size) noexcept {
    const std::streamsize width = stream.width(0);
    Padding padding;
    if (width > 0 && static_cast<std::uint64_t>(width) > size) {
        const std::uint64_t lacking = static_cast<std::uint64_t>(width) - size;
        const auto adjust = stream.flags() & std::ios_base::adjustfield;
        (adjust == std::ios_base::left       ? padding.behind
         : adjust == std::ios_base::internal ? padding.inside
                                             : padding.before) = lacking;
    }
    return padding;
}

} // namespace

Out putNumber(Out out, std::ios_base& stream, char16 fill, const NumberPunctuation& punctuation,
              const NumberText& text) {
    const std::uint64_t digits = text.integer.size() + text.integerZeros;
    const bool isGrouped = text.isGrouped && !punctuation.grouping.empty();
    const GroupPlaces places(punctuation.grouping, isGrouped ? digits : 0);
    const std::uint64_t size = text.prefix.size() + digits + places.separators() +
                               (text.hasPoint ? 1U : 0U) + text.zeros + text.fraction.size() +
                               text.lastZeros + text.exponent.size();
    const Padding padding = takeWidth(stream, size);
    const std::string_view prefix = text.prefix.view();
    repeat(out, padding.before, fill);
    write(out, prefix.substr(0, text.padding));
    repeat(out, padding.inside, fill);
    write(out, prefix.substr(text.padding));
    if (isGrouped) {
        writeGrouped(out, punctuation, places, text);
    } else {
        write(out, text.integer);
        repeat(out, text.integerZeros, char16(u'0'));
    }
    if (text.hasPoint) {
        *out = char16(punctuation.point);
    }
    repeat(out, text.zeros, char16(u'0'));
    write(out, text.fraction);
    repeat(out, text.lastZeros, char16(u'0'));
    write(out, text.exponent.view());
    repeat(out, padding.behind, fill);
    return out;
}

Out putName(Out out, std::ios_base& stream, char16 fill, std::basic_string_view<char16> name) {
    const Padding padding = takeWidth(stream, name.size());
    repeat(out, padding.before + padding.inside, fill);
    for (const char16 unit : name) {
        *out = unit;
    }
    repeat(out, padding.behind, fill);
    return out;
}

} // namespace orv::detail
