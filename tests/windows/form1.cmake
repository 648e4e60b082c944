zb_window_test(Form1Test Form1Test.cpp ${CMAKE_SOURCE_DIR}/src/app/Form1.cpp LIBS zb_forms)
