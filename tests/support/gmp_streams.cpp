// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Stream output of GMP's integers, for a standard library that libgmpxx is not built with.
#include <gmp.h>

#include <ostream>
#include <string>

std::ostream& operator<<(std::ostream& os, mpz_srcptr number) {
    std::string text(mpz_sizeinbase(number, 10) + 2, '\0'); // a sign and the final NUL
    return os << mpz_get_str(text.data(), 10, number);
}
