// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "platform/DiskFile.h"
#include "support/Dialogs.h"
#include "support/PaintingDesk.h"

#include "mapeditor/MapCanvas.h"
#include "mapeditor/MapEditor.h"
#include "platform/qt/SurfaceImage.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QMouseEvent>
#include <QPixmap>
#include <QScrollArea>

#include <gtest/gtest.h>

#include <fstream>
#include <vector>

namespace
{

using namespace Qt::StringLiterals;

class MapEditorTest : public testing::Test
{
protected:
    MapEditorTest()
        : editor(desk)
    {
        editor.show();
        display().resize(480, 480);
    }

    template<typename T> T& control(const QString& name) { return *editor.findChild<T*>(name); }
    QWidget& display() { return control<QWidget>(u"Display"_s); }
    QString box(const QString& legend) { return control<QLineEdit>(legend).text(); }
    void click(const QString& name) { QTest::mouseClick(&control<QAbstractButton>(name), Qt::LeftButton); }

    void create(const QString& size)
    {
        control<QAction>(u"FileNew"_s).trigger();
        control<QComboBox>(u"MapSizeBox"_s).setCurrentText(size);
        click(u"CreateNewMap"_s);
    }

    /// Presses the button at the first point, passes over the others and lets go at the last.
    void stroke(const std::vector<QPoint>& points)
    {
        QTest::mousePress(&display(), Qt::LeftButton, {}, points.front());
        for (const QPoint& point : points) { // one that carries the held button, unlike QTest's
            QMouseEvent move(QEvent::MouseMove, point, display().mapToGlobal(point), Qt::NoButton,
                             Qt::LeftButton, {});
            QApplication::sendEvent(&display(), &move);
        }
        QTest::mouseRelease(&display(), Qt::LeftButton, {}, points.back());
    }

    /// The painted squares as "column,row=packed value".
    std::string painted()
    {
        const ZBMap& map = editor.map();
        QStringList squares;
        for (int index = 0; index < map.columns * map.rows; ++index)
            if (const int packed = map.square(index).ToLong(); packed != 0)
                squares << u"%1,%2=%3"_s.arg(index % map.columns).arg(index / map.columns).arg(packed);
        return squares.join(u' ').toStdString();
    }

    Surface shown()
    {
        return surfaceOfImage(display().grab().toImage().convertToFormat(QImage::Format_RGB32));
    }
    bool isUnsaved() { return editor.windowTitle().contains(u'*'); }

    void writeFile(const std::string& name, const std::string& text)
    {
        std::ofstream(desk.game() / name, std::ios::binary) << text;
    }

    PaintingDesk desk;
    MapEditor editor;
};

} // namespace

TEST_F(MapEditorTest, OpensWithThePanelForANewMap)
{
    EXPECT_EQ(editor.objectName(), u"MapEditor"_s);
    EXPECT_EQ(editor.windowTitle(), u"Zorbino Map Editor"_s);
    EXPECT_TRUE(control<QWidget>(u"NewMap"_s).isVisible());
    EXPECT_EQ(control<QComboBox>(u"MapSizeBox"_s).currentText(), u"16 x 16"_s);
    EXPECT_EQ(control<QAbstractButton>(u"CreateNewMap"_s).text(), u"&Ok"_s);
    EXPECT_FALSE(display().isEnabled());
    click(u"CreateNewMap"_s);
    EXPECT_FALSE(control<QWidget>(u"NewMap"_s).isVisible());
    EXPECT_TRUE(display().isEnabled());
    EXPECT_EQ(editor.map().columns, 16);
    create(u"75 x 75"_s);
    EXPECT_EQ(editor.map().rows, 75);
    control<QAction>(u"FileNew"_s).trigger();
    QTest::keyClick(&control<QComboBox>(u"MapSizeBox"_s), Qt::Key_Up);
    QTest::keyClick(&control<QComboBox>(u"MapSizeBox"_s), Qt::Key_Return);
    EXPECT_FALSE(control<QWidget>(u"NewMap"_s).isVisible());
    EXPECT_EQ(editor.map().rows, 10);
    EXPECT_FALSE(isUnsaved());
}

TEST_F(MapEditorTest, PaintsTheSquareUnderTheMouse)
{
    create(u"16 x 16"_s);
    stroke({{50, 5}});
    EXPECT_EQ(painted(), "1,0=1");
    EXPECT_TRUE(isUnsaved());
    stroke({{5, 35}, {155, 59}, {155, 200}});
    EXPECT_EQ(painted(), "1,0=1 0,1=1 1,1=1 2,1=1 3,1=1 4,1=1 5,1=1 5,2=1 5,3=1 5,4=1 5,5=1 5,6=1");
    stroke({{475, 475}, {900, 475}});
    EXPECT_TRUE(painted().ends_with(" 15,15=1"));
}

