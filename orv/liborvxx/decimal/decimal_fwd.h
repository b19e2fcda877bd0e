// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Names of the decimal types, for headers that only mention them.
#ifndef ORV_LIBORVXX_DECIMAL_DECIMAL_FWD_H
#define ORV_LIBORVXX_DECIMAL_DECIMAL_FWD_H

namespace orv::decimal {

class decimal32;
class decimal64;
class decimal128;

} // namespace orv::decimal

#endif
