# SPDX-License-Identifier: Apache-2.0
# Moves the debug symbols of the libraries about to be packed to the debugger's package, where GDB
# looks for them by the library's build ID. The loader finds the libraries without a run path.
set(runtime "${CPACK_TEMPORARY_DIRECTORY}/runtime")
set(symbols "${CPACK_TEMPORARY_DIRECTORY}/debugger/usr/lib/debug/.build-id")

function(run)
    execute_process(COMMAND ${ARGN} OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY)
    set(output "${output}" PARENT_SCOPE)
endfunction()

file(GLOB_RECURSE libraries "${runtime}/usr/lib/*.so.*")
foreach(library IN LISTS libraries)
    if(IS_SYMLINK "${library}")
        continue()
    endif()
    file(RPATH_REMOVE FILE "${library}")
    run("${CPACK_READELF_EXECUTABLE}" --notes "${library}")
    if(NOT output MATCHES "Build ID: ([0-9a-f][0-9a-f])([0-9a-f]+)")
        message(FATAL_ERROR "${library} has no build ID")
    endif()
    set(file "${symbols}/${CMAKE_MATCH_1}/${CMAKE_MATCH_2}.debug")
    file(MAKE_DIRECTORY "${symbols}/${CMAKE_MATCH_1}")
    run("${CPACK_OBJCOPY_EXECUTABLE}" --only-keep-debug --compress-debug-sections
        "${library}" "${file}")
    run("${CPACK_OBJCOPY_EXECUTABLE}" --strip-unneeded "${library}")
    file(CHMOD "${file}" "${library}" PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
endforeach()
