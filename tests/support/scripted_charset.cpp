// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief A character set from outside the library, whose loops and hooks are functions of the
/// test.
#include "tests/support/scripted_charset.h"

#include "orv/liborvxx/text/literals.h"

#include <utility>

namespace orvtest {

namespace {

using namespace orv::literals;
using orv::Buffer;
using orv::char16;
using orv::CoderResult;

// Copies while the element is ASCII; `bad` gives the result for one that is not.
template <typename In, typename Out, typename Bad>
CoderResult copyAscii(Buffer<const In>& in, Buffer<Out>& out, Bad bad) {
    while (in.hasRemaining()) {
        const In element = in.get(in.position());
        if (static_cast<unsigned int>(element) > 0x7F) {
            return bad(in.data() + in.position(), in.data() + in.limit());
        }
        if (!out.hasRemaining()) {
            return CoderResult::overflow();
        }
        out.put(static_cast<Out>(element));
        in.position(in.position() + 1);
    }
    return CoderResult::underflow();
}

std::string called(const char* hook, orv::CodingErrorAction action) {
    return hook + std::string(" ") + std::to_string(action);
}

} // namespace

ScriptedDecoder::ScriptedDecoder(orv::Charset* charset, float average, unsigned int most)
    : CharsetDecoder(charset, average, most) {}

ScriptedDecoder::ScriptedDecoder(orv::Charset* charset, Loop work, float average, unsigned int most)
    : CharsetDecoder(charset, average, most), loop(std::move(work)) {}

CoderResult ScriptedDecoder::decodeLoop(Buffer<const unsigned char>& in, Buffer<char16>& out) {
    if (loop) {
        return loop(in, out);
    }
    return copyAscii(in, out, [](const unsigned char* byte, const unsigned char*) {
        return *byte % 2 == 0 ? CoderResult::malformed(1) : CoderResult::unmappable(1);
    });
}

CoderResult ScriptedDecoder::implFlush(Buffer<char16>& out) {
    hooks.emplace_back("flush");
    return flushing ? flushing(out) : CharsetDecoder::implFlush(out);
}

void ScriptedDecoder::implReset() {
    hooks.emplace_back("reset");
    CharsetDecoder::implReset();
}

void ScriptedDecoder::implReplaceWith(orv::ustring_ref replacement) {
    hooks.push_back("replaceWith " + std::to_string(replacement.size()) +
                    (replacement == this->replacement() ? " stored" : " not stored"));
    CharsetDecoder::implReplaceWith(replacement);
}

void ScriptedDecoder::implOnMalformedInput(orv::CodingErrorAction action) {
    hooks.push_back(called("malformed", action));
    CharsetDecoder::implOnMalformedInput(action);
}

void ScriptedDecoder::implOnUnmappableCharacter(orv::CodingErrorAction action) {
    hooks.push_back(called("unmappable", action));
    CharsetDecoder::implOnUnmappableCharacter(action);
}

ScriptedEncoder::ScriptedEncoder(orv::Charset* charset, float average, unsigned int most)
    : CharsetEncoder(charset, average, most) {}

ScriptedEncoder::ScriptedEncoder(orv::Charset* charset, float average, unsigned int most,
                                 orv::string_ref replacement)
    : CharsetEncoder(charset, average, most, replacement) {}

CoderResult ScriptedEncoder::encodeLoop(Buffer<const char16>& in, Buffer<unsigned char>& out) {
    return loop ? loop(in, out) : copyAscii(in, out, unmappableCodeUnit);
}

CoderResult ScriptedEncoder::implFlush(Buffer<unsigned char>& out) {
    hooks.emplace_back("flush");
    return flushing ? flushing(out) : CharsetEncoder::implFlush(out);
}

void ScriptedEncoder::implReset() {
    hooks.emplace_back("reset");
    CharsetEncoder::implReset();
}

void ScriptedEncoder::implReplaceWith(orv::string_ref replacement) {
    hooks.push_back("replaceWith " + std::to_string(replacement.size()) +
                    (replacement == this->replacement() ? " stored" : " not stored"));
    CharsetEncoder::implReplaceWith(replacement);
}

void ScriptedEncoder::implOnMalformedInput(orv::CodingErrorAction action) {
    hooks.push_back(called("malformed", action));
    CharsetEncoder::implOnMalformedInput(action);
}

void ScriptedEncoder::implOnUnmappableCharacter(orv::CodingErrorAction action) {
    hooks.push_back(called("unmappable", action));
    CharsetEncoder::implOnUnmappableCharacter(action);
}

ScriptedCharset::ScriptedCharset(int mibEnum, const orv::ustring_ref& name,
                                 std::initializer_list<orv::ustring_ref> aliases)
    : Charset(mibEnum, name, aliases) {}

std::unique_ptr<orv::CharsetDecoder> ScriptedCharset::newDecoder() {
    ++decodersMade;
    return std::make_unique<ScriptedDecoder>(this, decoderLoop);
}

std::unique_ptr<orv::CharsetEncoder> ScriptedCharset::newEncoder() {
    ++encodersMade;
    return std::make_unique<ScriptedEncoder>(this);
}

ScriptedCharset& scriptedCharset() {
    static ScriptedCharset* const set = new ScriptedCharset(9001, u"X-Test-Scripted"_u);
    return *set;
}

} // namespace orvtest
