// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The destructor of a character set must never run. A program of its own: afterwards the
/// registry leads to an object that is none.
#include "orv/liborvxx/charset/charset.h"

#include "orv/liborvxx/text/literals.h"
#include "tests/support/scripted_charset.h"
#include "tests/support/thrown_message.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using namespace orv::literals;

class Doomed : public orvtest::ScriptedCharset {
public:
    Doomed() : ScriptedCharset(9101, u"x-doomed"_u) {}
    void destroyBase() { Charset::~Charset(); }
};

TEST(CharsetDestructor, Throws) {
    static Doomed* const set = new Doomed;
    EXPECT_EQ(orv::Charset::forName(u"x-doomed"_u), set);
    EXPECT_EQ(orvtest::thrownMessage<std::logic_error>([] { set->destroyBase(); }),
              "Charset::~Charset");
}

} // namespace
