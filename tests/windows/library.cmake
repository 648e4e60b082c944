zb_window_test(LibraryTest LibraryTest.cpp LIBS zb_library_windows)
zb_window_test(GameResourcesTest PropertiesTest.cpp ResourcesTest.cpp LIBS zb_library_windows)

zb_window_test(WorkbenchTest WorkbenchTest.cpp ${CMAKE_SOURCE_DIR}/src/app/Workbench.cpp
    LIBS zb_play zb_editor zb_library_windows zb_mapeditor)

# The whole program, in an installation folder of its own, opens each of its windows once.
add_test(NAME windows.self_test
    COMMAND sh -ec "rm -rf self_test; mkdir self_test; cp -r '${CMAKE_SOURCE_DIR}/zbo' '${CMAKE_SOURCE_DIR}/games' self_test; \
cp '$<TARGET_FILE:zorbino>' self_test; cd self_test; ./zorbino.exe --self-test"
    WORKING_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR})
set_tests_properties(windows.self_test PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen" TIMEOUT 120)

# Where there is no such file beside it, it only says so.
add_test(NAME windows.wrong_folder
    COMMAND sh -c "rm -rf wrong_folder; mkdir -p wrong_folder/zorbino.exe; cd wrong_folder; \
'$<TARGET_FILE:zorbino>' --self-test; test $? -eq 1"
    WORKING_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR})
set_tests_properties(windows.wrong_folder PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen" TIMEOUT 60)
