// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `StringBuilder`, a text that grows, with range-checked editing.
#ifndef ORV_LIBORVXX_TEXT_STRING_BUILDER_H
#define ORV_LIBORVXX_TEXT_STRING_BUILDER_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/text/char16.h"
#include "orv/liborvxx/text/char_sequence.h"
#include "orv/liborvxx/text/string_ref.h"
#include "orv/liborvxx/text/ustring.h"

#include <concepts>
#include <cstddef>
#include <memory>

namespace orv {

/// A `ustring` under construction: appending, inserting, replacing, deleting, with every position
/// checked. Positions, counts and lengths are in UTF-16 units unless a name says `CodePoint`.
///
/// A failed call leaves the text as it was. A bad position is `std::out_of_range`: with the message
/// "invalid string position", or with the operation and the numbers, in the patterns given below,
/// where S, E, L and so on stand for decimal numbers. A text may be appended, inserted or put in
/// place within itself. Numbers are written as `to_ustring_c` writes them, alike in every locale.
/// Capacity grows as that of the standard string. One thread at a time.
///
/// \par Example
/// \code
/// using namespace orv::literals;
/// orv::StringBuilder text;
/// text.append(u"x = "_u).append(-12).append(u'!');
/// text.replace(0, 1, u"y"_u).insert(4, true);
/// bool ready = text.get() == u"y = true-12!"_u;
/// \endcode
class ORVXX_API StringBuilder : public Appendable, public CharSequence {
public:
    /// "Not found", and "to the end" as an end.
    static constexpr std::size_t npos = static_cast<std::size_t>(-1);

    /// \name Construction
    /// @{

    StringBuilder() noexcept;
    /// Empty, with room for \p capacity units.
    explicit StringBuilder(std::size_t capacity);
    /// Takes the text over.
    explicit StringBuilder(ustring s) noexcept;
    /// Copies the text.
    explicit StringBuilder(ustring_ref s);

    ~StringBuilder() override;
    StringBuilder(const StringBuilder&) = default;
    StringBuilder(StringBuilder&&) = default;
    StringBuilder& operator=(const StringBuilder&) = default;
    StringBuilder& operator=(StringBuilder&&) = default;

    /// @}
    /// \name Reading
    /// @{

    std::size_t length() const override;

    /// Units that fit without an allocation.
    std::size_t capacity() const noexcept { return text_.capacity(); }

    /// Unit \p index. \exception std::out_of_range "invalid string position"
    char16 charAt(std::size_t index) const override;

    /// Unit \p index, unchecked.
    char16 operator[](std::size_t index) const noexcept;

    /// The text itself, valid until the next change.
    const ustring& get() const noexcept { return text_; }

    /// A copy of the text.
    ustring toString() const override;

    /// Hands the text out and leaves the builder empty, without the capacity it had.
    ustring release() noexcept;

    /// A `StringCharSequence` with a copy of the units from \p start up to \p end.
    /// \exception std::out_of_range "subSequence: start (S) > end (E)",
    /// "subSequence: end (E) > this->length() (L)"
    std::unique_ptr<CharSequence> subSequence(std::size_t start, std::size_t end) const override;

    /// The code point that begins at, or ends before, \p index: see `Char16`.
    char32_t codePointAt(std::size_t index) const;
    char32_t codePointBefore(std::size_t index) const;

    /// Code points in the units from \p begin up to \p end.
    /// \exception std::out_of_range "codePointCount: beginIndex (B) > endIndex (E)",
    /// "codePointCount: endIndex (E) >= this->length() (L)" if \p end exceeds the length
    std::size_t codePointCount(std::size_t begin, std::size_t end) const;

    /// The index \p n code points after \p index, or before it: see `Char16`.
    std::size_t offsetByCodePoints(std::size_t index, std::ptrdiff_t n) const;

    /// Where \p str begins, at or after \p from; or `npos`.
    std::size_t indexOf(ustring_ref str, std::size_t from = 0) const noexcept;

    /// Where \p str begins, at or before \p from, searched from the back; or `npos`.
    std::size_t lastIndexOf(ustring_ref str, std::size_t from = npos) const noexcept;

    /// @}
    /// \name Appending
    /// @{

    /// One unit.
    StringBuilder& append(char16 c) override;
    StringBuilder& append(char16_t c) { return append(char16(c)); }

    /// All of \p str.
    StringBuilder& append(ustring_ref str) override;

    /// Units \p start up to \p end of \p str.
    /// \exception std::out_of_range "append: start (S) > end (E)",
    /// "append: end (E) > str.length() (L)"
    StringBuilder& append(ustring_ref str, std::size_t start, std::size_t end) override;

