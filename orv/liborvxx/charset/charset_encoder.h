// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `CharsetEncoder`: UTF-16 into bytes of a character set, in slices or at once.
#ifndef ORV_LIBORVXX_CHARSET_CHARSET_ENCODER_H
#define ORV_LIBORVXX_CHARSET_CHARSET_ENCODER_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/charset/buffer.h"
#include "orv/liborvxx/charset/charset_decoder.h"
#include "orv/liborvxx/charset/coder_result.h"
#include "orv/liborvxx/charset/coding_error.h"
#include "orv/liborvxx/text/char16.h"
#include "orv/liborvxx/text/string_ref.h"

#include <memory>
#include <string>

#include "orv/liborvxx/base/macros_push.h"

namespace orv {

class Charset;

/// Turns UTF-16 into bytes of a character set: the mirror image of `CharsetDecoder`, whose state
/// table holds here with "encode" for "decode". A concrete encoder overrides `encodeLoop`.
///
/// Two things differ. The replacement must be valid in the character set, which a decoder checks.
/// And default-ignorable characters without a counterpart (SOFT HYPHEN, variation selectors, U+FE00
/// to U+FEFF as a whole, tags) vanish, whatever the action for unmappable characters says. An
/// encoder belongs to one thread at a time.
///
/// \par Example
/// \code
/// auto encoder = orv::Charset::US_ASCII->newEncoder();
/// encoder->onUnmappableCharacter(orv::REPLACE).replaceWith("*");
/// std::string bytes = encoder->encode(orv::Charset::UTF_8->decode("na\xC3\xAFve")); // "na*ve"
/// \endcode
class ORVXX_API CharsetEncoder {
public:
    CharsetEncoder(const CharsetEncoder&) = delete;
    CharsetEncoder& operator=(const CharsetEncoder&) = delete;
    virtual ~CharsetEncoder();

    /// Whether `encode` of the text returns. It runs under the actions in force, so with `REPLACE`
    /// or `IGNORE` the answer is true for anything; a surrogate by itself is malformed. Leaves the
    /// encoder reset.
    /// \exception std::logic_error "CharsetEncoder::canEncode: illegal state" in the middle of a
    /// run
    virtual bool canEncode(ustring_ref text);
    virtual bool canEncode(char16 unit);

    /// \name Treatment of bad input
    /// @{
    CodingErrorAction malformedInputAction() const noexcept { return malformedInputAction_; }
    CodingErrorAction unmappableCharacterAction() const noexcept {
        return unmappableCharacterAction_;
    }

    /// Sets the action; `REPORT` is the one an encoder starts with. Allowed in any state.
    /// \exception std::invalid_argument "CharsetEncoder::onMalformedInput" or
    /// "CharsetEncoder::onUnmappableCharacter" for a value that is no enumerator
    CharsetEncoder& onMalformedInput(CodingErrorAction action);
    CharsetEncoder& onUnmappableCharacter(CodingErrorAction action);

    /// What `REPLACE` writes; "?" unless the character set chose otherwise.
    const std::string& replacement() const noexcept { return replacement_; }

    /// Sets the replacement: 1 to `maxBytesPerChar()` bytes that are legal in the character set.
    /// \exception std::invalid_argument "CharsetEncoder::replaceWith" for anything else
    CharsetEncoder& replaceWith(string_ref replacement);

    /// Whether the bytes decode in the character set without an error, to their end.
    bool isLegalReplacement(string_ref replacement);
    /// @}

    /// The character set that made the encoder; not owned.
    Charset* charset() const noexcept { return charset_; }
    /// Output bytes to expect for an input unit.
    float averageBytesPerChar() const noexcept { return averageBytesPerChar_; }
    /// Output bytes at most for an input unit.
    unsigned int maxBytesPerChar() const noexcept { return maxBytesPerChar_; }

    /// Forgets what went before: ready for a new run.
    CharsetEncoder& reset();

