// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "support/Dialogs.h"
#include "support/Pictures.h"
#include "support/PretendDesk.h"

#include "library/Properties.h"
#include "library/PropertiesDraft.h"

#include <QClipboard>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QToolButton>

#include <gtest/gtest.h>

namespace
{

class GameProperties : public testing::Test
{
protected:
    ScratchFolder folder;
    PretendDesk desk{folder.path()};
    std::unique_ptr<Properties> window;

    void open(int icons)
    {
        folder.write("games/00000001/prop.zbo", "Ann\r\nMy Game\r\n");
        desk.module().CurrentGame = {"Ann", "My Game", "00000001\\"};
        for (int n = 0; n < icons; ++n)
            folder.write("zbo/icons/icon" + std::to_string(n) + ".bmp", bitmap(Qt::green));
        window = std::make_unique<Properties>(desk, desk.module().CurrentGame);
        window->setAttribute(Qt::WA_DeleteOnClose, false);
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    }

    template<typename Control> Control* control(const QString& name) const
    {
        auto* found = window->findChild<Control*>(name);
        EXPECT_NE(found, nullptr) << name.toStdString();
        return found;
    }
    QLineEdit* title() const { return control<QLineEdit>(QStringLiteral("title")); }
    QLineEdit* author() const { return control<QLineEdit>(QStringLiteral("Author")); }
    QToolButton* selector(int index) const
    {
        return control<QToolButton>(QStringLiteral("IconSelector_%1").arg(index));
    }
    QString tag(int index) const { return selector(index)->property("tag").toString(); }
    QString listed(int index) const
    {
        return control<QListWidget>(QStringLiteral("IconName"))->item(index)->text();
    }
    std::string saved() const { return folder.read("games/00000001/prop.zbo"); }
};

TEST_F(GameProperties, OpeningSavesNothing)
{
    folder.write("games/00000001/prop.zbo", "");
    open(0);
    folder.remove("games/00000001/prop.zbo");
    window.reset();
    EXPECT_FALSE(folder.has("games/00000001/prop.zbo"));
    EXPECT_TRUE(desk.calls.isEmpty());
}

TEST_F(GameProperties, EveryKeystrokeSavesBothLines)
{
    open(0);
    QTest::keyClicks(title(), QStringLiteral("!?"));
    EXPECT_EQ(saved(), "Ann\r\nMy Game!?\r\n");
    EXPECT_EQ(desk.calls.join(u'|').toStdString(), "title My Game!|title My Game!?");
    QTest::keyClick(author(), Qt::Key_Backspace);
    EXPECT_EQ(saved(), "An\r\nMy Game!?\r\n");
    QTest::sendKeyEvent(QTest::Click, author(), Qt::Key_Eacute, QStringLiteral("\u00e9"), Qt::NoModifier);
    EXPECT_EQ(saved(), "An\xc3\xa9\r\nMy Game!?\r\n");
    EXPECT_EQ(desk.module().CurrentGame.author, "An\xc3\xa9");
}

TEST_F(GameProperties, LineBreaksAreRemoved)
{
    open(0);
    QApplication::clipboard()->setText(QStringLiteral("one\r\ntwo\nthree\u2028"));
    title()->home(false);
    title()->paste();
    EXPECT_EQ(title()->text(), u"onetwothreeMy Game");
    EXPECT_EQ(title()->cursorPosition(), 11);
    author()->setText(QStringLiteral("a\nb"));
    EXPECT_EQ(saved(), "ab\r\nonetwothreeMy Game\r\n");
    QTest::keyClick(title(), Qt::Key_Return);
    EXPECT_TRUE(window->isVisible());
}

TEST_F(GameProperties, ShowsFourIconsFromTheScrollValueOn)
{
    const struct {
        int icons;
        int maximum;
        int value;
        int shown;
    } rows[] = {{3, 2, 0, 3}, {10, 9, 6, 4}, {10, 9, 8, 2}, {0, 0, 0, 0}};
    for (const auto& row : rows) {
        folder.remove("zbo/icons");
        folder.makeFolder("zbo/icons");
        open(row.icons);
        auto* scroll = control<QScrollBar>(QStringLiteral("IconScroll"));
        EXPECT_EQ(scroll->maximum(), row.maximum);
        scroll->setValue(row.value);
        for (int index = 0; index < 4; ++index) {
            EXPECT_EQ(tag(index), index < row.shown ? listed(row.value + index) : QString());
            EXPECT_EQ(selector(index)->icon().isNull(), index >= row.shown) << row.icons;
        }
        QTest::mouseClick(selector(3), Qt::LeftButton);
        EXPECT_EQ(folder.has("games/00000001/icon.bmp"), row.shown == 4);
        folder.remove("games/00000001/icon.bmp");
    }
}

TEST_F(GameProperties, AChosenIconTakesThePlaceOfTheOldOnes)
{
    folder.write("games/00000001/icon.bmp", bitmap(Qt::red));
    folder.write("games/00000001/icon.jpg", bitmap(Qt::red));
    folder.write("zbo/icons/cat.gif", bitmap(Qt::blue));
    open(0);
    const auto shown = [this] {
        return control<QLabel>(QStringLiteral("ShowIcon"))->pixmap().toImage().pixelColor(40, 40);
    };
    EXPECT_EQ(shown(), QColor(Qt::red));
    QTest::mouseClick(selector(0), Qt::LeftButton);
    EXPECT_EQ(shown(), QColor(Qt::blue));
    EXPECT_TRUE(folder.has("games/00000001/icon.gif"));
    EXPECT_EQ(folder.entries("games/00000001"), 2U); // and prop.zbo
}

TEST_F(GameProperties, AGameWithoutAnIconShowsNone)
{
    open(1);
    EXPECT_TRUE(control<QLabel>(QStringLiteral("ShowIcon"))->pixmap().isNull());
    QTest::keyClick(selector(0), Qt::Key_Return);
    EXPECT_FALSE(control<QLabel>(QStringLiteral("ShowIcon"))->pixmap().isNull());
}

TEST_F(GameProperties, ADamagedOrVanishedIconReplacesNothing)
{
    const std::string good = bitmap(Qt::red);
    folder.write("games/00000001/icon.bmp", good);
    folder.write("zbo/icons/cut.gif", "GIF89a and then nothing");
    open(0);
    const auto choose = [this] {
        Dialogs dialogs;
        QTest::mouseClick(selector(0), Qt::LeftButton);
        return dialogs.onlyText();
    };
    EXPECT_NE(choose().find("I can't read the icon cut.gif."), std::string::npos);
    folder.remove("zbo/icons/cut.gif");
    EXPECT_NE(choose().find("I can't find the icon cut.gif any more."), std::string::npos);
    EXPECT_EQ(tag(0), QString());
    EXPECT_EQ(folder.read("games/00000001/icon.bmp"), good);
    EXPECT_EQ(folder.entries("games/00000001"), 2U); // and prop.zbo
}

TEST_F(GameProperties, AnIconOfAnotherKindBecomesOneOfAGame)
{
    QImage picture(4, 4, QImage::Format_RGB32);
    picture.fill(Qt::blue);
    folder.write("zbo/icons/star.png", encoded(picture, "PNG"));
    open(0);
    QTest::mouseClick(selector(0), Qt::LeftButton);
    EXPECT_EQ(folder.read("games/00000001/icon.bmp").substr(0, 2), "BM");
}

TEST_F(GameProperties, AsksBeforeItReplacesWhatSomebodyElseHasSaved)
{
    open(0);
    folder.write("games/00000001/prop.zbo", "Bob\r\nHis Game\r\n");
    {
        Dialogs dialogs({QStringLiteral("no")});
        QTest::keyClicks(title(), QStringLiteral("!"));
        EXPECT_NE(dialogs.onlyText().find("Somebody else"), std::string::npos) << dialogs.onlyText();
    }
    EXPECT_EQ(saved(), "Bob\r\nHis Game\r\n");
    EXPECT_EQ(title()->text(), u"His Game");
    EXPECT_EQ(author()->text(), u"Bob");
    EXPECT_EQ(desk.module().CurrentGame.title, "His Game");
    EXPECT_EQ(desk.calls.last(), u"title His Game");

    folder.write("games/00000001/prop.zbo", "Bob\r\nHis Other Game\r\n");
    Dialogs dialogs({QStringLiteral("yes")});
    QTest::keyClicks(title(), QStringLiteral("!!"));
    EXPECT_EQ(dialogs.said.size(), 1U); // once for both
    EXPECT_EQ(saved(), "Bob\r\nHis Game!!\r\n");
}

TEST_F(GameProperties, KeepsTheFileOfAGameThatSomebodyElseWorksOn)
{
    folder.write("zbo/icons/cat.bmp", bitmap(Qt::blue));
    open(0);
    desk.mayChange = false;
    QTest::keyClicks(author(), QStringLiteral("x"));
    QTest::mouseClick(selector(0), Qt::LeftButton);
    EXPECT_EQ(saved(), "Ann\r\nMy Game\r\n");
    EXPECT_EQ(author()->text(), u"Ann");
    EXPECT_FALSE(folder.has("games/00000001/icon.bmp"));
}

TEST_F(GameProperties, SaysOnceThatItCannotSaveAndTriesAgain)
{
    open(1);
    folder.remove("games/00000001");
    {
        Dialogs dialogs;
        QTest::keyClicks(title(), QStringLiteral("abc"));
        EXPECT_NE(dialogs.onlyText().find("I could not save"), std::string::npos) << dialogs.onlyText();
        EXPECT_TRUE(control<QLabel>(QStringLiteral("NotSaved"))->isVisible());
    }
    {
        Dialogs dialogs;
        QTest::mouseClick(selector(0), Qt::LeftButton);
        EXPECT_NE(dialogs.onlyText().find("icon"), std::string::npos) << dialogs.onlyText();
    }
    folder.makeFolder("games/00000001");
    QTest::mouseClick(control<QPushButton>(QStringLiteral("Command1")), Qt::LeftButton);
    EXPECT_EQ(saved(), "Ann\r\nMy Gameabc\r\n");
    EXPECT_FALSE(window->isVisible());
}

TEST_F(GameProperties, TheNextLetterDoesNotAnswerTheBox)
{
    open(0);
    folder.remove("games/00000001");
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    bool stayed = false;
    QTimer::singleShot(0, window.get(), [&stayed] {
        QWidget* box = QApplication::activeModalWidget();
        ASSERT_NE(box, nullptr);
        ASSERT_TRUE(QTest::qWaitForWindowExposed(box));
        QTest::keyClicks(box, QStringLiteral("ok"));
        stayed = box->isVisible();
        QTest::keyClick(box, Qt::Key_Escape);
    });
    QTest::keyClicks(title(), QStringLiteral("L"));
    EXPECT_TRUE(stayed);
}

TEST_F(GameProperties, SaysThatNothingIsSavedWhereItCloses)
{
    open(0);
    folder.remove("games/00000001");
    {
        Dialogs dialogs;
        QTest::keyClicks(title(), QStringLiteral("a"));
    }
    Dialogs dialogs;
    QTest::keyClick(title(), Qt::Key_Escape);
    EXPECT_NE(dialogs.onlyText().find("They will be gone"), std::string::npos) << dialogs.onlyText();
    EXPECT_FALSE(window->isVisible());
}

class Draft : public testing::Test
{
protected:
    ScratchFolder folder;
    Installation installation{folder.path()};
    GameRecord game{"Ann", "My Game", "00000001\\"};

