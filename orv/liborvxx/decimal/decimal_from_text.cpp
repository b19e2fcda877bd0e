// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What the constructors from text do.
#include "orv/liborvxx/decimal/decimal128.h"
#include "orv/liborvxx/number/detail/reading_forms.h"
#include "orv/liborvxx/number/from_chars.h"

#include <stdexcept>

namespace orv::decimal::detail {

namespace {

template <class Decimal, class CharT>
Decimal readWhole(basic_string_ref<CharT> text) {
    const from_chars_result<Decimal> read = from_chars_c<Decimal>(text);
    if (read.status != number_status::ok) {
        orv::detail::throwNoNumber(read.status);
    }
    if (read.length != text.size()) {
        throw std::invalid_argument("end of number expected");
    }
    return read.value;
}

} // namespace

ODecimal32 record32Of(string_ref text) {
    return readWhole<decimal32>(text).record();
}

ODecimal32 record32Of(ustring_ref text) {
    return readWhole<decimal32>(text).record();
}

ODecimal64 record64Of(string_ref text) {
    return readWhole<decimal64>(text).record();
}

ODecimal64 record64Of(ustring_ref text) {
    return readWhole<decimal64>(text).record();
}

ODecimal128 record128Of(string_ref text) {
    return readWhole<decimal128>(text).record();
}

ODecimal128 record128Of(ustring_ref text) {
    return readWhole<decimal128>(text).record();
}

} // namespace orv::decimal::detail
