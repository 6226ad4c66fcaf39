# SPDX-License-Identifier: MIT
# quorvane_lint(target): run clang-tidy with each compilation of the target, in the lint presets only.

option(QUORVANE_LINT "Run clang-tidy with each compilation" OFF)
if(QUORVANE_LINT)
    find_program(CLANG_TIDY clang-tidy NO_CMAKE_FIND_ROOT_PATH REQUIRED)
    set(QUORVANE_TIDY ${CLANG_TIDY} --quiet)
    # A change of the rules has to run the checks again: it changes every command line.
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/.clang-tidy)
    file(SHA256 ${PROJECT_SOURCE_DIR}/.clang-tidy rules)
    add_compile_definitions(QUORVANE_LINT_RULES="${rules}")
    if(MINGW)
        # clang has its own intrinsics but does not know where MinGW-w64 keeps the other headers.
        list(APPEND QUORVANE_TIDY --extra-arg=--target=${QUORVANE_TRIPLE})
        set(folders ${CMAKE_CXX_IMPLICIT_INCLUDE_DIRECTORIES})
        list(FILTER folders EXCLUDE REGEX "/lib/gcc/[^/]*/[^/]*/include(-fixed)?$")
        list(TRANSFORM folders PREPEND --extra-arg=-isystem)
        list(APPEND QUORVANE_TIDY ${folders})
    endif()
endif()

function(quorvane_lint target)
    if(QUORVANE_LINT)
        set_target_properties(${target} PROPERTIES CXX_CLANG_TIDY "${QUORVANE_TIDY}")
    endif()
endfunction()
