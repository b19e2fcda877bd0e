// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Two files that include the whole library make one program, whose parts work together.
#include "tests/headers/two_files.h"

#include <gtest/gtest.h>

namespace {

using orv::operator""_u;

TEST(WholeLibrary, IsOneInAProgramOfTwoFiles) {
    const orvtest::Places here{&orv::CoderResult::OVERFLOW, orv::isudigit,
                               &std::ctype<orv::char16>::id};
    EXPECT_EQ(here, orvtest::placesInTheOtherFile());
}

TEST(WholeLibrary, OneIncludeIsEnough) {
    EXPECT_EQ(orv::ustring(u"text"_u).size(), 4U);
    EXPECT_EQ(orv::Charset::forName(u"latin1"_u)->name(), u"ISO-8859-1"_u);
    EXPECT_EQ(orv::net::URI::create(u"http://host/path"_u)->getPath(), u"/path"_u);
    EXPECT_EQ(orv::stoi_c("17"), 17);
}

} // namespace
