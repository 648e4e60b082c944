// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "platform/DiskFile.h"
#include "support/Dialogs.h"
#include "support/PaintingDesk.h"

#include "sprites/ColorPlate.h"
#include "sprites/PaletteView.h"
#include "sprites/SpriteEditor.h"
#include "sprites/StripView.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QMouseEvent>
#include <QScrollArea>
#include <QSpinBox>
#include <QStatusBar>
#include <QWheelEvent>

#include <gtest/gtest.h>

#include <fstream>
#include <memory>
#include <set>

namespace fs = std::filesystem;

namespace
{

using namespace Qt::StringLiterals;

constexpr Pixel red = rgb(255, 0, 0);

class SpriteEditorTest : public testing::Test
{
protected:
    SpriteEditorTest() { open(QString()); }

    void open(const QString& name)
    {
        editor = std::make_unique<SpriteEditor>(desk, name);
        editor->show();
        QCoreApplication::processEvents();
    }

    template<typename T> T& control(const QString& name) { return *editor->findChild<T*>(name); }
    QWidget& frame() { return control<QWidget>(u"CurrentFrame"_s); }
    ColorPlate& swatch() { return control<ColorPlate>(u"Swatch"_s); }
    void run(const char* action) { control<QAction>(QLatin1StringView(action)).trigger(); }
    QSpinBox& width() { return control<QSpinBox>(u"FrameWidth"_s); }
    QSpinBox& height() { return control<QSpinBox>(u"FrameHeight"_s); }
    StripView& strip() { return control<StripView>(u"Strip"_s); }
    bool isUnsaved() { return control<QLabel>(u"SpriteName"_s).text().endsWith(u"not saved yet"_s); }

    /// The middle of a pixel of the frame on the screen.
    QPoint on(int x, int y)
    {
        return {(2 * x + 1) * frame().width() / (2 * width().value()),
                (2 * y + 1) * frame().height() / (2 * height().value())};
    }
    /// The color that a pixel of the frame has on the screen; `transparent` for the checkerboard.
    Pixel pixel(const QImage& screen, int x, int y)
    {
        const Pixel color = screen.pixel(on(x, y));
        return color == 0xfffdfdfd || color == 0xffcfd6e2 ? transparent : color;
    }
    Pixel pixel(int x, int y) { return pixel(frame().grab().toImage(), x, y); }
    int drawn()
    {
        const QImage screen = frame().grab().toImage();
        int count = 0;
        for (int y = 0; y < height().value(); ++y)
            for (int x = 0; x < width().value(); ++x)
                count += pixel(screen, x, y) != transparent ? 1 : 0;
        return count;
    }
    int frames()
    {
        int count = 0;
        while (strip().rect().contains(strip().frameRect(count)))
            ++count;
        return count;
    }
    /// The frame that stands out on the strip.
    int currentFrame()
    {
        const QImage screen = strip().grab().toImage();
        const QColor color = strip().palette().highlight().color();
        for (int index = 0; index < frames(); ++index)
            if (screen.pixelColor(strip().frameRect(index).left() - 2,
                                  strip().frameRect(index).center().y()) == color)
                return index;
        return -1;
    }
    void move(int x, int y, Qt::MouseButton button)
    {
        QMouseEvent event(QEvent::MouseMove, on(x, y), frame().mapToGlobal(on(x, y)), Qt::NoButton, button,
                          {});
        QApplication::sendEvent(&frame(), &event);
    }
    void click(int x, int y) { QTest::mouseClick(&frame(), Qt::LeftButton, {}, on(x, y)); }
    void drag(QPoint from, QPoint to, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mousePress(&frame(), button, {}, on(from.x(), from.y()));
        move(to.x(), to.y(), button);
        QTest::mouseRelease(&frame(), button, {}, on(to.x(), to.y()));
    }
    void pick(Pixel color)
    {
        auto& palette = control<PaletteView>(u"Palettep"_s);
        for (int index = 0; index < PaletteView::columns * PaletteView::rows; ++index)
            if (PaletteView::color(index) == color)
                QTest::mouseClick(&palette, Qt::LeftButton, {},
                                  QPoint(palette.width() * (2 * (index % PaletteView::columns) + 1) / 12,
                                         palette.height() * (2 * (index / PaletteView::columns) + 1) / 18));
        ASSERT_EQ(swatch().fillColor(), color);
    }
    QStringList saveAs(const QString& name)
    {
        return withAnswers({name}, [this] { run("SaveSprite"); });
    }

