# SPDX-License-Identifier: Apache-2.0
# What every target of the tree shares: language level, warnings, visibility, sanitizers.

set(ORV_C_WARNINGS
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wundef -Wvla
    -Wstrict-prototypes -Wmissing-prototypes)
set(ORV_CXX_WARNINGS
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wundef -Wvla
    -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align -Wold-style-cast
    -Wextra-semi -Wnull-dereference -Wformat=2)

# GCC 12 takes the copying inside its own std::string for an overlapping one (GCC bug 105651).
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    list(APPEND ORV_CXX_WARNINGS -Wno-restrict)
endif()

# Language level, warnings and sanitizers. Serves libraries, tests, examples and benchmarks alike.
function(orv_target_defaults target)
    target_compile_features(${target} PRIVATE c_std_11 cxx_std_20)
    set_target_properties(${target} PROPERTIES
        C_EXTENSIONS OFF CXX_EXTENSIONS OFF
        C_VISIBILITY_PRESET hidden CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
    target_compile_options(${target} PRIVATE
        "$<$<COMPILE_LANGUAGE:C>:${ORV_C_WARNINGS}>"
        "$<$<COMPILE_LANGUAGE:CXX>:${ORV_CXX_WARNINGS}>")
    if(ORV_WARNINGS_AS_ERRORS)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
    if(ORV_SANITIZE)
        target_compile_options(${target} PRIVATE
            -fsanitize=${ORV_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
        # The checks that sanitizers put in between mislead GCC's reasoning about values, also about
        # those of standard headers; builds without sanitizers are there for these warnings.
        if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
            target_compile_options(${target} PRIVATE
                -Wno-maybe-uninitialized -Wno-null-dereference)
        endif()
        target_link_options(${target} PRIVATE -fsanitize=${ORV_SANITIZE})
    endif()
    get_target_property(type ${target} TYPE)
    if(type STREQUAL "SHARED_LIBRARY")
        set_target_properties(${target} PROPERTIES
            VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
        # Addresses of the library's own functions, of which every table of virtual functions is
        # full, are then known without a search by name at load.
        target_link_options(${target} PRIVATE -Wl,-Bsymbolic-functions)
        if(NOT ORV_SANITIZE)
            target_link_options(${target} PRIVATE -Wl,--no-undefined)
        endif()
    endif()
endfunction()

# Hands the linker a version script, so that a shared library exports what the script names and
# nothing else.
function(orv_version_script target script)
    get_target_property(type ${target} TYPE)
    if(type STREQUAL "SHARED_LIBRARY")
        target_link_options(${target} PRIVATE "-Wl,--version-script=${script}")
        set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS "${script}")
    endif()
endfunction()
