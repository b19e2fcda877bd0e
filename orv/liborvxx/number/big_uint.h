// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `big_uint`: an exact unsigned integer of up to 2,097,120 bits, in a width that its user
/// chooses.
#ifndef ORV_LIBORVXX_NUMBER_BIG_UINT_H
#define ORV_LIBORVXX_NUMBER_BIG_UINT_H

#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/text/ustring.h"

#include <array>
#include <bit>
#include <cassert>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>

namespace orv {

/// An unsigned integer of 1 to 65535 words of 32 bits, least significant word first.
///
/// It behaves like a register and not like a number that grows: arithmetic, shifts and bit
/// operations work inside the present `size()` of the destination and tell what did not fit. Only
/// `set_size`, `prepend`, `trim`, assignment and `swap` change the width. Who needs a wider result
/// sets the width, computes, and trims.
/// \code
/// orv::big_uint factorial(1u);
/// for (unsigned i = 2; i <= 30; ++i) {
///     if (const unsigned carry = factorial.multiply(i)) { // what did not fit ...
///         factorial.prepend(carry);                       // ... becomes the top word
///     }
/// }
/// std::string text = factorial.to_string(); // "265252859812191058636308480000000"
/// \endcode
///
/// Zero words at the top change nothing in the value: comparisons and queries accept them, and
/// `trim` drops them.
///
/// Up to 8 words live in the object; only wider values allocate. Indexes, bit numbers and operand
/// widths are the caller's duty: they are asserted in debug builds and not checked otherwise. An
/// object may be read from several threads while nobody writes it. Where a function's memory runs
/// out, `std::bad_alloc` passes through and destinations hold some value or other, unless it says
/// otherwise; nothing leaks.
///
/// \invariant `data()` points into the object exactly when `reserved()` is 8.
class ORVXX_API big_uint {
public:
    /// Words that an object holds without allocating.
    static constexpr unsigned int MIN_RESERVED = 8;
    static constexpr unsigned int min_reserved() noexcept { return MIN_RESERVED; }

    /// The widest size in words.
    static constexpr unsigned int max_size() noexcept { return 65535; }

    /// 5^i for i from 0 to 27: the powers that fit 64 bits.
    static constexpr std::array<std::size_t, 28> pow5_table = [] {
        std::array<std::size_t, 28> powers{1};
        for (std::size_t i = 1; i < powers.size(); ++i) {
            powers[i] = powers[i - 1] * 5;
        }
        return powers;
    }();

    /// 10^i for i from 0 to 19: the powers that fit 64 bits.
    static constexpr std::array<std::size_t, 20> pow10_table = [] {
        std::array<std::size_t, 20> powers{1};
        for (std::size_t i = 1; i < powers.size(); ++i) {
            powers[i] = powers[i - 1] * 10;
        }
        return powers;
    }();

    /// \name Construction and assignment
    /// @{

    /// Zero, in one word.
    big_uint() noexcept : big_uint(0U) {}

    /// One word.
    big_uint(unsigned int value) noexcept
        : data_(local_), reserved_(MIN_RESERVED), size_(1), local_{value} {}

    /// Two words if the value exceeds 0xFFFFFFFF, else one.
    big_uint(unsigned long long value) noexcept
        : data_(local_), reserved_(MIN_RESERVED),
          size_(value >> 32U != 0 ? 2 : 1), local_{static_cast<unsigned int>(value),
                                                   static_cast<unsigned int>(value >> 32U)} {}
    /// Two words if the value exceeds 0xFFFFFFFF, else one.
    big_uint(unsigned long value) noexcept : big_uint(static_cast<unsigned long long>(value)) {}

    /// As from the unsigned type.
    /// \pre the value is not negative
    explicit big_uint(long long value) noexcept : big_uint(static_cast<unsigned long long>(value)) {
        assert(value >= 0);
    }
    /// As from the unsigned type.
    /// \pre the value is not negative
    explicit big_uint(long value) noexcept : big_uint(static_cast<long long>(value)) {}
    /// One word.
    /// \pre the value is not negative
    explicit big_uint(int value) noexcept : big_uint(static_cast<long long>(value)) {}