TEST_F(MapEditorTest, StrokesBeginAnewAndMovesWithoutAButtonPaintNothing)
{
    create(u"16 x 16"_s);
    stroke({{5, 5}});
    QTest::mouseMove(&display(), QPoint(200, 200));
    stroke({{455, 5}});
    EXPECT_EQ(painted(), "0,0=1 15,0=1");
}

TEST_F(MapEditorTest, ABoxThatComesUpEndsTheStroke)
{
    create(u"16 x 16"_s);
    editor.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&editor));
    QTest::mousePress(&display(), Qt::LeftButton, {}, QPoint(5, 5));
    withAnswers({QString()}, [this] { control<QAction>(u"FileSave"_s).trigger(); });
    QMouseEvent move(QEvent::MouseMove, QPoint(200, 5), display().mapToGlobal(QPoint(200, 5)), Qt::NoButton,
                     Qt::NoButton, {});
    QApplication::sendEvent(&display(), &move);
    EXPECT_EQ(painted(), "0,0=1");
}

TEST_F(MapEditorTest, DeletesOneColorOrAll)
{
    struct Case {
        bool onlyCurrent;
        std::string expected;
    };
    for (const Case& c : {Case{true, "0,0=1"}, Case{false, ""}}) {
        create(u"16 x 16"_s);
        control<QCheckBox>(u"delete"_s).setChecked(false);
        control<QCheckBox>(u"OnlyCurrent"_s).setChecked(c.onlyCurrent);
        for (const int color : {0, 5}) {
            click(u"ColorSelect_%1"_s.arg(color));
            stroke({{5, 5}});
        }
        EXPECT_EQ(painted(), "0,0=33");
        control<QCheckBox>(u"delete"_s).setChecked(true);
        stroke({{5, 5}});
        EXPECT_EQ(painted(), c.expected);
    }
}

TEST_F(MapEditorTest, ShowsWhatTheMapDraws)
{
    QImage checks(3, 2, QImage::Format_RGB32);
    checks.fill(Qt::darkGreen);
    checks.setPixel(1, 1, 0xff123456);
    ASSERT_TRUE(checks.save(QString::fromStdString((desk.game() / "sky.bmp").string())));
    withAnswers({u"00000001\\sky.bmp"_s}, [this] { control<QAction>(u"ViewBackground"_s).trigger(); });
    EXPECT_EQ(editor.map().get_background(), "00000001\\sky.bmp");
    create(u"10 x 10"_s);
    for (int color = 0; color < mapColorCount; ++color) {
        click(u"ColorSelect_%1"_s.arg(color));
        stroke({{5 + color * 30, 5}, {470 - color * 50, 470}});
    }
    for (const bool onlyCurrent : {false, true}) {
        control<QCheckBox>(u"OnlyCurrent"_s).setChecked(onlyCurrent);
        for (const QSize size : {QSize(480, 480), QSize(613, 613)}) {
            editor.resize(editor.size() + (size - display().size()));
            QCoreApplication::processEvents();
            ASSERT_EQ(display().width(), display().height());
            Surface expected(display().width(), display().height());
            stretch(expected, surfaceOfImage(checks));
            editor.map().Draw(expected, onlyCurrent ? 6 : -1);
            EXPECT_EQ(shown(), expected) << onlyCurrent << ' ' << display().width();
        }
    }
}

