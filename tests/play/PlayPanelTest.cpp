// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "play/time/PlayPanel.h"

#include "support/Dialogs.h"
#include "support/FullDisk.h"
#include "support/OrdinaryUser.h"
#include "support/Workshop.h"

#include <QImageReader>
#include <QLabel>
#include <QListWidget>
#include <QSlider>
#include <QTabWidget>

#include <filesystem>
#include <fstream>

namespace
{

class KeptPlays : public Workshop
{
protected:
    KeptPlays()
    {
        desk.code.program = program("1");
        std::filesystem::create_directories(folder());
    }

    static std::string program(const std::string& step)
    {
        return programOf("set counter$n 0", "change counter$n " + step);
    }
    std::filesystem::path folder() { return desk.installation().root() / "games/00000001"; }
    bool has(const std::string& file) { return std::filesystem::exists(folder() / file); }
    std::string contents(const std::string& file) { return ScratchFolder::contents(folder() / file); }
    QListWidget* list() const { return find<QListWidget>(u"PlayList"); }
    QString note() const { return find<QLabel>(u"PlayNote")->text(); }
    QSlider* slider() const { return find<QSlider>(u"Moments"); }
    bool isAtWork() const { return !find<QWidget>(u"StopWork")->isHidden(); }
    until isDone() const
    {
        return until([this] { return !isAtWork(); });
    }
    until pinsAreDone() const
    {
        return until(
            [this] { return !find<QLabel>(u"PinNote")->text().startsWith(QStringLiteral("I am playing")); });
    }
    void openPlays() const
    {
        click(u"TimeButton");
        EXPECT_TRUE(QTest::qWaitForWindowExposed(find<QWidget>(u"TimeWindow")));
        find<QTabWidget>(u"Pages")->setCurrentWidget(find<QWidget>(u"PlayPanel"));
    }
    QStringList clickWith(const char16_t* button, const QStringList& answers) const
    {
        EXPECT_TRUE(QTest::qWaitFor([&] { return find<QWidget>(button)->isEnabled(); }))
            << QString::fromUtf16(button).toStdString();
        return withAnswers(answers, [&] { click(button); });
    }
    void choose(int row) const
    {
        const QRect place = list()->visualItemRect(list()->item(row));
        QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, place.center());
    }
    void writePlay(const std::string& file, const std::string& text)
    {
        std::ofstream(folder() / file, std::ios::binary) << text;
    }
};

TEST_F(KeptPlays, KeepsOpensRenamesAndRemoves)
{
    perform([this]() -> Script {
        openPlays();
        EXPECT_FALSE(find<QWidget>(u"KeepPlay")->isEnabled());
        EXPECT_FALSE(find<QWidget>(u"OpenPlay")->isEnabled());
        click(u"PlayButton");
        co_await played(8);
        EXPECT_TRUE(co_await until([this] { return slider()->maximum() > 0; }));
        EXPECT_FALSE(find<QWidget>(u"KeepPlay")->isEnabled()) << "it runs";
        click(u"PauseButton");
        co_await waits();
        EXPECT_EQ(clickWith(u"KeepPlay", {QStringLiteral("Here I win!")}).size(), 1);
        EXPECT_EQ(list()->count(), 1);
        EXPECT_EQ(list()->item(0)->text(), QStringLiteral("Here I win!"));
        EXPECT_TRUE(contents("here_i_win.zbplay").starts_with("zorbino play 1\n"));
        const auto frames = slider()->maximum();

        click(u"OpenPlay");
        EXPECT_TRUE(co_await isDone());
        EXPECT_EQ(note(), QStringLiteral("This play goes as it went when it was kept."));
        EXPECT_TRUE(
            find<QLabel>(u"MomentText")->text().startsWith(QStringLiteral("Here I win!: After frame")));
        EXPECT_EQ(slider()->maximum(), frames);
        EXPECT_FALSE(find<QWidget>(u"GoOnFromHere")->isEnabled());
        slider()->setValue(3);
        EXPECT_TRUE(co_await until([this] {
            return find<QLabel>(u"MomentText")->text().contains(QStringLiteral("After frame 3"));
        }));
        click(u"LastRun");
        EXPECT_FALSE(find<QWidget>(u"LastRun")->isVisible());
        click(u"OpenPlay");
        EXPECT_TRUE(co_await isDone());
        const int before = this->frames();
        click(u"PlayButton"); // the run that waits goes on, whatever is shown
        EXPECT_TRUE(co_await until([this, before] { return this->frames() > before + 2; }));
        EXPECT_FALSE(find<QWidget>(u"LastRun")->isVisible());
        click(u"StopButton");
        co_await stops();

        EXPECT_EQ(
            clickWith(u"RenamePlay", {QStringLiteral("!"), QStringLiteral("ok"), QStringLiteral("Lost")}),
            QStringList({QStringLiteral("Rename: "),
                         QStringLiteral("Zorbino: I need a name with at least one letter or digit in it."),
                         QStringLiteral("Rename: ")}));
        EXPECT_FALSE(has("here_i_win.zbplay"));
        EXPECT_TRUE(has("lost.zbplay"));
        EXPECT_EQ(list()->currentItem()->text(), QStringLiteral("Lost"));
        clickWith(u"KeepPlay", {QStringLiteral("lost"), QStringLiteral("cancel")});
        EXPECT_EQ(list()->count(), 1);
        clickWith(u"RemovePlay", {QStringLiteral("no")});
        EXPECT_TRUE(has("lost.zbplay"));
        clickWith(u"RemovePlay", {QStringLiteral("yes")});
        EXPECT_FALSE(has("lost.zbplay"));
        EXPECT_EQ(list()->count(), 0);
    }());
}

