// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

// The margin that shows how the last run went through each line.
#include "editor/CodeEditor.h"
#include "support/PretendDesk.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QHelpEvent>
#include <QMenu>
#include <QMenuBar>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextDocument>
#include <QToolTip>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>
#include <set>

namespace
{

using Life = LineMark::Life;

class LifeMarginTest : public testing::Test
{
protected:
    ScratchFolder installation;
    PretendDesk desk{installation.path()};
    std::unique_ptr<CodeEditor> editor;
    CodeView* view = nullptr;
    QWidget* margin = nullptr;
    QString asked; ///< each line that was asked about, followed by a blank

    void SetUp() override { open("aa\nbb\ncc\ndd\nee"); }
    void open(const std::string& text)
    {
        editor = std::make_unique<CodeEditor>(desk, desk.module().CurrentGame);
        view = editor->findChild<CodeView*>();
        margin = editor->findChild<QWidget*>(QStringLiteral("Margin"));
        editor->setLineAsked([this](int line) { asked += QString::number(line) + u' '; });
        load(text);
    }
    void load(const std::string& text)
    {
        installation.write("games/00000001/code.txt", text);
        ASSERT_TRUE(editor->LoadFile(QStringLiteral("games\\00000001\\code.txt")));
        ASSERT_TRUE(QTest::qWaitForWindowActive(editor.get()));
    }
    void showMarks(std::size_t lines = 5, Life life = Life::RanBefore)
    {
        std::vector<LineMark> marks(lines);
        for (std::size_t i = 0; i < lines; ++i)
            marks[i] = {life, QStringLiteral("tip %1").arg(i + 1)};
        editor->showLineMarks(std::move(marks));
    }
    /// The middle of a line in the margin; lines count from 0.
    QPoint inMargin(int line)
    {
        QTextCursor cursor(view->document()->findBlockByNumber(line));
        return {margin->width() / 2, view->cursorRect(cursor).center().y()};
    }
    /// Clicks beside each line, and tells which lines of the run were asked about; - where none was.
    std::string marked()
    {
        QString lines;
        for (int i = 0; i < view->document()->blockCount(); ++i) {
            asked.clear();
            QTest::mouseClick(margin, Qt::LeftButton, {}, inMargin(i));
            lines += asked.isEmpty() ? QStringLiteral("- ") : asked;
        }
        return lines.trimmed().toStdString();
    }
    std::string tipAt(int line)
    {
        QToolTip::hideText();
        const QPoint place = inMargin(line);
        QHelpEvent help(QEvent::ToolTip, place, margin->mapToGlobal(place));
        QApplication::sendEvent(margin, &help);
        return QToolTip::text().toStdString();
    }
    void type(const QList<QKeyCombination>& keys)
    {
        for (const QKeyCombination& key : keys) {
            const bool isLetter = key.keyboardModifiers() == Qt::NoModifier && key.key() <= Qt::Key_Z;
            const QString text = isLetter ? QString(QChar(key.key())).toLower() : QString();
            QTest::sendKeyEvent(QTest::Click, view, key.key(), text, key.keyboardModifiers());
        }
    }
    std::set<QRgb> colorsOf(const QImage& picture)
    {
        std::set<QRgb> colors;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                colors.insert(picture.pixel(x, y));
        return colors;
    }
    /// What is drawn beside a line, in a letter's height.
    QImage markImage(int line)
    {
        const QRect place = view->cursorRect(QTextCursor(view->document()->findBlockByNumber(line)));
        return margin->grab(QRect(0, place.top(), margin->width(), place.height())).toImage();
    }
};

} // namespace

TEST_F(LifeMarginTest, IsThereOnlyWithMarks)
{
    const QImage before = view->grab().toImage();
    const auto expectNone = [&] {
        EXPECT_FALSE(margin->isVisible());
        EXPECT_EQ(view->viewport()->x(), 0);
        EXPECT_EQ(view->grab().toImage(), before);
    };
    expectNone();
    showMarks();
    EXPECT_TRUE(margin->isVisible());
    EXPECT_EQ(view->viewport()->x(), margin->width());
    EXPECT_EQ(margin->geometry().bottom(), view->viewport()->geometry().bottom());
    editor->showLineMarks({});
    expectNone();
    showMarks();
    editor->showMomentAt(2);
    load("aa\nbb\ncc\ndd\nee");
    expectNone();
}