    /// One step of a run, as `CharsetDecoder::decode`; bytes behind the position that is left in
    /// \p out may have been overwritten. At the end of the input a lone high surrogate is
    /// malformed, of length 1.
    /// \exception std::logic_error "CharsetEncoder::encode: illegal state"
    /// \exception CoderMalfunctionError "CharsetEncoder::encode: unexpected buffer overflow" or
    ///            "CharsetEncoder::encode: unexpected buffer underflow" if the loop ran into a
    ///            buffer's limit
    CoderResult encode(Buffer<const char16>& in, Buffer<unsigned char>& out, bool endOfInput);

    /// Writes what the encoder held back, as `CharsetDecoder::flush`.
    /// \exception std::logic_error "CharsetEncoder::flush: illegal state"
    CoderResult flush(Buffer<unsigned char>& out);

    /// Resets, and converts all that remains in \p in, as `CharsetDecoder::decode`.
    /// \exception MalformedInputError, UnmappableCharacterError where the action is `REPORT`; the
    /// position of \p in is then at the offending character
    std::string encode(Buffer<const char16>& in);

    /// The same for the units of a view.
    std::string encode(ustring_ref in);

protected:
    /// The second form sets the replacement; the first leaves it "?". Both check the replacement,
    /// so `newDecoder` of \p charset must work by then. `implReplaceWith` of the derived class is
    /// not called, as its object does not exist yet. \exception std::invalid_argument
    /// "CharsetEncoder::CharsetEncoder" unless 0 < \p averageBytesPerChar <= \p maxBytesPerChar;
    /// and as `replaceWith`
    CharsetEncoder(Charset* charset, float averageBytesPerChar, unsigned int maxBytesPerChar);
    CharsetEncoder(Charset* charset, float averageBytesPerChar, unsigned int maxBytesPerChar,
                   string_ref replacement);

    /// \name Hooks
    /// Called after the setting has been stored, and by `flush` and `reset`. They do nothing here;
    /// `implFlush` returns underflow.
    /// @{
    virtual void implReplaceWith(string_ref replacement);
    virtual void implOnMalformedInput(CodingErrorAction action);
    virtual void implOnUnmappableCharacter(CodingErrorAction action);
    virtual CoderResult implFlush(Buffer<unsigned char>& out);
    virtual void implReset();
    /// @}

    /// Converts until the input is consumed, the output is full, or a unit cannot be converted;
    /// with the duties of `CharsetDecoder::decodeLoop`.
    virtual CoderResult encodeLoop(Buffer<const char16>& in, Buffer<unsigned char>& out) = 0;

    /// \name For the loops of concrete encoders
    /// @{

    /// The code point that begins with \p first, a surrogate just read; \p pos is behind it and
    /// moves past the low half. 0 if \p first is high and the input ends there (\p *result is left
    /// alone: the low half may still come), and 0 with \p *result malformed of length 1 if there is
    /// no pair.
    static char32_t fetchSurrogatePair(char16 first, const char16*& pos, const char16* end,
                                       CoderResult* result);

    /// What to return for the unit at \p pos, which has no counterpart: unmappable of length 1, or
    /// 2 for a pair; malformed of length 1 for a lone surrogate; underflow for a high one at the
    /// end.
    static CoderResult unmappableCodeUnit(const char16* pos, const char16* end);

    /// @}

private:
    static bool isDefaultIgnorable(char32_t cp) noexcept;
    bool canEncode(Buffer<const char16>& in);
    ORVXX_LOCAL bool tryEncode(Buffer<const char16>& in);

    Charset* charset_;
    float averageBytesPerChar_;
    unsigned int maxBytesPerChar_;
    std::string replacement_;
    CodingErrorAction malformedInputAction_ = REPORT;
    CodingErrorAction unmappableCharacterAction_ = REPORT;
    detail::CoderState state_ = detail::ST_RESET;
    std::unique_ptr<CharsetDecoder> replacementChecker_;
};

} // namespace orv

#include "orv/liborvxx/base/macros_pop.h"

#endif
