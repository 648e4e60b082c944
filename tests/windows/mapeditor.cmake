zb_window_test(mapeditorTest mapeditorTest.cpp LIBS zb_mapeditor)
