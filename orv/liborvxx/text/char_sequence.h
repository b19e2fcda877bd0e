// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `CharSequence` and `Appendable`: any run of UTF-16 units to read, anything that takes
/// units at its end. `StringCharSequence`, a sequence that owns its text.
#ifndef ORV_LIBORVXX_TEXT_CHAR_SEQUENCE_H
#define ORV_LIBORVXX_TEXT_CHAR_SEQUENCE_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/text/char16.h"
#include "orv/liborvxx/text/string_ref.h"
#include "orv/liborvxx/text/ustring.h"

#include <cstddef>
#include <memory>

namespace orv {

/// A run of UTF-16 units to read. Lengths and indices are in units.
class ORVXX_API CharSequence {
public:
    virtual ~CharSequence();

    virtual std::size_t length() const = 0;

    /// Unit \p index. What a bad index does is for the class to say.
    virtual char16 charAt(std::size_t index) const = 0;

    /// A sequence of its own with the units from \p start up to \p end.
    virtual std::unique_ptr<CharSequence> subSequence(std::size_t start, std::size_t end) const = 0;

    /// All units.
    virtual ustring toString() const = 0;

protected:
    CharSequence() = default;
    CharSequence(const CharSequence&) = default;
    CharSequence(CharSequence&&) = default;
    CharSequence& operator=(const CharSequence&) = default;
    CharSequence& operator=(CharSequence&&) = default;
};

/// Something that takes UTF-16 units at its end.
class ORVXX_API Appendable {
public:
    virtual ~Appendable();

    /// One unit.
    virtual Appendable& append(char16 c) = 0;

    /// Units \p start up to \p end of \p csq.
    virtual Appendable& append(CharSequence* csq, std::size_t start, std::size_t end) = 0;
    /// All of \p csq.
    virtual Appendable& append(CharSequence* csq) = 0;

    /// Units \p start up to \p end of \p str.
    virtual Appendable& append(ustring_ref str, std::size_t start, std::size_t end) = 0;
    /// All of \p str.
    virtual Appendable& append(ustring_ref str) = 0;

protected:
    Appendable() = default;
    Appendable(const Appendable&) = default;
    Appendable(Appendable&&) = default;
    Appendable& operator=(const Appendable&) = default;
    Appendable& operator=(Appendable&&) = default;
};

/// A sequence over a text of its own. A value: copies hold copies of the text.
class ORVXX_API StringCharSequence : public CharSequence {
public:
    /// Takes the text over.
    explicit StringCharSequence(ustring s) noexcept;
    /// Copies the text.
    explicit StringCharSequence(ustring_ref s);

    ~StringCharSequence() override;
    StringCharSequence(const StringCharSequence&) = default;
    StringCharSequence(StringCharSequence&&) = default;
    StringCharSequence& operator=(const StringCharSequence&) = default;
    StringCharSequence& operator=(StringCharSequence&&) = default;

    std::size_t length() const override;

    /// Unit \p index. \exception std::out_of_range "invalid string position" if it is not below the
    /// length.
    char16 charAt(std::size_t index) const override;

    /// A `StringCharSequence` with a copy of the units from \p start up to \p end.
    /// \exception std::out_of_range "subSequence: start (S > end (E)" if \p start exceeds \p end;
    /// "subSequence: end (E) > this->length() (L)" if \p end exceeds the length
    std::unique_ptr<CharSequence> subSequence(std::size_t start, std::size_t end) const override;

    ustring toString() const override;

    /// The text itself.
    ustring& str() noexcept { return text_; }
    const ustring& str() const noexcept { return text_; }

private:
    ustring text_;
};

} // namespace orv

#endif
