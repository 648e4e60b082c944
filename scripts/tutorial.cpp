// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

// Walks through the tutorial in the real windows, with the mouse and the keyboard, and takes the pictures
// that it shows:
//     zb_tutorial first-game.md [folder for the pictures]
// in an installation folder with the bundled games. The programs are those of the tutorial itself. Exit
// status 1 where something does not go as the tutorial says.

#include "app/Workbench.h"
#include "forms/Style.h"
#include "forms/Texts.h"
#include "games/GameFolders.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSlider>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QTimer>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <numbers>

using namespace Qt::StringLiterals;

namespace
{

constexpr int frameSide = 32;
constexpr int mapSide = 10;

[[noreturn]] void giveUp(const QString& what)
{
    std::fprintf(stderr, "The tutorial cannot be followed: %s\n", qUtf8Printable(what));
    std::_Exit(1);
}

/// The visible window of that object name.
QWidget* window(const char* name)
{
    for (int attempt = 0; attempt < 50; ++attempt) {
        for (QWidget* top : QApplication::topLevelWidgets()) {
            if (top->objectName() == QLatin1StringView(name) && top->isVisible())
                return top;
        }
        QTest::qWait(20);
    }
    giveUp(u"there is no window "_s + QLatin1StringView(name));
}

bool isOpen(const char* name)
{
    const auto tops = QApplication::topLevelWidgets();
    return std::any_of(tops.begin(), tops.end(), [name](const QWidget* top) {
        return top->objectName() == QLatin1StringView(name) && top->isVisible();
    });
}

template<typename Control = QWidget> Control* control(const char* windowName, const char* name)
{
    auto* const found = window(windowName)->findChild<Control*>(QLatin1StringView(name));
    if (found == nullptr)
        giveUp(u"there is no "_s + QLatin1StringView(name) + u" in "_s + QLatin1StringView(windowName));
    return found;
}

void click(QWidget* widget, QPoint at)
{
    QTest::mouseClick(widget, Qt::LeftButton, Qt::NoModifier, at);
}

void click(const char* windowName, const char* name)
{
    auto* const button = control(windowName, name);
    if (!button->isEnabled())
        giveUp(QLatin1StringView(name) + u" is not enabled"_s);
    click(button, button->rect().center());
}

/// Closes a window and waits until it is gone.
void shut(const char* name)
{
    window(name)->close();
    if (!QTest::qWaitFor([name] { return !isOpen(name); }, 2000))
        giveUp(QLatin1StringView(name) + u" does not close"_s);
    QTest::qWait(20);
}

void choose(const char* windowName, const char* action)
{
    control<QAction>(windowName, action)->trigger();
}

/// What is typed into the message and input boxes that come next, before Enter.
QStringList answers;

/// Answers boxes as the tutorial says; one that it does not speak of ends the walk.
void watchForBoxes()
{
    auto* const timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [] {
        QWidget* const box = QApplication::activeModalWidget();
        if (box == nullptr)
            return;
        if (answers.isEmpty()) {
            const auto* const message = qobject_cast<QMessageBox*>(box);
            giveUp(u"a box comes up: "_s + (message != nullptr ? message->text() : box->windowTitle()));
        }
        const QString answer = answers.takeFirst();
        auto* const line = box->findChild<QLineEdit*>();
        if (line != nullptr) {
            line->clear();
            QTest::keyClicks(line, answer);
        }
        QTest::keyClick(line != nullptr ? line : box, Qt::Key_Return);
    });
    timer->start(50);
}

class Tutorial
{
public:
    Tutorial(Workbench& workbench, const QString& document, QString pictures)
        : m_workbench(workbench)
        , m_pictures(std::move(pictures))
    {
        QFile file(document);
        if (!file.open(QIODevice::ReadOnly))
            giveUp(document);
        static const QRegularExpression fence(u"```zbl\n(.*?)```"_s,
                                              QRegularExpression::DotMatchesEverythingOption);
        for (auto match = fence.globalMatch(QString::fromUtf8(file.readAll())); match.hasNext();)
            m_programs.append(match.next().captured(1));
        if (m_programs.size() != 4)
            giveUp(u"it has not four programs"_s);
    }