    /// All of \p csq, fetched with `charAt`; the text "null" for a null pointer.
    /// \exception std::length_error "appendImpl: (end - start) (N) > (<max_size> - this->length())
    /// (M)" if the text would exceed the `max_size()` of a string; so wherever more than a unit is
    /// appended
    StringBuilder& append(CharSequence* csq) override;

    /// Units \p start up to \p end of \p csq, or of the text "null".
    /// \exception std::out_of_range "append: start (S) > end (E)",
    /// "append: end (E) > csq->length() (L)", "append: end (E) > str.length() (4)" for "null"
    StringBuilder& append(CharSequence* csq, std::size_t start, std::size_t end) override;

    /// "true" or "false". Takes `bool` alone, so that no pointer becomes one.
    template <std::same_as<bool> B>
    StringBuilder& append(B value) {
        return appendBool(value);
    }

    /// A number.
    StringBuilder& append(int value);
    StringBuilder& append(unsigned int value);
    StringBuilder& append(long value);
    StringBuilder& append(unsigned long value);
    StringBuilder& append(long long value);
    StringBuilder& append(unsigned long long value);
    StringBuilder& append(float value);
    StringBuilder& append(double value);

    /// Neither units nor numbers: say which with a cast, or use `appendCodePoint`.
    StringBuilder& append(char c) = delete;
    StringBuilder& append(wchar_t c) = delete;
    StringBuilder& append(char8_t c) = delete;
    StringBuilder& append(char32_t c) = delete;

    /// The one or two units of \p cp, as `Char16::toChars`.
    StringBuilder& appendCodePoint(char32_t cp);

    /// @}
    /// \name Inserting before unit `pos`, which may be the length
    /// \exception std::out_of_range "invalid string position"
    /// @{

    StringBuilder& insert(std::size_t pos, char16 c);
    StringBuilder& insert(std::size_t pos, char16_t c) { return insert(pos, char16(c)); }
    StringBuilder& insert(std::size_t pos, ustring_ref str);
    /// "true" or "false".
    template <std::same_as<bool> B>
    StringBuilder& insert(std::size_t pos, B value) {
        return insertBool(pos, value);
    }
    StringBuilder& insert(std::size_t pos, int value);
    StringBuilder& insert(std::size_t pos, unsigned int value);
    StringBuilder& insert(std::size_t pos, long value);
    StringBuilder& insert(std::size_t pos, unsigned long value);
    StringBuilder& insert(std::size_t pos, long long value);
    StringBuilder& insert(std::size_t pos, unsigned long long value);
    StringBuilder& insert(std::size_t pos, float value);
    StringBuilder& insert(std::size_t pos, double value);
    StringBuilder& insert(std::size_t pos, char c) = delete;
    StringBuilder& insert(std::size_t pos, wchar_t c) = delete;
    StringBuilder& insert(std::size_t pos, char8_t c) = delete;
    StringBuilder& insert(std::size_t pos, char32_t c) = delete;

    /// @}
    /// \name Changing
    /// @{

    /// Puts \p str in place of the units from \p start up to \p end, or to the end of the text if
    /// \p end lies beyond. \exception std::out_of_range "replace: start (S) > end (E)", or "invalid
    /// string position" if \p start exceeds the length
    StringBuilder& replace(std::size_t start, std::size_t end, ustring_ref str);

    /// Removes the units from \p start up to \p end, or to the end of the text if \p end lies
    /// beyond. \exception std::out_of_range "deleteChars: start (S) > end (E)", or "invalid string
    /// position" if \p start exceeds the length
    StringBuilder& deleteChars(std::size_t start, std::size_t end);

    /// Removes unit \p index.
    /// \exception std::out_of_range "deleteCharAt: index (I) >= this->length() (L)"
    StringBuilder& deleteCharAt(std::size_t index);

    /// Turns the text round. Surrogate pairs stay pairs; a low surrogate that stood directly before
    /// a high one comes out as a pair too.
    StringBuilder& reverse() noexcept;

    /// \exception std::out_of_range "invalid string position" if \p index is not below the length
    void setCharAt(std::size_t index, char16 c);

    /// Cuts the text to \p n units, or fills it up to them with the unit 0.
    void setLength(std::size_t n);

    /// Makes room for \p n units in all.
    void ensureCapacity(std::size_t n);

    /// @}

private:
    ORVXX_LOCAL StringBuilder& appendImpl(CharSequence& csq, std::size_t start, std::size_t end);
    ORVXX_LOCAL void checkRoom(std::size_t count) const;
    ORVXX_LOCAL void checkPosition(std::size_t pos) const;
    StringBuilder& appendBool(bool value);
    StringBuilder& insertBool(std::size_t pos, bool value);

    ustring text_;
};

} // namespace orv

#endif
