// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What a formatted function of a stream does about an exception.
#ifndef ORV_LIBORVXX_LOCALE_DETAIL_STREAM_FAILURE_H
#define ORV_LIBORVXX_LOCALE_DETAIL_STREAM_FAILURE_H

#include <ios>

namespace orv::detail {

/// To be called in a handler of an exception: sets `badbit`, and throws the exception again if the
/// stream asks for exceptions of this bit ([istream.formatted.reqmts], [ostream.formatted.reqmts]).
template <typename CharT>
void setBadAndRethrow(std::basic_ios<CharT>& stream) {
    try {
        stream.setstate(std::ios_base::badbit);
    } catch (const std::ios_base::failure&) { // the cause is thrown in its place
    }
    if ((stream.exceptions() & std::ios_base::badbit) != 0) {
        throw;
    }
}

} // namespace orv::detail

#endif
