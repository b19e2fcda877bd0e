// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `Transcoder`: one way of converting between a character set and UTF-16, ours or a peer's.
#ifndef ORV_BENCH_TRANSCODER_H
#define ORV_BENCH_TRANSCODER_H

#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace bench {

/// Converts whole valid texts. Whatever can be set up once is set up by the constructor.
class Transcoder {
public:
    Transcoder() = default;
    Transcoder(const Transcoder&) = delete;
    Transcoder& operator=(const Transcoder&) = delete;
    virtual ~Transcoder() = default;

    /// Name for tables.
    virtual const char* name() const = 0;

    /// The result lies in \p out, which has room enough, or in memory of the transcoder that lasts
    /// until the next call. An error gives a result that is too short.
    virtual std::u16string_view decode(std::string_view bytes, std::span<char16_t> out) = 0;
    virtual std::string_view encode(std::u16string_view text, std::span<char> out) = 0;
};

using Transcoders = std::vector<std::unique_ptr<Transcoder>>;

/// This library's ways for the character set: step by step into the given memory, and the whole
/// text at once into memory of its own.
Transcoders makeOwn(const char* charset);

/// The ways of other libraries that were found when this was built and that know the character set.
Transcoders makePeers(const char* charset);

} // namespace bench

#endif
