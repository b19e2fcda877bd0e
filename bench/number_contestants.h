// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Whole numbers of three libraries behind one interface, for the benchmarks.
///
/// A contestant has a type `Number`, and static functions on it. Results go into numbers made by
/// `room`, so that what is timed allocates only where the library cannot help it.
#ifndef ORV_BENCH_NUMBER_CONTESTANTS_H
#define ORV_BENCH_NUMBER_CONTESTANTS_H

#include "orv/liborvxx/number/big_uint.h"

#include <cstddef>
#include <string>
#include <vector>

#if ORV_BENCH_GMP
#include <gmp.h>
#endif
#if ORV_BENCH_BOOST
#include <boost/multiprecision/cpp_int.hpp>
#include <boost/version.hpp>
#endif

namespace bench {

/// A number as it goes to every contestant: words of 32 bits, least significant first.
using NumberWords = std::vector<unsigned int>;

struct Own {
    static constexpr const char* NAME = "orvxx";
    using Number = orv::big_uint;

    static Number from(const NumberWords& words) {
        Number n = room(words.size());
        for (unsigned int i = 0; i < n.size(); ++i) {
            n[i] = words[i];
        }
        return n;
    }
    static Number room(std::size_t words) {
        Number n;
        n.set_size(static_cast<unsigned int>(words));
        return n;
    }
    static void add(Number& sum, const Number& a, const Number& b) { sum.add(a, b); }
    static void multiply(Number& product, const Number& a, const Number& b) {
        product.multiply(a, b);
    }
    static void divide(Number& q, Number& r, const Number& a, const Number& b) {
        q.divide(a, b, r);
    }
    static std::string text(const Number& n) { return n.to_string(); }
};

#if ORV_BENCH_GMP
/// The low level of GMP: arrays of 64 bits, one for a single word.
struct Gmp {
    static constexpr const char* NAME = "GMP";
    using Number = std::vector<mp_limb_t>;

    static Number from(const NumberWords& words) {
        Number n = room(words.size());
        for (std::size_t i = 0; i < words.size(); ++i) {
            n[i / 2] |= mp_limb_t{words[i]} << i % 2 * 32;
        }
        return n;
    }
    static Number room(std::size_t words) { return Number((words + 1) / 2); }
    static void add(Number& sum, const Number& a, const Number& b) {
        mpn_add_n(sum.data(), a.data(), b.data(), size(a));
    }
    static void multiply(Number& product, const Number& a, const Number& b) {
        mpn_mul_n(product.data(), a.data(), b.data(), size(a));
    }
    static void divide(Number& q, Number& r, const Number& a, const Number& b) {
        mpn_tdiv_qr(q.data(), r.data(), 0, a.data(), size(a), b.data(), size(b));
    }
    static std::string text(const Number& n) {
        mpz_t view;
        mpz_roinit_n(view, n.data(), size(n));
        std::string digits(mpz_sizeinbase(view, 10) + 2, '\0');
        mpz_get_str(digits.data(), 10, view);
        digits.resize(digits.find('\0'));
        return digits;
    }

private:
    static mp_size_t size(const Number& n) { return static_cast<mp_size_t>(n.size()); }
};
#endif

#if ORV_BENCH_BOOST
/// boost::multiprecision::cpp_int, which grows by itself.
struct Boost {
    static constexpr const char* NAME = "Boost";
    using Number = boost::multiprecision::cpp_int;

    static Number from(const NumberWords& words) {
        Number n;
        import_bits(n, words.begin(), words.end(), 32, false);
        return n;
    }
    static Number room(std::size_t /*words*/) { return {}; }
    static void add(Number& sum, const Number& a, const Number& b) {
        boost::multiprecision::add(sum, a, b);
    }
    static void multiply(Number& product, const Number& a, const Number& b) {
        boost::multiprecision::multiply(product, a, b);
    }
    static void divide(Number& q, Number& r, const Number& a, const Number& b) {
        boost::multiprecision::divide_qr(a, b, q, r);
    }
    static std::string text(const Number& n) { return n.str(); }
};
#endif

} // namespace bench

#endif