TEST_F(KeptPlays, WatchesPinnedPlays)
{
    perform([this]() -> Script {
        openPlays();
        click(u"PlayButton");
        co_await played(8);
        click(u"StopButton");
        co_await stops();
        clickWith(u"KeepPlay", {QStringLiteral("Win")});
        click(u"PinPlay");
        EXPECT_EQ(list()->item(0)->text(), QStringLiteral("Win  (pinned)"));
        EXPECT_TRUE(find<QAbstractButton>(u"PinPlay")->isChecked());

        click(u"PlayButton");
        EXPECT_TRUE(co_await pinsAreDone());
        EXPECT_EQ(find<QLabel>(u"PinNote")->text(), QStringLiteral("The pinned play still goes the same."));
        EXPECT_TRUE(find<QWidget>(u"TimeButton")->toolTip().endsWith(QStringLiteral("still goes the same.")));
        click(u"StopButton");
        co_await stops();

        desk.code.program = program("2");
        click(u"PlayButton");
        EXPECT_TRUE(co_await pinsAreDone());
        auto* differences = find<QListWidget>(u"PinList");
        EXPECT_EQ(differences->count(), 1);
        EXPECT_EQ(differences->item(0)->text(),
                  QStringLiteral("Win: From frame 1 on this play goes another way (line 10)."));
        EXPECT_EQ(find<QWidget>(u"TimeButton")->toolTip().section(u'\n', 1),
                  QStringLiteral("The pinned play goes another way now."));
        const QRect place = differences->visualItemRect(differences->item(0));
        QTest::mouseClick(differences->viewport(), Qt::LeftButton, {}, place.center()); // while the game runs
        EXPECT_TRUE(co_await isDone());
        EXPECT_TRUE(editor->interpreter().StepMode());
        EXPECT_TRUE(find<QLabel>(u"MomentText")->text().startsWith(QStringLiteral("Win: After frame 1 of")));
        EXPECT_TRUE(note().contains(QStringLiteral("From frame 1 on this play goes another way (line 10)")));
        EXPECT_TRUE(note().endsWith(QStringLiteral("You see how it goes now.")));

        click(u"PinPlay"); // nobody looks after it any more
        EXPECT_EQ(find<QLabel>(u"PinNote")->text(), QString());
        EXPECT_EQ(differences->count(), 0);
    }());
}

TEST_F(KeptPlays, SavesFilmAndPicture)
{
    perform([this]() -> Script {
        openPlays();
        click(u"PlayButton");
        co_await played(8);
        click(u"PauseButton");
        co_await waits();
        clickWith(u"KeepPicture", {QStringLiteral("Sky")});
        EXPECT_TRUE(note().startsWith(QStringLiteral("I have saved sky.png in the folder of your game: /")));
        QImageReader picture(QString::fromStdString((folder() / "sky.png").string()));
        EXPECT_EQ(picture.size(), QSize(480, 480));
        clickWith(u"Film", {QStringLiteral("film 1")});
        EXPECT_TRUE(isAtWork());
        EXPECT_TRUE(find<QWidget>(u"StopWork")->isVisible());
        EXPECT_TRUE(co_await isDone());
        EXPECT_TRUE(contents("film_1.gif").starts_with("GIF89a"));
        EXPECT_TRUE(note().startsWith(QStringLiteral("I have saved film_1.gif")));
        {
            const FullDisk full;
            EXPECT_TRUE(clickWith(u"KeepPicture", {QStringLiteral("Sky 2"), QStringLiteral("ok")})
                            .last()
                            .contains(QStringLiteral("I could not save sky_2.png")));
            EXPECT_TRUE(clickWith(u"KeepPlay", {QStringLiteral("Big"), QStringLiteral("ok")})
                            .last()
                            .contains(QStringLiteral("I could not save Big")));
        }
        desk.mayChange = false; // somebody else works on the game, too
        clickWith(u"KeepPicture", {QStringLiteral("Sky 2")});
        clickWith(u"KeepPlay", {QStringLiteral("Big")});
        clickWith(u"Film", {QStringLiteral("film 2")});
        EXPECT_FALSE(isAtWork());
        EXPECT_EQ(desk.calls.count(QStringLiteral("may change")), 3);
        EXPECT_FALSE(has("sky_2.png") || has("big.zbplay"));
    }());
}

