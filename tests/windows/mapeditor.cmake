zb_window_test(mapeditorTest mapeditorTest.cpp LIBS zb_mapeditor)
zb_window_test(spriteeditorTest spriteeditorTest.cpp spritemodelTest.cpp LIBS zb_mapeditor)
