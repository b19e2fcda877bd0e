// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What two files of one program, each with all headers, have to agree on.
#ifndef ORV_TESTS_HEADERS_TWO_FILES_H
#define ORV_TESTS_HEADERS_TWO_FILES_H

#include "orv/liborvxx/orvxx.h"

namespace orvtest {

/// Where a constant of a class, a function and a facet's mark are: a program has one of each.
struct Places {
    const int* constant;
    bool (*function)(orv::char16_int) noexcept;
    const std::locale::id* facet;

    friend bool operator==(const Places&, const Places&) = default;
};

Places placesInTheOtherFile();

} // namespace orvtest

#endif