    PaintingDesk desk;
    std::unique_ptr<SpriteEditor> editor;
};

} // namespace

TEST_F(SpriteEditorTest, ShowsItsControls)
{
    EXPECT_EQ(editor->objectName(), u"SpriteEditor"_s);
    EXPECT_EQ(editor->windowTitle(), u"Zorbino Sprite Editor"_s);
    for (const char* name : {"CurrentFrame", "Strip", "Palettep", "Swatch", "Toolbar1", "Picture1", "Logo"})
        EXPECT_NE(editor->findChild<QWidget*>(QLatin1StringView(name)), nullptr) << name;
    EXPECT_TRUE(control<QAction>(u"PencilTool"_s).isChecked());
    std::set<Pixel> colors;
    for (int index = 0; index < PaletteView::columns * PaletteView::rows; ++index)
        colors.insert(PaletteView::color(index));
    EXPECT_GE(colors.size(), 33U);
    EXPECT_TRUE(colors.contains(transparent));
}

TEST_F(SpriteEditorTest, DrawsPointsAndConnectedLines)
{
    pick(red);
    click(3, 4);
    EXPECT_EQ(drawn(), 1);
    EXPECT_EQ(pixel(3, 4), red);
    drag({10, 10}, {20, 10});
    EXPECT_EQ(drawn(), 12);
    click(30, 30); // no line from the end of the last stroke
    EXPECT_EQ(drawn(), 13);
    run("Undo");
    run("Undo");
    EXPECT_EQ(drawn(), 1);
    run("Redo");
    EXPECT_EQ(drawn(), 12);
}

TEST_F(SpriteEditorTest, EndsAStrokeWhenTheFocusGoes)
{
    QTest::mousePress(&frame(), Qt::LeftButton, {}, on(0, 0));
    QFocusEvent lost(QEvent::FocusOut);
    QApplication::sendEvent(&frame(), &lost);
    move(20, 0, Qt::LeftButton);
    move(20, 2, Qt::LeftButton);
    EXPECT_EQ(drawn(), 4);
    run("Undo"); // what came after the focus is a stroke of its own
    EXPECT_EQ(drawn(), 1);
    move(10, 0, Qt::LeftButton);
    EXPECT_EQ(drawn(), 2);
}

TEST_F(SpriteEditorTest, DrawsWithTheKeyboard)
{
    frame().setFocus();
    for (const int key : {Qt::Key_Up, Qt::Key_Right, Qt::Key_Down}) // up leads nowhere
        QTest::keyClick(&frame(), static_cast<Qt::Key>(key));
    EXPECT_EQ(drawn(), 0);
    QTest::keyPress(&frame(), Qt::Key_Space);
    for (int step = 0; step < 3; ++step)
        QTest::keyClick(&frame(), Qt::Key_Right);
    QTest::keyRelease(&frame(), Qt::Key_Space);
    QTest::keyClick(&frame(), Qt::Key_Down);
    EXPECT_EQ(drawn(), 4);
    EXPECT_NE(pixel(4, 1), transparent);
    run("Undo");
    EXPECT_EQ(drawn(), 0);
}

TEST_F(SpriteEditorTest, PicksColorsFromTheFrame)
{
    pick(red);
    click(1, 1);
    pick(black);
    click(2, 1);
    QTest::mousePress(&frame(), Qt::RightButton, {}, on(1, 1));
    EXPECT_EQ(swatch().fillColor(), red);
    move(2, 1, Qt::RightButton);
    EXPECT_EQ(swatch().fillColor(), black);
    move(5, 5, Qt::RightButton);
    EXPECT_EQ(swatch().fillColor(), transparent);
    move(-5, 5, Qt::RightButton); // there is no color out there
    EXPECT_EQ(swatch().fillColor(), transparent);
    QTest::mouseRelease(&frame(), Qt::RightButton, {}, on(5, 5));
    click(1, 1);
    EXPECT_EQ(drawn(), 1);
}

TEST_F(SpriteEditorTest, FillsAndPoints)
{
    pick(red);
    drag({5, 0}, {5, 31});
    run("FillTool");
    click(0, 0);
    EXPECT_EQ(drawn(), 6 * 32);
    run("Undo");
    EXPECT_EQ(drawn(), 32);
    run("PointerTool");
    drag({0, 0}, {20, 20});
    EXPECT_EQ(drawn(), 32);
    EXPECT_FALSE(control<QAction>(u"FillTool"_s).isChecked());
}

