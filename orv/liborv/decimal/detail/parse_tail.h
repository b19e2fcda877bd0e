// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What a parse keeps of digits without end.
///
/// The first 17 digits from the first that is not 0 go into one half of the state, further ones
/// into the other, as many as the format has. Of the rest it is enough to know whether they are
/// nothing, less than half a digit, half or more.
#ifndef ORV_LIBORV_DECIMAL_DETAIL_PARSE_TAIL_H
#define ORV_LIBORV_DECIMAL_DETAIL_PARSE_TAIL_H

/// How many digits a half of the coefficient takes.
#define ORV_DEC_HALF_DIGITS 17

/// What is not kept, in units of the last digit kept.
enum Tail { TAIL_NONE = 0, TAIL_BELOW_HALF, TAIL_HALF, TAIL_ABOVE_HALF };

/// What digits that are not kept come to, of which \p digit is the first.
static inline unsigned orvFirstOfTail(unsigned digit) {
    if (digit == 0) {
        return TAIL_NONE;
    }
    return digit < 5 ? TAIL_BELOW_HALF : digit == 5 ? TAIL_HALF : TAIL_ABOVE_HALF;
}

/// The same with a further one.
static inline unsigned orvNextOfTail(unsigned tail, unsigned digit) {
    return digit != 0 && (tail == TAIL_NONE || tail == TAIL_HALF) ? tail + 1 : tail;
}

#endif
