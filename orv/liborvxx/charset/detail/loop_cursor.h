// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The raw pointers on which a conversion loop runs.
#ifndef ORV_LIBORVXX_CHARSET_DETAIL_LOOP_CURSOR_H
#define ORV_LIBORVXX_CHARSET_DETAIL_LOOP_CURSOR_H

#include "orv/liborvxx/charset/buffer.h"

#include <algorithm>
#include <cstddef>

namespace orv::detail {

/// Pointers into an input and an output buffer. They are taken once at the start of a loop;
/// `commit` moves the buffers' positions once at its end.
template <typename In, typename Out>
struct LoopCursor {
    LoopCursor(Buffer<const In>& inBuffer, Buffer<Out>& outBuffer)
        : src(inBuffer.data() + inBuffer.position()), srcEnd(end(inBuffer.data(), inBuffer)),
          dst(outBuffer.data() + outBuffer.position()), dstEnd(end(outBuffer.data(), outBuffer)),
          in_(inBuffer), out_(outBuffer) {}

    std::size_t srcLeft() const noexcept { return static_cast<std::size_t>(srcEnd - src); }
    std::size_t dstLeft() const noexcept { return static_cast<std::size_t>(dstEnd - dst); }

    /// Moves both positions to the pointers and returns \p result.
    template <typename Result>
    Result commit(Result result) {
        in_.position(static_cast<std::size_t>(src - in_.data()));
        out_.position(static_cast<std::size_t>(dst - out_.data()));
        return result;
    }

    const In* src;
    const In* srcEnd;
    Out* dst;
    Out* dstEnd;

private:
    // A limit set below the position leaves nothing to convert.
    template <typename E>
    static E* end(E* data, const BufferBase& buffer) {
        return data + std::max(buffer.position(), buffer.limit());
    }

    Buffer<const In>& in_;
    Buffer<Out>& out_;
};

using DecodeCursor = LoopCursor<unsigned char, char16>;
using EncodeCursor = LoopCursor<char16, unsigned char>;

} // namespace orv::detail

#endif
