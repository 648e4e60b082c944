zb_window_test(editorTextTest editorTextTest.cpp LIBS zb_editor)
zb_window_test(editorTest editorTest.cpp LIBS zb_editor)
zb_window_test(editorPrintTest editorPrintTest.cpp LIBS zb_editor)

# The same through the system's printing, where a queue can be made for it.
add_test(NAME windows.editorPrintQueue
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/withPdfQueue $<TARGET_FILE:editorPrintTest> --gtest_filter=*OfTheList*)
set_tests_properties(windows.editorPrintQueue PROPERTIES
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen" TIMEOUT 120 SKIP_RETURN_CODE 77)
