// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The decoder's settings and its runs.
#include "orv/liborvxx/charset/charset_decoder.h"

#include "orv/liborvxx/charset/detail/coder_run.h"

#include <stdexcept>

namespace orv {

namespace {

constexpr detail::CoderMessages MESSAGES = {
    "CharsetDecoder::decode: illegal state",
    "CharsetDecoder::flush: illegal state",
    "CharsetDecoder::decode: unexpected buffer overflow",
    "CharsetDecoder::decode: unexpected buffer underflow",
};

} // namespace

CharsetDecoder::CharsetDecoder(Charset* charset, float averageCharsPerByte,
                               unsigned int maxCharsPerByte)
    : charset_(charset), averageCharsPerByte_(averageCharsPerByte),
      maxCharsPerByte_(maxCharsPerByte), replacement_(1, u'\xFFFD') {
    // Worded so that NaN is refused.
    if (!(averageCharsPerByte > 0) || maxCharsPerByte == 0 ||
        averageCharsPerByte > static_cast<float>(maxCharsPerByte)) {
        throw std::invalid_argument("CharsetDecoder::CharsetDecoder");
    }
}

CharsetDecoder::~CharsetDecoder() = default;

CodingErrorAction CharsetDecoder::malformedInputAction() const {
    return malformedInputAction_;
}

CodingErrorAction CharsetDecoder::unmappableCharacterAction() const {
    return unmappableCharacterAction_;
}

bool CharsetDecoder::isAutoDetecting() const {
    return false;
}

bool CharsetDecoder::isCharsetDetected() const {
    throw std::logic_error("CharsetDecoder::isCharsetDetected");
}

Charset* CharsetDecoder::detectedCharset() const {
    throw std::logic_error("CharsetDecoder::detectedCharset");
}

void CharsetDecoder::implReplaceWith(ustring_ref) {}
void CharsetDecoder::implOnMalformedInput(CodingErrorAction) {}
void CharsetDecoder::implOnUnmappableCharacter(CodingErrorAction) {}
CoderResult CharsetDecoder::implFlush(Buffer<char16>&) {
    return CoderResult::underflow();
}
void CharsetDecoder::implReset() {}

CharsetDecoder& CharsetDecoder::onMalformedInput(CodingErrorAction action) {
    if (!detail::isValid(action)) {
        throw std::invalid_argument("CharsetDecoder::onMalformedInput");
    }
    malformedInputAction_ = action;
    implOnMalformedInput(action);
    return *this;
}

CharsetDecoder& CharsetDecoder::onUnmappableCharacter(CodingErrorAction action) {
    if (!detail::isValid(action)) {
        throw std::invalid_argument("CharsetDecoder::onUnmappableCharacter");
    }
    unmappableCharacterAction_ = action;
    implOnUnmappableCharacter(action);
    return *this;
}

CharsetDecoder& CharsetDecoder::replaceWith(ustring_ref replacement) {
    if (replacement.empty() || replacement.size() > maxCharsPerByte_) {
        throw std::invalid_argument("CharsetDecoder::replaceWith");
    }
    replacement_ = replacement.to_string();
    implReplaceWith(replacement_);
    return *this;
}

CharsetDecoder& CharsetDecoder::reset() {
    state_ = detail::ST_RESET;
    implReset();
    return *this;
}

CoderResult CharsetDecoder::decode(Buffer<const unsigned char>& in, Buffer<char16>& out,
                                   bool endOfInput) {
    return detail::convertStep(
        state_, MESSAGES, in, out, endOfInput, replacement_, [&] { return decodeLoop(in, out); },
        [this](CoderResult result) {
            return result.kind == CoderResult::UNMAPPABLE ? unmappableCharacterAction_
                                                          : malformedInputAction_;
        });
}

CoderResult CharsetDecoder::flush(Buffer<char16>& out) {
    return detail::flushRun(state_, MESSAGES, [&] { return implFlush(out); });
}

ustring CharsetDecoder::decode(Buffer<const unsigned char>& in) {
    if (!in.hasRemaining()) {
        return {};
    }
    reset();
    return detail::convertAll<ustring, char16>(
        in.remaining(), averageCharsPerByte_,
        [&](Buffer<char16>& out) { return decode(in, out, true); },
        [&](Buffer<char16>& out) { return flush(out); });
}

ustring CharsetDecoder::decode(string_ref in) {
    Buffer<const unsigned char> bytes(reinterpret_cast<const unsigned char*>(in.data()), in.size());
    return decode(bytes);
}

} // namespace orv
