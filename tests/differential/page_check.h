// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Compares a page with what it ought to be.
#ifndef ORV_TESTS_DIFFERENTIAL_PAGE_CHECK_H
#define ORV_TESTS_DIFFERENTIAL_PAGE_CHECK_H

#include <sstream>
#include <string>

namespace orvtest {

/// Where the page is not the wanted one: the number of the first line that differs and both lines;
/// empty where there is none. Lines that begin with \p free may differ.
inline std::string pageDifference(const std::string& page, const std::string& wanted,
                                  const std::string& free) {
    std::istringstream have(page);
    std::istringstream want(wanted);
    std::string haveLine;
    std::string wantLine;
    for (int number = 1;; ++number) {
        const bool more = static_cast<bool>(std::getline(have, haveLine));
        const bool moreWanted = static_cast<bool>(std::getline(want, wantLine));
        if (!more && !moreWanted) {
            return "";
        }
        const bool isFree = haveLine.starts_with(free) && wantLine.starts_with(free);
        if (more != moreWanted || (haveLine != wantLine && !isFree)) {
            return "line " + std::to_string(number) + ": " + (more ? haveLine : "the end") +
                   "\nand not: " + (moreWanted ? wantLine : "the end");
        }
    }
}

} // namespace orvtest

#endif