TEST_F(MapEditorTest, SavesAndOpensMaps)
{
    create(u"5 x 5"_s);
    QTest::keyClicks(&control<QLineEdit>(u"LegendText_6"_s), u"magic door"_s);
    EXPECT_TRUE(isUnsaved());
    stroke({{5, 5}});
    const auto save = [this] { control<QAction>(u"FileSave"_s).trigger(); };
    EXPECT_EQ(withAnswers({QString()}, save).size(), 1); // an empty answer cancels
    EXPECT_TRUE(isUnsaved());
    EXPECT_EQ(withAnswers({u"00000001\\castle"_s, u"OK"_s}, save),
              QStringList({u"Save as...: "_s, u"Zorbino: 00000001\\castle saved."_s}));
    EXPECT_EQ(editor.windowTitle(), u"Zorbino Map Editor - 00000001\\castle"_s);
    writeFile("code.txt", "program{"); // spelt otherwise
    EXPECT_EQ(
        withAnswers({u"00000001\\Code.txt"_s, u"OK"_s}, save).value(1),
        u"Zorbino: The file 00000001\\Code.txt of your game is not a map. Please give your map another name."_s);
    EXPECT_EQ(readFileBytes(desk.game() / "code.txt", 100000), "program{");
    ZBMap onDisk;
    ASSERT_TRUE(onDisk.fromText(readFileBytes(desk.game() / "castle", 100000).value_or("")));
    EXPECT_EQ(onDisk.get_legend(6), "magic door");

    stroke({{5, 5}, {400, 400}});
    control<QLineEdit>(u"LegendText_6"_s).clear();
    EXPECT_TRUE(isUnsaved());
    EXPECT_EQ(withAnswers({u"00000001\\castle"_s}, [this] { control<QAction>(u"FileOpen"_s).trigger(); }),
              QStringList(u"Open...: "_s));
    EXPECT_EQ(painted(), "0,0=1");
    EXPECT_EQ(box(u"LegendText_6"_s), u"magic door"_s);
    EXPECT_EQ(control<QLineEdit>(u"LegendText_6"_s).cursorPosition(), 0);
    EXPECT_EQ(editor.map().get_legend(6), "magic door");
    EXPECT_FALSE(isUnsaved());
}

TEST_F(MapEditorTest, SaysWhatWentWrong)
{
    writeFile("cut", "\r\n\r\n 3\r\n 3\r\nlava\r\n");
    writeFile("short", "\r\n\r\n 3\r\n 3\r\n" + std::string(21, '\n') + "1\r\n2\r\n");
    writeFile("huge", "\r\n\r\n 2000000000\r\n 2000000000\r\n" + std::string(21, '\n') + "1\r\n2\r\n");
    writeFile("nobackground", "\r\n00000001\\gone.bmp\r\n 1\r\n 1\r\n" + std::string(21, '\n') + "64\r\n");
    struct Case {
        const char* action;
        QString name;
        QString message;
    };
    const Case cases[] = {
        {"FileOpen", u"00000001\\missing"_s, u"could not open the map"_s},
        {"FileOpen", u"..\\..\\etc\\passwd"_s, u"could not open the map"_s},
        {"FileOpen", u"00000001\\cut"_s, u"could not read the map"_s},
        {"FileOpen", u"00000001\\short"_s, u"could not read the map"_s},
        {"FileOpen", u"00000001\\huge"_s, u"could not read the map"_s},
        {"FileOpen", u"00000001\\nobackground"_s, u"could not open the picture"_s},
        {"FileSave", u"nofolder\\castle"_s, u"could not save the map"_s},
        {"ViewBackground", u"00000001\\cut"_s, u"could not open the picture"_s},
        {"ViewBackground", u"00000001\\gone.bmp"_s, u"could not open the picture"_s},
    };
    for (const Case& c : cases) {
        create(u"5 x 5"_s);
        stroke({{5, 5}});
        const QStringList boxes = withAnswers(
            {c.name, u"OK"_s}, [this, &c] { control<QAction>(QLatin1StringView(c.action)).trigger(); });
        ASSERT_EQ(boxes.size(), 2) << qPrintable(c.name);
        EXPECT_TRUE(boxes[1].contains(c.message)) << qPrintable(boxes[1]);
        stroke({{5, 5}, {400, 400}}); // whatever is left can be painted on or is switched off
    }
}

