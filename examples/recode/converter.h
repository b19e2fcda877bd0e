// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `Converter`: a stream of bytes from one character set to another, in constant memory.
#ifndef ORV_EXAMPLES_RECODE_CONVERTER_H
#define ORV_EXAMPLES_RECODE_CONVERTER_H

#include "examples/recode/bad_input.h"
#include "examples/recode/files.h"
#include "orv/liborvxx/charset/buffer.h"
#include "orv/liborvxx/charset/charset.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace recode {

/// Converts streams through three fixed arrays: bytes, UTF-16 units, bytes.
class Converter {
public:
    /// \p onError is what both coders do about bad input.
    Converter(orv::Charset& from, orv::Charset& to, orv::CodingErrorAction onError);
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    /// Called with the number of bytes just read.
    using Listener = std::function<void(std::size_t)>;

    /// Converts one input from its start to its end. Returns the first place that could not be
    /// converted, if it is to be reported; all that stands before it has been written then.
    /// \exception orv::IOError
    std::optional<BadInput> convert(Input& input, Output& output, const Listener& onRead);

private:
    void begin();
    bool fill(Input& input, const Listener& onRead);
    std::optional<BadInput> encodeUnits(Output& output, bool last);
    void drain(Output& output);
    void holdRest();
    std::size_t byteIndexOfUnit(std::size_t unit);
    BadInput undecodable(orv::CoderResult result) const;
    BadInput unencodable(orv::CoderResult result);

    std::unique_ptr<orv::CharsetDecoder> decoder_;
    std::unique_ptr<orv::CharsetEncoder> encoder_;
    // Decodes a second time, to find out where in the bytes a unit came from.
    std::unique_ptr<orv::CharsetDecoder> tracer_;

    std::vector<unsigned char> byteArray_;
    std::vector<orv::char16> unitArray_;
    std::vector<orv::char16> traceArray_;
    std::vector<unsigned char> outputArray_;
    orv::Buffer<unsigned char> bytes_;
    orv::Buffer<orv::char16> units_;
    orv::Buffer<unsigned char> output_;

    // Where the array of bytes begins in the input.
    std::uint64_t arrayOffset_ = 0;
    // Where in the array the bytes begin whose units are in units_, behind the held ones.
    std::size_t chunkStart_ = 0;
    // A high surrogate may wait in units_ for its other half when its bytes are gone already.
    std::size_t heldUnits_ = 0;
    std::uint64_t heldOffset_ = 0;
    std::string heldBytes_;
};

} // namespace recode

#endif