TEST_F(KeptPlays, TellsWhatIsWrongWithAFile)
{
    perform([this]() -> Script {
        openPlays();
        click(u"PlayButton");
        co_await played(4);
        click(u"StopButton");
        co_await stops();
        clickWith(u"KeepPlay", {QStringLiteral("Good")});
        const std::string good = contents("good.zbplay");
        writePlay("cut.zbplay", good.substr(0, good.size() / 2));
        writePlay("foreign.zbplay", "hello");
        writePlay("gone.zbplay", good);
        for (int i = 0; i < 200; ++i)
            writePlay("many_" + std::to_string(i) + ".zbplay", good);
        find<QWidget>(u"TimeWindow")->close();
        openPlays();
        EXPECT_EQ(list()->count(), 204);
        std::filesystem::remove(folder() / "gone.zbplay");
        for (const int row : {0, 1, 2}) {
            choose(row);
            const QString file = list()->item(row)->toolTip();
            EXPECT_EQ(find<QWidget>(u"RenamePlay")->isEnabled(), row == 2);
            const QStringList boxes = clickWith(u"OpenPlay", {QStringLiteral("ok")});
            EXPECT_EQ(boxes.size(), file == QStringLiteral("good.zbplay") ? 0 : 1) << file.toStdString();
            EXPECT_EQ(boxes.join(u' ').contains(QStringLiteral("I cannot open the play")), !boxes.empty());
            co_await isDone();
        }
        desk.code.program = "program{\r\nwrong";
        choose(2);
        const QStringList boxes = clickWith(u"OpenPlay", {QStringLiteral("ok")});
        EXPECT_TRUE(boxes.join(u' ').contains(QStringLiteral("The program has a mistake in line")))
            << boxes.join(u' ').toStdString();
    }());
}

TEST_F(KeptPlays, SurvivesWhatHappensMeanwhile)
{
    perform([this]() -> Script {
        openPlays();
        click(u"PlayButton");
        co_await played(8);
        click(u"StopButton");
        co_await stops();
        clickWith(u"KeepPlay", {QStringLiteral("Win")});
        click(u"PinPlay");
        click(u"OpenPlay");
        EXPECT_TRUE(isAtWork());
        click(u"StopWork");
        EXPECT_FALSE(isAtWork());
        EXPECT_FALSE(find<QWidget>(u"LastRun")->isVisible());
        click(u"OpenPlay");
        find<QWidget>(u"TimeWindow")->close();
        EXPECT_FALSE(isAtWork());
        openPlays();
        clickWith(u"Film", {QStringLiteral("film")});
        EXPECT_TRUE(isAtWork());
        click(u"PlayButton"); // a new run, while the old one is filmed and the pinned play is watched
        EXPECT_FALSE(isAtWork());
        co_await played(4);
        click(u"PauseButton");
        co_await waits();
        click(u"OpenPlay");
        EXPECT_TRUE(co_await isDone());
        EXPECT_TRUE(find<QWidget>(u"LastRun")->isVisible());
        click(u"StopButton");
        co_await stops();
        click(u"PlayButton"); // over the play that is shown
        co_await played(4);
        EXPECT_FALSE(find<QWidget>(u"LastRun")->isVisible());
        click(u"PauseButton");
        co_await waits();
        desk.code.program = program("3");
        click(u"OpenPlay");
        close(); // in the middle of it
    }());
}

TEST(PlayKeeper, ChangesNothingInAReadOnlyFolder)
{
    const ScratchFolder root;
    root.makeFolder("game");
    const Installation installation(root.path());
    PlayKeeper keeper(installation, "game\\");
    PlayFile play;
    play.label.name = "Win";
    play.sums.push_back(0);
    ASSERT_TRUE(keeper.save("win.zbplay", play));
    std::filesystem::permissions(root.path(), std::filesystem::perms(0755));
    std::filesystem::permissions(root.path() / "game", std::filesystem::perms(0555));
    EXPECT_TRUE(asOrdinaryUser([&] {
        return !keeper.save("other.zbplay", play) && !keeper.rename("win.zbplay", "Lost") &&
               !keeper.setPinned("win.zbplay", true) && !keeper.remove("win.zbplay") &&
               keeper.list().size() == 1;
    }));
    std::filesystem::permissions(root.path() / "game", std::filesystem::perms(0755));
    EXPECT_EQ(keeper.list().at(0).name, "Win");
    EXPECT_EQ(keeper.freeName("Win"), "Win 1");
}

} // namespace
