// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What a reader of the results must know about the run: processor, compiler, peers.
#ifndef ORV_BENCH_CONTEXT_H
#define ORV_BENCH_CONTEXT_H

namespace bench {

/// Adds processor, compiler, build type and the versions of the peers to the head of the results.
void addContext();

} // namespace bench

#endif
