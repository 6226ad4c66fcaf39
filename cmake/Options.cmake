# SPDX-License-Identifier: MIT
# Compiler and linker options: what every target shares, and the warnings of our own sources.

option(QUORVANE_TESTS "Build the tests" ON)
option(QUORVANE_FUZZ "Build the fuzzers (clang) in place of the tests" OFF)
option(QUORVANE_BENCH "Build the benchmarks in place of the tests" OFF)
option(QUORVANE_CHECKED "Check the preconditions of the standard library" OFF)
option(QUORVANE_COVERAGE "Record which lines the tests run (clang)" OFF)
set(QUORVANE_SANITIZE "" CACHE STRING "Sanitizers to build with, for example address,undefined")

find_program(CCACHE ccache)
if(CCACHE)
    # It keeps nothing that includes a precompiled header without this leave.
    set(CMAKE_CXX_COMPILER_LAUNCHER
        ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${CCACHE})
    set(CMAKE_C_COMPILER_LAUNCHER ${CCACHE})
endif()

# Results must be equal to the bit on every target: no fused multiply-add, no x87 registers.
add_compile_options(-ffp-contract=off)
if(MINGW AND CMAKE_SIZEOF_VOID_P EQUAL 4)
    # Hosts call in with a stack aligned to 4 bytes only; SSE spills need 16.
    add_compile_options(-msse2 -mfpmath=sse -mstackrealign)
    # The C runtime aligns memory to 8 bytes only, so what needs 16 has to ask for it.
    add_compile_options($<$<COMPILE_LANGUAGE:CXX>:-faligned-new=8>)
endif()

set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")
set(CMAKE_C_FLAGS_RELEASE "-O2 -DNDEBUG")
if(MINGW)
    add_compile_options(-ffunction-sections -fdata-sections)
    add_compile_definitions(UNICODE _UNICODE)
    # -static: the products need nothing but system DLLs. No time stamp: equal sources, equal files.
    add_link_options(-static -Wl,--gc-sections -Wl,--no-insert-timestamp $<$<CONFIG:Release>:-s>)
endif()

if(QUORVANE_CHECKED)
    add_compile_definitions(_GLIBCXX_ASSERTIONS)
endif()
if(QUORVANE_SANITIZE)
    add_compile_options(-fsanitize=${QUORVANE_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${QUORVANE_SANITIZE})
    add_compile_definitions(QUORVANE_CHECKS_MEMORY)
endif()
if(QUORVANE_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()
if(QUORVANE_COVERAGE)
    add_compile_options(-fprofile-instr-generate -fcoverage-mapping)
    add_link_options(-fprofile-instr-generate)
endif()

# Every target of our own links this; third-party test code does not.
add_library(quorvane_options INTERFACE)
target_compile_options(quorvane_options INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror
    "$<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor;-Wsuggest-override>")

if(MINGW)
    # What every source of the shell is compiled with, after the warnings that all sources share.
    add_library(quorvane_shell_options INTERFACE)
    target_compile_options(quorvane_shell_options INTERFACE
        # The core's char16_t texts are viewed as the platform's wchar_t and the other way round:
        # the same UTF-16, but types that may not alias.
        "$<$<COMPILE_LANGUAGE:CXX>:-fno-strict-aliasing>"
        # COM interfaces have no destructors at all; -Wdelete-non-virtual-dtor stays on.
        "$<$<COMPILE_LANGUAGE:CXX>:-Wno-non-virtual-dtor>")
    add_library(quorvane_shell INTERFACE)
    target_include_directories(quorvane_shell INTERFACE ${PROJECT_SOURCE_DIR})
    target_link_libraries(quorvane_shell INTERFACE quorvane_options quorvane_shell_options)
endif()
