# The language and the runtime beside Lua 5.4 and memcpy.
find_package(PkgConfig REQUIRED)
pkg_check_modules(LUA REQUIRED IMPORTED_TARGET lua5.4)
add_executable(core_bench ${CMAKE_CURRENT_SOURCE_DIR}/core_bench.cpp ${CMAKE_CURRENT_SOURCE_DIR}/BenchGame.cpp)
target_link_libraries(core_bench PRIVATE zb_runtime PkgConfig::LUA benchmark::benchmark)
