// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief A character set from outside the library, whose loops and hooks are functions of the
/// test.
#ifndef ORV_TESTS_SUPPORT_SCRIPTED_CHARSET_H
#define ORV_TESTS_SUPPORT_SCRIPTED_CHARSET_H

#include "orv/liborvxx/charset/charset.h"

#include <atomic>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

namespace orvtest {

/// A decoder whose loop and flush a test supplies, and that keeps a list of the hooks called.
class ScriptedDecoder : public orv::CharsetDecoder {
public:
    using Loop = std::function<orv::CoderResult(orv::Buffer<const unsigned char>&,
                                                orv::Buffer<orv::char16>&)>;
    using Flush = std::function<orv::CoderResult(orv::Buffer<orv::char16>&)>;

    /// Copies ASCII; a byte above is malformed if even, unmappable if odd, of length 1.
    explicit ScriptedDecoder(orv::Charset* charset, float average = 1.0F, unsigned int most = 1);
    ScriptedDecoder(orv::Charset* charset, Loop work, float average = 1.0F, unsigned int most = 1);

    Loop loop;
    Flush flushing;
    std::vector<std::string> hooks;

    static constexpr char16_t MARKER = UNMAPPABLE;

protected:
    orv::CoderResult decodeLoop(orv::Buffer<const unsigned char>& in,
                                orv::Buffer<orv::char16>& out) override;
    orv::CoderResult implFlush(orv::Buffer<orv::char16>& out) override;
    void implReset() override;
    void implReplaceWith(orv::ustring_ref replacement) override;
    void implOnMalformedInput(orv::CodingErrorAction action) override;
    void implOnUnmappableCharacter(orv::CodingErrorAction action) override;
};

/// The same for encoders.
class ScriptedEncoder : public orv::CharsetEncoder {
public:
    using Loop = std::function<orv::CoderResult(orv::Buffer<const orv::char16>&,
                                                orv::Buffer<unsigned char>&)>;
    using Flush = std::function<orv::CoderResult(orv::Buffer<unsigned char>&)>;

    /// Copies ASCII; leaves the rest to `unmappableCodeUnit`.
    explicit ScriptedEncoder(orv::Charset* charset, float average = 1.0F, unsigned int most = 1);
    ScriptedEncoder(orv::Charset* charset, float average, unsigned int most,
                    orv::string_ref replacement);

    Loop loop;
    Flush flushing;
    std::vector<std::string> hooks;

    using CharsetEncoder::fetchSurrogatePair;
    using CharsetEncoder::unmappableCodeUnit;

protected:
    orv::CoderResult encodeLoop(orv::Buffer<const orv::char16>& in,
                                orv::Buffer<unsigned char>& out) override;
    orv::CoderResult implFlush(orv::Buffer<unsigned char>& out) override;
    void implReset() override;
    void implReplaceWith(orv::string_ref replacement) override;
    void implOnMalformedInput(orv::CodingErrorAction action) override;
    void implOnUnmappableCharacter(orv::CodingErrorAction action) override;
};

/// A character set with scripted coders, which counts how many it makes. As every character set it
/// is never destroyed: make it with `new` and keep the pointer in a static variable.
class ScriptedCharset : public orv::Charset {
public:
    ScriptedCharset(int mibEnum, const orv::ustring_ref& name,
                    std::initializer_list<orv::ustring_ref> aliases = {});

    std::unique_ptr<orv::CharsetDecoder> newDecoder() override;
    std::unique_ptr<orv::CharsetEncoder> newEncoder() override;

    std::atomic<int> decodersMade = 0;
    std::atomic<int> encodersMade = 0;
    /// For new decoders, in place of the loop that copies ASCII.
    ScriptedDecoder::Loop decoderLoop;
};

/// The one that tests of coders share.
ScriptedCharset& scriptedCharset();

} // namespace orvtest

#endif