TEST_F(LifeMarginTest, ShowsEachLifeInAShapeOfItsOwn)
{
    editor->showLineMarks({{Life::None, {}},
                           {Life::RanNow, {}},
                           {Life::RanBefore, {}},
                           {Life::NeverRan, {}},
                           {Life::CannotRun, {}}});
    std::set<QByteArray> shapes;
    for (int line = 0; line < 5; ++line) {
        // What is left of a picture in two colors is its shape.
        const QImage shape = markImage(line).convertToFormat(QImage::Format_RGB32);
        QByteArray drawn;
        for (int y = 0; y < shape.height(); ++y)
            for (int x = 0; x < shape.width(); ++x)
                drawn += shape.pixel(x, y) == shape.pixel(0, 0) ? ' ' : '#';
        EXPECT_EQ(drawn.contains('#'), line > 0);
        shapes.insert(drawn);
    }
    EXPECT_EQ(shapes.size(), 5U);
}

TEST_F(LifeMarginTest, MarksMoveWithTheirLines)
{
    using enum Qt::Key;
    const QKeyCombination toEnd = Qt::CTRL | Key_E;
    const QKeyCombination undo = Qt::CTRL | Key_Z;
    const QKeyCombination markDown = Qt::SHIFT | Key_Down;
    const struct {
        const char* what;
        QList<QKeyCombination> keys;
        const char* marks;
    } rows[] = {
        {"nothing", {}, "1 2 3 4 5"},
        {"a changed line", {Key_Down, Key_X}, "1 - 3 4 5"},
        {"and undone", {Key_Down, Key_X, undo}, "1 2 3 4 5"},
        {"only blanks", {Key_Down, Key_Space}, "1 2 3 4 5"},
        {"a line behind another", {Key_Down, toEnd, Key_Return, Key_X}, "1 2 - 3 4 5"},
        {"a line before another", {Key_Down, Key_Return}, "1 - 2 3 4 5"},
        {"a line behind the last", {Qt::CTRL | Key_End, Key_Return, Key_X}, "1 2 3 4 5 -"},
        {"a split line", {Key_Right, Key_Return}, "- - 2 3 4 5"},
        {"and joined again", {Key_Right, Key_Return, Key_Backspace}, "1 2 3 4 5"},
        {"joined lines", {Key_Down, Key_Backspace}, "- 3 4 5"},
        {"and undone", {Key_Down, Key_Backspace, undo}, "1 - 3 4 5"},
        {"a line taken out", {Key_Down, markDown, Key_Delete}, "1 3 4 5"},
        {"two lines taken out", {Key_Down, markDown, markDown, Key_Delete}, "1 4 5"},
        {"two lines by one", {Key_Down, markDown, markDown, Key_Return}, "1 - 4 5"},
        {"everything", {Qt::CTRL | Key_Home, Qt::CTRL | Qt::SHIFT | Key_End, Key_Delete}, "-"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        open("aa\nbb\ncc\ndd\nee");
        QTextCursor last(view->document()); // what a file holds ends with a line break
        last.movePosition(QTextCursor::End);
        last.deletePreviousChar();
        showMarks();
        type(row.keys);
        EXPECT_EQ(marked(), row.marks);
    }
}

TEST_F(LifeMarginTest, IndentingTheProgramKeepsItsMarks)
{
    open("a{\nb\n}a\n");
    view->document()->setPlainText(QStringLiteral("a{\nb\n}a\n"));
    showMarks(3);
    editor->findChild<QAbstractButton*>(QStringLiteral("AutoIndentButton"))->click();
    EXPECT_EQ(editor->text(), "a{\r\n  b\r\n}a\r\n");
    EXPECT_EQ(marked(), "1 2 3 -");
}

TEST_F(LifeMarginTest, CountsTheLinesOfTheTextThatRan)
{
    editor->runBegins();
    EXPECT_FALSE(margin->isVisible());
    type({Qt::Key_Right, Qt::Key_Return}); // while it runs
    showMarks();
    EXPECT_EQ(marked(), "- - 2 3 4 5 -");
    editor->runBegins();
    EXPECT_TRUE(margin->isVisible()) << "the text does not jump at each run";
    EXPECT_EQ(marked(), "- - - - - - -");
    showMarks(6);
    EXPECT_EQ(marked(), "1 2 3 4 5 6 -");
}

TEST_F(LifeMarginTest, ATipSaysMore)
{
    editor->showLineMarks({{Life::RanNow, QStringLiteral("Ran 3 times.")},
                           {Life::NeverRan, QStringLiteral("no <b>ball</b>")},
                           {Life::None, {}}});
    editor->showMomentAt(1);
    EXPECT_EQ(tipAt(0), "This line is about to run.\nRan 3 times.");
    EXPECT_NE(tipAt(1).find("&lt;b&gt;ball"), std::string::npos) << tipAt(1);
    tipAt(2);
    EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
}

TEST_F(LifeMarginTest, OnlyAWholeClickOnAMarkAsks)
{
    editor->showLineMarks({{Life::RanNow, {}}, {Life::None, {}}, {Life::CannotRun, {}}});
    EXPECT_EQ(marked(), "1 - 3 - - -");
    asked.clear();
    QTest::mouseClick(margin, Qt::RightButton, {}, inMargin(0));
    QTest::mousePress(margin, Qt::LeftButton, {}, inMargin(0));
    QTest::mouseRelease(margin, Qt::LeftButton, {}, inMargin(2));
    QTest::mousePress(margin, Qt::LeftButton, {}, inMargin(2));
    QTest::mouseRelease(margin, Qt::LeftButton, {}, inMargin(2) + QPoint(100, 0));
    EXPECT_EQ(asked, QString());
    EXPECT_TRUE(view->hasFocus());
    editor->setLineAsked({});
    QTest::mouseClick(margin, Qt::LeftButton, {}, inMargin(0)); // nobody to be told
}

TEST_F(LifeMarginTest, TheMenuHidesAndShowsIt)
{
    const QAction* menu = editor->menuBar()->actions().last();
    EXPECT_EQ(menu->text(), QStringLiteral("&View"));
    auto* life = editor->findChild<QAction*>(QStringLiteral("LifeMnu"));
    EXPECT_TRUE(menu->menu()->actions().contains(life));
    EXPECT_TRUE(life->isChecked());
    showMarks();
    life->trigger();
    EXPECT_FALSE(margin->isVisible());
    EXPECT_EQ(view->viewport()->x(), 0);
    showMarks();
    EXPECT_FALSE(margin->isVisible());
    life->trigger();
    EXPECT_EQ(view->viewport()->x(), margin->width());
    EXPECT_EQ(marked(), "1 2 3 4 5 -");
}

TEST_F(LifeMarginTest, AMomentIsBroughtIntoViewAndNothingElseMoves)
{
    std::string text;
    for (int i = 0; i < 300; ++i)
        text += "line\n";
    open(text);
    showMarks(300, Life::None);
    QWidget* prompt = editor->findChild<QWidget*>(QStringLiteral("Minibuffer"));
    type({Qt::CTRL | Qt::Key_S});
    const auto isSeen = [this](int line) {
        return view->viewport()->rect().contains(
            view->cursorRect(QTextCursor(view->document()->findBlockByNumber(line - 1))));
    };
    QScrollBar* bar = view->verticalScrollBar();
    for (const int line : {200, 300, 1, 150}) {
        editor->showMomentAt(line);
        EXPECT_TRUE(isSeen(line)) << line;
        EXPECT_GT(colorsOf(markImage(line - 1)).size(), 1U) << "an arrow";
    }
    const int place = bar->value();
    editor->showMomentAt(151);
    EXPECT_EQ(bar->value(), place) << "it was seen already";
    EXPECT_EQ(colorsOf(markImage(149)).size(), 1U) << "no arrow any more";
    editor->showMomentAt(0);
    EXPECT_EQ(bar->value(), place);
    EXPECT_EQ(colorsOf(markImage(150)).size(), 1U);
    EXPECT_EQ(view->textCursor().position(), 0);
    EXPECT_EQ(editor->focusWidget(), prompt);
    EXPECT_EQ(editor->text().size(), 6U * 300);

    editor->hide();
    editor->showMomentAt(1);
    EXPECT_EQ(bar->value(), place);
}

TEST_F(LifeMarginTest, AMomentHasABandThatStaysWithItsLine)
{
    const auto band = [this] {
        QString lines;
        const QImage picture = view->viewport()->grab().toImage();
        for (int i = 0; i < view->document()->blockCount(); ++i) {
            const QColor right = picture.pixelColor(picture.width() - 1, inMargin(i).y());
            lines += right == view->palette().color(QPalette::Base) ? u'-' : u'=';
        }
        return lines.toStdString();
    };
    showMarks();
    EXPECT_EQ(band(), "------");
    editor->showMomentAt(2);
    EXPECT_EQ(band(), "-=----");
    type({Qt::Key_X, Qt::Key_Return});
    EXPECT_EQ(band(), "--=----");
    type({Qt::SHIFT | Qt::Key_Down, Qt::SHIFT | Qt::Key_Down, Qt::Key_Delete});
    EXPECT_EQ(band(), "-----") << "its line is gone";
    editor->showMomentAt(1000);
    EXPECT_EQ(band(), "-----");
}

TEST_F(LifeMarginTest, GoesAlongWithTheTextWhenItScrollsOrGrows)
{
    std::string text;
    for (int i = 0; i < 300; ++i)
        text += "line\n";
    open(text);
    showMarks(300, Life::RanNow);
    editor->showMomentAt(3);
    const QPointF place(margin->rect().center());
    QWheelEvent wheel(place, margin->mapToGlobal(place), {}, QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(margin, &wheel);
    EXPECT_GT(view->verticalScrollBar()->value(), 0);
    const int first = view->verticalScrollBar()->value();
    QTest::mouseClick(margin, Qt::LeftButton, {}, inMargin(first));
    EXPECT_EQ(asked.toInt(), first + 1);

    const int narrow = margin->width();
    QFont font = view->font();
    font.setPointSize(2 * font.pointSize());
    view->setFont(font);
    EXPECT_NEAR(margin->width(), 2 * narrow, 2);
    EXPECT_EQ(view->viewport()->x(), margin->width());
}

TEST(RunLinesTest, FollowsWhateverIsChanged)
{
    std::mt19937 random(7);
    const auto below = [&random](int limit) {
        return static_cast<int>(random() % static_cast<unsigned>(limit));
    };
    const QPlainTextEdit box; // a document that is in no box tells nobody what has changed
    QTextDocument& document = *box.document();
    RunLines lines(document);
    QStringList ran; // the text of each line of the run
    for (int step = 0; step < 2000; ++step) {
        if (step % 50 == 0) {
            ran.clear();
            for (int i = 0; i < 30; ++i)
                ran += QString::number(below(20)); // some read alike
            document.setPlainText(ran.join(u'\n'));
            lines.begin();
        }
        const auto placed = [&](int block) { return lines.lineAt(document.findBlockByNumber(block)); };
        QList<int> before;
        for (int block = 0; block < document.blockCount(); ++block)
            before += placed(block);
        const int from = below(document.characterCount());
        const int to = std::min(from + below(9), document.characterCount() - 1);
        const int untouched = document.blockCount() - 1 - document.findBlock(to).blockNumber();
        QTextCursor cursor(&document);
        cursor.setPosition(from);
        cursor.setPosition(to, QTextCursor::KeepAnchor);
        cursor.insertText(QStringLiteral("1\n22\n\n3\n").mid(below(5), below(6)));

        const int count = document.blockCount();
        int last = 0;
        for (int block = 0; block < count; ++block) {
            const int line = placed(block);
            if (block < document.findBlock(from).blockNumber()) {
                ASSERT_EQ(line, before[block]) << "above the change, step " << step;
            } else if (count - block <= untouched) {
                ASSERT_EQ(line, before[before.size() - (count - block)]) << "below it, step " << step;
            }
            if (line == 0)
                continue;
            ASSERT_GT(line, last);
            ASSERT_EQ(document.findBlockByNumber(block).text(), ran[line - 1]);
            last = line;
        }
    }
}
