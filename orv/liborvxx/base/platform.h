// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The one place for what differs between compilers: export marks, early initialisation and
/// the undecorated names of types.
#ifndef ORV_LIBORVXX_BASE_PLATFORM_H
#define ORV_LIBORVXX_BASE_PLATFORM_H

/// \def ORVXX_API
/// Marks what the shared library exports. Everything else is hidden.
#if defined(ORVXX_STATIC)
#define ORVXX_API
#elif defined(_WIN32)
#if defined(ORVXX_BUILDING_LIBRARY)
#define ORVXX_API __declspec(dllexport)
#else
#define ORVXX_API __declspec(dllimport)
#endif
#else
#define ORVXX_API __attribute__((visibility("default")))
#endif

/// \def ORVXX_ALWAYS_INLINE
/// Asks for inlining of a small function on the hot path of a coder.
/// \def ORVXX_INIT_EARLY
/// Stands before a static object of class type that must be made before the objects of other files,
/// also where the library is linked statically.
/// \def ORVXX_CPU_SUPPORTS
/// Whether the processor has an instruction set, named as the compiler names it ("sse4.1").
#if defined(__GNUC__) || defined(__clang__)
#define ORVXX_ALWAYS_INLINE inline __attribute__((always_inline))
#define ORVXX_INIT_EARLY __attribute__((init_priority(150)))
#define ORVXX_CPU_SUPPORTS(feature) (__builtin_cpu_init(), __builtin_cpu_supports(feature) != 0)
#else
#define ORVXX_ALWAYS_INLINE inline
#define ORVXX_INIT_EARLY
#define ORVXX_CPU_SUPPORTS(feature) false
#endif

#endif