    void store(const std::string& bytes) const { folder.write("games/00000001/prop.zbo", bytes); }
    bool asksFirst() { return PropertiesDraft(installation, game).hasChangedElsewhere(); }
};

TEST_F(Draft, KnowsAFileThatSaysTheSameInAnotherWay)
{
    for (const char* same : {"Ann\r\nMy Game\r\n", "Ann\nMy Game",
                             "\xef\xbb\xbf"
                             "Ann\r\nMy Game\r\nmore"}) {
        store(same);
        EXPECT_FALSE(asksFirst()) << same;
    }
    for (const char* other : {"Ann\r\n", "", "Ann\r\nHis Game\r\n", "Bob\r\nMy Game\r\n"}) {
        store(other);
        EXPECT_TRUE(asksFirst()) << other;
    }
    folder.remove("games/00000001/prop.zbo");
    EXPECT_FALSE(asksFirst());
}

TEST_F(Draft, RemembersWhatItHasSavedAndWhatItTook)
{
    store("Ann\r\nMy Game\r\n");
    PropertiesDraft draft(installation, game);
    draft.setText("New", "Zo\u00eb");
    EXPECT_TRUE(draft.save());
    EXPECT_FALSE(draft.hasChangedElsewhere());
    EXPECT_EQ(game, (GameRecord{"Zo\u00eb", "New", "00000001\\"}));
    store("Bob\nHis");
    EXPECT_TRUE(draft.hasChangedElsewhere());
    draft.takeStored();
    EXPECT_FALSE(draft.hasChangedElsewhere());
    EXPECT_EQ(game, (GameRecord{"Bob", "His", "00000001\\"}));

    folder.remove("games/00000001");
    EXPECT_FALSE(draft.save());
    EXPECT_FALSE(draft.isSaved());
    draft.takeStored();
    EXPECT_TRUE(draft.isSaved()) << "there is nothing left to save";
    folder.remove("games");
    EXPECT_FALSE(draft.save());
    folder.makeFolder("games/00000001");
    EXPECT_TRUE(draft.save());
    EXPECT_TRUE(draft.isSaved());
}

} // namespace