    /// The words of the list, least significant first; none is trimmed.
    ///
    /// An empty list gives a size of 0, which nothing accepts but assignment, `set_size`, `swap`,
    /// and `multiply_by_10`, `multiply_by_100` and `divide_by_10`, which give 0.
    /// \exception std::length_error "big_uint: size > max_size()"
    big_uint(std::initializer_list<unsigned int> words);

    /// A capacity of the source's size, or of 8 where that is less; not the source's capacity.
    big_uint(const big_uint& other);

    /// Takes the source's block if there is one: the source is then of size 1, with no meaningful
    /// value. A source without a block keeps its value.
    big_uint(big_uint&& other) noexcept;

    /// Allocates exactly what the source's size needs if that exceeds `reserved()`, and never gives
    /// memory back. If memory runs out, nothing has changed.
    big_uint& operator=(const big_uint& other);

    /// If the source has no block, copies, and the source keeps its value. If both have blocks,
    /// they are exchanged. Else the source's block is taken, which leaves the source of size 1 with
    /// no meaningful value.
    big_uint& operator=(big_uint&& other) noexcept;

    /// Exchanges values, blocks and capacities. O(1): at most 8 words are copied.
    void swap(big_uint& other) noexcept;
    friend void swap(big_uint& a, big_uint& b) noexcept { a.swap(b); }

    constexpr ~big_uint() {
        if (!is_local()) {
            delete[] data_;
        }
    }

    /// An object of \p size words, which are unset, with the same capacity.
    /// \exception std::invalid_argument "big_uint::make_uninitialized: size == 0"
    /// \exception std::length_error "big_uint: size > max_size()"
    static big_uint make_uninitialized(unsigned int size);

    /// The same with a capacity of \p capacity words.
    /// \exception std::invalid_argument "big_uint::make_uninitialized: size == 0", or
    ///            "big_uint::make_uninitialized: capacity < size"
    /// \exception std::length_error "big_uint: size > max_size()"
    static big_uint make_uninitialized(unsigned int size, unsigned int capacity);
    /// @}

    /// \name Width
    /// @{

    /// Words in use.
    unsigned int size() const noexcept { return size_; }

    /// Capacity in words: 8, or the size of the block.
    unsigned int reserved() const noexcept { return reserved_; }

    /// Whether the words live in the object.
    constexpr bool is_local() const noexcept { return reserved_ == MIN_RESERVED; }

    /// Reallocates, to exactly \p n words, if \p n exceeds `reserved()`.
    /// \exception std::length_error "big_uint::max_size() exceeded"
    void reserve(unsigned int n);

    /// Sets the width; new words at the top are 0, also where old words were before. Reallocates,
    /// to exactly \p n words, if \p n exceeds `reserved()`. If it throws, nothing has changed.
    /// \return `data()`, which may have moved
    /// \exception std::invalid_argument "big_uint::set_size: new size must not be zero"
    /// \exception std::length_error "big_uint::max_size() exceeded"
    unsigned int* set_size(unsigned int n);

    /// Widens by one word and makes \p word the most significant one. Beyond `reserved()` each call
    /// reallocates: who knows the width in advance calls `reserve`.
    /// \exception std::length_error "big_uint::max_size() exceeded"
    void prepend(unsigned int word);

    /// Drops zero words at the top, and keeps one word at least and the memory.
    void trim() noexcept;
    /// @}

    /// \name Words
    /// @{
    /// The words, the least significant first.
    unsigned int* data() noexcept { return data_; }
    /// The words, the least significant first.
    const unsigned int* data() const noexcept { return data_; }

    /// Word \p i.
    /// \pre \p i is below `size()`
    unsigned int& operator[](unsigned int i) noexcept {
        assert(i < size_);
        return data_[i];
    }
    /// Word \p i.
    /// \pre \p i is below `size()`
    const unsigned int& operator[](unsigned int i) const noexcept {
        assert(i < size_);
        return data_[i];
    }

    /// The most significant word, zero or not.
    unsigned int msw() const noexcept {
        assert(size_ > 0);
        return data_[size_ - 1U];
    }
    /// The top bit of `msw()`.
    bool msb() const noexcept { return msw() >> 31U != 0; }
    /// The top bit of `msw()` in every bit: the sign word of a two's-complement reading.
    unsigned int msbx() const noexcept { return msb() ? 0xFFFFFFFFU : 0U; }
    /// Bit 0.
    bool lsb() const noexcept {
        assert(size_ > 0);
        return (data_[0] & 1U) != 0;
    }
    /// The low 32 bits.
    unsigned int to_uint32() const noexcept {
        assert(size_ > 0);
        return data_[0];
    }
    /// The low 64 bits.
    std::uint64_t to_uint64() const noexcept {
        assert(size_ > 0);
        return size_ < 2 ? data_[0] : data_[0] | std::uint64_t{data_[1]} << 32U;
    }
    /// @}