    void walk()
    {
        createAndPick();
        nameIt();
        paint(u"hero"_s, &Tutorial::drawHero);
        paint(u"star"_s, &Tutorial::drawStar);
        firstProgram();
        secondProgram();
        buildWalls();
        wholeGame();
        spy();
        paint(u"thief"_s, &Tutorial::drawThief);
        playWithMistakes();
        seeWhereItWent();
        askWhoCounts();
        askWhyNothingHappened();
        mendAll();
    }

private:
    void shoot(QWidget* widget, const char* name)
    {
        QTest::qWait(150);
        if (!m_pictures.isEmpty() &&
            !widget->grab().save(m_pictures + u'/' + QLatin1StringView(name) + u".png"_s))
            giveUp(u"the picture could not be saved"_s);
    }

    void createAndPick()
    {
        m_workbench.showLibrary();
        shoot(window("ZorbinoMain"), "library");
        answers = {QString()};
        click("ZorbinoMain", "CreateButton");
        pick();
        shoot(window("ZorbinoMain"), "picked");
        click("ZorbinoMain", "Work");
        window("GameEditor");
        shoot(window("GameEditor"), "game-editor");
    }

    /// Clicks on the tile of the game that was made, which is the first of the user's own.
    void pick()
    {
        const auto games = ListGames(m_workbench.installation());
        const auto mine = std::find_if(games.begin(), games.end(), [](const GameRecord& game) {
            return game.folder.starts_with("00000007");
        });
        if (mine == games.end())
            giveUp(u"the new game has another number than 7"_s);
        auto* const bar = control<QScrollBar>("ZorbinoMain", "scrollbar");
        const int index = static_cast<int>(mine - games.begin()) + 1;
        bar->setValue(std::max(1, index - 3));
        auto* const tray = control("ZorbinoMain", "GameTray");
        click(tray, QPoint(tray->width() / 5 * (index - bar->value()) + 40, 50));
    }

    void nameIt()
    {
        click("GameEditor", "PropWindowButton");
        auto* const title = control<QLineEdit>("Properties", "title");
        title->selectAll();
        QTest::keyClicks(title, u"Star Garden"_s);
        auto* const author = control<QLineEdit>("Properties", "Author");
        author->selectAll();
        QTest::keyClicks(author, u"Mia"_s);
        click("Properties", "IconSelector_0");
        shoot(window("Properties"), "properties");
        click("Properties", "Command1");
        if (window("GameEditor")->windowTitle() != u"Star Garden"_s)
            giveUp(u"the title does not follow"_s);
    }

    // The sprite editor. Points are in pixels of the frame.

    QPoint onFrame(QPointF point)
    {
        const QWidget* const frame = control("SpriteEditor", "CurrentFrame");
        return {static_cast<int>(point.x() * frame->width() / frameSide),
                static_cast<int>(point.y() * frame->height() / frameSide)};
    }

    void color(QRgb wanted)
    {
        auto* const palette = control("SpriteEditor", "Palettep");
        const QImage picture = palette->grab().toImage().convertToFormat(QImage::Format_RGB32);
        constexpr int cell = 28;
        QPoint best;
        int least = INT_MAX;
        for (int y = cell / 2; y < picture.height(); y += cell) {
            for (int x = cell / 2; x < picture.width(); x += cell) {
                const QRgb there = picture.pixel(x, y);
                const int distance = std::abs(qRed(there) - qRed(wanted)) +
                                     std::abs(qGreen(there) - qGreen(wanted)) +
                                     std::abs(qBlue(there) - qBlue(wanted));
                if (distance < least) {
                    least = distance;
                    best = QPoint(x, y);
                }
            }
        }
        click(palette, best);
    }

