# startup: from process start to the library's first painted tiles, beside a trivial program of the toolkit.
# Needs a display: xvfb-run -a build/bench/bench/startup
if(ZB_WORKBENCH)
    add_executable(trivial_window trivial_window.cpp)
    target_link_libraries(trivial_window PRIVATE zb_flags Qt6::Widgets)
    add_executable(startup startup.cpp)
    target_link_libraries(startup PRIVATE zb_flags)
    target_compile_definitions(startup PRIVATE
        ZB_PROGRAM="$<TARGET_FILE:zorbino>" ZB_TRIVIAL="$<TARGET_FILE:trivial_window>" ZB_SOURCE_DIR="${CMAKE_SOURCE_DIR}")
    add_dependencies(startup zorbino trivial_window)
endif()