    /// \name Bits
    /// @{

    /// Index of the top set bit, from 0; -1 for zero.
    int highest_set_bit() const noexcept;
    /// `highest_set_bit() + 1`: 0 for zero.
    unsigned int bit_length() const noexcept {
        return static_cast<unsigned int>(highest_set_bit() + 1);
    }
    /// Index of the lowest set bit; -1 for zero.
    int lowest_set_bit() const noexcept;
    /// Number of set bits.
    unsigned int bit_count() const noexcept;

    /// Whether a bit is set.
    /// \pre \p bit is below `32 * size()`
    bool test_bit(unsigned int bit) const noexcept {
        assert(bit / 32 < size_);
        return (data_[bit / 32] >> bit % 32 & 1U) != 0;
    }
    /// Sets a bit.
    /// \pre \p bit is below `32 * size()`
    void set_bit(unsigned int bit) noexcept {
        assert(bit / 32 < size_);
        data_[bit / 32] |= 1U << bit % 32;
    }
    /// Clears a bit.
    /// \pre \p bit is below `32 * size()`
    void clear_bit(unsigned int bit) noexcept {
        assert(bit / 32 < size_);
        data_[bit / 32] &= ~(1U << bit % 32);
    }

    /// Whether all words are 0.
    bool is_zero() const noexcept;

    /// Whether at most one bit is set: true for zero.
    bool is_power_of_two() const noexcept;

    /// What a right shift by \p bits would throw away: 0 nothing but zeros, 1 less than one half of
    /// the lowest bit that stays, 2 one half, 3 more. 1 is also the answer for a value that is
    /// not zero if bit `bits - 1` lies beyond the width.
    unsigned int compute_rounding_info(unsigned int bits) const noexcept;

    /// `*this` = \p a and \p b, bit by bit over `size()` words.
    /// \pre both operands have at least `size()` words; what they have above is ignored
    void bit_and(const big_uint& a, const big_uint& b) noexcept;

    /// `*this` = \p a with every bit inverted, over `size()` words.
    /// \pre \p a has at least `size()` words
    void bit_not(const big_uint& a) noexcept;

    /// Number of set bits of a word.
    static constexpr unsigned int bit_count(unsigned int word) noexcept {
        return static_cast<unsigned int>(std::popcount(word));
    }
    /// Number of set bits of 64.
    static constexpr unsigned int bit_count(std::size_t word) noexcept {
        return static_cast<unsigned int>(std::popcount(word));
    }

    /// Number of zero bits at the top of a word; 32 for zero.
    static constexpr unsigned int lzcnt32(unsigned int word) noexcept {
        return static_cast<unsigned int>(std::countl_zero(word));
    }
    /// Number of zero bits at the top of 64; 64 for zero.
    static constexpr unsigned int lzcnt64(std::size_t word) noexcept {
        return static_cast<unsigned int>(std::countl_zero(word));
    }

    /// Number of zero bits at the bottom of a word; 32 for zero.
    static constexpr unsigned int tzcnt(unsigned int word) noexcept {
        return static_cast<unsigned int>(std::countr_zero(word));
    }
    /// Number of zero bits at the bottom of 64; 64 for zero.
    static constexpr unsigned int tzcnt(std::size_t word) noexcept {
        return static_cast<unsigned int>(std::countr_zero(word));
    }
    /// @}

    /// \name Comparison, by value: widths may differ
    /// @{

    /// -1, 0 or 1.
    int compare(const big_uint& other) const noexcept;
    /// Whether the values are equal.
    bool equals(const big_uint& other) const noexcept;
    /// As `equals`.
    friend bool operator==(const big_uint& a, const big_uint& b) noexcept { return a.equals(b); }
    /// As `compare`: equal numbers may differ in their widths.
    friend std::weak_ordering operator<=>(const big_uint& a, const big_uint& b) noexcept {
        return a.compare(b) <=> 0;
    }

