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
