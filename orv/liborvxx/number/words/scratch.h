// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `Scratch`: words for the length of a call.
#ifndef ORV_LIBORVXX_NUMBER_WORDS_SCRATCH_H
#define ORV_LIBORVXX_NUMBER_WORDS_SCRATCH_H

#include "orv/liborvxx/number/words/limb.h"

#include <memory>
#include <new>

namespace orv::words {

/// Unset words: on the stack if \p Inline suffice, else from the heap.
template <unsigned Inline>
class Scratch {
public:
    /// \exception std::bad_alloc if there is no memory
    explicit Scratch(unsigned n) : block_(n > Inline ? new Word[n] : nullptr) {}

    /// Without memory `data()` is null.
    Scratch(unsigned n, const std::nothrow_t& nothrow) noexcept
        : block_(n > Inline ? new (nothrow) Word[n] : nullptr), missing_(n > Inline && !block_) {}

    Word* data() noexcept { return block_ ? block_.get() : missing_ ? nullptr : local_; }

private:
    std::unique_ptr<Word[]> block_;
    bool missing_ = false;
    Word local_[Inline];
};

} // namespace orv::words

#endif