    /// Comparison with one word.
    bool is_equal(unsigned int value) const noexcept;
    /// Comparison with one word.
    bool is_not_equal(unsigned int value) const noexcept { return !is_equal(value); }
    /// Comparison with one word.
    bool is_less(unsigned int value) const noexcept;
    /// Comparison with one word.
    bool is_less_equal(unsigned int value) const noexcept { return !is_greater(value); }
    /// Comparison with one word.
    bool is_greater(unsigned int value) const noexcept;
    /// Comparison with one word.
    bool is_greater_equal(unsigned int value) const noexcept { return !is_less(value); }
    /// @}

    /// \name Addition and subtraction, in the width of `*this`
    /// Operands may be `*this`.
    /// @{

    /// Adds \p value.
    /// \return whether a carry left the top word
    bool add(unsigned int value) noexcept;

    /// Adds the low `size()` words of \p b.
    /// \pre \p b has at least `size()` words (the reverse of what `subtract(b)` asks)
    /// \return whether a carry left the top word
    bool add(const big_uint& b) noexcept;

    /// `*this` = the low `size()` words of \p a + \p b, of any widths.
    /// \return whether the sum does not fit
    bool add(const big_uint& a, const big_uint& b) noexcept;

    /// Subtracts \p b.
    /// \pre \p b has at most `size()` words (the reverse of what `add(b)` asks)
    /// \return 0, or -1 if a borrow left the top word
    int subtract(const big_uint& b) noexcept;

    /// `*this` = the low `size()` words of the two's-complement difference \p a - \p b, of any
    /// widths.
    /// \return what stands above these words, as a number from -2 to 2: 0 if the difference is
    ///         not negative and fits; less if \p a is less than \p b; more if the difference is
    ///         too wide
    int subtract(const big_uint& a, const big_uint& b) noexcept;

    /// Adds 1.
    /// \return whether the value wrapped to 0
    bool increment() noexcept;
    /// Subtracts 1.
    /// \return whether the value wrapped to all ones
    bool decrement() noexcept;
    /// @}

    /// \name Shifts, in the width of `*this`: bits beyond it are lost, zeros come in
    /// @{

    /// By one bit.
    void shift_left() noexcept;
    /// By one bit.
    void shift_right() noexcept;
    /// By \p n bits, which may exceed the width.
    void shift_left(unsigned int n) noexcept;
    /// By \p n bits, which may exceed the width.
    void shift_right(unsigned int n) noexcept;
    /// `*this` = \p a * 2^n. \p a may be of any width, and may be `*this`.
    void shift_left(const big_uint& a, unsigned int n) noexcept;
    /// `*this` = \p a / 2^n. \p a may be of any width, and may be `*this`.
    void shift_right(const big_uint& a, unsigned int n) noexcept;
    /// @}

    /// \name Multiplication
    /// @{

    /// Multiplies in place.
    /// \return the word that did not fit: if it is not 0 the caller may `prepend` it
    unsigned int multiply(unsigned int factor) noexcept;
    /// `multiply(10)`
    unsigned int multiply_by_10() noexcept;
    /// `multiply(100)`
    unsigned int multiply_by_100() noexcept;

    /// `*this` = \p a * \p b; words of `*this` above the sum of their widths become 0.
    ///
    /// Schoolbook rows in steps of 64 bits (Knuth, 4.3.1 M); for operands of many words Karatsuba's
    /// method, for as long as there is memory for it.
    /// \pre `size()` is at least `a.size() + b.size()`, and `*this` is neither operand
    void multiply(const big_uint& a, const big_uint& b) noexcept;
    /// @}

    /// \name Division
    /// \exception std::overflow_error "divide by zero": nothing has changed then
    /// \exception std::bad_alloc for lack of scratch memory, with operands of many words: nothing
    ///            has changed then
    /// @{

    /// Divides in place.
    /// \return the remainder
    unsigned int divide(unsigned int divisor);
    /// `divide(10)`
    unsigned int divide_by_10() noexcept;

