// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief The one place for what differs between compilers: export marks, early initialisation,
/// processor features, 128-bit integers, vectors and carries.
#ifndef ORV_LIBORVXX_BASE_PLATFORM_H
#define ORV_LIBORVXX_BASE_PLATFORM_H

/// \def ORVXX_API
/// Marks what the shared library exports. Everything else is hidden.
/// \def ORVXX_LOCAL
/// Marks a private member, of an exported class, that no inline function calls: it is hidden.
#if defined(ORVXX_STATIC)
#define ORVXX_API
#define ORVXX_LOCAL
#elif defined(_WIN32)
#if defined(ORVXX_BUILDING_LIBRARY)
#define ORVXX_API __declspec(dllexport)
#else
#define ORVXX_API __declspec(dllimport)
#endif
#define ORVXX_LOCAL
#else
#define ORVXX_API __attribute__((visibility("default")))
#define ORVXX_LOCAL __attribute__((visibility("hidden")))
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

/// \def ORVXX_HAS_UINT128
/// Whether there is `orv::uint128`, an unsigned integer of 128 bits.
#if defined(__SIZEOF_INT128__)
#define ORVXX_HAS_UINT128 1
namespace orv {
// Only a typedef can be marked as an extension.
__extension__ typedef unsigned __int128 uint128; // NOLINT(modernize-use-using)
} // namespace orv
#else
#define ORVXX_HAS_UINT128 0
#endif

/// \def ORVXX_HAS_VECTORS
/// Whether there is `orv::uint32x4`: four numbers of 32 bits, with the operators of one.
#if defined(__GNUC__) || defined(__clang__)
#define ORVXX_HAS_VECTORS 1
namespace orv {
using uint32x4 [[gnu::vector_size(16)]] = unsigned int;
}
#else
#define ORVXX_HAS_VECTORS 0
#endif

/// \def ORVXX_HAS_CARRY_BUILTINS
/// Whether there are `__builtin_addcll` and `__builtin_subcll`: addition and subtraction of 64 bits
/// with a carry in and out.
#if defined(__has_builtin)
#if __has_builtin(__builtin_addcll) && __has_builtin(__builtin_subcll)
#define ORVXX_HAS_CARRY_BUILTINS 1
#endif
#endif
#if !defined(ORVXX_HAS_CARRY_BUILTINS)
#define ORVXX_HAS_CARRY_BUILTINS 0
#endif

// ORVXX_CARRY_STEPS, where it is defined: four steps of "adcq" or "sbbq" in a row on variables of
// 64 bits, a0 += b0 first, with a bool for the carry in and out. For compilers without the
// builtins: GCC 12 moves each sum of its own intrinsics through memory.
#if !ORVXX_HAS_CARRY_BUILTINS && defined(__GNUC__) && defined(__x86_64__)
#define ORVXX_CARRY_STEPS(operation, a0, a1, a2, a3, b0, b1, b2, b3, carry)                        \
    __asm__("addb $-1, %b[c]\n\t" operation " %[y0], %[x0]\n\t" operation                          \
            " %[y1], %[x1]\n\t" operation " %[y2], %[x2]\n\t" operation                            \
            " %[y3], %[x3]\n\tsetc %b[c]"                                                          \
            : [x0] "+&r"(a0), [x1] "+&r"(a1), [x2] "+&r"(a2), [x3] "+&r"(a3), [c] "+&r"(carry)     \
            : [y0] "rm"(b0), [y1] "rm"(b1), [y2] "rm"(b2), [y3] "rm"(b3)                           \
            : "cc")
#endif

#endif
