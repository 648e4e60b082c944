// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "play/spy/SpyWindow.h"

#include "play/ParseError.h"
#include "runtime/ZB.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QListView>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace
{

using namespace Qt::StringLiterals;

struct PretendCode : CodeEditorPort {
    bool isVisible() const override { return visible; }
    void hide() override { visible = false; }
    void show() override
    {
        visible = true;
        calls += u" show"_s;
    }
    void SetCursorPos(int line, int column, bool wrap) override
    {
        calls += u"%1,%2%3"_s.arg(line).arg(column).arg(wrap ? u" wrap" : u"");
    }
    void focusText() override { calls += u" focus"_s; }

    bool visible = true;
    QString calls;
};

class Spy : public testing::Test
{
protected:
    Spy()
    {
        spy.resize(900, 500);
        static_cast<QWidget&>(spy).show();
    }

    void add(int lines)
    {
        for (int i = 0; i < lines; ++i)
            spy.addHistoryLine("line " + std::to_string(++m_added));
    }

    void settle()
    {
        const auto* refresh = spy.findChild<QTimer*>(u"RefreshTimer"_s);
        QTRY_VERIFY_WITH_TIMEOUT(!refresh->isActive(), 20000);
        QCoreApplication::processEvents(); // the list lays itself out
    }
    QString row(int index) const { return history->model()->index(index, 0).data().toString(); }
    int firstShown() const { return history->indexAt(QPoint(4, 4)).row(); }
    int rows() const { return history->model()->rowCount(); }
    bool atEnd() const
    {
        return history->verticalScrollBar()->value() == history->verticalScrollBar()->maximum();
    }

    PretendCode code;
    SpyWindow spy{code};
    QListView* history = spy.findChild<QListView*>(u"History"_s);

private:
    int m_added = 0;
};

TEST_F(Spy, KeepsTheLast500Lines)
{
    add(300);
    settle();
    add(300);
    settle();
    EXPECT_EQ(rows(), 500);
    EXPECT_EQ(row(0), u"line 101"_s);
    EXPECT_EQ(row(499), u"line 600"_s);
    add(5000); // more than the list holds between two looks
    settle();
    EXPECT_EQ(rows(), 500);
    EXPECT_EQ(row(0), u"line 5101"_s);
    add(20);
    spy.clearHistory();
    add(3);
    settle();
    EXPECT_EQ(rows(), 3);
    EXPECT_EQ(row(0), u"line 5621"_s);
}

TEST_F(Spy, FollowsTheEndUntilTheUserScrollsUp)
{
    add(400);
    settle();
    EXPECT_TRUE(atEnd());
    spy.resize(900, 300);
    add(1);
    settle();
    EXPECT_TRUE(atEnd());

    history->verticalScrollBar()->triggerAction(QScrollBar::SliderToMinimum);
    for (int i = 0; i < 110; ++i)
        history->verticalScrollBar()->triggerAction(QScrollBar::SliderSingleStepAdd);
    const QString looking = row(firstShown());
    add(150); // the oldest lines go, the others stay under the user's eyes
    settle();
    EXPECT_EQ(rows(), 500);
    EXPECT_EQ(row(firstShown()), looking);

    QTest::keyClick(history, Qt::Key_End);
    add(10);
    settle();
    EXPECT_TRUE(atEnd());
}

TEST_F(Spy, LosesTheSelectionWithItsLine)
{
    add(10);
    spy.selectLastLine();
    EXPECT_EQ(history->currentIndex().row(), 9);
    add(500);
    settle();
    EXPECT_FALSE(history->currentIndex().isValid());
    EXPECT_TRUE(atEnd());
}

TEST_F(Spy, GoesToTheLineThatIsDoubleClicked)
{
    struct Row {
        const char* line;
        bool codeIsVisible;
        const char* calls;
    };
    for (const Row& row :
         {Row{"0012   move me", true, "12,1 show focus"}, Row{"     ball.normal{", true, ""},
          Row{"12345 move me", true, "1234,1 show focus"}, Row{"0012   move me", false, ""},
          Row{"  Title:  Bounce", true, "0,1 show focus"}, Row{"", true, "0,1 show focus"}}) {
        code = PretendCode{};
        code.visible = row.codeIsVisible;
        spy.clearHistory();
        spy.addHistoryLine(row.line);
        settle();
        const QPoint place = history->visualRect(history->model()->index(0, 0)).center();
        QTest::mouseClick(history->viewport(), Qt::LeftButton, Qt::NoModifier, place);
        QTest::mouseDClick(history->viewport(), Qt::LeftButton, Qt::NoModifier, place);
        EXPECT_EQ(code.calls, QLatin1String(row.calls)) << row.line;
    }
}

TEST_F(Spy, TellsWhichLinesAreWanted)
{
    QString told;
    QObject::connect(&spy, &SpyWindow::traceBoxesChanged, &spy, [&] {
        const TraceBoxes boxes = spy.traceBoxes();
        told += u"%1%2%3 "_s.arg(boxes.frames).arg(boxes.events).arg(boxes.code);
    });
    for (const char16_t* name : {u"ShowFrameDivisions", u"ShowEvents", u"ShowEveryLineOfCode"}) {
        auto* box = spy.findChild<QCheckBox*>(QString::fromUtf16(name));
        QTest::keyClick(box, Qt::Key_Space);
    }
    EXPECT_EQ(told, u"100 110 111 "_s);
}

TEST_F(Spy, ShowsStateAndVariables)
{
    spy.showState("begin", "loop");
    spy.showState("over", "initialize");
    auto* variables = spy.findChild<QListView*>(u"Variables"_s);
    EXPECT_FALSE(variables->isEnabled());
    spy.enableVariables();
    spy.setVariables({"counter$a = 1", "text$b = \"<b>\""});
    settle();
    EXPECT_EQ(spy.findChild<QLabel*>(u"ShowState"_s)->text(), u"over"_s);
    EXPECT_EQ(spy.findChild<QLabel*>(u"ShowSubstate"_s)->text(), u"initialize"_s);
    EXPECT_TRUE(variables->isEnabled());
    EXPECT_EQ(variables->model()->rowCount(), 2);
}

TEST_F(Spy, FollowsTheEndWhenItOpensInTheMiddleOfARun)
{
    static_cast<QWidget&>(spy).hide();
    add(38);
    spy.selectLastLine(); // as a run begins
    add(330);
    settle();
    static_cast<QWidget&>(spy).show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&spy));
    settle();
    EXPECT_TRUE(atEnd());
    for (int i = 0; i < 5; ++i) {
        add(60);
        settle();
        EXPECT_TRUE(atEnd()) << rows();
    }
}

