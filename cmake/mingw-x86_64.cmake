# SPDX-License-Identifier: MIT
# Toolchain: Windows x64, built with MinGW-w64; its programs run in the project's own Wine.
set(CMAKE_SYSTEM_PROCESSOR AMD64)
set(QUORVANE_TRIPLE x86_64-w64-mingw32)
set(QUORVANE_SHARED_LIBGCC libgcc_s_seh-1.dll)
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../tools/wine-run x64)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
