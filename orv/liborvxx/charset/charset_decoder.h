// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `CharsetDecoder`: bytes of a character set into UTF-16, in slices or at once.
#ifndef ORV_LIBORVXX_CHARSET_CHARSET_DECODER_H
#define ORV_LIBORVXX_CHARSET_CHARSET_DECODER_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/charset/buffer.h"
#include "orv/liborvxx/charset/coder_result.h"
#include "orv/liborvxx/charset/coding_error.h"
#include "orv/liborvxx/text/string_ref.h"
#include "orv/liborvxx/text/ustring.h"

#include "orv/liborvxx/base/macros_push.h"

namespace orv {

class Charset;

/// Turns bytes of a character set into UTF-16. This class owns the state machine, the treatment of
/// bad input and the replacement; a concrete decoder overrides `decodeLoop`.
///
/// A run goes: `decode(in, out, false)` as often as there is input, `decode(in, out, true)` with
/// the last of it, `flush(out)`. Each call stops when the input is consumed, the output is full, or
/// something must be reported; after an overflow it is repeated with more room. Or a whole input
/// goes through `decode(in)` at once. A decoder belongs to one thread at a time.
///
/// | from | event | to |
/// |---|---|---|
/// | any | `reset` | reset |
/// | reset, coding | `decode(.., false)` | coding |
/// | reset, coding, end | `decode(.., true)` | end |
/// | end | `flush` that gives underflow | flushed |
/// | flushed | `flush` | flushed |
///
/// Any other call throws `std::logic_error`.
///
/// \par Example
/// \code
/// auto decoder = orv::Charset::UTF_8->newDecoder();
/// decoder->onMalformedInput(orv::REPLACE);
/// orv::ustring text = decoder->decode("caf\xC3\xA9");
/// \endcode
class ORVXX_API CharsetDecoder {
public:
    CharsetDecoder(const CharsetDecoder&) = delete;
    CharsetDecoder& operator=(const CharsetDecoder&) = delete;
    virtual ~CharsetDecoder();

    /// \name Treatment of bad input
    /// @{
    virtual CodingErrorAction malformedInputAction() const;
    virtual CodingErrorAction unmappableCharacterAction() const;

    /// Sets the action; `REPORT` is the one a decoder starts with. Allowed in any state.
    /// \exception std::invalid_argument "CharsetDecoder::onMalformedInput" or
    /// "CharsetDecoder::onUnmappableCharacter" for a value that is no enumerator
    CharsetDecoder& onMalformedInput(CodingErrorAction action);
    CharsetDecoder& onUnmappableCharacter(CodingErrorAction action);

    /// What `REPLACE` writes; U+FFFD at the start.
    const ustring& replacement() const noexcept { return replacement_; }

    /// Sets the replacement: 1 to `maxCharsPerByte()` units of any value.
    /// \exception std::invalid_argument "CharsetDecoder::replaceWith" for another length
    CharsetDecoder& replaceWith(ustring_ref replacement);
    /// @}

    /// \name Detection of the character set
    /// No decoder of this library detects anything; these are for one that would.
    /// @{
    virtual bool isAutoDetecting() const;
    /// \exception std::logic_error "CharsetDecoder::isCharsetDetected"
    virtual bool isCharsetDetected() const;
    /// \exception std::logic_error "CharsetDecoder::detectedCharset"
    virtual Charset* detectedCharset() const;
    /// @}

    /// The character set that made the decoder; not owned.
    Charset* charset() const noexcept { return charset_; }
    /// Output units to expect for an input byte.
    float averageCharsPerByte() const noexcept { return averageCharsPerByte_; }
    /// Output units at most for an input byte.
    unsigned int maxCharsPerByte() const noexcept { return maxCharsPerByte_; }

    /// Forgets what went before: ready for a new run.
    CharsetDecoder& reset();

    /// One step of a run: converts from \p in to \p out until the input is consumed, the output
    /// full, or bad input is to be reported. Both positions then stand behind what was converted.
    ///
    /// At the end of the input (\p endOfInput true) an unfinished sequence is malformed, its length
    /// all that remains. The replacement is written whole or not at all. Behind the position that
    /// is left in \p out, up to its limit, units may have been overwritten.
    /// \exception std::logic_error "CharsetDecoder::decode: illegal state"
    /// \exception CoderMalfunctionError "CharsetDecoder::decode: unexpected buffer overflow" or
    ///            "CharsetDecoder::decode: unexpected buffer underflow" if the loop ran into a
    ///            buffer's limit
    CoderResult decode(Buffer<const unsigned char>& in, Buffer<char16>& out, bool endOfInput);

    /// Writes what the decoder held back. To be repeated with more room after an overflow; harmless
    /// when repeated after that.
    /// \exception std::logic_error "CharsetDecoder::flush: illegal state"
    CoderResult flush(Buffer<char16>& out);

    /// Resets, and converts all that remains in \p in. An empty input gives the empty string and
    /// leaves the state alone. Allocates once where `averageCharsPerByte()` is a good guess.
    /// \exception MalformedInputError, UnmappableCharacterError where the action is `REPORT`; the
    /// position of \p in is then at the offending sequence
    ustring decode(Buffer<const unsigned char>& in);

    /// The same for the bytes of a view.
    ustring decode(string_ref in);

protected:
    /// The entry of a decode table for a byte with no counterpart: a lone surrogate, which is never
    /// a target. Not the kind of `CoderResult` of that name.
    static constexpr char16_t UNMAPPABLE = 0xDFFF;

    /// \exception std::invalid_argument "CharsetDecoder::CharsetDecoder" unless
    /// 0 < \p averageCharsPerByte <= \p maxCharsPerByte
    CharsetDecoder(Charset* charset, float averageCharsPerByte, unsigned int maxCharsPerByte);

    /// \name Hooks
    /// Called after the setting has been stored, and by `flush` and `reset`. They do nothing here;
    /// `implFlush` returns underflow.
    /// @{
    virtual void implReplaceWith(ustring_ref replacement);
    virtual void implOnMalformedInput(CodingErrorAction action);
    virtual void implOnUnmappableCharacter(CodingErrorAction action);
    virtual CoderResult implFlush(Buffer<char16>& out);
    virtual void implReset();
    /// @}

    /// Converts until the input is consumed, the output is full, or a sequence is bad. It must not
    /// look at the actions, must work within position and limit of both buffers, and must leave the
    /// input position behind the last character whose output was written.
    virtual CoderResult decodeLoop(Buffer<const unsigned char>& in, Buffer<char16>& out) = 0;

private:
    Charset* charset_;
    float averageCharsPerByte_;
    unsigned int maxCharsPerByte_;
    CodingErrorAction malformedInputAction_ = REPORT;
    CodingErrorAction unmappableCharacterAction_ = REPORT;
    ustring replacement_;
    detail::CoderState state_ = detail::ST_RESET;
};

} // namespace orv

#include "orv/liborvxx/base/macros_pop.h"

#endif
