#include "PaintingDesk.h"

#include "forms/Forms.h"
#include "mapeditor/MapEditor.h"
#include "platform/TextFile.h"
#include "platform/qt/SurfaceImage.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QPixmap>

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
    struct Case {
        QString size;
        std::vector<QPoint> points;
        std::string expected;
    };
    const Case cases[] = {
        {u"16 x 16"_s, {{50, 5}}, "1,0=1"},
        {u"16 x 16"_s, {{29, 29}}, "0,0=1"},
        {u"16 x 16"_s, {{479, 479}}, "15,15=1"},
        {u"16 x 16"_s, {{5, 5}, {155, 5}}, "0,0=1 1,0=1 2,0=1 3,0=1 4,0=1 5,0=1"},
        {u"16 x 16"_s, {{5, 5}, {65, 125}}, "0,0=1 0,1=1 1,2=1 1,3=1 2,4=1"},
        {u"5 x 5"_s, {{5, 400}, {-300, 400}}, "0,4=1"},
        {u"5 x 5"_s, {{400, 5}, {900, 5}, {400, 100}}, "4,0=1 4,1=1"}, // out and in again
        {u"3 x 3"_s, {{5, 5}, {6, 5}, {7, 8}}, "0,0=1"},
    };
    for (const Case& c : cases) {
        create(c.size);
        stroke(c.points);
        EXPECT_EQ(painted(), c.expected) << c.points.back().x();
        EXPECT_TRUE(isUnsaved());
    }
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

TEST_F(MapEditorTest, DeletesOneColourOrAll)
{
    struct Case {
        bool onlyCurrent;
        std::string expected;
    };
    for (const Case& c : {Case{true, "0,0=1"}, Case{false, ""}}) {
        create(u"16 x 16"_s);
        control<QCheckBox>(u"delete"_s).setChecked(false);
        control<QCheckBox>(u"OnlyCurrent"_s).setChecked(c.onlyCurrent);
        for (const int colour : {0, 5}) {
            click(u"ColorSelect_%1"_s.arg(colour));
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
    for (int colour = 0; colour < MapEditor::colours; ++colour) {
        click(u"ColorSelect_%1"_s.arg(colour));
        stroke({{5 + colour * 30, 5}, {470 - colour * 50, 470}});
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
    EXPECT_FALSE(isUnsaved());
    writeFile("code.txt", "program{");
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

TEST_F(MapEditorTest, KeepsAStrokeImmediateOnTheLargestMap)
{
    std::string full = "\r\n\r\n 75\r\n 75\r\n" + std::string(21, '\n');
    for (int index = 0; index < 75 * 75; ++index)
        full += index % 2 == 0 ? "127\n" : "126\n"; // painting with red changes every other square
    writeFile("full", full);
    withAnswers({u"00000001\\full"_s}, [this] { control<QAction>(u"FileOpen"_s).trigger(); });
    QElapsedTimer timer;
    timer.start();
    std::vector<QPoint> points;
    for (int step = 0; step < 60; ++step)
        points.emplace_back(step * 8, step * 6);
    stroke(points);
    EXPECT_LT(timer.elapsed(), 60 * 33); // a move in every frame of the screen, even in a slow build
    EXPECT_TRUE(isUnsaved());
}
