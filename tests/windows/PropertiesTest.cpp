#include "windows/Dialogs.h"
#include "windows/Pictures.h"
#include "windows/PretendDesk.h"

#include "library/Properties.h"

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
    TemporaryInstallation folder;
    PretendDesk desk{folder.root()};
    std::unique_ptr<Properties> window;

    void open(int icons)
    {
        folder.write("games/00000001/prop.zbo", "Ann\r\nMy Game\r\n");
        desk.module().CurrentGame = {"Ann", "My Game", "00000001\\"};
        for (int n = 0; n < icons; ++n)
            folder.write("zbo/icons/icon" + std::to_string(n) + ".bmp", bitmap(Qt::green));
        window = std::make_unique<Properties>(desk);
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

} // namespace
