#include "play/SpyWindow.h"

#include "play/ParseError.h"
#include "runtime/ZB.h"

#include <QAbstractItemModel>
#include <QCheckBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QListView>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

namespace
{

struct PretendCode : CodeEditorPort {
    bool isVisible() const override { return visible; }
    void hide() override { visible = false; }
    void show() override
    {
        visible = true;
        calls += QStringLiteral(" show");
    }
    void SetCursorPos(int line, int column, bool wrap) override
    {
        calls += QStringLiteral("%1,%2%3").arg(line).arg(column).arg(wrap ? u" wrap" : u"");
    }
    void focusText() override { calls += QStringLiteral(" focus"); }

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

    void settle() { QTest::qWait(60); }
    QString row(int index) const { return history->model()->index(index, 0).data().toString(); }
    int firstShown() const { return history->indexAt(QPoint(4, 4)).row(); }
    int rows() const { return history->model()->rowCount(); }
    bool atEnd() const
    {
        return history->verticalScrollBar()->value() == history->verticalScrollBar()->maximum();
    }

    PretendCode code;
    SpyWindow spy{code};
    QListView* history = spy.findChild<QListView*>(QStringLiteral("History"));

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
    EXPECT_EQ(row(0), QStringLiteral("line 101"));
    EXPECT_EQ(row(499), QStringLiteral("line 600"));
    add(5000); // more than the list holds between two looks
    settle();
    EXPECT_EQ(rows(), 500);
    EXPECT_EQ(row(0), QStringLiteral("line 5101"));
    add(20);
    spy.clearHistory();
    add(3);
    settle();
    EXPECT_EQ(rows(), 3);
    EXPECT_EQ(row(0), QStringLiteral("line 5621"));
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
        told += QStringLiteral("%1%2%3 ").arg(boxes.frames).arg(boxes.events).arg(boxes.code);
    });
    for (const char16_t* name : {u"ShowFrameDivisions", u"ShowEvents", u"ShowEveryLineOfCode"}) {
        auto* box = spy.findChild<QCheckBox*>(QString::fromUtf16(name));
        QTest::keyClick(box, Qt::Key_Space);
    }
    EXPECT_EQ(told, QStringLiteral("100 110 111 "));
}

TEST_F(Spy, ShowsStateAndVariables)
{
    spy.showState("begin", "loop");
    spy.showState("over", "initialize");
    auto* variables = spy.findChild<QListView*>(QStringLiteral("Variables"));
    EXPECT_FALSE(variables->isEnabled());
    spy.enableVariables();
    spy.setVariables({"counter$a = 1", "text$b = \"<b>\""});
    settle();
    EXPECT_EQ(spy.findChild<QLabel*>(QStringLiteral("ShowState"))->text(), QStringLiteral("over"));
    EXPECT_EQ(spy.findChild<QLabel*>(QStringLiteral("ShowSubstate"))->text(), QStringLiteral("initialize"));
    EXPECT_TRUE(variables->isEnabled());
    EXPECT_EQ(variables->model()->rowCount(), 2);
}

TEST_F(Spy, TakesLinesFasterThanARunWritesThem)
{
    QElapsedTimer clock;
    clock.start();
    add(100000);
    settle();
    EXPECT_LT(clock.elapsed(), 1000);
}

TEST_F(Spy, IsNotHeldUpByEndlessLines)
{
    const std::string endless = "0012 set text$a \"" + std::string(1'000'000, 'x');
    QElapsedTimer clock;
    clock.start();
    for (int i = 0; i < 600; ++i)
        spy.addHistoryLine(endless);
    spy.setVariables({endless});
    settle();
    spy.grab();
    EXPECT_LT(clock.elapsed(), 2000);
}

TEST(ParseErrorWindow, FillsItselfWithTheTextAndGoesToTheLine)
{
    ZB module;
    PretendCode code;
    code.visible = false;
    ParseError window(module, code);
    module.ErrorLine = 4;
    window.show("No.\r\n\r\n   setmap me level1\r\n\r\n(line 4)");
    auto* text = window.findChild<QPlainTextEdit*>(QStringLiteral("ErrorText"));
    EXPECT_EQ(text->toPlainText(), QStringLiteral("No.\n\n   setmap me level1\n\n(line 4)"));
    window.resize(700, 333);
    QTest::qWait(10);
    EXPECT_EQ(text->size(), window.size());
    QTest::mouseDClick(text->viewport(), Qt::LeftButton);
    EXPECT_EQ(code.calls, QStringLiteral("4,1 show focus"));
    window.close();
    EXPECT_FALSE(window.isVisible());

    window.show("No.\r\n\r\n   " + std::string(1'000'000, 'x') + "\r\n\r\n(line 4)"); // a hang would time out
    EXPECT_TRUE(text->toPlainText().endsWith(QStringLiteral("xxx...\n\n(line 4)")));
}

} // namespace
