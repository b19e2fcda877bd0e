# SPDX-License-Identifier: Apache-2.0
# Installation: libraries, headers under their paths in the tree, CMake package, pkg-config files,
# debugger printers, licences. Everything but absolute CMAKE_INSTALL_*DIR can be moved afterwards.
include(CMakePackageConfigHelpers)

# Each library finds the other beside itself, wherever the two are moved.
set_target_properties(orv orvxx PROPERTIES INSTALL_RPATH "$ORIGIN")

write_basic_package_version_file(
    "${PROJECT_BINARY_DIR}/packaging/orvxxConfigVersion.cmake" COMPATIBILITY SameMinorVersion)

# What a program in C has to name when it links the archives.
set(ORV_PC_CXX_LIBS "${CMAKE_CXX_IMPLICIT_LINK_LIBRARIES}")
list(REMOVE_ITEM ORV_PC_CXX_LIBS ${CMAKE_C_IMPLICIT_LINK_LIBRARIES})
list(REMOVE_DUPLICATES ORV_PC_CXX_LIBS)
list(TRANSFORM ORV_PC_CXX_LIBS PREPEND "-l")
list(JOIN ORV_PC_CXX_LIBS " " ORV_PC_CXX_LIBS)
if(NOT BUILD_SHARED_LIBS)
    set(ORV_PC_STATIC " -DORV_STATIC")
    set(ORV_PC_MATH_LIB "-lm")
    set(ORVXX_PC_STATIC " -DORVXX_STATIC")
endif()

# GDB looks for the printers under this name beside the library, in the build tree too.
set(ORV_GDB_SCRIPT "${PROJECT_SOURCE_DIR}/packaging/gdb/orvxx_printers.py")
set(ORV_GDB_NAME "liborvxx.so.${PROJECT_VERSION}-gdb.py")
if(BUILD_SHARED_LIBS)
    get_target_property(directory orvxx BINARY_DIR)
    configure_file("${ORV_GDB_SCRIPT}" "${directory}/${ORV_GDB_NAME}" COPYONLY)
else()
    set(ORV_GDB_NAME "orvxx_printers.py")
endif()

# A directory in a pkg-config file: relative to the file, so that the prefix can be moved.
function(orv_pkgconfig_dir variable directory)
    if(IS_ABSOLUTE "${directory}")
        set(${variable} "${directory}" PARENT_SCOPE)
    else()
        set(${variable} "\${prefix}/${directory}" PARENT_SCOPE)
    endif()
endfunction()

function(orv_install_pkgconfig name libdir)
    set(directory "${libdir}/pkgconfig")
    orv_pkgconfig_dir(ORV_PC_LIBDIR "${libdir}")
    orv_pkgconfig_dir(ORV_PC_INCLUDEDIR "${CMAKE_INSTALL_INCLUDEDIR}")
    if(IS_ABSOLUTE "${libdir}")
        set(ORV_PC_PREFIX "${CMAKE_INSTALL_PREFIX}")
    else()
        file(RELATIVE_PATH up "/${directory}" "/")
        string(REGEX REPLACE "/$" "" up "${up}")
        set(ORV_PC_PREFIX "\${pcfiledir}/${up}")
    endif()
    foreach(library IN ITEMS orv orvxx)
        set(file "${PROJECT_BINARY_DIR}/packaging/${name}/${library}.pc")
        configure_file("${PROJECT_SOURCE_DIR}/packaging/${library}.pc.in" "${file}" @ONLY)
        install(FILES "${file}" DESTINATION "${directory}" ${ARGN})
    endforeach()
endfunction()

# orv_install_layout(NAME LIBDIR GDBDIR [RUNTIME ...] [DEVELOPMENT ...] [DEBUGGER ...])
# Rules for one layout of directories. What follows the words is added to the rules of that part: a
# component, mostly.
function(orv_install_layout name libdir gdbdir)
    cmake_parse_arguments(PARSE_ARGV 3 part "" "" "RUNTIME;DEVELOPMENT;DEBUGGER")
    set(name_link "")
    if(part_DEVELOPMENT)
        list(GET part_DEVELOPMENT 1 component)
        set(name_link NAMELINK_COMPONENT ${component})
    endif()
    install(TARGETS orv orvxx EXPORT ${name}Targets
        RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" ${part_RUNTIME}
        LIBRARY DESTINATION "${libdir}" ${part_RUNTIME} ${name_link}
        ARCHIVE DESTINATION "${libdir}" ${part_DEVELOPMENT})
    foreach(header IN LISTS ORV_PUBLIC_HEADERS ORVXX_PUBLIC_HEADERS ORVXX_PAIRED_HEADERS)
        cmake_path(GET header PARENT_PATH directory)
        install(FILES "${PROJECT_SOURCE_DIR}/${header}"
            DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/${directory}" ${part_DEVELOPMENT})
    endforeach()

    # find_package(orvxx): the targets orvxx::orvxx and orvxx::orv.
    set(directory "${libdir}/cmake/orvxx")
    set(config "${PROJECT_BINARY_DIR}/packaging/${name}/orvxxConfig.cmake")
    configure_package_config_file("${PROJECT_SOURCE_DIR}/packaging/orvxxConfig.cmake.in"
        "${config}" INSTALL_DESTINATION "${directory}")
    install(FILES "${config}" "${PROJECT_BINARY_DIR}/packaging/orvxxConfigVersion.cmake"
        DESTINATION "${directory}" ${part_DEVELOPMENT})
    install(EXPORT ${name}Targets NAMESPACE orvxx:: FILE orvxxTargets.cmake
        DESTINATION "${directory}" ${part_DEVELOPMENT})
    orv_install_pkgconfig(${name} "${libdir}" ${part_DEVELOPMENT})

    install(FILES "${ORV_GDB_SCRIPT}"
        DESTINATION "${gdbdir}" RENAME "${ORV_GDB_NAME}" ${part_DEBUGGER})
endfunction()

if(NOT BUILD_SHARED_LIBS)
    set(gdbdir "${CMAKE_INSTALL_DATADIR}/orvxx")
elseif(CMAKE_INSTALL_PREFIX STREQUAL "/usr")
    set(gdbdir "${CMAKE_INSTALL_DATADIR}/gdb/auto-load${CMAKE_INSTALL_FULL_LIBDIR}")
else()
    set(gdbdir "${CMAKE_INSTALL_LIBDIR}")
endif()
orv_install_layout(orvxx "${CMAKE_INSTALL_LIBDIR}" "${gdbdir}")
install(FILES "${PROJECT_SOURCE_DIR}/LICENSE" DESTINATION "${CMAKE_INSTALL_DOCDIR}")
install(DIRECTORY "${PROJECT_SOURCE_DIR}/LICENSES" DESTINATION "${CMAKE_INSTALL_DOCDIR}")