TEST_F(SpriteEditorTest, FillsTheSurfaceWithSmallAndLargeFrames)
{
    const QSize stage = control<QWidget>(u"Stage"_s).size();
    const int room = std::min(stage.width(), stage.height());
    for (const int side : {16, 64, 20, 1}) {
        width().setValue(side);
        height().setValue(side);
        EXPECT_EQ(frame().width(), room / side * side);
        click(side - 1, 0);
        EXPECT_NE(pixel(side - 1, 0), transparent) << side;
    }
}

TEST_F(SpriteEditorTest, TakesASizeThatIsBeingTyped)
{
    const auto type = [this](const QString& text) {
        width().setFocus();
        width().selectAll();
        QTest::keyClicks(&width(), text);
    };
    const auto shownWidth = [this] { return frame().width() * height().value() / frame().height(); };
    type(u"48"_s);
    EXPECT_EQ(shownWidth(), 32);
    saveAs(u"wide"_s);
    EXPECT_EQ(shownWidth(), 48);
    EXPECT_FALSE(isUnsaved());
    editor->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(editor.get()));
    width().setFocus();
    // Keys of menus work in the active window only, and it may be told so later than its window.
    ASSERT_TRUE(QTest::qWaitFor(
        [this] { return QApplication::activeWindow() == editor.get() && width().hasFocus(); }));
    QTest::keyClick(&width(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(shownWidth(), 32);
    type(u"20"_s);
    EXPECT_EQ(withAnswers({u"Cancel"_s}, [this] { editor->close(); }).size(), 1);
    EXPECT_EQ(shownWidth(), 20);
}

TEST_F(SpriteEditorTest, HandlesFramesOnTheStrip)
{
    click(0, 0);
    run("AddFrame");
    EXPECT_EQ(drawn(), 0);
    run("DuplicateFrame");
    EXPECT_EQ(currentFrame(), 2);
    QTest::mouseClick(&strip(), Qt::LeftButton, {}, strip().frameRect(0).center());
    EXPECT_EQ(currentFrame(), 0);
    EXPECT_EQ(drawn(), 1);
    EXPECT_FALSE(control<QAction>(u"FrameLeft"_s).isEnabled());
    run("FrameRight");
    EXPECT_EQ(currentFrame(), 1);
    run("DeleteFrame");
    EXPECT_EQ(frames(), 2);
    EXPECT_EQ(drawn(), 0);
    for (int frames = 0; frames < 30; ++frames)
        run("AddFrame");
    for (const int width : {1500, 900}) {
        editor->resize(width, 720);
        QCoreApplication::processEvents();
        const QRect current = strip().frameRect(currentFrame());
        EXPECT_TRUE(strip().visibleRegion().boundingRect().contains(current)) << width;
    }
    for (int turn = 0; turn < 30; ++turn) {
        QWheelEvent up(QPointF(5, 5), strip().mapToGlobal(QPointF(5, 5)), {}, {0, 120}, {}, {},
                       Qt::NoScrollPhase, false);
        QApplication::sendEvent(strip().parentWidget(), &up);
    }
    EXPECT_TRUE(strip().visibleRegion().boundingRect().contains(strip().frameRect(0)));
}

TEST_F(SpriteEditorTest, PlaysAnAnimationAtTheSpeedOfTheGame)
{
    auto& timer = control<QTimer>(u"PreviewTimer"_s);
    EXPECT_EQ(timer.interval(), 100);
    run("AddFrame");
    EXPECT_FALSE(timer.isActive());
    auto& kind = control<QComboBox>(u"Kind"_s);
    kind.setFocus();
    QTest::keyClick(&kind, Qt::Key_Down);
    EXPECT_TRUE(timer.isActive());
    editor->hide();
    EXPECT_FALSE(timer.isActive());
}

TEST_F(SpriteEditorTest, SavesWhatItOpensAgain)
{
    pick(red);
    click(31, 0);
    pick(black);
    click(0, 31);
    run("AddFrame");
    control<QComboBox>(u"Kind"_s).setFocus();
    QTest::keyClick(&control<QComboBox>(u"Kind"_s), Qt::Key_Down);
    EXPECT_EQ(saveAs(u"My Rocket"_s).size(), 1);
    EXPECT_EQ(editor->graphicName(), u"my_rocket"_s);
    EXPECT_TRUE(editor->mayClose()); // without a question

    const std::string text = readFileBytes(desk.game() / "my_rocket.spr", 1000).value_or("");
    EXPECT_TRUE(text.ends_with("\r\nAnimated,32,32,2\r\n")) << text;
    QImage picture(QString::fromStdString((desk.game() / "my_rocket.spb").string()));
    ASSERT_EQ(picture.size(), QSize(64, 64));
    EXPECT_EQ(picture.pixel(31, 0), red);
    EXPECT_EQ(picture.pixel(63, 0), black);
    EXPECT_EQ(picture.pixel(1, 0), black);
    EXPECT_EQ(picture.pixel(33, 0), white);

    open(u"my_rocket"_s);
    EXPECT_EQ(frames(), 2);
    EXPECT_EQ(pixel(31, 0), red);
    EXPECT_EQ(pixel(0, 31), black);
    EXPECT_EQ(drawn(), 2);
}

TEST_F(SpriteEditorTest, AsksBeforeItReplacesAnotherSprite)
{
    click(0, 0);
    saveAs(u"one"_s);
    const auto before = readFileBytes(desk.game() / "one.spb", 100000);
    run("NewSprite");
    EXPECT_EQ(drawn(), 0);
    click(1, 1);
    withAnswers({u"One"_s, u"Cancel"_s, QString()}, [this] { run("SaveSprite"); });
    EXPECT_TRUE(readFileBytes(desk.game() / "one.spb", 100000) == before); // too long to be printed
    EXPECT_EQ(editor->graphicName(), QString());
    withAnswers({u"One"_s, u"OK"_s}, [this] { run("SaveSprite"); });
    EXPECT_FALSE(readFileBytes(desk.game() / "one.spb", 100000) == before);
}

TEST_F(SpriteEditorTest, ExplainsWhyNoSpriteIsCalledIcon)
{
    click(0, 0);
    const QStringList boxes = withAnswers({u"Icon"_s, u"OK"_s, u"hero"_s}, [this] { run("SaveSprite"); });
    ASSERT_EQ(boxes.size(), 3);
    EXPECT_TRUE(boxes[1].contains(u"icon"_s)) << qPrintable(boxes[1]);
    EXPECT_FALSE(fs::exists(desk.game() / "icon.spr"));
    EXPECT_TRUE(fs::exists(desk.game() / "hero.spr"));
}

TEST_F(SpriteEditorTest, AsksBeforeItReplacesWhatSomebodyElseHasSaved)
{
    click(0, 0);
    saveAs(u"ball"_s);
    click(5, 5);
    EXPECT_EQ(withAnswers({}, [this] { run("SaveSprite"); }), QStringList());
    std::ofstream(desk.game() / "ball.spr") << "theirs\r\nSimple,32,32,1\r\n";
    click(9, 9);
    QStringList boxes = withAnswers({u"No"_s}, [this] { run("SaveSprite"); });
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_TRUE(boxes[0].contains(u"ball.spr"_s)) << qPrintable(boxes[0]);
    EXPECT_TRUE(isUnsaved());
    EXPECT_TRUE(readFileBytes(desk.game() / "ball.spr", 1000)->starts_with("theirs"));
    boxes = withAnswers({u"Yes"_s}, [this] { run("SaveSprite"); });
    EXPECT_FALSE(isUnsaved());
    EXPECT_FALSE(readFileBytes(desk.game() / "ball.spr", 1000)->starts_with("theirs"));
}

TEST_F(SpriteEditorTest, BecomesAsSmallAsAScreenNeeds)
{
    const QSize room = editor->screen()->availableGeometry().size();
    EXPECT_EQ(editor->minimumSize().boundedTo(room), editor->minimumSize());
    editor->setMinimumSize(0, 0); // as on the smallest screens
    editor->resize(600, 380);
    QCoreApplication::processEvents();
    EXPECT_EQ(editor->size(), QSize(600, 380));
    auto& area = control<QScrollArea>(u"PageArea"_s);
    auto& strip = control<QWidget>(u"StripArea"_s);
    area.ensureWidgetVisible(&strip);
    EXPECT_EQ(strip.visibleRegion().boundingRect().height(), strip.height());
}

TEST_F(SpriteEditorTest, AsksBeforeUnsavedWorkIsThrownAway)
{
    struct Case {
        QStringList answers;
        bool closes, isSaved;
    };
    const Case cases[] = {{{u"Cancel"_s}, false, false},
                          {{u"Yes"_s, QString()}, false, false}, // no name, so nothing is saved
                          {{u"No"_s}, true, false},
                          {{u"Yes"_s, u"star"_s}, true, true}};
    for (const Case& c : cases) {
        open(QString());
        click(2, 2);
        bool closes = false;
        const QStringList boxes = withAnswers(c.answers, [&] { closes = editor->close(); });
        EXPECT_EQ(boxes.size(), c.answers.size());
        EXPECT_EQ(closes, c.closes) << qPrintable(c.answers[0]);
        EXPECT_EQ(fs::exists(desk.game() / "star.spr"), c.isSaved);
        EXPECT_EQ(drawn(), 1);
    }
}

TEST_F(SpriteEditorTest, AFailedSaveLosesNothing)
{
    click(0, 0);
    saveAs(u"ball"_s);
    const auto picture = readFileBytes(desk.game() / "ball.spb", 100000);
    fs::remove(desk.game() / "ball.spr");
    fs::create_directory(desk.game() / "ball.spr"); // the description cannot be written
    click(5, 5);
    QStringList boxes = withAnswers({u"OK"_s}, [this] { run("SaveSprite"); });
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_TRUE(boxes[0].contains(u"could not save"_s));
    EXPECT_TRUE(readFileBytes(desk.game() / "ball.spb", 100000) == picture);
    fs::remove_all(desk.game());
    boxes = withAnswers({u"OK"_s}, [this] { run("SaveSprite"); });
    EXPECT_EQ(boxes.size(), 1);
    EXPECT_TRUE(isUnsaved());
    EXPECT_EQ(drawn(), 2);
}

TEST_F(SpriteEditorTest, TellsWhichSpriteCannotBeOpened)
{
    std::ofstream(desk.game() / "nopicture.spr") << "x\r\nSimple,4,4,1\r\n";
    std::ofstream(desk.game() / "nonsense.spr") << "x\r\nsimple,4,4,1\r\n";
    std::ofstream(desk.game() / "nonsense.spb") << "BM";
    std::ofstream(desk.game() / "huge.spr") << "x\r\nSimple,90000,90000,90000\r\n";
    std::ofstream(desk.game() / "huge.spb") << "BM";
    std::ofstream(desk.game() / "damaged.spr") << "x\r\nSimple,4,4,1\r\n";
    std::ofstream(desk.game() / "damaged.spb") << "BM";
    for (const char* name : {"missing", "nopicture", "nonsense", "huge", "damaged"}) {
        Dialogs dialogs({u"OK"_s});
        open(QLatin1StringView(name));
        ASSERT_TRUE(QTest::qWaitFor([&] { return dialogs.boxes.size() == 1; })) << name;
        EXPECT_TRUE(dialogs.boxes[0].contains(QLatin1StringView(name))) << name;
        EXPECT_EQ(drawn(), 0);
    }
}

TEST_F(SpriteEditorTest, ShowsNothingThatIsNotInThePicture)
{
    pick(red);
    run("FillTool");
    click(0, 0);
    saveAs(u"ball"_s);
    const std::string whole = readFileBytes(desk.game() / "ball.spb", 100000).value_or("");
    const auto openCut = [&](std::size_t length) {
        std::ofstream(desk.game() / "ball.spb", std::ios::binary) << whole.substr(0, length);
        Dialogs dialogs({u"OK"_s});
        open(u"ball"_s);
        return QTest::qWaitFor([&] { return !dialogs.boxes.isEmpty() || !editor->graphicName().isEmpty(); });
    };
    const std::size_t head = 54;
    const std::size_t row = 2 * 32 * 3; // image and mask; the lowest row comes first
    struct Case {
        std::size_t length;
        int drawn;
    };
    for (const Case& c :
         {Case{head + 16 * row, 16 * 32}, Case{head + 16 * row + row / 2, 16 * 32},
          Case{head + 17 * row - 3 * 4, 16 * 32 + 28}, Case{head + row, 32}, Case{head - 1, 0}}) {
        ASSERT_TRUE(openCut(c.length)) << c.length;
        EXPECT_EQ(drawn(), c.drawn) << c.length;
        for (int y = 0; y < 32; ++y)
            EXPECT_TRUE(pixel(5, y) == red || pixel(5, y) == transparent) << c.length << ' ' << y;
        EXPECT_EQ(editor->statusBar()->currentMessage().contains(u"missing"_s), c.drawn > 0) << c.length;
    }
}
