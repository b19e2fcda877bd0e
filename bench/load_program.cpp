// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief A program that does nothing but start: with this library, with ICU, or with the
/// language's standard library alone. load_bench measures the difference.
#include <locale>

#if defined(ORV_LOAD_ORVXX)
#include "orv/liborvxx/charset/charset.h"
#elif defined(ORV_LOAD_ICU)
#include <unicode/ucnv.h>
#endif

int main() {
    // Something of each library, so that the linker keeps it.
    bool ready = std::locale::classic() == std::locale();
#if defined(ORV_LOAD_ORVXX)
    ready = ready && orv::Charset::defaultCharset() != nullptr;
#elif defined(ORV_LOAD_ICU)
    ready = ready && ucnv_countAvailable() > 0;
#endif
    return ready ? 0 : 1;
}
