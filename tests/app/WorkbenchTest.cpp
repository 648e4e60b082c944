// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "support/Dialogs.h"
#include "support/PaintingDesk.h"
#include "support/Pictures.h"

#include "app/Workbench.h"
#include "games/GameLock.h"
#include "support/OrdinaryUser.h"
#include "support/ScratchFolder.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QWindow>

#include <gtest/gtest.h>

namespace
{

using namespace Qt::StringLiterals;

/// The windows of the whole program, tied together as for a user.
class WholeProgram : public testing::Test
{
protected:
    ScratchFolder folder;
    std::unique_ptr<Workbench> workbench;

    WholeProgram()
    {
        folder.write("zbo/icons/cat.gif", bitmap(Qt::blue));
        addGame("00000001", "Ann\r\nFirst\r\n");
        workbench = std::make_unique<Workbench>(folder.path());
        workbench->showTracker();
    }

    void addGame(const std::string& name, const std::string& properties)
    {
        folder.write("games/" + name + "/code.txt", "program{\r\n}program\r\n");
        folder.write("games/" + name + "/prop.zbo", properties);
        folder.write("games/" + name + "/icon.bmp", bitmap(Qt::green));
    }

    /// The windows of that name that are there to be seen.
    static QList<QWidget*> shown(const char* name)
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QList<QWidget*> found;
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->objectName() == QLatin1String(name) && window->isVisible())
                found += window;
        }
        return found;
    }
    static QWidget* window(const char* name)
    {
        const auto found = shown(name);
        EXPECT_EQ(found.size(), 1) << name;
        return found.value(0);
    }
    template<typename Control> static Control* in(const char* form, const char* name)
    {
        QWidget* parent = window(form);
        auto* found = parent != nullptr ? parent->findChild<Control*>(QLatin1String(name)) : nullptr;
        EXPECT_NE(found, nullptr) << form << '.' << name;
        return found;
    }
    static void click(const char* form, const char* name)
    {
        QTest::mouseClick(in<QAbstractButton>(form, name), Qt::LeftButton);
    }
    void workOnFirstGame()
    {
        workbench->showLibrary();
        QTest::mouseClick(in<QWidget>("ZorbinoMain", "GameTray"), Qt::LeftButton, {}, QPoint(50, 60));
        click("ZorbinoMain", "Work");
    }
    std::string progress() const { return in<QLabel>("Tracker", "lastgood")->text().toStdString(); }
};

TEST_F(WholeProgram, GoesFromTheLibraryToTheGameEditorAndBack)
{
    workOnFirstGame();
    EXPECT_EQ(window("GameEditor")->windowTitle(), u"First");
    EXPECT_TRUE(shown("ZorbinoMain").isEmpty());
    EXPECT_EQ(progress(), "ZorbinoMain.Work_click: unloaded ZorbinoMain");

    click("GameEditor", "PropWindowButton");
    click("GameEditor", "ResWindowButton");
    QTest::keyClicks(in<QLineEdit>("Properties", "title"), QStringLiteral(" one"));
    EXPECT_EQ(window("GameEditor")->windowTitle(), u"First one");
    EXPECT_EQ(folder.read("games/00000001/prop.zbo"), "Ann\r\nFirst one\r\n");

    addGame("00000002", "Bob\r\nSecond\r\n");
    window("GameEditor")->close();
    for (const char* name : {"GameEditor", "CodeEditor", "Properties", "Resources"})
        EXPECT_TRUE(shown(name).isEmpty()) << name;
    EXPECT_EQ(in<QScrollBar>("ZorbinoMain", "scrollbar")->maximum(), 2);
    EXPECT_FALSE(in<QWidget>("ZorbinoMain", "ActionWindow")->isVisible());
    EXPECT_EQ(progress(), "ZorbinoMain.Work_click: unloaded ZorbinoMain");
}

TEST_F(WholeProgram, TellsAtTheStartWhereNothingCanBeSaved)
{
    const auto games = folder.path() / "games";
    const Dialogs dialogs({u"ok"_s});
    workbench->start(QImage());
    QCoreApplication::processEvents();
    EXPECT_EQ(dialogs.boxes.size(), 0);
    window("ZorbinoMain")->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    std::filesystem::permissions(games,
                                 std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
    {
        const AskedAsOrdinaryUser user;
        workbench->start(QImage());
    }
    QWidget* const library = window("ZorbinoMain");
    library->hide();
    QCoreApplication::processEvents();
    EXPECT_EQ(dialogs.boxes.size(), 0) << "not before the desktop has put the library in its place";
    library->show();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !dialogs.boxes.isEmpty(); }));
    EXPECT_EQ(dialogs.onlyText().find("You can look at the games and play them, but I can't save anything"),
              0U);
    EXPECT_EQ(shown("ZorbinoMain").size(), 1);
    std::filesystem::permissions(games, std::filesystem::perms::owner_all);
}

/// Counts how often a window is brought to the front.
struct Raises : QObject {
    explicit Raises(QWidget* window) { window->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        count += event->type() == QEvent::ZOrderChange ? 1 : 0;
        return false;
    }
    int count = 0;
};