    /// `*this` = the quotient of \p a by \p b (Knuth, 4.3.1 D; for many words C. Burnikel and
    /// J. Ziegler, "Fast recursive division", 1998).
    /// \pre with m and n the widths of \p a and \p b without zero words at the top: `size()` is at
    ///      least m - n + 1 (and 1); `*this` is no operand
    void divide(const big_uint& a, const big_uint& b);
    /// The same, and \p r = the remainder.
    /// \pre as above; \p r has at least n words, and at least m where m < n; \p r is no operand
    void divide(const big_uint& a, const big_uint& b, big_uint& r);
    /// The quotient of the low \p an words of \p a by the low \p bn words of \p b.
    /// \pre as above; \p an and \p bn are at least 1 and at most the operands' sizes
    void divide(const big_uint& a, unsigned int an, const big_uint& b, unsigned int bn);
    /// The same, and \p r = the remainder.
    /// \pre as above
    void divide(const big_uint& a, unsigned int an, const big_uint& b, unsigned int bn,
                big_uint& r);
    /// @}

    /// \name Powers and logarithms
    /// Safe from any number of threads, each with its own \p cache.
    /// @{

    /// 10^n. For \p n below 78 a constant, and \p cache is not touched; else made in `*cache`.
    /// \pre \p cache is not null where \p n may be 78 or more
    /// \exception std::out_of_range "big_uint::pow10" if \p n exceeds 8191
    static const big_uint& pow10(unsigned int n, big_uint* cache);

    /// 10^n if \p n is below 78, else null.
    static const big_uint* precomputed_pow10(unsigned int n) noexcept;

    /// 5^n, made in `*cache`. Powers with the exponents 2^k are kept for later calls.
    /// \pre \p cache is not null
    /// \exception std::length_error "big_uint::pow5: exponent out of range" if \p n exceeds 32767
    static const big_uint& pow5(unsigned int n, big_uint* cache);

    /// What is known of the decimal logarithm from the highest set bit alone, for bits 0 to 255:
    /// the floor of log10, if all numbers with that highest bit have the same; else the negative
    /// of the greater of the two, in two's complement.
    /// \exception std::out_of_range "invalid array<T, N> subscript"
    static unsigned int log10est(unsigned int bit);

    /// The floor of log10; -1 for zero. For values of up to 256 bits this is a look into a table
    /// and at most one comparison.
    /// \exception std::out_of_range "big_uint::pow10" for values above some 10^8191, where the
    ///            estimate (bit * 0x4D10 mod 2^32) / 2^16 + 1 of the logarithm, made from the
    ///            highest set bit, exceeds 8191
    int ilog10() const;
    /// The same for a caller that knows the bit length.
    /// \pre \p bit_length is `bit_length()`
    /// \exception std::out_of_range as above
    int ilog10(unsigned int bit_length) const;
    /// @}

    /// \name Text
    /// Decimal digits without sign, separators or leading zeros; "0" for zero.
    /// @{
    /// In `char`.
    std::string to_string() const;
    /// In `char16`.
    ustring to_ustring() const;
    /// @}

private:
    friend class big_uint_tables;
    struct noinit_t {};

    ORVXX_LOCAL big_uint(noinit_t, unsigned int size);
    ORVXX_LOCAL big_uint(noinit_t, unsigned int size, unsigned int capacity);

    // A constant in the object, and one over more than 8 words elsewhere, which is never destroyed.
    constexpr big_uint(const std::array<unsigned int, MIN_RESERVED>& local,
                       std::uint16_t size) noexcept
        : data_(local_), reserved_(MIN_RESERVED),
          size_(size), local_{local[0], local[1], local[2], local[3],
                              local[4], local[5], local[6], local[7]} {}
    constexpr big_uint(unsigned int* words, std::uint16_t size) noexcept
        : data_(words), reserved_(size), size_(size) {}

    ORVXX_LOCAL unsigned int* alloc(unsigned int size, unsigned int capacity);
    ORVXX_LOCAL unsigned int* alloc_local(unsigned int size) noexcept;
    ORVXX_LOCAL void reallocate(unsigned int capacity);
    ORVXX_LOCAL static void copy(const unsigned int* src, unsigned int n,
                                 unsigned int* dst) noexcept;

    ORVXX_LOCAL int _ilog10(unsigned int bit) const;

    unsigned int* data_;
    std::uint16_t reserved_;
    std::uint16_t size_;
    unsigned int local_[MIN_RESERVED] = {};
};

static_assert(sizeof(unsigned int) == 4, "words have 32 bits");

} // namespace orv

#endif
