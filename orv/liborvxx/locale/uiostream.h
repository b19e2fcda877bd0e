// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `uiostream`: input and output over `char16` on one buffer.
#ifndef ORV_LIBORVXX_LOCALE_UIOSTREAM_H
#define ORV_LIBORVXX_LOCALE_UIOSTREAM_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/locale/uistream.h"
#include "orv/liborvxx/locale/uostream.h"

#include <locale>

namespace orv {

/// A `uistream` and a `uostream` on one buffer, with one state ([iostreamclass]).
class ORVXX_API uiostream : public uistream, public uostream {
public:
    using Buffer = std::basic_streambuf<char16>;
    using char_type = uistream::char_type;
    using traits_type = uistream::traits_type;
    using int_type = uistream::int_type;
    using pos_type = uistream::pos_type;
    using off_type = uistream::off_type;

    /// Reads from and writes to \p buffer; with null the stream is bad.
    explicit uiostream(Buffer* buffer);
    ~uiostream() override;

    /// Puts the stream and its buffer on \p loc; returns the locale before.
    std::locale imbue(const ulocale& loc);
    using std::basic_ios<char16>::imbue;

protected:
    uiostream(uiostream&& other);
    uiostream& operator=(uiostream&& other);
    void swap(uiostream& other);
};

} // namespace orv

#endif
