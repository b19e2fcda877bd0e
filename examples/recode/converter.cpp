// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The loop from bytes to units to bytes, and the way back from a unit to its bytes.
#include "examples/recode/converter.h"

#include "orv/liborvxx/text/code_points.h"

#include <cassert>

namespace recode {

namespace {

constexpr std::size_t BYTES = std::size_t{64} * 1024;
constexpr std::size_t UNITS = std::size_t{64} * 1024;
// Takes what a full array of units becomes in most sets, so that there is one write for a read.
constexpr std::size_t OUTPUT_BYTES = 3 * UNITS;

std::unique_ptr<orv::CharsetDecoder> makeDecoder(orv::Charset& set, orv::CodingErrorAction action) {
    auto decoder = set.newDecoder();
    decoder->onMalformedInput(action).onUnmappableCharacter(action);
    return decoder;
}

std::unique_ptr<orv::CharsetEncoder> makeEncoder(orv::Charset& set, orv::CodingErrorAction action) {
    auto encoder = set.newEncoder();
    encoder->onMalformedInput(action).onUnmappableCharacter(action);
    return encoder;
}

std::string bytesBetween(const orv::Buffer<unsigned char>& buffer, std::size_t begin,
                         std::size_t end) {
    return {buffer.data() + begin, buffer.data() + end};
}

} // namespace

Converter::Converter(orv::Charset& from, orv::Charset& to, orv::CodingErrorAction onError)
    : decoder_(makeDecoder(from, onError)), encoder_(makeEncoder(to, onError)),
      tracer_(makeDecoder(from, onError)), byteArray_(BYTES), unitArray_(UNITS), traceArray_(UNITS),
      outputArray_(OUTPUT_BYTES), bytes_(byteArray_.data(), BYTES),
      units_(unitArray_.data(), UNITS), output_(outputArray_.data(), OUTPUT_BYTES) {}

std::optional<BadInput> Converter::convert(Input& input, Output& output, const Listener& onRead) {
    begin();
    for (bool atEnd = false; !atEnd;) {
        atEnd = !fill(input, onRead);
        orv::CoderResult decoded;
        do {
            chunkStart_ = bytes_.position();
            decoded = decoder_->decode(bytes_, units_, atEnd);
            if (atEnd && decoded.kind == orv::CoderResult::UNDERFLOW) {
                decoded = decoder_->flush(units_);
            }
            // Bad bytes end the text as well: half of a surrogate pair before them is the first
            // fault.
            const bool last =
                decoded.isError() || (atEnd && decoded.kind == orv::CoderResult::UNDERFLOW);
            if (auto bad = encodeUnits(output, last)) {
                return bad;
            }
            if (decoded.isError()) {
                return undecodable(decoded);
            }
        } while (decoded.kind == orv::CoderResult::OVERFLOW);
    }
    return std::nullopt;
}

void Converter::begin() {
    decoder_->reset();
    encoder_->reset();
    bytes_.clear().flip();
    units_.clear();
    output_.clear();
    arrayOffset_ = 0;
    heldUnits_ = 0;
}

// Reads behind the bytes of an unfinished sequence; false at the end of the input.
bool Converter::fill(Input& input, const Listener& onRead) {
    arrayOffset_ += bytes_.position();
    bytes_.compact();
    const std::size_t count = input.read(bytes_.data() + bytes_.position(), bytes_.remaining());
    bytes_.position(bytes_.position() + count);
    bytes_.flip();
    onRead(count);
    return count != 0;
}

// Encodes and writes all units, and leaves room for more.
std::optional<BadInput> Converter::encodeUnits(Output& output, bool last) {
    units_.flip();
    orv::CoderResult result;
    do {
        result = encoder_->encode(units_, output_, last);
        if (last && result.kind == orv::CoderResult::UNDERFLOW) {
            result = encoder_->flush(output_);
        }
        drain(output);
    } while (result.kind == orv::CoderResult::OVERFLOW);
    if (result.isError()) {
        return unencodable(result);
    }
    holdRest();
    units_.compact();
    return std::nullopt;
}

void Converter::drain(Output& output) {
    output_.flip();
    output.write(output_.data(), output_.limit());
    output_.clear();
}

// Notes where the high surrogate came from that waits for its other half.
void Converter::holdRest() {
    const std::size_t count = units_.remaining();
    assert(count <= 1);
    if (count != 0 && units_.limit() > heldUnits_) {
        const std::size_t begin = byteIndexOfUnit(units_.position() - heldUnits_);
        heldOffset_ = arrayOffset_ + begin;
        heldBytes_ = bytesBetween(bytes_, begin, bytes_.position());
    }
    heldUnits_ = count;
}

// Index of the byte with which a unit of this chunk begins. A decoder that has room for the units
// before it and no more stops just there, at the speed of decoding. That the chunk can be decoded
// by itself is because the decoders keep no state from call to call.
std::size_t Converter::byteIndexOfUnit(std::size_t unit) {
    orv::Buffer<const unsigned char> in(bytes_.data(), chunkStart_, bytes_.position(), BYTES);
    orv::Buffer<orv::char16> out(traceArray_.data(), unit);
    tracer_->reset().decode(in, out, true);
    return in.position();
}

BadInput Converter::undecodable(orv::CoderResult result) const {
    const std::size_t begin = bytes_.position();
    BadInput bad;
    bad.kind =
        result.kind == orv::CoderResult::MALFORMED ? BadInput::MALFORMED : BadInput::NOT_IN_UNICODE;
    bad.offset = arrayOffset_ + begin;
    bad.bytes = bytesBetween(bytes_, begin, begin + result.length);
    return bad;
}

BadInput Converter::unencodable(orv::CoderResult result) {
    const std::size_t unit = units_.position();
    const std::size_t unitEnd = unit + result.length;
    BadInput bad;
    if (result.kind == orv::CoderResult::MALFORMED) {
        bad.kind = BadInput::LONE_SURROGATE;
        bad.character = static_cast<char32_t>(units_.get(unit));
    } else {
        bad.kind = BadInput::NO_COUNTERPART;
        bad.character = result.length == 1
                            ? static_cast<char32_t>(units_.get(unit))
                            : orv::Char16::toCodePoint(units_.get(unit), units_.get(unit + 1));
    }
    if (unit >= heldUnits_) {
        const std::size_t begin = byteIndexOfUnit(unit - heldUnits_);
        bad.offset = arrayOffset_ + begin;
        bad.bytes = bytesBetween(bytes_, begin, byteIndexOfUnit(unitEnd - heldUnits_));
    } else {
        bad.offset = heldOffset_;
        bad.bytes = heldBytes_;
        if (unitEnd > heldUnits_) {
            bad.bytes += bytesBetween(bytes_, chunkStart_, byteIndexOfUnit(unitEnd - heldUnits_));
        }
    }
    return bad;
}

} // namespace recode
