// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "support/Dialogs.h"
#include "support/Pictures.h"
#include "support/PretendDesk.h"

#include "library/Resources.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QToolButton>

#include <gtest/gtest.h>

namespace
{

class GameResources : public testing::Test
{
protected:
    ScratchFolder folder;
    PretendDesk desk{folder.path()};
    std::unique_ptr<Resources> window;

    void open(const std::vector<std::string>& files)
    {
        folder.makeFolder("games/00000001");
        for (const auto& name : files)
            folder.write("games/00000001/" + name, bitmap(Qt::green));
        desk.module().CurrentGame = {"Ann", "My Game", "00000001\\"};
        window = std::make_unique<Resources>(desk, desk.module().CurrentGame);
        window->setAttribute(Qt::WA_DeleteOnClose, false);
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    }

    template<typename Control> Control* control(const char* name, int index = -1) const
    {
        QString full = QLatin1String(name);
        if (index >= 0)
            full += QStringLiteral("_%1").arg(index);
        auto* found = window->findChild<Control*>(full);
        EXPECT_NE(found, nullptr) << full.toStdString();
        return found;
    }
    QListWidget* list(const char* name) const { return control<QListWidget>(name); }
    std::string names(const char* name) const
    {
        QStringList all;
        for (int row = 0; row < list(name)->count(); ++row)
            all += list(name)->item(row)->text();
        return all.join(u' ').toStdString();
    }
    void select(const char* name, const QString& text) const
    {
        list(name)->setCurrentItem(list(name)->findItems(text, Qt::MatchExactly).value(0));
    }
    void click(const char* name) const { QTest::mouseClick(control<QAbstractButton>(name), Qt::LeftButton); }
    QString elsewhere(const std::string& name, const std::string& bytes) const
    {
        folder.write("elsewhere/" + name, bytes);
        return QString::fromStdString((folder.path() / "elsewhere" / name).string());
    }
    std::string game(const std::string& name) const { return folder.read("games/00000001/" + name); }
};

TEST_F(GameResources, ListsBackgroundsByKindWithoutTheIcon)
{
    open({"icon.GIF", "sky.jpg", "back.bmp", "icon.bmp", "b.gif", "code.txt", "iconic.JPG"});
    const std::string all = names("BackgroundNames");
    EXPECT_TRUE(all == "back.bmp b.gif sky.jpg iconic.JPG" || all == "back.bmp b.gif iconic.JPG sky.jpg")
        << all;
}

TEST_F(GameResources, PreviewsFollowTheScrollBarAndTheSelection)
{
    open({"a.bmp", "b.bmp", "c.bmp", "d.bmp", "e.bmp", "f.bmp"});
    auto* scroll = control<QScrollBar>("BackgroundScroll");
    const auto shown = [this](int index) { return control<QLabel>("ShowBackgroundTitle", index)->text(); };
    const auto listed = [this](int row) { return list("BackgroundNames")->item(row)->text(); };
    scroll->setValue(scroll->maximum());
    for (int index = 0; index < 4; ++index) {
        EXPECT_EQ(shown(index), listed(2 + index));
        EXPECT_FALSE(control<QToolButton>("ShowBackground", index)->icon().isNull());
    }
    list("BackgroundNames")->setCurrentRow(1);
    EXPECT_EQ(shown(0), listed(1));
    QTest::mouseClick(control<QToolButton>("ShowBackground", 2), Qt::LeftButton);
    EXPECT_EQ(list("BackgroundNames")->currentRow(), 3);
    const std::pair<int, int> moves[] = {{4, 1}, {5, 2}, {2, 2},
                                         {1, 1}, {0, 0}, {3, 0}}; // row, first one in view
    for (const auto& [row, first] : moves) {
        list("BackgroundNames")->setCurrentRow(row);
        EXPECT_EQ(scroll->value(), first) << row;
    }
}

TEST_F(GameResources, PreviewsBeyondTheLastPictureAreEmpty)
{
    open({"a.bmp", "b.bmp", "c.bmp"});
    EXPECT_EQ(control<QScrollBar>("BackgroundScroll")->maximum(), 0);
    for (int index = 0; index < 4; ++index) {
        auto* preview = control<QToolButton>("ShowBackground", index);
        EXPECT_EQ(preview->isEnabled(), index < 3);
        EXPECT_EQ(preview->icon().isNull(), index == 3);
        EXPECT_EQ(control<QLabel>("ShowBackgroundTitle", index)->text().isEmpty(), index == 3);
    }
}

TEST_F(GameResources, FitsTheScreenInLargeLetters)
{
    const QFont usual = QApplication::font();
    QFont large = usual;
    large.setPointSizeF(usual.pointSizeF() * 1.6);
    QApplication::setFont(large);
    open({"a.bmp", "b.bmp", "c.bmp", "d.bmp", "ball.spr"});
    QApplication::setFont(usual);
    EXPECT_LT(window->width(), window->screen()->availableGeometry().width());
    const QSize size = control<QToolButton>("ShowBackground", 3)->iconSize();
    EXPECT_GE(size.width(), 60);
    EXPECT_EQ(size.width() * 3 / 4, size.height());
    EXPECT_TRUE(window->rect().contains(control<QWidget>("RemoveSprite")->mapTo(window.get(), QPoint())));
}

TEST_F(GameResources, AddsAPictureUnderAWritableName)
{
    open({"zoo.bmp"});
    const std::pair<std::string, const char16_t*> pictures[] = {
        {"Blue  Sky.BMP", u"blue_sky.bmp"},
        {"a\u0308.jpeg", u"\u00e4.jpg"},
        {"v1.2.jpe", u"v1_2.jpg"},
        {"no ending", u"no_ending.bmp"},
    };
    const std::string picture = bitmap(Qt::blue);
    for (const auto& [file, name] : pictures) {
        Dialogs dialogs({elsewhere(file, picture)});
        click("AddBackground");
        EXPECT_TRUE(dialogs.said.empty()) << file;
        EXPECT_EQ(game(QString::fromUtf16(name).toStdString()), picture) << file;
        EXPECT_EQ(list("BackgroundNames")->currentItem()->text(), name) << file;
    }
}

TEST_F(GameResources, MakesAPictureForGamesOfOneOfAnotherKind)
{
    open({});
    QImage half(2, 1, QImage::Format_ARGB32);
    half.setPixelColor(0, 0, Qt::blue);
    half.setPixelColor(1, 0, Qt::transparent);
    for (const char* name : {"Photo.png", "other.bmp"}) { // the second lies about its kind
        Dialogs dialogs({elsewhere(name, encoded(half, "PNG"))});
        click("AddBackground");
        EXPECT_TRUE(dialogs.said.empty()) << name;
    }
    EXPECT_EQ(names("BackgroundNames").size(), std::string("photo.bmp other.bmp").size());
    for (const char* name : {"photo.bmp", "other.bmp"}) {
        const std::string bytes = game(name);
        const QImage picture =
            QImage::fromData(reinterpret_cast<const uchar*>(bytes.data()), int(bytes.size()), "BMP");
        ASSERT_EQ(picture.size(), half.size()) << name;
        EXPECT_EQ(picture.pixelColor(0, 0), QColor(Qt::blue));
        EXPECT_EQ(picture.pixelColor(1, 0), QColor(Qt::white));
    }
}

TEST_F(GameResources, ExplainsWhyAPictureIsNotNamedIcon)
{
    open({});
    folder.write("games/00000001/icon.bmp", "the icon of the game");
    Dialogs dialogs({elsewhere("Icon.bmp", bitmap(Qt::blue))});
    click("AddBackground");
    EXPECT_NE(dialogs.onlyText().find("icon_picture.bmp"), std::string::npos) << dialogs.onlyText();
    EXPECT_EQ(names("BackgroundNames"), "icon_picture.bmp");
    EXPECT_EQ(game("icon.bmp"), "the icon of the game");
}

TEST_F(GameResources, ShowsAPictureOfTheGameThatIsAddedAgain)
{
    open({"a.bmp", "b.bmp"});
    select("BackgroundNames", QStringLiteral("b.bmp"));
    Dialogs dialogs({QString::fromStdString((folder.path() / "games/00000001/a.bmp").string())});
    click("AddBackground");
    EXPECT_TRUE(dialogs.said.empty());
    EXPECT_EQ(list("BackgroundNames")->currentItem()->text(), u"a.bmp");
}

TEST_F(GameResources, AsksBeforeItReplacesAPicture)
{
    open({"a.bmp"});
    const std::string old = game("a.bmp");
    const QString file = elsewhere("A.bmp", bitmap(Qt::blue));
    {
        Dialogs dialogs({file, QStringLiteral("no")});
        click("AddBackground");
        EXPECT_NE(dialogs.onlyText().find("a.bmp"), std::string::npos);
        EXPECT_EQ(game("a.bmp"), old);
    }
    Dialogs dialogs({file, QStringLiteral("ok")});
    click("AddBackground");
    EXPECT_NE(game("a.bmp"), old);
    EXPECT_EQ(names("BackgroundNames"), "a.bmp");
}

TEST_F(GameResources, SaysWhatItCannotAdd)
{
    open({"a.bmp"});
    std::string huge = bitmap(Qt::blue, 1, 1);
    const std::pair<std::size_t, int> sides[] = {{18, 9000},
                                                 {22, 4000}}; // where the head of a BMP file has them
    for (const auto& [at, side] : sides) {
        huge[at] = static_cast<char>(side & 0xff);
        huge[at + 1] = static_cast<char>(side >> 8U);
    }
    const struct {
        const char* name;
        std::string bytes;
        const char* why;
    } pictures[] = {
        {"fake.bmp", "no picture at all", "I can't read the picture fake.bmp"},
        {"cut.bmp", bitmap(Qt::blue).substr(0, 40), "I can't read the picture cut.bmp"},
        {"notes.txt", "no picture at all", "I can't read the picture notes.txt"},
        {"huge.bmp", huge, "too big for a game: it is 9000 dots wide and 4000 dots high"},
    };
    for (const auto& picture : pictures) {
        Dialogs dialogs({elsewhere(picture.name, picture.bytes)});
        click("AddBackground");
        EXPECT_NE(dialogs.onlyText().find(picture.why), std::string::npos) << dialogs.onlyText();
        EXPECT_EQ(names("BackgroundNames"), "a.bmp");
    }
    const QString file = elsewhere("b.bmp", bitmap(Qt::blue));
    folder.remove("games/00000001");
    Dialogs dialogs({file});
    click("AddBackground");
    EXPECT_NE(dialogs.onlyText().find("could not copy"), std::string::npos) << dialogs.onlyText();
}

TEST_F(GameResources, RemovesWhatIsSelectedWhenAskedTwice)
{
    open({"a.bmp", "b.bmp"});
    select("BackgroundNames", QStringLiteral("b.bmp"));
    {
        Dialogs dialogs({QStringLiteral("no")});
        click("Command1");
        EXPECT_EQ(names("BackgroundNames").size(), 11U);
    }
    {
        Dialogs dialogs({QStringLiteral("return")}); // means the safe answer
        click("Command1");
        EXPECT_EQ(names("BackgroundNames").size(), 11U);
    }
    Dialogs dialogs({QStringLiteral("ok")});
    click("Command1");
    EXPECT_EQ(names("BackgroundNames"), "a.bmp");
    EXPECT_FALSE(folder.has("games/00000001/b.bmp"));
}

TEST_F(GameResources, TellsWhatItCannotRemoveAndRemovesTheRest)
{
    // A folder that is not empty stays, whichever of the two files it stands for.
    for (const char* stays : {"ball.spr", "ball.spb"}) {
        open({"ball.spr", "ball.spb"});
        folder.remove(std::string("games/00000001/") + stays);
        folder.makeFolder(std::string("games/00000001/") + stays + "/inside");
        Dialogs dialogs({QStringLiteral("ok"), QString()});
        click("RemoveSprite");
        ASSERT_EQ(dialogs.said.size(), 2U) << stays;
        EXPECT_EQ(dialogs.said[1],
                  "I could not remove ball.  Maybe nobody may write in the folder of this game.");
        EXPECT_EQ(folder.entries("games/00000001"), 1U) << stays;
        folder.remove("games/00000001");
    }
}

TEST_F(GameResources, AsksBeforeAGameThatSomebodyElseWorksOnIsChanged)
{
    open({"a.bmp", "ball.spr"});
    desk.mayChange = false;
    const QString file = elsewhere("b.bmp", bitmap(Qt::blue));
    for (const char* name : {"AddBackground", "Command1", "RemoveSprite"}) {
        Dialogs dialogs({name == std::string_view("AddBackground") ? file : QStringLiteral("ok")});
        click(name);
    }
    EXPECT_EQ(desk.calls.count(QStringLiteral("may change")), 3);
    EXPECT_EQ(folder.entries("games/00000001"), 2U);
}

TEST_F(GameResources, ListsSpritesAsPeopleCount)
{
    open({"wall10.spr", "Ball.spr", "wall9.spr", "zebra.SPR", "apple.spr", "notes.txt"});
    EXPECT_EQ(names("SpriteNames"), "apple Ball wall9 wall10 zebra");
}

TEST_F(GameResources, LeavesTheListsAloneWhereNothingHasChanged)
{
    std::vector<std::string> files;
    for (int n = 10; n < 60; ++n)
        files.push_back("s" + std::to_string(n) + ".spr");
    open(files);
    auto* bar = list("SpriteNames")->verticalScrollBar();
    bar->setValue(bar->maximum());
    folder.write("games/00000001/prop.zbo", "a key in the title");
    window->ListBackgrounds();
    window->ListSprites();
    EXPECT_EQ(bar->value(), bar->maximum());
    folder.write("games/00000001/new.bmp", bitmap(Qt::red));
    EXPECT_TRUE(QTest::qWaitFor([this] { return names("BackgroundNames") == "new.bmp"; }));
    EXPECT_EQ(bar->value(), bar->maximum());
}

TEST_F(GameResources, ReachesTheSpriteEditorForNewAndOldSprites)
{
    open({"ball.spr", "ball.spb", "bat.SPR", "notes.txt"});
    select("SpriteNames", QStringLiteral("bat"));
    click("EditSprite");
    click("NewSprite");
    select("SpriteNames", QStringLiteral("ball"));
    click("EditSprite");
    EXPECT_EQ(desk.calls.join(u'|').toStdString(), "sprite editor bat|sprite editor |sprite editor ball");
}

TEST_F(GameResources, RemovesBothFilesOfASprite)
{
    open({"ball.spr", "ball.spb", "ball.bmp"});
    Dialogs dialogs({QStringLiteral("ok")});
    click("RemoveSprite");
    EXPECT_NE(dialogs.onlyText().find("ball"), std::string::npos);
    EXPECT_EQ(folder.entries("games/00000001"), 1U);
    EXPECT_FALSE(control<QWidget>("RemoveSprite")->isEnabled());
    EXPECT_FALSE(control<QWidget>("EditSprite")->isEnabled());
}

TEST_F(GameResources, NoticesFilesThatOthersMake)
{
    open({});
    EXPECT_FALSE(control<QWidget>("Command1")->isEnabled());
    folder.write("games/00000001/new.spr", "drawn just now");
    folder.write("games/00000001/new.bmp", bitmap(Qt::red));
    EXPECT_TRUE(QTest::qWaitFor(
        [this] { return names("SpriteNames") == "new" && names("BackgroundNames") == "new.bmp"; }));
}

} // namespace
