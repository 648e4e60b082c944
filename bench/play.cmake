# play_bench: showing a frame, and a run traced in full into the spy window.
if(ZB_WORKBENCH)
    add_executable(play_bench play_bench.cpp)
    target_include_directories(play_bench PRIVATE ${CMAKE_SOURCE_DIR}/tests)
    target_link_libraries(play_bench PRIVATE zb_play)
endif()
