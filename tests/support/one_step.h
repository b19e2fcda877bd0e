// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief A single step of a fresh coder: what it gives, where it stops, what it writes.
#ifndef ORV_TESTS_SUPPORT_ONE_STEP_H
#define ORV_TESTS_SUPPORT_ONE_STEP_H

#include "orv/liborvxx/charset/charset.h"
#include "orv/liborvxx/text/utf16_interop.h"

#include <cstddef>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>

namespace orvtest {

/// The outcome of a step.
template <typename Text>
struct OneStep {
    orv::CoderResult result;
    std::size_t inPosition;
    Text text;
};

/// Decodes with the given room, more input to come, and errors reported. Both arrays are as long as
/// their contents, for the eyes of a sanitizer.
inline OneStep<std::u16string> decodeStep(orv::Charset& charset, std::string_view bytes,
                                          std::size_t room) {
    const auto decoder = charset.newDecoder();
    const std::unique_ptr<unsigned char[]> input(new unsigned char[bytes.size()]);
    bytes.copy(reinterpret_cast<char*>(input.get()), bytes.size());
    const std::unique_ptr<orv::char16[]> output(new orv::char16[room]);
    orv::Buffer<const unsigned char> in(input.get(), bytes.size());
    orv::Buffer<orv::char16> out(output.get(), room);
    const orv::CoderResult result = decoder->decode(in, out, false);
    return {result, in.position(), {orv::as_char16_t(output.get()), out.position()}};
}

/// The same for encoding.
inline OneStep<std::string> encodeStep(orv::Charset& charset, std::u16string_view text,
                                       std::size_t room) {
    const auto encoder = charset.newEncoder();
    const std::unique_ptr<orv::char16[]> input(new orv::char16[text.size()]);
    text.copy(orv::as_char16_t(input.get()), text.size());
    const std::unique_ptr<unsigned char[]> output(new unsigned char[room]);
    orv::Buffer<const orv::char16> in(input.get(), text.size());
    orv::Buffer<unsigned char> out(output.get(), room);
    const orv::CoderResult result = encoder->encode(in, out, false);
    return {result, in.position(), {reinterpret_cast<const char*>(output.get()), out.position()}};
}

/// Units that no literal can hold: lone surrogates.
inline std::u16string units(std::initializer_list<char16_t> list) {
    return list;
}

} // namespace orvtest

#endif
