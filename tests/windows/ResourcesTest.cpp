#include "windows/Dialogs.h"
#include "windows/Pictures.h"
#include "windows/PretendDesk.h"

#include "library/PictureName.h"
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
    TemporaryInstallation folder;
    PretendDesk desk{folder.root()};
    std::unique_ptr<Resources> window;

    void open(const std::vector<std::string>& files)
    {
        folder.makeFolder("games/00000001");
        for (const auto& name : files)
            folder.write("games/00000001/" + name, bitmap(Qt::green));
        desk.module().CurrentGame = {"Ann", "My Game", "00000001\\"};
        window = std::make_unique<Resources>(desk);
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
        return QString::fromStdString((folder.root() / "elsewhere" / name).string());
    }
    std::string game(const std::string& name) const { return folder.read("games/00000001/" + name); }
};

TEST(PictureName, IsOneThatAProgramCanWrite)
{
    const std::pair<const char16_t*, const char16_t*> pictures[] = {
        {u"Blue Sky.BMP", u"blue_sky.bmp"},
        {u"B\u00e4ume {am} \"Fluss\".jpeg", u"baume_am_fluss.jpg"},
        {u"stra\u00dfe;2.v1.gif", u"strasse2_v1.gif"},
        {u"ICON.gif", u"icon_picture.gif"},
        {u"\u732b.bmp", u"picture.bmp"},
        {u"photo.png", u""},
        {u"photo", u""},
    };
    for (const auto& [from, to] : pictures)
        EXPECT_EQ(writablePictureName(QString::fromUtf16(from)).toStdString(),
                  QString::fromUtf16(to).toStdString());
    EXPECT_LT(writablePictureName(QString(200, u'x') + QStringLiteral(".bmp")).size(), 100);
}

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
}

TEST_F(GameResources, AddsAPictureUnderAWritableName)
{
    open({"a.bmp"});
    const std::string picture = bitmap(Qt::blue);
    Dialogs dialogs({elsewhere("Blue Sky.BMP", picture)});
    click("AddBackground");
    EXPECT_TRUE(dialogs.said.empty());
    EXPECT_EQ(game("blue_sky.bmp"), picture);
    EXPECT_EQ(list("BackgroundNames")->currentItem()->text(), u"blue_sky.bmp");
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
    {
        Dialogs dialogs({elsewhere("fake.bmp", "no picture at all")});
        click("AddBackground");
        EXPECT_NE(dialogs.onlyText().find("fake.bmp"), std::string::npos) << dialogs.onlyText();
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
    Dialogs dialogs({QStringLiteral("ok")});
    click("Command1");
    EXPECT_EQ(names("BackgroundNames"), "a.bmp");
    EXPECT_FALSE(folder.has("games/00000001/b.bmp"));
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
    QTest::qWait(200);
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
