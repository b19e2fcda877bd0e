// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief Puts aside what the including file has as macros and this library as names.
///
/// Systems and other libraries define words in capitals, and some define `min` and `max`. A
/// public header that has such a name includes this after its other headers, and macros_pop.h at
/// its end, which puts the macros back. In between neither clashes. Where a macro is in force it
/// hides the name of this library: undefine it to write `orv::REPLACE`.
///
/// There is no include guard: each pair works anew.
#pragma push_macro("min")
#pragma push_macro("max")
#pragma push_macro("FAR")
#pragma push_macro("IGNORE")
#pragma push_macro("OVERFLOW")
#pragma push_macro("REPLACE")
#pragma push_macro("REPORT")
#pragma push_macro("UNDERFLOW")
#undef min
#undef max
#undef FAR
#undef IGNORE
#undef OVERFLOW
#undef REPLACE
#undef REPORT
#undef UNDERFLOW
