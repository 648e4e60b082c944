zb_window_test(editorTextTest editorTextTest.cpp LIBS zb_editor)
zb_window_test(editorTest editorTest.cpp LIBS zb_editor)
zb_window_test(editorPrintTest editorPrintTest.cpp LIBS zb_editor)
