// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The second file of a program with all headers in each.
#include "tests/headers/two_files.h"

orvtest::Places orvtest::placesInTheOtherFile() {
    return {&orv::CoderResult::OVERFLOW, orv::isudigit, &std::ctype<orv::char16>::id};
}
