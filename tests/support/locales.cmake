# SPDX-License-Identifier: Apache-2.0
# Locales of the C library for tests, compiled into the build folder: nothing of the system's
# choice of locales is needed or used.
#
#   orv_test_with_locales(<test> [<program>])
#
# makes the locales before the program, which is the <test> of orv_add_test if it has no other
# name, and runs the test with LOCPATH set to their folder, so that setlocale(LC_ALL, "de_DE.UTF-8")
# and std::locale("de_DE.UTF-8") find them.
# ORV_TEST_LOCALES names them all; what each is there for (point, separator, grouping):
#
#   de_CH.UTF-8   .  U+2019  3;3    a separator beyond Latin-1
#   de_DE.UTF-8   ,  .       3;3    a decimal comma, and the point as a separator
#   en_IN.UTF-8   .  ,       3;2    groups of different sizes
#   en_US.UTF-8   .  ,       3;3    separators that other locales have as decimal points
#   fa_IR.UTF-8   .  ,       3      digits of its own for output (printf's flag "I"), grouping of one
#   fr_FR.UTF-8   ,  U+202F  3      a separator beyond ASCII
#   ps_AF.UTF-8   U+066B U+066C 3;3 a point and a separator of another script
#   tr_TR.UTF-8   ,  .       3;3    upper case of "i" is U+0130: "infinity" has no usual upper case

set(ORV_TEST_LOCALES de_CH.UTF-8 de_DE.UTF-8 en_IN.UTF-8 en_US.UTF-8 fa_IR.UTF-8
    fr_FR.UTF-8 ps_AF.UTF-8 tr_TR.UTF-8)
set(ORV_TEST_LOCALE_DIR "${PROJECT_BINARY_DIR}/test-locales")
set(ORV_LSAN_LOCALES "${CMAKE_CURRENT_LIST_DIR}/lsan_locales.supp")

find_program(ORV_LOCALEDEF localedef)
if(NOT ORV_LOCALEDEF OR NOT EXISTS /usr/share/i18n/locales/de_DE)
    message(FATAL_ERROR "The tests need localedef and the sources of locales in "
        "/usr/share/i18n: install the package locales")
endif()

set(stamps)
foreach(locale IN LISTS ORV_TEST_LOCALES)
    string(REPLACE ".UTF-8" "" source "${locale}")
    set(stamp "${ORV_TEST_LOCALE_DIR}/${locale}.made")
    add_custom_command(OUTPUT "${stamp}"
        COMMAND "${CMAKE_COMMAND}" -E make_directory "${ORV_TEST_LOCALE_DIR}"
        COMMAND "${ORV_LOCALEDEF}" --no-archive -i ${source} -f UTF-8
                "${ORV_TEST_LOCALE_DIR}/${locale}"
        COMMAND "${CMAKE_COMMAND}" -E touch "${stamp}"
        DEPENDS "${CMAKE_CURRENT_LIST_FILE}"
        COMMENT "Compiling the locale ${locale}" VERBATIM)
    list(APPEND stamps "${stamp}")
endforeach()
add_custom_target(test_locales DEPENDS ${stamps})

function(orv_test_with_locales test)
    set(program ${ARGN} ${test})
    list(GET program 0 program)
    add_dependencies(${program} test_locales)
    set_property(TEST ${test} APPEND PROPERTY ENVIRONMENT "LOCPATH=${ORV_TEST_LOCALE_DIR}"
        "LSAN_OPTIONS=suppressions=${ORV_LSAN_LOCALES}:print_suppressions=0")
endfunction()