TEST_F(MapEditorTest, RulersMarkTheSquareUnderTheMouse)
{
    create(u"5 x 5"_s);
    editor.resize(editor.size() + QSize(80, 20)); // the display goes to its place
    QCoreApplication::processEvents();
    auto& canvas = control<MapCanvas>(u"Canvas"_s);
    const QRect area = canvas.displayRect();
    ASSERT_EQ(area, display().geometry());
    EXPECT_NEAR(area.center().x(), canvas.rect().center().x(), 1);
    EXPECT_NEAR(area.center().y(), canvas.rect().center().y(), 1);
    const int side = area.width() / 5;
    const auto expectRulers = [&](int column, int row) {
        const QImage rulers = canvas.grab().toImage();
        const auto color = [&](int index, int marked) {
            const QPalette& colors = canvas.palette();
            return index == marked ? colors.highlight().color()
                                   : (index % 2 == 0 ? colors.mid() : colors.midlight()).color();
        };
        for (int index = 0; index < 5; ++index) {
            const int middle = index * side + side / 2;
            const QColor across = color(index, column);
            const QColor down = color(index, row);
            EXPECT_EQ(rulers.pixelColor(area.left() + middle, area.top() - 5), across) << index;
            EXPECT_EQ(rulers.pixelColor(area.left() + middle, area.bottom() + 5), across) << index;
            EXPECT_EQ(rulers.pixelColor(area.left() - 5, area.top() + middle), down) << index;
            EXPECT_EQ(rulers.pixelColor(area.right() + 5, area.top() + middle), down) << index;
        }
    };
    expectRulers(-1, -1);
    editor.Display_MouseMove(side + 3, 3 * side + 3);
    expectRulers(1, 3);
    editor.Display_MouseMove(side + 3, 4 * side + 3);
    expectRulers(1, 4);
    editor.Display_MouseMove(2 * side + 3, 4 * side + 3);
    expectRulers(2, 4);
    editor.Display_MouseMove(side + 3, 5 * side + 3);
    expectRulers(-1, -1); // beside the map
    editor.Display_MouseMove(0, 0);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&display(), &leave);
    expectRulers(-1, -1);
    EXPECT_EQ(painted(), "");
}

TEST_F(MapEditorTest, EscapeGoesBackToTheMapThatIsThere)
{
    auto& sizes = control<QComboBox>(u"MapSizeBox"_s);
    const QWidget& panel = control<QWidget>(u"NewMap"_s);
    QTest::keyClick(&sizes, Qt::Key_Escape);
    EXPECT_TRUE(panel.isVisible()) << "there is none yet";
    create(u"5 x 5"_s);
    control<QAction>(u"FileNew"_s).trigger();
    sizes.setCurrentText(u"3 x 3"_s);
    QTest::keyClick(&sizes, Qt::Key_Escape);
    EXPECT_FALSE(panel.isVisible());
    EXPECT_EQ(editor.map().columns, 5);
    QTest::keyClick(&editor, Qt::Key_Return); // not for the panel
    EXPECT_EQ(editor.map().columns, 5);
}

TEST_F(MapEditorTest, OneColorIsRaised)
{
    const auto raised = [this] {
        QString colors;
        for (int color = 0; color < mapColorCount; ++color)
            if (control<QAbstractButton>(u"ColorSelect_%1"_s.arg(color)).isChecked())
                colors += QString::number(color);
        return colors;
    };
    EXPECT_EQ(raised(), u"0"_s);
    click(u"ColorSelect_6"_s);
    EXPECT_EQ(raised(), u"6"_s);
    editor.ColorSelect_Click(2);
    EXPECT_EQ(raised(), u"2"_s);
}

TEST_F(MapEditorTest, ReplacesNothingButMaps)
{
    writeFile("tune.mid", "MThd");
    writeFile("notes", "Do not forget!");
    std::ofstream(desk.game() / ".." / ".." / "zorbino.exe") << "the program";
    struct Case {
        QString name;
        QString message;
    };
    const Case cases[] = {
        {u"00000001\\tune.mid"_s, u"The file 00000001\\tune.mid of your game is not a map."_s},
        {u"00000001/NOTES"_s, u"is not a map."_s},
        {u"..\\zorbino.exe"_s, u"leads out of your games"_s},
        {u"00000001\\..\\..\\zorbino.exe"_s, u"leads out of your games"_s},
        {u"00000001\\icon"_s, u"belongs to the icon of your game"_s},
        {u"00000001\\a b"_s, u"No program can use a map with the name 00000001\\a b."_s},
    };
    create(u"3 x 3"_s);
    stroke({{5, 5}});
    for (const Case& c : cases) {
        const QStringList boxes =
            withAnswers({c.name, u"OK"_s}, [this] { control<QAction>(u"FileSave"_s).trigger(); });
        ASSERT_EQ(boxes.size(), 2) << qPrintable(c.name);
        EXPECT_TRUE(boxes[1].contains(c.message)) << qPrintable(boxes[1]);
        EXPECT_TRUE(isUnsaved());
    }
    EXPECT_EQ(readFileBytes(desk.game() / "tune.mid", 100), "MThd");
    EXPECT_EQ(readFileBytes(desk.game() / "notes", 100), "Do not forget!");
    EXPECT_EQ(readFileBytes(desk.installation().root() / "zorbino.exe", 100), "the program");
    EXPECT_FALSE(std::filesystem::exists(desk.game() / "a b"));
}

