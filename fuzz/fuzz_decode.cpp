// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Decoders: any bytes, cut up in any way, decode alike, within their buffers, and to an
/// end.
///
/// Input: set, action for malformed input, action for unmappable characters, number of steps modulo
/// 16, that many steps (low half: input added, high half: room), then the bytes to decode.
#include "fuzz/coder_fuzz.h"

namespace {

struct DecoderTraits {
    using Coder = orv::CharsetDecoder;
    using InElement = unsigned char;
    using OutElement = orv::char16;
    using InString = std::string;
    using OutString = orv::ustring;

    static orv::CoderResult step(Coder& decoder, orv::Buffer<const unsigned char>& in,
                                 orv::Buffer<orv::char16>& out, bool last) {
        return decoder.decode(in, out, last);
    }
    static OutString whole(Coder& decoder, orv::Buffer<const unsigned char>& in) {
        return decoder.decode(in);
    }
    static orv::CodingErrorAction actionFor(const Coder& decoder, orv::CoderResult result) {
        return result.kind == orv::CoderResult::MALFORMED ? decoder.malformedInputAction()
                                                          : decoder.unmappableCharacterAction();
    }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    orv::Charset* const charset = fuzz::chooseCharset(input.byte());
    const auto decoder = charset->newDecoder();
    const orv::CodingErrorAction onMalformed = fuzz::chooseAction(input.byte());
    const orv::CodingErrorAction onUnmappable = fuzz::chooseAction(input.byte());
    const fuzz::Plan plan = fuzz::choosePlan(input);
    const std::string bytes = input.rest();
    fuzz::checkCoder<DecoderTraits>(*decoder, bytes, plan, onMalformed, onUnmappable);

    decoder->onMalformedInput(orv::REPLACE).onUnmappableCharacter(orv::REPLACE);
    FUZZ_CHECK(charset->decode(bytes) == decoder->decode(bytes));
    return 0;
}
