// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Asks the facet, or knows the classic locale.
#include "orv/liborvxx/locale/detail/number_punctuation.h"

#include "orv/liborvxx/base/detail/immortal.h"
#include "orv/liborvxx/locale/numpunct.h"
#include "orv/liborvxx/locale/ulocale.h"
#include "orv/liborvxx/text/char16.h"

#include <locale>

namespace orv::detail {

namespace {

const std::locale& classicLocale() {
    static constinit Immortal<std::locale> storage;
    static const std::locale* const made = storage.make(ulocale::classic());
    return *made;
}

} // namespace

// A locale that equals one without a name is a copy of it, with the same facets. To compare takes a
// fraction of the time of a look-up of a facet.
bool isOnClassicLocale(const std::ios_base& stream) {
    return stream.getloc() == classicLocale();
}

NumberPunctuation::NumberPunctuation(const std::ios_base& stream) {
    if (isOnClassicLocale(stream)) {
        return;
    }
    const std::locale locale = stream.getloc();
    const auto& facet = std::use_facet<std::numpunct<char16>>(locale);
    point = static_cast<char16_t>(facet.decimal_point());
    grouping = facet.grouping();
    if (!grouping.empty() && endsGrouping(grouping.front())) {
        grouping.clear();
    }
    if (!grouping.empty()) {
        separator = static_cast<char16_t>(facet.thousands_sep());
    }
}

} // namespace orv::detail
