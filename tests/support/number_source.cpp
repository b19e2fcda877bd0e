// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The shapes of NumberSource.
#include "tests/support/number_source.h"

namespace orvtest {

namespace {

constexpr unsigned ONES = 0xFFFFFFFFU;

void fill(orv::big_uint& n, unsigned word) {
    for (unsigned i = 0; i < n.size(); ++i) {
        n[i] = word;
    }
}

// Runs of equal bits, some words long and some within a word.
void fillWithRuns(orv::big_uint& n, NumberSource& source) {
    const unsigned total = n.size() * 32;
    const unsigned longest = source.coin() ? 20 : 200;
    bool ones = source.coin();
    fill(n, 0);
    for (unsigned bit = 0; bit < total;) {
        const unsigned length = 1 + source.below(longest);
        for (unsigned end = bit + length; bit < end && bit < total; ++bit) {
            if (ones) {
                n.set_bit(bit);
            }
        }
        ones = !ones;
    }
}

} // namespace

orv::big_uint NumberSource::number(unsigned size) {
    orv::big_uint n;
    n.set_size(size);
    switch (below(16)) {
    case 0:
        fill(n, ONES);
        break;
    case 1:
        fill(n, 0);
        n.set_bit(below(size * 32));
        break;
    case 2:
        fill(n, ONES);
        n.clear_bit(below(size * 32));
        break;
    case 3:
        fill(n, 0);
        break;
    case 4:
    case 5:
    case 6:
        fillWithRuns(n, *this);
        break;
    default:
        for (unsigned i = 0; i < size; ++i) {
            n[i] = static_cast<unsigned>(bits());
        }
        break;
    }
    if (below(8) == 0) {
        for (unsigned i = size - below(size); i < size; ++i) {
            n[i] = 0;
        }
    }
    return n;
}

} // namespace orvtest
