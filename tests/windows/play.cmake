zb_window_test(FormsTest FormsTest.cpp QtPicturesTest.cpp LIBS zb_forms)
zb_window_test(SpyWindowTest SpyWindowTest.cpp LIBS zb_play)
zb_window_test(GameEditorTest GameEditorTest.cpp GamePlayerTest.cpp LIBS zb_play)
zb_window_test(spriteeditorTest spriteeditorTest.cpp spritemodelTest.cpp LIBS zb_play)