TEST_F(Spy, MakesRowsOfWhatIsLeftWhenSomebodyLooks)
{
    int made = 0;
    QObject::connect(history->model(), &QAbstractItemModel::rowsInserted, &spy,
                     [&](const QModelIndex&, int first, int last) { made += last - first + 1; });
    add(100000);
    settle();
    EXPECT_EQ(made, 500);
    EXPECT_EQ(row(499), u"line 100000");
}

TEST_F(Spy, IsNotHeldUpByEndlessLines)
{
    const std::string endless = "0012 set text$a \"" + std::string(1'000'000, 'x');
    for (int i = 0; i < 600; ++i)
        spy.addHistoryLine(endless);
    settle();
    EXPECT_EQ(row(0).size(), 100'000);
    const auto* drawn = qobject_cast<QStyledItemDelegate*>(history->itemDelegate());
    EXPECT_LE(drawn->displayText(row(0), QLocale()).size(), 1003);
    EXPECT_LT(history->sizeHintForColumn(0), 1100 * history->fontMetrics().maxWidth());
}

TEST_F(Spy, GrowsWithTheFontOfTheSystem)
{
    const QFont usual = QApplication::font();
    QFont large = usual;
    large.setPointSize(20);
    QApplication::setFont(large);
    SpyWindow grown(code);
    QApplication::setFont(usual);
    EXPECT_EQ(grown.findChild<QListView*>(u"History"_s)->font().pointSize(), 20);
    EXPECT_EQ(grown.findChild<QListView*>(u"Variables"_s)->font().pointSize(), 20);
}

TEST_F(Spy, HasTheHeadingAboveTheCode)
{
    const auto* heading = spy.findChild<QLabel*>(u"HistoryHeader"_s);
    const QFontMetricsF metrics(heading->font());
    const qreal code = metrics.horizontalAdvance(heading->text()) - metrics.horizontalAdvance(u"Code"_s);
    EXPECT_NEAR(code, QFontMetricsF(history->font()).horizontalAdvance(u"0012 "_s), 1);
}

TEST(ParseErrorWindow, FillsItselfWithTheTextAndGoesToTheLine)
{
    ZB module;
    PretendCode code;
    code.visible = false;
    ParseError window(module, code);
    module.ErrorLine = 4;
    window.show("No.\r\n\r\n   setmap me level1\r\n\r\n(line 4)");
    auto* text = window.findChild<QPlainTextEdit*>(u"ErrorText"_s);
    EXPECT_EQ(text->toPlainText(), u"No.\n\n   setmap me level1\n\n(line 4)"_s);
    window.resize(700, 333);
    EXPECT_EQ(text->size(), window.size());
    QTest::mouseDClick(text->viewport(), Qt::LeftButton);
    EXPECT_EQ(code.calls, u"4,1 show focus"_s);
    window.close();
    EXPECT_FALSE(window.isVisible());

    window.show("No.\r\n\r\n   " + std::string(1'000'000, 'x') + "\r\n\r\n(line 4)"); // a hang would time out
    EXPECT_TRUE(text->toPlainText().endsWith(u"xxx...\n\n(line 4)"_s));
}

} // namespace
