// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief A buffer that tells what streams do to it.
#ifndef ORV_TESTS_LOCALE_COUNTING_BUFFER_H
#define ORV_TESTS_LOCALE_COUNTING_BUFFER_H

#include "orv/liborvxx/text/char16.h"

#include <locale>
#include <sstream>
#include <vector>

namespace orvtest {

/// A string buffer that counts its `sync`s and keeps the locales it was put on.
struct CountingBuffer : std::basic_stringbuf<orv::char16> {
    using std::basic_stringbuf<orv::char16>::basic_stringbuf;
    int syncs = 0;
    std::vector<std::locale> locales;

protected:
    int sync() override {
        ++syncs;
        return 0;
    }
    void imbue(const std::locale& loc) override { locales.push_back(loc); }
};

} // namespace orvtest

#endif
