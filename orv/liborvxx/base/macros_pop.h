// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Puts back the macros that macros_push.h put aside.
#pragma pop_macro("UNDERFLOW")
#pragma pop_macro("REPORT")
#pragma pop_macro("REPLACE")
#pragma pop_macro("OVERFLOW")
#pragma pop_macro("IGNORE")
#pragma pop_macro("FAR")
#pragma pop_macro("max")
#pragma pop_macro("min")
