# SPDX-License-Identifier: Apache-2.0
# Installation: libraries, headers under their paths in the tree, CMake package, pkg-config files,
# licences. Everything but absolute CMAKE_INSTALL_*DIR can be moved after installation.
include(CMakePackageConfigHelpers)

set(ORV_CMAKE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/orvxx")
set(ORV_PKGCONFIG_DIR "${CMAKE_INSTALL_LIBDIR}/pkgconfig")

# Each library finds the other beside itself, wherever the two are moved.
set_target_properties(orv orvxx PROPERTIES INSTALL_RPATH "$ORIGIN")
install(TARGETS orv orvxx EXPORT orvxxTargets
    RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}"
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
    ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}")

foreach(header IN LISTS ORV_PUBLIC_HEADERS ORVXX_PUBLIC_HEADERS)
    cmake_path(GET header PARENT_PATH directory)
    install(FILES "${PROJECT_SOURCE_DIR}/${header}"
        DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/${directory}")
endforeach()

# find_package(orvxx): the targets orvxx::orvxx and orvxx::orv.
install(EXPORT orvxxTargets NAMESPACE orvxx:: DESTINATION "${ORV_CMAKE_DIR}")
configure_package_config_file(
    "${PROJECT_SOURCE_DIR}/packaging/orvxxConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/packaging/orvxxConfig.cmake"
    INSTALL_DESTINATION "${ORV_CMAKE_DIR}")
write_basic_package_version_file(
    "${PROJECT_BINARY_DIR}/packaging/orvxxConfigVersion.cmake" COMPATIBILITY SameMinorVersion)
install(FILES
    "${PROJECT_BINARY_DIR}/packaging/orvxxConfig.cmake"
    "${PROJECT_BINARY_DIR}/packaging/orvxxConfigVersion.cmake"
    DESTINATION "${ORV_CMAKE_DIR}")

# pkg-config. Directories stand relative to the file, so that the prefix can be moved.
function(orv_pkgconfig_dir variable directory)
    if(IS_ABSOLUTE "${directory}")
        set(${variable} "${directory}" PARENT_SCOPE)
    else()
        set(${variable} "\${prefix}/${directory}" PARENT_SCOPE)
    endif()
endfunction()
orv_pkgconfig_dir(ORV_PC_LIBDIR "${CMAKE_INSTALL_LIBDIR}")
orv_pkgconfig_dir(ORV_PC_INCLUDEDIR "${CMAKE_INSTALL_INCLUDEDIR}")
if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}")
    set(ORV_PC_PREFIX "${CMAKE_INSTALL_PREFIX}")
else()
    file(RELATIVE_PATH up "/${ORV_PKGCONFIG_DIR}" "/")
    string(REGEX REPLACE "/$" "" up "${up}")
    set(ORV_PC_PREFIX "\${pcfiledir}/${up}")
endif()

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
foreach(name IN ITEMS orv orvxx)
    configure_file(
        "${PROJECT_SOURCE_DIR}/packaging/${name}.pc.in"
        "${PROJECT_BINARY_DIR}/packaging/${name}.pc" @ONLY)
    install(FILES "${PROJECT_BINARY_DIR}/packaging/${name}.pc"
        DESTINATION "${ORV_PKGCONFIG_DIR}")
endforeach()

install(FILES "${PROJECT_SOURCE_DIR}/LICENSE" DESTINATION "${CMAKE_INSTALL_DOCDIR}")
install(DIRECTORY "${PROJECT_SOURCE_DIR}/LICENSES" DESTINATION "${CMAKE_INSTALL_DOCDIR}")