TEST_F(MapEditorTest, AsksAgainForABlankName)
{
    create(u"3 x 3"_s);
    const QStringList boxes = withAnswers({u"  "_s, u"00000001\\"_s, u" 00000001\\hall "_s, u"OK"_s},
                                          [this] { control<QAction>(u"FileSave"_s).trigger(); });
    EXPECT_EQ(boxes, QStringList({u"Save as...: "_s, u"Save as...: "_s, u"Save as...: "_s,
                                  u"Zorbino: 00000001\\hall saved."_s}));
}

TEST_F(MapEditorTest, AsksBeforeItReplacesWhatSomebodyElseHasSaved)
{
    const auto save = [this](const QString& name, const QString& answer) {
        return withAnswers({name, answer, u"OK"_s}, [this] { control<QAction>(u"FileSave"_s).trigger(); })
            .size();
    };
    ZBMap theirs;
    theirs.Create(3, 3);
    theirs.set_legend(0, "theirs");
    create(u"3 x 3"_s);
    EXPECT_EQ(save(u"00000001\\hall"_s, u"OK"_s), 2);
    EXPECT_EQ(save(u"00000001\\hall"_s, u"OK"_s), 2) << "nobody has touched it";
    writeFile("hall", theirs.toText());
    EXPECT_EQ(save(u"00000001\\HALL"_s, u"No"_s), 2);
    EXPECT_EQ(readFileBytes(desk.game() / "hall", 10000), theirs.toText());
    EXPECT_EQ(save(u"00000001\\hall"_s, u"Yes"_s), 3);
    EXPECT_EQ(readFileBytes(desk.game() / "hall", 10000), editor.map().toText());

    withAnswers({u"00000001\\hall"_s}, [this] { control<QAction>(u"FileOpen"_s).trigger(); });
    EXPECT_EQ(save(u"00000001\\hall"_s, u"OK"_s), 2) << "it is what was read";
    writeFile("hall", theirs.toText());
    EXPECT_EQ(save(u"00000001\\tower"_s, u"OK"_s), 2) << "another file";
    EXPECT_EQ(readFileBytes(desk.game() / "hall", 10000), theirs.toText());
}

TEST_F(MapEditorTest, FindsThePictureBesideTheMap)
{
    QImage sky(2, 2, QImage::Format_RGB32);
    sky.fill(0xff123456);
    ASSERT_TRUE(sky.save(QString::fromStdString((desk.game() / "sky.bmp").string())));
    writeFile("hall", "\r\nsky.bmp\r\n 1\r\n 1\r\n" + std::string(21, '\n') + "0\r\n");
    EXPECT_EQ(
        withAnswers({u"00000001\\hall"_s}, [this] { control<QAction>(u"FileOpen"_s).trigger(); }).size(), 1);
    EXPECT_EQ(shown().at(1, 1), 0xff123456);
    EXPECT_EQ(editor.map().get_background(), "sky.bmp");
}

TEST_F(MapEditorTest, OpensEveryShippedMapWithItsPicture)
{
    const std::filesystem::path games = std::filesystem::path(ZB_SOURCE_DIR) / "games";
    std::filesystem::copy(games, desk.game().parent_path(),
                          std::filesystem::copy_options::recursive |
                              std::filesystem::copy_options::overwrite_existing);
    int maps = 0;
    for (const auto& file : std::filesystem::recursive_directory_iterator(games)) {
        if (file.path().extension() != ".map")
            continue;
        const std::string game = file.path().parent_path().filename().string();
        const QString name = QString::fromStdString(game + '\\' + file.path().filename().string());
        EXPECT_EQ(withAnswers({name}, [this] { control<QAction>(u"FileOpen"_s).trigger(); }).size(), 1)
            << qPrintable(name);
        EXPECT_TRUE(editor.map().get_background().starts_with(game)) << qPrintable(name);
        ++maps;
    }
    EXPECT_GE(maps, 5);
}

TEST_F(MapEditorTest, FitsOnASmallScreen)
{
    EXPECT_LE(editor.minimumSizeHint().width(), 800);
    EXPECT_LE(editor.minimumSizeHint().height(), 400);
    editor.resize(editor.minimumSizeHint());
    QCoreApplication::processEvents();
    const QWidget& last = control<QWidget>(u"OnlyCurrent"_s);
    auto* const area = editor.findChild<QScrollArea*>();
    ASSERT_NE(area, nullptr);
    area->ensureWidgetVisible(&control<QWidget>(u"OnlyCurrent"_s));
    EXPECT_TRUE(editor.rect().contains(QRect(last.mapTo(&editor, QPoint()), last.size())));
}
