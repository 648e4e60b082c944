zb_window_test(LibraryTest LibraryTest.cpp LIBS zb_library_windows)
zb_window_test(GameResourcesTest PropertiesTest.cpp ResourcesTest.cpp LIBS zb_library_windows)

# The whole program, in an installation folder of its own, opens each of its windows once.
add_test(NAME windows.self_test
    COMMAND sh -ec "rm -rf self_test; mkdir self_test; cp -r '${CMAKE_SOURCE_DIR}/zbo' '${CMAKE_SOURCE_DIR}/games' self_test; \
cp '$<TARGET_FILE:zorbino>' self_test; cd self_test; ./zorbino.exe --self-test"
    WORKING_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR})
set_tests_properties(windows.self_test PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen" TIMEOUT 120)