TEST_F(WholeProgram, ShowsAParseErrorAndLeavesTheKeyboardToTheProgram)
{
    folder.write("games/00000001/code.txt", "program{\r\n");
    workOnFirstGame();
    click("GameEditor", "PlayButton");
    QCoreApplication::processEvents();
    QWidget* code = window("CodeEditor");
    auto* text = in<QPlainTextEdit>("CodeEditor", "CodeView");
    ASSERT_TRUE(QTest::qWaitForWindowActive(code));
    EXPECT_EQ(QApplication::focusWidget(), text);
    window("ParseError")->activateWindow();
    QCoreApplication::processEvents();
    EXPECT_EQ(QApplication::focusWidget(), text) << "not even where the desktop puts the message up last";

    const QRect line = text->cursorRect().translated(text->viewport()->mapToGlobal(QPoint()));
    EXPECT_FALSE(window("ParseError")->frameGeometry().intersects(line));
    for (const char* button : {"PlayButton", "StopButton"}) {
        const auto* shown = in<QWidget>("GameEditor", button);
        const QRect area(shown->mapToGlobal(QPoint()), shown->size());
        EXPECT_FALSE(code->frameGeometry().intersects(area)) << button;
        EXPECT_FALSE(window("ParseError")->frameGeometry().intersects(area)) << button;
    }

    Raises codeRaises(code);
    QTest::mouseClick(code->windowHandle(), Qt::LeftButton, {}, text->mapTo(code, QPoint(20, 20)));
    EXPECT_GE(codeRaises.count, 1) << "the message does not stay above it for ever";
    Raises messageRaises(window("ParseError"));
    QTest::mouseClick(in<QPlainTextEdit>("ParseError", "ErrorText")->viewport(), Qt::LeftButton);
    EXPECT_GE(messageRaises.count, 1);
    window("GameEditor")->close();
    EXPECT_TRUE(shown("ParseError").isEmpty());
}

TEST_F(WholeProgram, LeavesAWindowWhereTheUserHasMovedIt)
{
    workOnFirstGame();
    click("GameEditor", "SpyWindowButton");
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window("SpyWindow")));
    QTRY_VERIFY(!window("SpyWindow")->pos().isNull());
    window("SpyWindow")->move(123, 77);
    window("SpyWindow")->close();
    click("GameEditor", "SpyWindowButton");
    EXPECT_EQ(window("SpyWindow")->pos(), QPoint(123, 77));
    window("GameEditor")->close();
}

TEST_F(WholeProgram, StaysUsableWhenTheGameIsDeletedMeanwhile)
{
    workOnFirstGame();
    click("GameEditor", "PropWindowButton");
    click("GameEditor", "ResWindowButton");
    folder.remove("games/00000001");
    {
        Dialogs dialogs;
        QTest::keyClicks(in<QLineEdit>("Properties", "title"), QStringLiteral("ab"));
        click("Properties", "IconSelector_0");
        EXPECT_EQ(dialogs.said.size(), 2U);
    }
    {
        Dialogs dialogs;
        window("GameEditor")->close();
        EXPECT_NE(dialogs.onlyText().find("I could not save the title"), std::string::npos);
    }
    EXPECT_EQ(in<QScrollBar>("ZorbinoMain", "scrollbar")->value(), 1);
    EXPECT_FALSE(folder.has("games/00000001"));
}

TEST_F(WholeProgram, AsksBeforeSavingIntoAGameThatIsOpenElsewhere)
{
    GameLock other(workbench->installation(), "00000001\\");
    const QStringList told = withAnswers({u"OK"_s}, [this] {
        workOnFirstGame();
        EXPECT_EQ(progress(), "ZorbinoMain.Work_click: unloaded ZorbinoMain");
        QCoreApplication::processEvents();
    });
    ASSERT_EQ(told.size(), 1);
    EXPECT_TRUE(told[0].contains(u"Somebody else is working on this game"_s)) << qPrintable(told[0]);
    const auto isAllowed = [this](const QStringList& answers, qsizetype questions) {
        bool allowed = false;
        EXPECT_EQ(withAnswers(answers, [&] { allowed = workbench->mayChangeGame(nullptr); }).size(),
                  questions);
        return allowed;
    };
    EXPECT_FALSE(isAllowed({u"No"_s}, 1));
    EXPECT_FALSE(isAllowed({u"Escape"_s}, 1));
    EXPECT_TRUE(isAllowed({u"Yes"_s}, 1));
    EXPECT_TRUE(isAllowed({}, 0)) << "it has been asked";

    window("GameEditor")->close();
    workOnFirstGame();
    withAnswers({u"OK"_s}, [] { QCoreApplication::processEvents(); });
    EXPECT_FALSE(isAllowed({u"No"_s}, 1)) << "each time the game is opened";
    other = GameLock();
    EXPECT_TRUE(isAllowed({}, 0)) << "the other has left";
    window("GameEditor")->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(GameLock(workbench->installation(), "00000001\\").isTakenElsewhere());
}

TEST_F(WholeProgram, KnowsASpriteByItsNewName)
{
    workOnFirstGame();
    workbench->showSpriteEditor(QString());
    Dialogs dialogs({QStringLiteral("ball"), QStringLiteral("bat")});
    in<QAction>("SpriteEditor", "SaveSprite")->trigger();
    workbench->showSpriteEditor(QStringLiteral("ball"));
    EXPECT_EQ(shown("SpriteEditor").size(), 1);
    in<QAction>("SpriteEditor", "SaveSpriteAs")->trigger();
    workbench->showSpriteEditor(QStringLiteral("Bat"));
    EXPECT_EQ(shown("SpriteEditor").size(), 1);
    workbench->showSpriteEditor(QStringLiteral("ball"));
    EXPECT_EQ(shown("SpriteEditor").size(), 2);
    EXPECT_TRUE(workbench->closeGameWindows());
    EXPECT_TRUE(shown("SpriteEditor").isEmpty());
}

} // namespace
