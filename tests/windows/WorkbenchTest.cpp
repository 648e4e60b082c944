#include "windows/Dialogs.h"
#include "windows/Pictures.h"

#include "app/Workbench.h"
#include "support/TemporaryInstallation.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QWindow>

#include <gtest/gtest.h>

namespace
{

/// The windows of the whole program, tied together as for a user.
class WholeProgram : public testing::Test
{
protected:
    TemporaryInstallation folder;
    std::unique_ptr<Workbench> workbench;

    WholeProgram()
    {
        folder.write("zbo/icons/cat.gif", bitmap(Qt::blue));
        addGame("00000001", "Ann\r\nFirst\r\n");
        workbench = std::make_unique<Workbench>(folder.root());
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

TEST_F(WholeProgram, ShowsAParseErrorAboveTheCodeEditor)
{
    folder.write("games/00000001/code.txt", "program{\r\n");
    workOnFirstGame();
    click("GameEditor", "PlayButton");
    EXPECT_EQ(window("ParseError")->windowHandle()->transientParent(), window("CodeEditor")->windowHandle());
    // On a screen that is too narrow for two, none of the three covers another.
    const QRect editor = window("GameEditor")->frameGeometry();
    const QRect code = window("CodeEditor")->frameGeometry();
    EXPECT_FALSE(editor.intersects(code));
    EXPECT_FALSE(window("ParseError")->frameGeometry().intersects(code));
    EXPECT_TRUE(window("CodeEditor")->screen()->geometry().contains(code.bottomLeft()));
    window("GameEditor")->close();
    EXPECT_TRUE(shown("ParseError").isEmpty());
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
