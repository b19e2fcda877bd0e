// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The encoder's settings and its runs, and what the loops of encoders share.
#include "orv/liborvxx/charset/charset_encoder.h"

#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/charset/detail/coder_run.h"
#include "orv/liborvxx/text/code_points.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

namespace orv {

namespace {

constexpr detail::CoderMessages MESSAGES = {
    "CharsetEncoder::encode: illegal state",
    "CharsetEncoder::flush: illegal state",
    "CharsetEncoder::encode: unexpected buffer overflow",
    "CharsetEncoder::encode: unexpected buffer underflow",
};

Buffer<const unsigned char> bytesOf(string_ref text) {
    return {reinterpret_cast<const unsigned char*>(text.data()), text.size()};
}

} // namespace

CharsetEncoder::CharsetEncoder(Charset* charset, float averageBytesPerChar,
                               unsigned int maxBytesPerChar)
    : CharsetEncoder(charset, averageBytesPerChar, maxBytesPerChar, "?") {}

CharsetEncoder::CharsetEncoder(Charset* charset, float averageBytesPerChar,
                               unsigned int maxBytesPerChar, string_ref replacement)
    : charset_(charset), averageBytesPerChar_(averageBytesPerChar),
      maxBytesPerChar_(maxBytesPerChar) {
    // Worded so that NaN is refused.
    if (!(averageBytesPerChar > 0) || maxBytesPerChar == 0 ||
        averageBytesPerChar > static_cast<float>(maxBytesPerChar)) {
        throw std::invalid_argument("CharsetEncoder::CharsetEncoder");
    }
    replaceWith(replacement);
}

CharsetEncoder::~CharsetEncoder() = default;

void CharsetEncoder::implReplaceWith(string_ref) {}
void CharsetEncoder::implOnMalformedInput(CodingErrorAction) {}
void CharsetEncoder::implOnUnmappableCharacter(CodingErrorAction) {}
CoderResult CharsetEncoder::implFlush(Buffer<unsigned char>&) {
    return CoderResult::underflow();
}
void CharsetEncoder::implReset() {}

CharsetEncoder& CharsetEncoder::onMalformedInput(CodingErrorAction action) {
    if (!detail::isValid(action)) {
        throw std::invalid_argument("CharsetEncoder::onMalformedInput");
    }
    malformedInputAction_ = action;
    implOnMalformedInput(action);
    return *this;
}

CharsetEncoder& CharsetEncoder::onUnmappableCharacter(CodingErrorAction action) {
    if (!detail::isValid(action)) {
        throw std::invalid_argument("CharsetEncoder::onUnmappableCharacter");
    }
    unmappableCharacterAction_ = action;
    implOnUnmappableCharacter(action);
    return *this;
}

CharsetEncoder& CharsetEncoder::replaceWith(string_ref replacement) {
    if (replacement.empty() || replacement.size() > maxBytesPerChar_ ||
        !isLegalReplacement(replacement)) {
        throw std::invalid_argument("CharsetEncoder::replaceWith");
    }
    replacement_ = replacement.to_string();
    implReplaceWith(replacement_);
    return *this;
}

bool CharsetEncoder::isLegalReplacement(string_ref replacement) {
    if (replacementChecker_ == nullptr) {
        replacementChecker_ = charset_->newDecoder();
        replacementChecker_->onMalformedInput(REPORT).onUnmappableCharacter(REPORT);
    } else {
        replacementChecker_->reset();
    }
    ustring text(replacement.size() * replacementChecker_->maxCharsPerByte(), u'\0');
    Buffer<const unsigned char> in = bytesOf(replacement);
    Buffer<char16> out(text.data(), text.size());
    return !replacementChecker_->decode(in, out, true).isError();
}

CharsetEncoder& CharsetEncoder::reset() {
    state_ = detail::ST_RESET;
    implReset();
    return *this;
}

CoderResult CharsetEncoder::encode(Buffer<const char16>& in, Buffer<unsigned char>& out,
                                   bool endOfInput) {
    const auto actionFor = [&](CoderResult result) {
        if (result.kind != CoderResult::UNMAPPABLE) {
            return malformedInputAction_;
        }
        const std::size_t size = std::min<std::size_t>(result.length == 1 ? 1 : 2,
                                                       in.hasRemaining() ? in.remaining() : 0);
        const char16* const units = in.data() + in.position();
        const bool ignorable =
            (size == 1 && isDefaultIgnorable(static_cast<char32_t>(units[0]))) ||
            (size == 2 && isDefaultIgnorable(Char16::toCodePoint(units[0], units[1])));
        return ignorable ? IGNORE : unmappableCharacterAction_;
    };
    // The replacement as the buffer's elements.
    struct {
        const std::string& bytes;
        const unsigned char* data() const {
            return reinterpret_cast<const unsigned char*>(bytes.data());
        }
        std::size_t size() const { return bytes.size(); }
    } const replacement{replacement_};
    return detail::convertStep(
        state_, MESSAGES, in, out, endOfInput, replacement, [&] { return encodeLoop(in, out); },
        actionFor);
}

CoderResult CharsetEncoder::flush(Buffer<unsigned char>& out) {
    return detail::flushRun(state_, MESSAGES, [&] { return implFlush(out); });
}

std::string CharsetEncoder::encode(Buffer<const char16>& in) {
    if (!in.hasRemaining()) {
        return {};
    }
    reset();
    return detail::convertAll<std::string, unsigned char>(
        in.remaining(), averageBytesPerChar_,
        [&](Buffer<unsigned char>& out) { return encode(in, out, true); },
        [&](Buffer<unsigned char>& out) { return flush(out); });
}

std::string CharsetEncoder::encode(ustring_ref in) {
    Buffer<const char16> units(in.data(), in.size());
    return encode(units);
}

bool CharsetEncoder::canEncode(Buffer<const char16>& in) {
    if (state_ == detail::ST_FLUSHED) {
        reset();
    } else if (state_ != detail::ST_RESET) {
        throw std::logic_error("CharsetEncoder::canEncode: illegal state");
    }
    const bool encodable = tryEncode(in);
    reset();
    return encodable;
}

// The actions stay in force for the test. They are put back because a hook may change them.
bool CharsetEncoder::tryEncode(Buffer<const char16>& in) {
    struct Restore {
        CharsetEncoder& encoder;
        CodingErrorAction malformed = encoder.malformedInputAction_;
        CodingErrorAction unmappable = encoder.unmappableCharacterAction_;
        ~Restore() {
            encoder.malformedInputAction_ = malformed;
            encoder.unmappableCharacterAction_ = unmappable;
        }
    } const restore{*this};
    try {
        encode(in);
    } catch (const CharacterCodingError&) {
        return false;
    }
    return true;
}

bool CharsetEncoder::canEncode(ustring_ref text) {
    Buffer<const char16> in(text.data(), text.size());
    return canEncode(in);
}

bool CharsetEncoder::canEncode(char16 unit) {
    Buffer<const char16> in(&unit, 1);
    return canEncode(in);
}

char32_t CharsetEncoder::fetchSurrogatePair(char16 first, const char16*& pos, const char16* end,
                                            CoderResult* result) {
    if (Char16::isHighSurrogate(first)) {
        if (pos == end) {
            return 0;
        }
        const char16 second = *pos++;
        if (Char16::isLowSurrogate(second)) {
            return Char16::toCodePoint(first, second);
        }
    }
    *result = CoderResult::malformed(1);
    return 0;
}

CoderResult CharsetEncoder::unmappableCodeUnit(const char16* pos, const char16* end) {
    if (!Char16::isSurrogate(*pos)) {
        return CoderResult::unmappable(1);
    }
    if (Char16::isHighSurrogate(*pos)) {
        if (end - pos == 1) {
            return CoderResult::underflow();
        }
        if (Char16::isLowSurrogate(pos[1])) {
            return CoderResult::unmappable(2);
        }
    }
    return CoderResult::malformed(1);
}

bool CharsetEncoder::isDefaultIgnorable(char32_t cp) noexcept {
    struct Range {
        char32_t first;
        char32_t last;
    };
    // A list of its own, and not the Unicode property, which changes between versions: what a text
    // turns into must not. U+FE00 to U+FEFF is whole, beyond the variation selectors.
    static constexpr Range RANGES[] = {
        {0x00AD, 0x00AD}, {0x034F, 0x034F},   {0x061C, 0x061C},   {0x115F, 0x1160},
        {0x17B4, 0x17B5}, {0x180B, 0x180E},   {0x200B, 0x200F},   {0x202A, 0x202E},
        {0x2060, 0x206F}, {0x3164, 0x3164},   {0xFE00, 0xFEFF},   {0xFFA0, 0xFFA0},
        {0xFFF0, 0xFFF8}, {0x1BCA0, 0x1BCA3}, {0x1D173, 0x1D17A}, {0xE0000, 0xE0FFF},
    };
    const auto* const range =
        std::lower_bound(std::begin(RANGES), std::end(RANGES), cp,
                         [](const Range& r, char32_t value) { return r.last < value; });
    return range != std::end(RANGES) && range->first <= cp;
}

} // namespace orv
