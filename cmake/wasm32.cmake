# SPDX-FileCopyrightText: 2026 The Zorbino team
# SPDX-License-Identifier: MIT

# The core for the web: Debian's clang with libc++ and wasi-libc for wasm32. The newest clang that has them is taken.
set(CMAKE_SYSTEM_NAME Generic)
set(CMAKE_SYSTEM_PROCESSOR wasm32)
set(ZB_WEB ON)
find_program(ZB_WASM_COMPILER NAMES clang++-24 clang++-23 clang++-22 REQUIRED)
set(CMAKE_CXX_COMPILER ${ZB_WASM_COMPILER})
set(CMAKE_CXX_COMPILER_TARGET wasm32-wasi)
# clang 22 would rather hear wasm32-wasip1, for which Debian has no folder.
set(CMAKE_CXX_FLAGS_INIT "-Wno-deprecated")
set(CMAKE_EXECUTABLE_SUFFIX .wasm)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
