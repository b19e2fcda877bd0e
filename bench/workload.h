// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What one benchmark converts: pieces of a text, both encoded and as UTF-16.
#ifndef ORV_BENCH_WORKLOAD_H
#define ORV_BENCH_WORKLOAD_H

#include "bench/texts.h"

#include <cstddef>
#include <string>
#include <vector>

namespace bench {

/// A text and the bytes that stand for it.
struct Piece {
    std::u16string text;
    std::string bytes;
};

using Pieces = std::vector<Piece>;

/// Pieces of consecutive text, each of at most \p bytes bytes in the character set named \p charset
/// and cut between characters. The set must hold the text.
///
/// Small pieces are many, so that a benchmark which takes them in turn does not see the same one
/// twice in a row.
Pieces makePieces(const char* charset, Script script, std::size_t bytes, std::size_t count);

} // namespace bench

#endif
