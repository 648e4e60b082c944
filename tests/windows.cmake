# SPDX-FileCopyrightText: 2026 The Zorbino team
# SPDX-License-Identifier: MIT

# Tests that open windows, off screen.
find_package(Qt6 6.4 REQUIRED COMPONENTS Test)

# zb_window_test(name source... LIBS library...): a test program with GoogleTest and QtTest's mouse and keys;
# WindowTest.cpp holds its main function.
function(zb_window_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LIBS")
    add_executable(${name} ${arg_UNPARSED_ARGUMENTS} support/WindowTest.cpp)
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
    target_compile_definitions(${name} PRIVATE ZB_SOURCE_DIR="${CMAKE_SOURCE_DIR}")
    target_link_libraries(${name} PRIVATE zb_flags ${arg_LIBS} Qt6::Widgets Qt6::Test GTest::gtest)
    add_test(NAME windows.${name} COMMAND ${name})
    set_tests_properties(windows.${name} PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen" TIMEOUT 120)
endfunction()

zb_window_test(FormsTest forms/FormsTest.cpp forms/NameOrderTest.cpp forms/WindowPlacementTest.cpp
    platform/qt/PicturesLikeQtTest.cpp LIBS zb_forms)
zb_window_test(SpyWindowTest play/spy/SpyWindowTest.cpp LIBS zb_play_forms)
zb_window_test(TimeWindowTest play/TimeWindowTest.cpp LIBS zb_play_forms)
zb_window_test(PlayPanelTest play/PlayPanelTest.cpp LIBS zb_play_forms)
zb_window_test(GameEditorTest play/GameEditorTest.cpp play/GamePlayerTest.cpp LIBS zb_play_forms)
zb_window_test(SpriteEditorTest sprites/SpriteEditorTest.cpp LIBS zb_sprite_forms)
zb_window_test(SpriteTest sprites/FramePaintingTest.cpp sprites/SpriteFilesTest.cpp sprites/SpriteModelTest.cpp sprites/SpriteStrokesTest.cpp
    LIBS zb_sprite_forms)
zb_window_test(EditorTextTest editor/IndentationTest.cpp editor/ProgramTextTest.cpp editor/SharedTextTest.cpp
    editor/UndoRingTest.cpp LIBS zb_editor_forms)
zb_window_test(CodeEditorTest editor/CodeEditorTest.cpp editor/LifeMarginTest.cpp editor/RandomKeysTest.cpp
    LIBS zb_editor_forms)
zb_window_test(PrintFormTest editor/PrintFormTest.cpp LIBS zb_editor_forms)
# The same through the system's printing, where a queue can be made for it.
add_test(NAME windows.PrintQueue
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/editor/withPdfQueue $<TARGET_FILE:PrintFormTest> --gtest_filter=PrintQueueTest.*)
set_tests_properties(windows.PrintQueue PROPERTIES
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen" TIMEOUT 120 SKIP_RETURN_CODE 77)
zb_window_test(ZorbinoMainTest library/ZorbinoMainTest.cpp LIBS zb_library_forms)
zb_window_test(GameResourcesTest library/GamePicturesTest.cpp library/PictureNameTest.cpp library/PropertiesTest.cpp
    library/ResourcesTest.cpp LIBS zb_library_forms)
zb_window_test(MapEditorTest mapeditor/MapEditorTest.cpp mapeditor/MapFilesTest.cpp mapeditor/MapNameTest.cpp
    mapeditor/MapPaintingTest.cpp LIBS zb_mapeditor_forms)
target_compile_definitions(MapEditorTest PRIVATE ZB_SOURCE_DIR="${CMAKE_SOURCE_DIR}")
zb_window_test(Form1Test app/Form1Test.cpp ${CMAKE_SOURCE_DIR}/src/app/Form1.cpp LIBS zb_forms)
zb_window_test(WorkbenchTest app/WorkbenchTest.cpp app/WritableCheckTest.cpp LIBS zb_workbench)

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
