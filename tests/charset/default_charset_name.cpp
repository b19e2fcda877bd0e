// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Succeeds if the default character set of the process is the one that the argument names.
#include "orv/liborvxx/charset/charset.h"

#include <cstdio>
#include <string>

int main(int argc, char** argv) {
    std::string name;
    for (const orv::char16 unit : orv::Charset::defaultCharset()->name()) {
        name += static_cast<char>(unit);
    }
    if (argc == 2 && name == argv[1]) {
        return 0;
    }
    std::fprintf(stderr, "the default character set is %s\n", name.c_str());
    return 1;
}
