# SPDX-License-Identifier: MIT
# Toolchain: Windows x86, built with MinGW-w64; its programs run in the project's own Wine.
set(CMAKE_SYSTEM_PROCESSOR X86)
set(QUORVANE_TRIPLE i686-w64-mingw32)
set(QUORVANE_SHARED_LIBGCC libgcc_s_dw2-1.dll)
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../tools/wine-run x86)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
