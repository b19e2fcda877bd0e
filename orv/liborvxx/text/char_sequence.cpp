// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The interfaces' destructors, and `StringCharSequence`.
#include "orv/liborvxx/text/char_sequence.h"

#include "orv/liborvxx/text/detail/range_message.h"

#include <utility>

namespace orv {

// Destructors stand here so that each class has its type information and vtable in one place.
CharSequence::~CharSequence() = default;
Appendable::~Appendable() = default;
StringCharSequence::~StringCharSequence() = default;

StringCharSequence::StringCharSequence(ustring s) noexcept : text_(std::move(s)) {}

StringCharSequence::StringCharSequence(ustring_ref s) : text_(s.data(), s.size()) {}

std::size_t StringCharSequence::length() const {
    return text_.size();
}

char16 StringCharSequence::charAt(std::size_t index) const {
    if (index >= text_.size()) {
        detail::throwInvalidPosition();
    }
    return text_[index];
}

std::unique_ptr<CharSequence> StringCharSequence::subSequence(std::size_t start,
                                                              std::size_t end) const {
    if (start > end) {
        // Without its second bracket: kept for callers that compare the message.
        detail::throwOutOfRange("%s: start (%d > end (%d)", "subSequence", start, end);
    }
    if (end > text_.size()) {
        detail::throwOutOfRange("%s: end (%d) > this->length() (%d)", "subSequence", end,
                                text_.size());
    }
    return std::make_unique<StringCharSequence>(ustring_ref(text_.data() + start, end - start));
}

ustring StringCharSequence::toString() const {
    return text_;
}

} // namespace orv
