// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `charset_streambuf`: UTF-16 text over a stream buffer of bytes in any character set.
#ifndef ORV_LIBORVXX_LOCALE_CHARSET_STREAMBUF_H
#define ORV_LIBORVXX_LOCALE_CHARSET_STREAMBUF_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/charset/coder_result.h"
#include "orv/liborvxx/text/char16.h"
#include "orv/liborvxx/text/char_traits.h"

#include <ios>
#include <memory>
#include <streambuf>

#include "orv/liborvxx/base/macros_push.h"

namespace orv {

namespace detail {
class CharsetReader;
class CharsetWriter;
} // namespace detail

/// Reads and writes text through the bytes of another buffer, such as that of an `std::ifstream`,
/// decoding and encoding piece by piece.
///
/// The byte buffer is borrowed. It should be open in binary mode; line ends are left alone, and
/// so is a byte order mark. The two directions have nothing in common but that buffer: a file
/// that is read and written needs a position between the two, so give each direction a file of
/// its own. There is no seeking: positions are -1. Locales do not matter. Nothing is allocated
/// but at the first use of a direction. An object belongs to one thread at a time.
///
/// \par Reading
/// Units are there as soon as their bytes are: the byte buffer is asked for as much as it has at
/// hand, and only waits where there is no whole character. Where the bytes end, the text ends: a
/// character cut off there is malformed. The end is reported once; who reads on, as behind the
/// end of a file that grows, begins a new text. At least 16 units can be put back, and by
/// `sputbackc` others than those read.
///
/// \par Writing
/// Bytes are handed on when a few thousand units are there, by `pubsync` (which `flush` of a
/// stream calls) and by `finish`. The high half of a surrogate pair waits for the low one.
///
/// \par Errors
/// What cannot be converted is treated as the action says. With `REPORT` it ends in the
/// exceptions of the coders, `MalformedInputError` and `UnmappableCharacterError`, once all that
/// stands before it has been delivered; a stream becomes bad, and throws them if asked by
/// `exceptions`. What is reported is skipped, so that after `clear` the text goes on behind it.
/// What the byte buffer throws passes through.
///
/// \par U+FFFF
/// It is the end mark of `std::char_traits<char16>`. Blocks (`sgetn`, `sputn`) carry it. Read
/// unit by unit it looks like the end, and written so like a failure.
///
/// \par Example
/// \code
/// std::stringbuf bytes("Gr\xC3\xBC\xC3\x9F dich\nGott\n"); // or that of an std::ifstream
/// orv::charset_streambuf text(bytes, *orv::Charset::UTF_8);
/// orv::uistream in(&text);
/// orv::ustring line;
/// getline(in, line); // 9 units
/// \endcode
class ORVXX_API charset_streambuf : public std::basic_streambuf<char16> {
public:
    /// Text over \p bytes, which must live until the writing is finished or, if nothing is
    /// written, until the last read. Neither reads nor writes.
    /// \exception std::invalid_argument "charset_streambuf::charset_streambuf" if \p onError is no
    ///            enumerator
    explicit charset_streambuf(std::streambuf& bytes, Charset& charset = *Charset::UTF_8,
                               CodingErrorAction onError = REPLACE);

    charset_streambuf(const charset_streambuf&) = delete;
    charset_streambuf& operator=(const charset_streambuf&) = delete;

    /// Does `finish` and keeps errors to itself: who wants to know calls `finish` before.
    ~charset_streambuf() override;

    /// Ends the text that was written: the half of a surrogate pair that waits is malformed, what
    /// the encoder holds back is written, and the byte buffer synchronised. What is written then
    /// begins a new text. Does nothing if there is no text to end.
    /// \return false if the byte buffer refused something; what it did not take is kept, and tried
    ///         again by the next call
    /// \exception CharacterCodingError with `REPORT`; another call goes on behind it
    bool finish();

protected:
    /// \name Reading ([streambuf.virt.get], [streambuf.virt.pback])
    /// @{

    /// Decodes more.
    /// \exception CharacterCodingError with `REPORT`; what the byte buffer throws
    int_type underflow() override;

    /// Decodes what is at hand. An error ahead is not thrown yet.
    /// \return the units that can be read without waiting; -1 if there are none and will be none
    std::streamsize showmanyc() override;

    /// In blocks. The units that came before an exception are in \p text, but uncounted.
    std::streamsize xsgetn(char16* text, std::streamsize size) override;

    /// Puts back another unit than was read.
    int_type pbackfail(int_type unit = traits_type::eof()) override;
    /// @}

    /// \name Writing ([streambuf.virt.put], [streambuf.virt.buffer])
    /// Short writes of the byte buffer are failures. What it did not take is kept and tried again
    /// by the next operation, so that nothing is lost or written twice; but where it throws, what
    /// it was given counts as written.
    /// @{

    /// Encodes what was put, and puts \p unit.
    /// \exception CharacterCodingError with `REPORT`, before \p unit is put
    int_type overflow(int_type unit = traits_type::eof()) override;

    /// In blocks.
    /// \return the units taken, fewer than \p size if the byte buffer refused
    std::streamsize xsputn(const char16* text, std::streamsize size) override;

    /// Encodes all whole characters and synchronises the byte buffer.
    /// \return -1 if the byte buffer fails
    int sync() override;
    /// @}

private:
    bool fill(bool mayWait);
    bool encodePut(bool last);

    std::streambuf& bytes_;
    Charset& charset_;
    CodingErrorAction onError_;
    std::unique_ptr<detail::CharsetReader> reader_;
    std::unique_ptr<detail::CharsetWriter> writer_;
};

} // namespace orv

#include "orv/liborvxx/base/macros_pop.h"

#endif
