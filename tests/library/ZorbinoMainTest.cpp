// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "support/Dialogs.h"
#include "support/Pictures.h"
#include "support/PretendDesk.h"

#include "games/GameFolders.h"
#include "library/TileArea.h"
#include "library/TrayLayout.h"
#include "library/ZorbinoMain.h"

#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>

#include <gtest/gtest.h>

namespace
{

class Library : public testing::Test
{
protected:
    ScratchFolder folder;
    PretendDesk desk{folder.path()};
    std::unique_ptr<ZorbinoMain> window;

    Library()
    {
        folder.write("zbo/code.txt", "program{\r\n}program\r\n");
        folder.write("zbo/prop.zbo", "nobody\r\nMy Game\r\n");
        folder.write("zbo/icon.bmp", bitmap(Qt::red));
        folder.makeFolder("games");
    }

    void addGame(int number)
    {
        const auto name = QStringLiteral("%1").arg(number, 8, 10, QLatin1Char('0')).toStdString();
        folder.write("games/" + name + "/prop.zbo", "author\r\ntitle " + name + "\r\n");
        folder.write("games/" + name + "/icon.bmp", bitmap(Qt::green));
    }

    void open(int games = 0)
    {
        for (int number = 1; number <= games; ++number)
            addGame(number);
        window = std::make_unique<ZorbinoMain>(desk);
        window->setAttribute(Qt::WA_DeleteOnClose, false);
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
        ASSERT_TRUE(QTest::qWaitFor( // the frame comes a little later
            [this] { return window->frameGeometry().size() == QSize(600, 418); }));
    }

