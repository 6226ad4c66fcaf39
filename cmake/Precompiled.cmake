# SPDX-License-Identifier: MIT
# Precompiled headers: reading the headers of the platform and of GoogleTest costs more than half of
# the time to compile a small source. The sources still include what they use; the presets of clang
# build without, which keeps them honest.

set(QUORVANE_STANDARD_HEADERS <algorithm> <functional> <memory> <string> <utility> <vector>)
set(QUORVANE_WINDOWS_HEADERS <windows.h> <ocidl.h> <olectl.h>)

# quorvane_precompile([WINDOWS] [TESTS] targets...)
function(quorvane_precompile)
    cmake_parse_arguments(PARSE_ARGV 0 with "WINDOWS;TESTS" "" "")
    set(headers ${QUORVANE_STANDARD_HEADERS})
    if(with_WINDOWS)
        list(PREPEND headers ${QUORVANE_WINDOWS_HEADERS})
    endif()
    if(with_TESTS)
        list(APPEND headers <gtest/gtest.h>)
    endif()
    # For the C++ sources of a target alone, with the bracket that does not end the expression.
    list(TRANSFORM headers REPLACE "^(<.*)>$" "$<$<COMPILE_LANGUAGE:CXX>:\\1$<ANGLE-R>>")
    foreach(target IN LISTS with_UNPARSED_ARGUMENTS)
        target_precompile_headers(${target} PRIVATE ${headers})
        # What ccache needs to see through a precompiled header of GCC.
        target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
    endforeach()
endfunction()
