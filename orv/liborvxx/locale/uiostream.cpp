// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `uiostream`.
#include "orv/liborvxx/locale/uiostream.h"

namespace orv {

uiostream::uiostream(Buffer* buffer) : uistream(buffer), uostream(*this) {}

// Two moved halves would move the one state twice, and no half can be made without one.
uiostream::uiostream(uiostream&& other) : uistream(nullptr), uostream(nullptr) {
    swap(other);
    other.std::basic_ios<char16>::imbue(getloc());
    other.clear();
}

uiostream& uiostream::operator=(uiostream&& other) {
    swap(other);
    return *this;
}

uiostream::~uiostream() = default;

void uiostream::swap(uiostream& other) {
    uistream::swap(other);
}

std::locale uiostream::imbue(const ulocale& loc) {
    return uistream::imbue(loc);
}

} // namespace orv
