// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `uistringstream`, `uostringstream`, `ustringstream`: streams over a `ustring`.
#ifndef ORV_LIBORVXX_LOCALE_USTRINGSTREAM_H
#define ORV_LIBORVXX_LOCALE_USTRINGSTREAM_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/locale/uiostream.h"
#include "orv/liborvxx/locale/uistream.h"
#include "orv/liborvxx/locale/uostream.h"
#include "orv/liborvxx/text/ustring.h"

#include <ios>
#include <sstream>

namespace orv {

/// Reads from a string that it owns ([istringstream]). The mode always has `std::ios_base::in`.
///
/// After a move both streams are on buffers of their own, and the one moved from is good and empty.
///
/// \par Example
/// \code
/// using namespace orv::literals;
/// orv::uistringstream in(u"12 34"_u);
/// int first = 0;
/// int second = 0;
/// in >> first >> second;
/// \endcode
class ORVXX_API uistringstream : public uistream {
public:
    explicit uistringstream(int mode = std::ios_base::in);
    explicit uistringstream(ustring text, int mode = std::ios_base::in);
    uistringstream(uistringstream&& other);
    uistringstream& operator=(uistringstream&& other);
    ~uistringstream() override;
    void swap(uistringstream& other);

    /// The buffer of the stream's own, also while the stream is on another one.
    std::basic_stringbuf<char16>* rdbuf() const;

    /// A copy of the text of the buffer; sets another text, and the place to its beginning or, with
    /// `std::ios_base::ate` or `app`, to its end.
    ustring str() const;
    void str(ustring text);

private:
    std::basic_stringbuf<char16> buffer_;
};

/// Writes to a string that it owns ([ostringstream]). The mode always has `std::ios_base::out`.
///
/// U+FFFF is lost where it is written unit by unit, or where the buffer must grow: it is the end
/// mark of `std::char_traits<char16>`.
class ORVXX_API uostringstream : public uostream {
public:
    explicit uostringstream(int mode = std::ios_base::out);
    explicit uostringstream(ustring text, int mode = std::ios_base::out);
    uostringstream(uostringstream&& other);
    uostringstream& operator=(uostringstream&& other);
    ~uostringstream() override;
    void swap(uostringstream& other);

    /// As in `uistringstream`.
    std::basic_stringbuf<char16>* rdbuf() const;
    ustring str() const;
    void str(ustring text);

private:
    std::basic_stringbuf<char16> buffer_;
};

/// Reads from and writes to a string that it owns ([stringstream]), in just the mode it is given.
class ORVXX_API ustringstream : public uiostream {
public:
    explicit ustringstream(int mode = std::ios_base::in | std::ios_base::out);
    explicit ustringstream(ustring text, int mode = std::ios_base::in | std::ios_base::out);
    ustringstream(ustringstream&& other);
    ustringstream& operator=(ustringstream&& other);
    ~ustringstream() override;
    void swap(ustringstream& other);

    /// As in `uistringstream`.
    std::basic_stringbuf<char16>* rdbuf() const;
    ustring str() const;
    void str(ustring text);

private:
    std::basic_stringbuf<char16> buffer_;
};

/// \name As the members
/// @{
inline void swap(uistringstream& a, uistringstream& b) {
    a.swap(b);
}
inline void swap(uostringstream& a, uostringstream& b) {
    a.swap(b);
}
inline void swap(ustringstream& a, ustringstream& b) {
    a.swap(b);
}
/// @}

} // namespace orv

#endif
