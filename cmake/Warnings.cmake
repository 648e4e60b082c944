# SPDX-FileCopyrightText: 2026 The Zorbino team
# SPDX-License-Identifier: MIT

# One place for the flags that every target of ours shares.
add_library(zb_flags INTERFACE)
target_compile_options(zb_flags INTERFACE
    -Wall -Wextra -Wpedantic -Werror $<IF:$<CXX_COMPILER_ID:GNU>,-Wshadow=local,-Wshadow> -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-qual
    -Wconversion -Wsign-conversion
    # Sizes have 32 bits there; what is counted in 64 has been held against the sizes of files before it is an index.
    $<$<BOOL:${ZB_WEB}>:-Wno-shorten-64-to-32>
    # GCC 12 sees overlapping copies in every sum of strings (its bug 105651).
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
    # The same sums on every machine: no fused multiply-add behind our back.
    -ffp-contract=off)
target_compile_definitions(zb_flags INTERFACE
    QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING)
target_include_directories(zb_flags INTERFACE ${CMAKE_SOURCE_DIR}/src)
if(ZB_SANITIZE)
    target_compile_options(zb_flags INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(zb_flags INTERFACE -fsanitize=address,undefined)
endif()
if(ZB_COVERAGE)
    # The tests write which lines they reach; scripts/coverage makes a report of it.
    target_compile_options(zb_flags INTERFACE --coverage -fprofile-update=atomic)
    target_link_options(zb_flags INTERFACE --coverage)
endif()
if(ZB_FUZZ)
    # The fuzzers see which lines of the core an input reaches.
    target_compile_options(zb_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()

# Link-time optimization of the core, for the programs that users get: a frame of sprites takes three quarters of the
# time. The objects of its libraries can be linked with and without it, so that the tests need not wait for it.
set(ZB_LINK_TIME FALSE)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND NOT ZB_SANITIZE AND NOT ZB_COVERAGE)
    set(ZB_LINK_TIME TRUE)
endif()

# zb_optimize_core(NAME...): libraries that zb_optimized_program can look into.
function(zb_optimize_core)
    foreach(name IN LISTS ARGN)
        if(ZB_LINK_TIME)
            target_compile_options(${name} PRIVATE $<$<CONFIG:Release>:-flto=auto -ffat-lto-objects>)
        endif()
    endforeach()
endfunction()

# zb_optimized_program(NAME...): programs that are optimized as one when they are linked.
function(zb_optimized_program)
    foreach(name IN LISTS ARGN)
        if(ZB_LINK_TIME)
            target_link_options(${name} PRIVATE $<$<CONFIG:Release>:-O3 -flto=auto>)
        endif()
    endforeach()
endfunction()

# zb_library(NAME dependency...): a static library with the shared flags; its sources are added by
# the folders that belong to it. The calls in src/CMakeLists.txt are the layer diagram.
function(zb_library name)
    add_library(${name} STATIC)
    target_link_libraries(${name} PUBLIC zb_flags ${ARGN})
endfunction()