    template<typename Control> Control* control(const char* name) const
    {
        auto* found = window->findChild<Control*>(QLatin1String(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
    TileArea* tray() const { return control<TileArea>("GameTray"); }
    QScrollBar* scrollbar() const { return control<QScrollBar>("scrollbar"); }
    bool picked() const { return control<QFrame>("ActionWindow")->isVisible(); }
    void click(const char* name) { QTest::mouseClick(control<QAbstractButton>(name), Qt::LeftButton); }
    void clickSlot(int slot, Qt::MouseButton mouseButton = Qt::LeftButton)
    {
        QTest::mouseClick(tray(), mouseButton, {}, QPoint(slot * tray()->width() / tilesInView + 40, 60));
    }
    std::string gameAt(int index) { return ListGames(desk.installation())[std::size_t(index - 1)].folder; }
};

TEST(TrayLayout, StandsTilesWhereEveryStepIsRounded)
{
    const struct {
        int width;
        int slot;
        int left;
    } tiles[] = {
        {600, 0, 20},  {600, 1, 140}, {600, 4, 500}, {596, 1, 139}, {596, 2, 258}, // 139 + 119.2
        {598, 1, 140}, {598, 2, 260}, {602, 4, 500}, {603, 4, 504},
    };
    for (const auto& tile : tiles)
        EXPECT_EQ(tileLeft(tile.slot, tile.width), tile.left) << tile.width << " slot " << tile.slot;
}

TEST(TrayLayout, FindsTheSlotUnderThePointer)
{
    const struct {
        int x;
        int width;
        int slot;
    } points[] = {{0, 600, 0},   {5, 600, 0},   {129, 600, 0}, {130, 600, 1},
                  {490, 600, 4}, {599, 600, 4}, {13, 5, 3},    {3, 2, 0}};
    for (const auto& point : points)
        EXPECT_EQ(slotAt(point.x, point.width), point.slot) << point.x;
}

TEST(TrayLayout, StepsFromTileToTileAndScrollsAtTheEnds)
{
    const struct {
        int marked;
        int direction;
        TrayStep step;
    } steps[] = {{-1, 1, {0, 0}}, {-1, -1, {0, 0}}, {0, 1, {1, 0}},
                 {3, -1, {2, 0}}, {4, 1, {4, 1}},   {0, -1, {0, -1}}};
    for (const auto& [marked, direction, step] : steps)
        EXPECT_EQ(stepInTray(marked, direction), step) << marked << ' ' << direction;
}

TEST(TrayLayout, WritesExactlyEighteenCharacters)
{
    EXPECT_EQ(tileText("Ball"), "Ball" + std::string(14, ' '));
    EXPECT_EQ(tileText("123456789012345678"), "123456789012345678");
    EXPECT_EQ(tileText("1234567890123456789"), "123456789012345678");
    EXPECT_EQ(tileText("\xc3\xa4"
                       "2345678901234567\xc3\xb6\xc3\xbc"),
              "\xc3\xa4"
              "2345678901234567\xc3\xb6");
}

TEST(TrayLayout, BreaksWideTextsBetweenWordsOrInTheMiddle)
{
    const struct {
        const char16_t* text;
        const char16_t* first;
        const char16_t* second;
    } texts[] = {
        {u"WWWWWWWWWWWWWWWWWW", u"WWWWWWWWW", u"WWWWWWWWW"},
        {u"WWWWW MMMMM WWW   ", u"WWWWW", u"MMMMM WWW"},
        {u"WWWWWWW MMMMMM WWW", u"WWWWWWW", u"MMMMMM WWW"},
        {u"W WWWWWWWWWWWWWWWW", u"W WWWWWWW", u"WWWWWWWWW"}, // one of the lines would stay long
        {u"\U0001F680\U0001F680\U0001F680\U0001F680\U0001F680\U0001F680\U0001F680",
         u"\U0001F680\U0001F680\U0001F680\U0001F680", u"\U0001F680\U0001F680\U0001F680"},
        {u"                  ", u"", u""},
    };
    for (const auto& [text, first, second] : texts)
        EXPECT_EQ(inTwoLines(QString::fromUtf16(text)),
                  std::pair(QString::fromUtf16(first), QString::fromUtf16(second)));
}

TEST_F(Library, TakesItsOuterSizeAndCentresThePanel)
{
    open(1);
    EXPECT_EQ(window->frameGeometry().size(), QSize(600, 418));
    EXPECT_EQ(tray()->width(), window->width());
    EXPECT_EQ(scrollbar()->width(), window->width());
    const auto* panel = control<QFrame>("ActionWindow");
    for (const bool shown : {false, true}) {
        EXPECT_EQ(panel->isVisible(), shown);
        EXPECT_EQ(panel->x(), (window->width() - panel->width()) / 2);
        EXPECT_EQ(panel->y(), (window->height() - panel->height()) / 2);
        EXPECT_TRUE(window->rect().contains(panel->geometry()));
        clickSlot(0);
    }
}

TEST_F(Library, AnEmptyLibraryHasNothingToPick)
{
    open(0);
    for (int slot = 0; slot < tilesInView; ++slot)
        clickSlot(slot);
    EXPECT_FALSE(picked());
    EXPECT_TRUE(desk.picturesRead.empty());
}

TEST_F(Library, PicksTheGameUnderThePointerWithAnyButton)
{
    open(12);
    const struct {
        int value;
        int slot;
        int index; // 0: none
    } clicks[] = {{1, 0, 1}, {1, 4, 5}, {8, 4, 12}, {9, 4, 0}, {12, 0, 12}, {12, 1, 0}};
    for (const auto mouseButton : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        for (const auto& row : clicks) {
            scrollbar()->setValue(row.value);
            EXPECT_EQ(tray()->count(), std::min(tilesInView, 12 - row.value + 1));
            clickSlot(row.slot, mouseButton);
            EXPECT_EQ(picked(), row.index > 0) << row.value << " slot " << row.slot;
            if (row.index > 0) {
                EXPECT_EQ(desk.module().CurrentGame.folder, gameAt(row.index));
                click("Cancel");
            }
        }
    }
}

TEST_F(Library, ThePanelLocksTheTrayUntilCancel)
{
    open(3);
    const char* locked[] = {"GameTray", "scrollbar", "SpecialButton", "UnPackButton", "CreateButton"};
    clickSlot(2);
    for (const char* name : locked)
        EXPECT_FALSE(control<QWidget>(name)->isEnabled()) << name;
    EXPECT_TRUE(control<QWidget>("LaunchMapEditor")->isEnabled());
    EXPECT_EQ(control<TileArea>("GamePicture")->count(), 1);
    QTest::keyClick(window.get(), Qt::Key_Escape);
    EXPECT_FALSE(picked());
    EXPECT_EQ(control<TileArea>("GamePicture")->count(), 0);
    for (const char* name : locked)
        EXPECT_TRUE(control<QWidget>(name)->isEnabled()) << name;
}

TEST_F(Library, PicksWithTheKeysAlone)
{
    open(7);
    tray()->setFocus();
    for (int step = 0; step < 6; ++step) // the mark, four steps to the edge, one that scrolls
        QTest::keyClick(tray(), Qt::Key_Right);
    EXPECT_EQ(scrollbar()->value(), 2);
    QTest::keyClick(tray(), Qt::Key_Return);
    EXPECT_TRUE(picked());
    EXPECT_EQ(desk.module().CurrentGame.folder, gameAt(6));
    for (const char* name : {"Work", "PlayGame", "delete", "Pack", "Cancel"}) {
        EXPECT_EQ(window->focusWidget()->objectName(), QLatin1String(name));
        if (window->focusWidget() != control<QWidget>("Cancel"))
            QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
    }
    QTest::keyClick(window->focusWidget(), Qt::Key_Return); // not every desktop lets it press a button
    EXPECT_FALSE(picked());
}

TEST_F(Library, TheKeysStopAtBothEnds)
{
    open(6);
    tray()->setFocus();
    QTest::keyClick(tray(), Qt::Key_Return); // nothing is marked yet
    EXPECT_FALSE(picked());
    scrollbar()->setValue(2);
    for (const int slot : {0, 0, 0}) { // the mark, one step that scrolls, one with nowhere to go
        QTest::keyClick(tray(), Qt::Key_Left);
        EXPECT_EQ(tray()->marked(), slot);
    }
    EXPECT_EQ(scrollbar()->value(), 1);
    QTest::keyClick(tray(), Qt::Key_Right);
    QTest::keyClick(tray(), Qt::Key_Left);
    EXPECT_EQ(tray()->marked(), 0);
    scrollbar()->setValue(6); // only the last game
    for (int step = 0; step < 3; ++step)
        QTest::keyClick(tray(), Qt::Key_Right);
    EXPECT_EQ(tray()->marked(), 0);
    QTest::keyClick(tray(), Qt::Key_Space);
    EXPECT_EQ(desk.module().CurrentGame.folder, gameAt(6));
}

TEST_F(Library, ShowsAllOfALongTitle)
{
    const std::string titles[] = {std::string(18, 'W'), std::string(17, 'W') + "I", ""};
    for (std::size_t n = 0; n < std::size(titles); ++n)
        folder.write("games/0000000" + std::to_string(n + 1) + "/prop.zbo",
                     "nobody\r\n" + titles[n] + "\r\n");
    open();
    const int slotWidth = tray()->width() / tilesInView;
    const QImage picture = tray()->grab().toImage();
    const auto slotOf = [this](const std::string& name) {
        int slot = 0;
        while (gameAt(slot + 1) != name)
            ++slot;
        return slot;
    };
    // The sky behind the tiles is the same in every column, so a tile without a title shows what a title
    // changes.
    const int empty = tileLeft(slotOf("00000003\\"), tray()->width());
    for (const char* name : {"00000001\\", "00000002\\"}) {
        const int left = tileLeft(slotOf(name), tray()->width());
        int last = 0;
        for (int y = tileTop; y < tileTop + 15; ++y) {
            for (int x = 0; x < slotWidth; ++x) {
                if (picture.pixel(left + x, y) != picture.pixel(empty + x, y))
                    last = std::max(last, x);
            }
        }
        EXPECT_GT(last, slotWidth / 2) << name;
        EXPECT_LT(last, slotWidth - 11) << name; // where what is too long would be cut off
    }
}

TEST_F(Library, TakesADoubleClickOnATileForOne)
{
    open(5);
    clickSlot(3);
    auto* work = control<QPushButton>("Work"); // has come up under the pointer
    const QPointF middle = QRectF(work->rect()).center();
    for (const auto type : {QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, middle, work->mapToGlobal(middle), Qt::LeftButton, Qt::LeftButton, {});
        QApplication::sendEvent(work, &event);
    }
    EXPECT_TRUE(desk.calls.isEmpty());
    click("Work");
    EXPECT_FALSE(desk.calls.isEmpty());
}

TEST_F(Library, ReadsNoIconThatIsNotShown)
{
    open(60);
    EXPECT_EQ(desk.picturesRead.size(), 5U);
    scrollbar()->setValue(31);
    EXPECT_EQ(desk.picturesRead.size(), 10U);
    scrollbar()->setValue(32); // four of the five are known
    EXPECT_EQ(desk.picturesRead.size(), 11U);
}

TEST_F(Library, DrawsACrossForAnIconThatIsMissingOrDamaged)
{
    addGame(1);
    addGame(2);
    folder.remove("games/00000001/icon.bmp");
    folder.write("games/00000002/icon.bmp", "BM, or so it says");
    open();
    const QImage picture = tray()->grab().toImage();
    for (int slot = 0; slot < 2; ++slot) {
        const QPoint corner(tileLeft(slot, tray()->width()), tileTop + 15);
        EXPECT_EQ(picture.pixelColor(corner + QPoint(40, 6)), QColor(Qt::white)) << slot;
        const QColor middle = picture.pixelColor(corner + QPoint(40, 40));
        EXPECT_GT(middle.red(), 200);
        EXPECT_LT(middle.green(), 80);
    }
}

TEST_F(Library, ShowsThePictureBehindTheTrayOrASky)
{
    QImage left(600, 418, QImage::Format_RGB32);
    for (int y = 0; y < left.height(); ++y)
        std::fill_n(reinterpret_cast<QRgb*>(left.scanLine(y)), left.width(), qRgb(y % 256, 0, 90));
    for (const char* name : {"zbo/zorbino1.jpg", "zbo/zorbino2.jpg"})
        folder.write(name, encoded(left, "BMP")); // recognised by its content
    open(0);
    const QImage seen = window->grab().toImage();
    for (const int y : {3, tray()->y() + 50, window->height() - 3})
        EXPECT_EQ(seen.pixelColor(5, y), left.pixelColor(5, y)) << y;

    folder.remove("zbo/zorbino1.jpg");
    folder.remove("zbo/zorbino2.jpg");
    open(0);
    const QColor sky = window->grab().toImage().pixelColor(5, 5);
    EXPECT_GT(sky.blue(), sky.red());
}

TEST_F(Library, CreatesAGameAndSaysSo)
{
    open(2);
    Dialogs dialogs;
    click("CreateButton");
    EXPECT_EQ(dialogs.title, "Zorbino");
    EXPECT_EQ(dialogs.onlyText(),
              "Your new game is ready for you to work on it!  Just find the white box with the red X "
              "and click on it, then select the Work button.");
    EXPECT_TRUE(folder.has("games/00000003/code.txt"));
    EXPECT_EQ(tray()->count(), 3);
    EXPECT_EQ(scrollbar()->maximum(), 3);
    EXPECT_TRUE(scrollbar()->isEnabled());
    EXPECT_FALSE(picked());
}

TEST_F(Library, SaysWhyNoGameCouldBeCreated)
{
    open(1);
    folder.remove("zbo/code.txt");
    Dialogs dialogs;
    click("CreateButton");
    EXPECT_NE(dialogs.onlyText().find("zbo\\code.txt"), std::string::npos) << dialogs.onlyText();
    EXPECT_EQ(folder.entries("games"), 1U);
    EXPECT_TRUE(scrollbar()->isEnabled());
}

TEST_F(Library, NamesTheFolderThatNoGameCouldBeWrittenTo)
{
    open(0);
    folder.remove("games");
    folder.write("games", "a file stands in the way");
    Dialogs dialogs;
    click("CreateButton");
    EXPECT_NE(dialogs.onlyText().find("I can't write games."), std::string::npos) << dialogs.onlyText();
}

TEST_F(Library, AnswersWithAMessageAndNothingElse)
{
    open(1);
    const std::string sorry = "This feature is not enabled yet-- sorry!";
    const std::pair<const char*, std::string> buttons[] = {
        {"UnPackButton", sorry},
        {"SpecialButton", sorry + " This is where you could add resources to your general pool from"},
        {"PlayGame", sorry},
        {"delete", sorry},
        {"Pack", sorry},
    };
    for (const auto& [name, text] : buttons) {
        if (!control<QWidget>(name)->isVisible())
            clickSlot(0);
        Dialogs dialogs;
        click(name);
        EXPECT_EQ(dialogs.onlyText(), text) << name;
    }
    EXPECT_TRUE(picked());
    EXPECT_TRUE(folder.has("games/00000001/prop.zbo"));
    EXPECT_TRUE(desk.calls.isEmpty());
}

TEST_F(Library, WorkOpensTheGameEditorAndLeaves)
{
    open(1);
    clickSlot(0);
    click("Work");
    EXPECT_EQ(desk.calls.join(u'\n').toStdString(), "ZorbinoMain.Work_click: begin\n"
                                                    "ZorbinoMain.Work_click: About to show GameEditor\n"
                                                    "game editor\n"
                                                    "ZorbinoMain.Work_click: GameEditor Shown\n"
                                                    "ZorbinoMain.Work_click: unloaded ZorbinoMain");
    EXPECT_FALSE(window->isVisible());
}

TEST_F(Library, SaysThatAGameIsGone)
{
    open(2);
    clickSlot(1);
    folder.remove("games/" + desk.module().CurrentGame.folder.substr(0, 8));
    Dialogs dialogs;
    click("Work");
    EXPECT_NE(dialogs.onlyText().find("I can't find"), std::string::npos);
    EXPECT_TRUE(window->isVisible());
    EXPECT_FALSE(picked());
    EXPECT_EQ(tray()->count(), 1);
    EXPECT_TRUE(desk.calls.isEmpty());
}

TEST_F(Library, ReachesTheMapEditorAndTheExitAtAnyTime)
{
    open(1);
    click("LaunchMapEditor");
    clickSlot(0);
    click("LaunchMapEditor");
    click("ExitButton");
    EXPECT_EQ(desk.calls.join(u' ').toStdString(), "map editor map editor exit");
    EXPECT_TRUE(picked());
}

TEST_F(Library, ExplainsWhatTheMouseIsOver)
{
    const std::pair<const char*, const char*> texts[] = {
        {"Work", "You can work on a game that is not finished yet, or change a completed game."},
        {"PlayGame", "Play the game!"},
        {"GamePicture", ""},
        {"delete", "If you delete a game, it is removed permanently from your computer."},
        {"ActionWindow", ""},
        {"Pack", "You can pack up a game to give it to your friends or put on the Internet."},
        {"Cancel", "Press cancel to look at a different game."},
    };
    const QFont plain = QApplication::font();
    for (const int points : {11, 17}) { // the smallest that we use, and half as large again
        QFont font = plain;
        font.setPointSize(points);
        QApplication::setFont(font);
        open(1);
        clickSlot(0);
        const auto* help = control<QLabel>("Help");
        EXPECT_EQ(help->text(), QString());
        for (const auto& [name, text] : texts) {
            QTest::mouseMove(control<QWidget>(name), QPoint(3, 3));
            EXPECT_TRUE(QTest::qWaitFor([&, wanted = QLatin1StringView(text)] {
                return help->text() == wanted;
            })) << name;
            EXPECT_LE(help->heightForWidth(help->width()), help->height()) << name << ' ' << points;
        }
        EXPECT_TRUE(window->rect().contains(control<QWidget>("ActionWindow")->geometry())) << points;
    }
    QApplication::setFont(plain);
}

} // namespace
