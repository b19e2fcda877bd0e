# SPDX-License-Identifier: Apache-2.0
# Intel's Decimal Floating-Point Math Library as IntelDecimal::bid: the archive whose functions take
# arguments by value, the rounding mode as an argument, and flags through a pointer.
find_library(IntelDecimal_LIBRARY bidgcc000)
find_path(IntelDecimal_INCLUDE_DIR bid_functions.h)
mark_as_advanced(IntelDecimal_LIBRARY IntelDecimal_INCLUDE_DIR)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(IntelDecimal
    REQUIRED_VARS IntelDecimal_LIBRARY IntelDecimal_INCLUDE_DIR)

if(IntelDecimal_FOUND AND NOT TARGET IntelDecimal::bid)
    add_library(IntelDecimal::bid STATIC IMPORTED GLOBAL)
    set_target_properties(IntelDecimal::bid PROPERTIES
        IMPORTED_LOCATION "${IntelDecimal_LIBRARY}"
        INTERFACE_INCLUDE_DIRECTORIES "${IntelDecimal_INCLUDE_DIR}"
        INTERFACE_COMPILE_DEFINITIONS
            "DECIMAL_CALL_BY_REFERENCE=0;DECIMAL_GLOBAL_ROUNDING=0;DECIMAL_GLOBAL_EXCEPTION_FLAGS=0"
        INTERFACE_LINK_LIBRARIES m)
endif()