    void stroke(const QList<QPointF>& points)
    {
        choose("SpriteEditor", "PencilTool");
        auto* const frame = control("SpriteEditor", "CurrentFrame");
        QTest::mousePress(frame, Qt::LeftButton, Qt::NoModifier, onFrame(points.first()));
        for (const QPointF& point : points) {
            QMouseEvent move(QEvent::MouseMove, onFrame(point), frame->mapToGlobal(onFrame(point)),
                             Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(frame, &move);
        }
        QTest::mouseRelease(frame, Qt::LeftButton, Qt::NoModifier, onFrame(points.last()));
    }

    void fill(QPointF point)
    {
        choose("SpriteEditor", "FillTool");
        click(control("SpriteEditor", "CurrentFrame"), onFrame(point));
    }

    /// A closed line with `corners` corners; every second one is nearer to the middle by `dent`.
    static QList<QPointF> ring(QPointF middle, double radius, int corners, double dent = 1)
    {
        QList<QPointF> points;
        for (int corner = 0; corner <= corners; ++corner) {
            const double angle = 2 * std::numbers::pi * corner / corners - std::numbers::pi / 2;
            const double reach = corner % 2 == 0 ? radius : radius * dent;
            points.append(middle + QPointF(std::cos(angle), std::sin(angle)) * reach);
        }
        return points;
    }

    void blob(QRgb rgb, QPointF middle, double radius)
    {
        color(rgb);
        stroke(ring(middle, radius, 32));
        fill(middle);
    }

    void drawHero()
    {
        blob(0x009A20, {16.5, 16.5}, 13);
        blob(0xFFFFFF, {12, 13}, 3.2);
        blob(0xFFFFFF, {21, 13}, 3.2);
        color(0x000000);
        stroke({{12.5, 13.5}, {13.5, 14.5}});
        stroke({{20.5, 13.5}, {21.5, 14.5}});
        color(0xFF0000);
        stroke({{10.5, 20.5}, {13.5, 23.5}, {16.5, 24.5}, {19.5, 23.5}, {22.5, 20.5}});
        shoot(window("SpriteEditor"), "sprite-editor");
    }

    void drawStar()
    {
        color(0xFFFF00);
        stroke(ring({16.5, 17}, 14, 10, 0.45));
        fill({16, 16});
    }

    void drawThief()
    {
        blob(0x404040, {16.5, 16.5}, 13);
        blob(0xFFFFFF, {12, 13}, 3.2);
        blob(0xFFFFFF, {21, 13}, 3.2);
    }

    void paint(const QString& name, void (Tutorial::*draw)())
    {
        click("GameEditor", "ResWindowButton");
        click("Resources", "NewSprite");
        QTest::qWait(100);
        (this->*draw)();
        answers = {name};
        choose("SpriteEditor", "SaveSprite");
        shut("SpriteEditor");
        shut("Resources");
        const auto& installation = m_workbench.installation();
        const std::string file = "games\\00000007\\" + name.toStdString();
        if (!installation.isFile(file + ".spr") || !installation.isFile(file + ".spb"))
            giveUp(u"the sprite was not saved: "_s + name);
    }

    // The programs.

    void type(const QString& program)
    {
        if (!isOpen("CodeEditor"))
            click("GameEditor", "CodeWindowButton");
        auto* const code = control<QPlainTextEdit>("CodeEditor", "CodeView");
        QGuiApplication::clipboard()->setText(program);
        code->selectAll();
        code->paste();
        choose("CodeEditor", "SaveMnu");
    }

    void play()
    {
        click("GameEditor", "PlayButton");
        window("GameWindow");
        window("GameWindow")->activateWindow();
    }

    void hold(Qt::Key key, int milliseconds)
    {
        auto* const display = control("GameWindow", "Display");
        QTest::keyPress(display, key);
        QTest::qWait(milliseconds);
        QTest::keyRelease(display, key);
    }

    void stop()
    {
        click("GameEditor", "StopButton");
        QTest::qWait(300);
        if (isOpen("GameWindow"))
            giveUp(u"the game does not stop"_s);
    }

    void firstProgram()
    {
        type(m_programs[0]);
        auto* const code = control<QPlainTextEdit>("CodeEditor", "CodeView");
        QTextCursor cursor = code->document()->find(u"moveright"_s);
        cursor.clearSelection();
        code->setTextCursor(cursor);
        code->centerCursor();
        QTest::keyClick(code, Qt::Key_Right);
        shoot(window("CodeEditor"), "code-editor");
        play();
        hold(Qt::Key_Left, 400);
        hold(Qt::Key_Up, 300);
        shoot(window("GameWindow"), "hero");
        stop();

        type(QString(m_programs[0]).replace(u"movedown"_s, u"movdown"_s));
        click("GameEditor", "PlayButton");
        shoot(window("ParseError"), "parse-error");
    }

    void secondProgram()
    {
        type(m_programs[1]);
        play();
        if (isOpen("ParseError"))
            giveUp(u"the second program is not understood"_s);
        hold(Qt::Key_Right, 400);
        stop();
    }

    void buildWalls()
    {
        shut("GameEditor");
        click("ZorbinoMain", "LaunchMapEditor");
        auto* const sizes = control<QComboBox>("MapEditor", "MapSizeBox");
        sizes->setCurrentText(u"10 x 10"_s);
        if (sizes->currentText() != u"10 x 10"_s)
            giveUp(u"there is no size 10 x 10"_s);
        click("MapEditor", "CreateNewMap");
        for (const auto& [from, to] : {std::pair{QPoint(0, 0), QPoint(9, 0)},
                                       {QPoint(9, 0), QPoint(9, 9)},
                                       {QPoint(9, 9), QPoint(0, 9)},
                                       {QPoint(0, 9), QPoint(0, 0)},
                                       {QPoint(2, 3), QPoint(2, 6)},
                                       {QPoint(6, 6), QPoint(7, 6)}})
            wall(from, to);
        auto* const legend = control<QLineEdit>("MapEditor", "LegendText_0");
        QTest::keyClicks(legend, u"wall"_s);
        shoot(window("MapEditor"), "map-editor");
        // First the name, then the message that it was saved.
        answers = {u"00000007\\walls"_s, QString()};
        choose("MapEditor", "FileSave");
        shut("MapEditor");
        if (!m_workbench.installation().isFile("games\\00000007\\walls"))
            giveUp(u"the map was not saved"_s);
        pick();
        click("ZorbinoMain", "Work");
    }

    void wall(QPoint from, QPoint to)
    {
        auto* const display = control("MapEditor", "Display");
        const auto middle = [display](QPoint square) {
            return QPoint((2 * square.x() + 1) * display->width() / (2 * mapSide),
                          (2 * square.y() + 1) * display->height() / (2 * mapSide));
        };
        QTest::mousePress(display, Qt::LeftButton, Qt::NoModifier, middle(from));
        QMouseEvent move(QEvent::MouseMove, middle(to), display->mapToGlobal(middle(to)), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(display, &move);
        QTest::mouseRelease(display, Qt::LeftButton, Qt::NoModifier, middle(to));
    }

    void wholeGame()
    {
        type(m_programs[2]);
        auto* const showMap = control<QCheckBox>("GameEditor", "OptionShowMap");
        if (!showMap->isChecked())
            click(showMap, QPoint(10, showMap->height() / 2));
        play();
        if (isOpen("ParseError"))
            giveUp(u"the whole program is not understood"_s);
        // Up and to the right stands the first star; then against the wall at the right.
        hold(Qt::Key_Up, 850);
        hold(Qt::Key_Right, 850);
        shoot(window("GameWindow"), "finished");
        hold(Qt::Key_Right, 2500);
        stop();
    }

    void spy()
    {
        click("GameEditor", "SpyWindowButton");
        for (const char* box : {"ShowFrameDivisions", "ShowEvents", "ShowEveryLineOfCode"}) {
            auto* const tick = control<QCheckBox>("SpyWindow", box);
            click(tick, QPoint(10, tick->height() / 2));
        }
        play();
        QTest::qWait(500);
        // A paused statement waits inside the frame, and so inside our own waiting: the rest goes by the
        // clock.
        QTimer::singleShot(100, qApp, [] { click("GameEditor", "PauseButton"); });
        for (const int when : {400, 600, 800})
            QTimer::singleShot(when, qApp, [] { click("GameEditor", "StepButton"); });
        QTimer::singleShot(1000, qApp, [this] {
            shoot(window("SpyWindow"), "spy");
            click("GameEditor", "StopButton");
        });
        QTest::qWait(2500);
        if (isOpen("GameWindow"))
            giveUp(u"the paused game does not stop"_s);
    }

    // The three mistakes.

    /// Where the green of the hero is on the picture of the game.
    static QPointF hero()
    {
        const QImage picture =
            control("GameWindow", "Display")->grab().toImage().convertToFormat(QImage::Format_RGB32);
        QPointF sum;
        int count = 0;
        for (int y = 0; y < picture.height(); y += 2) {
            for (int x = 0; x < picture.width(); x += 2) {
                const QRgb there = picture.pixel(x, y);
                if (qGreen(there) > qRed(there) + 60 && qGreen(there) > qBlue(there) + 60) {
                    sum += QPointF(x, y);
                    ++count;
                }
            }
        }
        return count > 0 ? sum / count : QPointF();
    }

    template<typename Condition> void holdUntil(Qt::Key key, Condition isThere)
    {
        auto* const display = control("GameWindow", "Display");
        QTest::keyPress(display, key);
        if (!QTest::qWaitFor(isThere, 8000))
            giveUp(u"the hero does not get there"_s);
        QTest::keyRelease(display, key);
        QTest::qWait(100);
    }

    void playWithMistakes()
    {
        type(m_programs[3]);
        play();
        QTest::qWait(5000);
        // The star is 120 pixels above the middle and as far to the right.
        holdUntil(Qt::Key_Up, [] { return hero().y() <= 126; });
        holdUntil(Qt::Key_Right, [] { return hero().x() >= 370; });
        stop();
        click("GameEditor", "TimeButton");
        auto* const questions = control<QComboBox>("TimeWindow", "Questions");
        goTo(80);
        if (!QTest::qWaitFor([questions] { return questions->count() > 1; }, 5000))
            giveUp(u"there are no questions"_s);
    }

    static void goTo(int frame)
    {
        auto* const text = control<QLabel>("TimeWindow", "MomentText");
        control<QSlider>("TimeWindow", "Moments")->setValue(frame);
        if (!QTest::qWaitFor([&] { return text->text().startsWith(u"After frame %1 of"_s.arg(frame)); },
                             2000))
            giveUp(u"the slider leads to: "_s + text->text());
    }

    /// The row of a list of the Time window that says something like that.
    static QModelIndex row(const char* list, const QString& pattern)
    {
        auto* const view = control<QListView>("TimeWindow", list);
        QStringList texts;
        for (int i = 0; i < view->model()->rowCount(); ++i) {
            const QModelIndex index = view->model()->index(i, 0);
            texts.append(index.data().toString());
            if (QRegularExpression(QRegularExpression::anchoredPattern(pattern))
                    .match(texts.back())
                    .hasMatch())
                return index;
        }
        giveUp(u"nothing says \"%1\" in:\n"_s.arg(pattern) + texts.join(u'\n'));
    }

    static void clickRow(const char* list, const QString& pattern)
    {
        auto* const view = control<QListView>("TimeWindow", list);
        const QModelIndex index = row(list, pattern);
        view->scrollTo(index);
        click(view->viewport(), view->visualRect(index).center());
    }

    static void clickPage(int page)
    {
        auto* const bar = control<QTabWidget>("TimeWindow", "Pages")->tabBar();
        click(bar, bar->tabRect(page).center());
    }

    void seeWhereItWent()
    {
        shoot(window("TimeWindow"), "time");
        click("GameEditor", "CodeWindowButton");
        click(control("GameWindow", "Display"), QPoint(456, 240)); // where the thief is after 80 frames
        clickRow("Card", u"Moved last in frame 80 by line 32"_s);
        const QString moment = control<QLabel>("TimeWindow", "MomentText")->text();
        if (!moment.endsWith(u"before line 32"_s))
            giveUp(u"the sentence leads to: "_s + moment);
    }

    void askWhoCounts()
    {
        clickPage(0);
        auto* const questions = control<QComboBox>("TimeWindow", "Questions");
        questions->setCurrentText(u"When did counter$stars change?"_s);
        row("Answers", u"Frame 1, line 44: counter\\$stars became 0"_s);
        row("Answers", u"Frame \\d+, line 20: counter\\$stars went from 0 to 1"_s);
        clickRow("Answers", u"Frame \\d+, line 44: counter\\$stars went from 1 to 0"_s);
        shoot(window("TimeWindow"), "time-questions");
    }

    void askWhyNothingHappened()
    {
        goTo(35); // the thief is where the hero is
        click(control("GameWindow", "Display"), QPoint(240, 240));
        row("Card", u"It touches a thief now."_s);
        row("Card", u"Class hero has a COLLISION block, which did not run in this frame."_s);
        auto* const card = control<QListView>("TimeWindow", "Card");
        card->scrollTo(row("Card", u"Touches are only looked for when a sprite moves, and it did not move in "
                                   u"this frame."_s));
        card->horizontalScrollBar()->setValue(0);
        shoot(window("TimeWindow"), "time-why");
    }

    void mendAll()
    {
        QString mended = m_programs[3];
        mended.replace(u"        move me\n"_s, u"        rebound me game\n        move me\n"_s);
        mended.remove(u"        set counter$stars 0\n"_s);
        mended.replace(u"        create star"_s, u"        set counter$stars 0\n        create star"_s);
        mended.replace(u"    }thief"_s,
                       u"COLLISION{\nif it.class = hero {\nsetstate lost\n}if\n}COLLISION\n}thief"_s);
        type(mended);
        play();
        auto* const state = control<QLabel>("SpyWindow", "ShowState");
        if (!QTest::qWaitFor([state] { return state->text().contains(u"lost"_s); }, 8000))
            giveUp(u"the thief is no danger"_s);
        stop();
    }

    Workbench& m_workbench;
    QString m_pictures;
    QStringList m_programs;
};

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    forms::setUpApplication();
    const QStringList words = QApplication::arguments();
    if (words.size() < 2)
        giveUp(u"it is not named"_s);
    watchForBoxes();
    Workbench workbench(std::filesystem::current_path());
    Tutorial(workbench, words[1], words.value(2)).walk();
    std::puts("The tutorial can be followed.");
    std::fflush(stdout);
    std::_Exit(0);
}
