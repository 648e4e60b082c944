# One place for the flags that every target of ours shares.
add_library(zb_flags INTERFACE)
target_compile_options(zb_flags INTERFACE
    -Wall -Wextra -Wpedantic -Werror $<IF:$<CXX_COMPILER_ID:GNU>,-Wshadow=local,-Wshadow> -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-qual
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
if(ZB_FUZZ)
    # The fuzzers see which lines of the core an input reaches.
    target_compile_options(zb_flags INTERFACE -fsanitize=fuzzer-no-link)
    target_compile_definitions(zb_flags INTERFACE FUZZING_BUILD_MODE_UNSAFE_FOR_PRODUCTION)
endif()

# zb_library(NAME dependency...): a static library with the shared flags; its sources are added by
# the folders that belong to it. The calls in src/CMakeLists.txt are the layer diagram.
function(zb_library name)
    add_library(${name} STATIC)
    target_link_libraries(${name} PUBLIC zb_flags ${ARGN})
endfunction()
