// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief What the C library asks of the compiler: export marks, C linkage, function attributes.
///
/// Every compiler-specific word of the C library stands in this file.

#ifndef ORV_LIBORV_PLATFORM_H
#define ORV_LIBORV_PLATFORM_H

/// Marks a function as part of the exported interface.
/// ORV_STATIC says that the library is linked statically; ORV_BUILDING_LIBORV, that this
/// translation unit is part of the library itself.
#if defined(ORV_STATIC)
#define ORV_API
#elif defined(_WIN32)
#if defined(ORV_BUILDING_LIBORV)
#define ORV_API __declspec(dllexport)
#else
#define ORV_API __declspec(dllimport)
#endif
#elif defined(__GNUC__)
#define ORV_API __attribute__((visibility("default")))
#else
#define ORV_API
#endif

/// Marks a function whose result depends on its arguments alone, so that the compiler may merge
/// calls and move them out of loops.
#if defined(__GNUC__)
#define ORV_CONST_FUNCTION __attribute__((const))
#else
#define ORV_CONST_FUNCTION
#endif

/// ORV_LEADING_ZEROS_64(x) counts the zero bits above the highest set one of an x that is not 0,
/// and ORV_MULTIPLY_HIGH_64(a, b) is the upper half of a product. Each is defined where the
/// compiler knows of it.
#if defined(__GNUC__)
#define ORV_LEADING_ZEROS_64(x) __builtin_clzll(x)
#endif
#if defined(__SIZEOF_INT128__)
__extension__ typedef unsigned __int128 OrvUInt128;
#define ORV_MULTIPLY_HIGH_64(a, b) ((uint64_t)((OrvUInt128)(a) * (b) >> 64))
#endif

/// Keeps a function out of its callers: one that is seldom called costs the others nothing then,
/// not even a stack frame.
#if defined(__GNUC__)
#define ORV_NO_INLINE __attribute__((noinline))
#else
#define ORV_NO_INLINE
#endif

/// Defined where the lowest byte of a number comes first in memory.
#if defined(__BYTE_ORDER__) && defined(__ORDER_LITTLE_ENDIAN__)
#if __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__
#define ORV_LITTLE_ENDIAN
#endif
#endif

/// The declarations between these two have C linkage in C++ as well. ORV_NOEXCEPT tells C++ that a
/// C function throws nothing.
#if defined(__cplusplus)
#define ORV_EXTERN_C_BEGIN extern "C" {
#define ORV_EXTERN_C_END }
#define ORV_NOEXCEPT noexcept
#else
#define ORV_EXTERN_C_BEGIN
#define ORV_EXTERN_C_END
#define ORV_NOEXCEPT
#endif

#endif
