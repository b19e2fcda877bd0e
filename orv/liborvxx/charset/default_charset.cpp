// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The choice of the default character set, made once when the library is loaded.
#include "orv/liborvxx/charset/default_charset.h"

#include "orv/liborv/system/codepage.h"
#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/text/literals.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>

namespace orv::detail {

namespace {

using namespace orv::literals;

struct CodePage {
    int number;
    ustring_ref charset;
};

// Sorted by number. 950 is Big5 and not x-windows-950, kept for the texts that were written so.
constexpr CodePage CODE_PAGES[] = {
    {874, u"windows-874"_u},   {932, u"Windows-31J"_u},   {936, u"x-mswin-936"_u},
    {949, u"x-windows-949"_u}, {950, u"Big5"_u},          {1250, u"windows-1250"_u},
    {1251, u"windows-1251"_u}, {1252, u"windows-1252"_u}, {1253, u"windows-1253"_u},
    {1254, u"windows-1254"_u}, {1255, u"windows-1255"_u}, {1256, u"windows-1256"_u},
    {1257, u"windows-1257"_u}, {1258, u"windows-1258"_u},
};

ustring_ref nameOfCodePage(int number) {
    const auto* const page =
        std::lower_bound(std::begin(CODE_PAGES), std::end(CODE_PAGES), number,
                         [](const CodePage& p, int wanted) { return p.number < wanted; });
    return page != std::end(CODE_PAGES) && page->number == number ? page->charset : ustring_ref();
}

} // namespace

Charset* chooseDefaultCharset(string_ref wanted, int codePage, string_ref codeset) {
    Charset* charset = nullptr;
    if (!wanted.empty()) {
        charset = Charset::forName(Charset::US_ASCII->decode(wanted));
    } else if (codePage != 0) {
        charset = Charset::forName(nameOfCodePage(codePage));
    } else {
        charset = Charset::forName(Charset::US_ASCII->decode(codeset));
    }
    return charset != nullptr ? charset : Charset::US_ASCII;
}

Charset* chooseDefaultCharset() {
    const char* const wanted = std::getenv("ORV_DEFAULT_CHARSET");
    char codeset[64];
    const int length = orvSystemCodeset(codeset, sizeof codeset);
    return chooseDefaultCharset(wanted != nullptr ? string_ref(wanted) : string_ref(),
                                orvSystemCodePage(),
                                length > 0 ? string_ref(codeset) : string_ref());
}

} // namespace orv::detail
