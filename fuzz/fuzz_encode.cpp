// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Encoders: any units, cut up in any way, encode alike, within their buffers, and to an
/// end.
///
/// Input: as that of the decoders, and the units to encode, two bytes each with the high byte
/// first.
#include "fuzz/coder_fuzz.h"

namespace {

struct EncoderTraits {
    using Coder = orv::CharsetEncoder;
    using InElement = orv::char16;
    using OutElement = unsigned char;
    using InString = orv::ustring;
    using OutString = std::string;

    static orv::CoderResult step(Coder& encoder, orv::Buffer<const orv::char16>& in,
                                 orv::Buffer<unsigned char>& out, bool last) {
        return encoder.encode(in, out, last);
    }
    static OutString whole(Coder& encoder, orv::Buffer<const orv::char16>& in) {
        return encoder.encode(in);
    }
    static orv::CodingErrorAction actionFor(const Coder& encoder, orv::CoderResult result) {
        return result.kind == orv::CoderResult::MALFORMED ? encoder.malformedInputAction()
                                                          : encoder.unmappableCharacterAction();
    }
};

// Whether the text can be encoded is what encoding it says.
void checkCanEncode(orv::CharsetEncoder& encoder, const orv::ustring& text) {
    encoder.onMalformedInput(orv::REPORT).onUnmappableCharacter(orv::REPORT);
    bool encodes = true;
    try {
        encoder.encode(text);
    } catch (const orv::CharacterCodingError&) {
        encodes = false;
    }
    encoder.reset();
    FUZZ_CHECK(encoder.canEncode(text) == encodes);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    orv::Charset* const charset = fuzz::chooseCharset(input.byte());
    const auto encoder = charset->newEncoder();
    const orv::CodingErrorAction onMalformed = fuzz::chooseAction(input.byte());
    const orv::CodingErrorAction onUnmappable = fuzz::chooseAction(input.byte());
    const fuzz::Plan plan = fuzz::choosePlan(input);
    const orv::ustring text = fuzz::toUnits(input.rest());
    fuzz::checkCoder<EncoderTraits>(*encoder, text, plan, onMalformed, onUnmappable);

    encoder->onMalformedInput(orv::REPLACE).onUnmappableCharacter(orv::REPLACE);
    FUZZ_CHECK(charset->encode(text) == encoder->encode(text));
    checkCanEncode(*encoder, text);
    return 0;
}
