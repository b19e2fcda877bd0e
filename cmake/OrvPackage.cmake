# SPDX-License-Identifier: Apache-2.0
# Debian packages of the shared libraries, made by "cmake --build . --target package" or by cpack:
# liborvxx0 (libraries), liborvxx-dev (what programs are built with), liborvxx0-dbg (debug symbols
# and debugger printers). They are laid out for /usr whatever the prefix of the build is.
if(NOT BUILD_SHARED_LIBS OR ORV_SANITIZE)
    return()
endif()

set(ORV_DEBIAN_LIBDIR "lib")
if(CMAKE_LIBRARY_ARCHITECTURE)
    set(ORV_DEBIAN_LIBDIR "lib/${CMAKE_LIBRARY_ARCHITECTURE}")
endif()
set(runtime "liborvxx${PROJECT_VERSION_MAJOR}")
set(development "liborvxx-dev")
set(debugger "${runtime}-dbg")
orv_install_layout(debian "${ORV_DEBIAN_LIBDIR}" "share/gdb/auto-load/usr/${ORV_DEBIAN_LIBDIR}"
    RUNTIME COMPONENT runtime EXCLUDE_FROM_ALL
    DEVELOPMENT COMPONENT development EXCLUDE_FROM_ALL
    DEBUGGER COMPONENT debugger EXCLUDE_FROM_ALL)

# Debian's copyright file wants texts indented, and a dot in empty lines.
function(orv_read_licence variable file)
    file(READ "${PROJECT_SOURCE_DIR}/LICENSES/${file}" text)
    string(REGEX REPLACE "\n+$" "" text "${text}")
    string(REGEX REPLACE "[ \t]+\n" "\n" text "${text}")
    string(REPLACE "\n" "\n " text " ${text}")
    string(REPLACE "\n \n" "\n .\n" text "${text}")
    string(REPLACE "\n \n" "\n .\n" text "${text}")
    set(${variable} "${text}" PARENT_SCOPE)
endfunction()
orv_read_licence(ORV_INTEL_LICENCE BSD-3-Clause-Intel.txt)
orv_read_licence(ORV_UNICODE_LICENCE Unicode-DFS-2016.txt)
orv_read_licence(ORV_UNICODE_3_LICENCE Unicode-3.0.txt)
set(copyright "${PROJECT_BINARY_DIR}/packaging/debian/copyright")
configure_file("${PROJECT_SOURCE_DIR}/packaging/debian/copyright.in" "${copyright}" @ONLY)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME orvxx)
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
# Words by which CPack knows that there is no summary for all packages together.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_NAME} built using CMake")
set(CPACK_PACKAGE_CONTACT "orvxx developers <orvxx@localhost>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS "${PROJECT_SOURCE_DIR}/packaging/debian/split_debug_symbols.cmake")
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_COMPONENTS_ALL runtime development debugger)
set(CPACK_OBJCOPY_EXECUTABLE "${CMAKE_OBJCOPY}")
set(CPACK_READELF_EXECUTABLE "${CMAKE_READELF}")

# orv_debian_package(COMPONENT NAME SECTION DESCRIPTION): the lines of DESCRIPTION follow the
# summary.
macro(orv_debian_package component name section)
    install(FILES "${copyright}" DESTINATION "share/doc/${name}"
        COMPONENT ${component} EXCLUDE_FROM_ALL)
    string(TOUPPER ${component} upper)
    set(CPACK_DEBIAN_${upper}_PACKAGE_NAME "${name}")
    set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION "${section}")
    string(JOIN "\n" CPACK_COMPONENT_${upper}_DESCRIPTION ${ARGN})
endmacro()
set(about
    "Text in UTF-16 with character sets, exact numbers and their text, decimal"
    "floating point, URIs, UUIDs, locales and streams, on top of a library in C.")
orv_debian_package(runtime ${runtime} libs
    "C++20 foundation library over UTF-16 text" ${about})
orv_debian_package(development ${development} libdevel
    "C++20 foundation library over UTF-16 text (development files)" ${about}
    "This package has the headers, and what CMake and pkg-config need.")
orv_debian_package(debugger ${debugger} debug
    "C++20 foundation library over UTF-16 text (for the debugger)" ${about}
    "This package has the debug symbols, and printers that show objects in GDB.")

set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS
    "${PROJECT_BINARY_DIR}/orv/liborv" "${PROJECT_BINARY_DIR}/orv/liborvxx")
# What programs that link with the libraries depend on. CPack would make these files for the
# package of debug symbols as well, and warn.
set(shlibs "${PROJECT_BINARY_DIR}/packaging/debian/shlibs")
set(triggers "${PROJECT_BINARY_DIR}/packaging/debian/triggers")
file(CONFIGURE OUTPUT "${triggers}" CONTENT "activate-noawait ldconfig\n")
file(CONFIGURE OUTPUT "${shlibs}" CONTENT "\
liborv ${PROJECT_VERSION_MAJOR} ${runtime} (>= ${PROJECT_VERSION})
liborvxx ${PROJECT_VERSION_MAJOR} ${runtime} (>= ${PROJECT_VERSION})
")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA "${shlibs}" "${triggers}")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${runtime} (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_DEBUGGER_PACKAGE_DEPENDS "${runtime} (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_DEBUGGER_PACKAGE_RECOMMENDS gdb)
install(FILES "${PROJECT_SOURCE_DIR}/CHANGELOG.md" "${PROJECT_SOURCE_DIR}/README.md"
    DESTINATION "share/doc/${development}" COMPONENT development EXCLUDE_FROM_ALL)
install(DIRECTORY "${PROJECT_SOURCE_DIR}/LICENSES"
    DESTINATION "share/doc/${development}" COMPONENT development EXCLUDE_FROM_ALL)
include(CPack)
