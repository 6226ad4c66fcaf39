# SPDX-License-Identifier: MIT
# quorvane_lint(target): run clang-tidy with each compilation of the target, in the lint presets only.

option(QUORVANE_LINT "Run clang-tidy with each compilation" OFF)
if(QUORVANE_LINT)
    find_program(CLANG_TIDY clang-tidy REQUIRED)
    # A change of the rules has to run the checks again: it changes every command line.
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/.clang-tidy)
    file(SHA256 ${PROJECT_SOURCE_DIR}/.clang-tidy rules)
    add_compile_definitions(QUORVANE_LINT_RULES="${rules}")
endif()

function(quorvane_lint target)
    if(QUORVANE_LINT)
        set_target_properties(${target} PROPERTIES CXX_CLANG_TIDY "${CLANG_TIDY};--quiet")
    endif()
endfunction()
