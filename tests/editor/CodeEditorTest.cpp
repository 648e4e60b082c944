// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

// The code editor, driven with real keys and clicks.
#include "editor/CodeEditor.h"
#include "support/Dialogs.h"
#include "support/FullDisk.h"
#include "support/PretendDesk.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPointer>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <set>

namespace
{

class CodeEditorTest : public testing::Test
{
protected:
    ScratchFolder installation;
    PretendDesk desk{installation.path()};
    std::unique_ptr<CodeEditor> editor = std::make_unique<CodeEditor>(desk, desk.module().CurrentGame);
    CodeView* view = editor->findChild<CodeView*>(QStringLiteral("CodeView"));

    static constexpr auto path = "games\\00000001\\code.txt";
    static constexpr auto file = "games/00000001/code.txt";

    void load(const std::string& text)
    {
        installation.write(file, text);
        ASSERT_TRUE(editor->LoadFile(QLatin1String(path)));
        ASSERT_TRUE(QTest::qWaitForWindowActive(editor.get()));
    }
    template<typename Widget> Widget* find(const char* name)
    {
        auto* found = editor->findChild<Widget*>(QLatin1String(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
    std::string label(const char* name) { return find<QLabel>(name)->text().toStdString(); }
    std::string title() { return editor->windowTitle().toStdString(); }
    void click(const char* name) { QTest::mouseClick(find<QAbstractButton>(name), Qt::LeftButton); }
    void choose(const char* name) { find<QAction>(name)->trigger(); }

    /// How many buttons show their caption; each is seen whole and says what it does.
    std::size_t captionsShown()
    {
        std::size_t shown = 0;
        for (const char* bar : {"Toolbar1", "Toolbar2"}) {
            for (const auto* button : find<QWidget>(bar)->findChildren<QToolButton*>()) {
                shown += button->toolButtonStyle() == Qt::ToolButtonIconOnly ? 0U : 1U;
                EXPECT_GE(button->width(), button->sizeHint().width());
                EXPECT_TRUE(button->parentWidget()->rect().contains(button->geometry()));
                EXPECT_FALSE(button->toolTip().isEmpty());
                EXPECT_FALSE(button->accessibleName().isEmpty());
                EXPECT_FALSE(button->shortcut().isEmpty());
            }
        }
        return shown;
    }

    /// The text with | where the cursor is.
    std::string now()
    {
        return view->document()->toPlainText().insert(view->textCursor().position(), u'|').toStdString();
    }
    /// Puts up a text with | where the cursor shall be, by the way of a file so that no snapshot is taken.
    void put(const char* textWithCursor)
    {
        QString text = QLatin1String(textWithCursor);
        const qsizetype cursor = text.indexOf(u'|');
        text.remove(cursor, 1);
        editor = std::make_unique<CodeEditor>(desk, desk.module().CurrentGame);
        view = editor->findChild<CodeView*>(QStringLiteral("CodeView"));
        load("");
        view->document()->setPlainText(text);
        QTextCursor place = view->textCursor();
        place.setPosition(static_cast<int>(cursor));
        view->setTextCursor(place);
        QTest::keyClick(view, Qt::Key_Shift); // on its way up the editor looks where the cursor is
    }
    /// Types characters and keys like <Enter>, <Ctrl+D>, <Shift+Tab> into what has the focus.
    void type(const char* keys)
    {
        static const std::map<QString, Qt::Key> names = {
            {QStringLiteral("Enter"), Qt::Key_Return},    {QStringLiteral("Tab"), Qt::Key_Tab},
            {QStringLiteral("Esc"), Qt::Key_Escape},      {QStringLiteral("Back"), Qt::Key_Backspace},
            {QStringLiteral("Left"), Qt::Key_Left},       {QStringLiteral("Right"), Qt::Key_Right},
            {QStringLiteral("Home"), Qt::Key_Home},       {QStringLiteral("End"), Qt::Key_End},
            {QStringLiteral("Backtab"), Qt::Key_Backtab},
        };
        const QString script = QLatin1String(keys);
        for (qsizetype i = 0; i < script.size(); ++i) {
            QWidget* target = editor->focusWidget();
            if (script[i] != u'<') {
                QTest::keyClick(target, script[i].toLatin1());
                continue;
            }
            const qsizetype end = script.indexOf(u'>', i);
            QString name = script.mid(i + 1, end - i - 1);
            Qt::KeyboardModifiers modifiers;
            if (name.startsWith(QLatin1String("Ctrl+")))
                modifiers |= Qt::ControlModifier;
            if (name.startsWith(QLatin1String("Shift+")))
                modifiers |= Qt::ShiftModifier;
            name = name.section(u'+', -1);
            const Qt::Key key = name.size() == 1 ? static_cast<Qt::Key>(name[0].unicode()) : names.at(name);
            QTest::keyClick(target, key, modifiers);
            i = end;
        }
    }
    void dropAt(QPoint place, const QMimeData& data, Qt::DropAction action)
    {
        QDragEnterEvent enter(place, action, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(view->viewport(), &enter);
        QDropEvent drop(place, action, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(view->viewport(), &drop);
    }
    void expectKeys(const char* before, const char* keys, const char* after, int line)
    {
        SCOPED_TRACE(testing::Message() << "line " << line << ": " << keys);
        put(before);
        type(keys);
        EXPECT_EQ(now(), after);
    }
    /// The text of the message box that comes up; Escape closes it.
    static std::string boxDuring(const std::function<void()>& deed, const QString& answer = {})
    {
        const Dialogs dialogs({answer});
        deed();
        return dialogs.onlyText();
    }
};

#define EXPECT_KEYS(before, keys, after) expectKeys(before, keys, after, __LINE__)

} // namespace

TEST_F(CodeEditorTest, EnterAndTabIndent)
{
    EXPECT_KEYS("loop{|\n}loop", "<Enter>move me", "loop{\n  move me|\n}loop");
    EXPECT_KEYS("a{\n  b|c\n}", "<Enter>", "a{\n  b\n  |c\n}");
    EXPECT_KEYS("a{\n  b|c\n}", "<Shift+Enter>", "a{\n  b\n  |c\n}");
    EXPECT_KEYS("a{\nbc  |d  \n}", "<Tab>", "a{\n  |bc  d\n}");
    EXPECT_KEYS("a{\n      bc|d\n}", "<Backtab>", "a{\n  |bcd\n}");
    EXPECT_KEYS("a{\n|\n}", "<Tab>", "a{\n  |\n}");
    EXPECT_KEYS("a{\n  if b {\n  |}if\n}a", "<Tab>", "a{\n  if b {\n  |}if\n}a");
    EXPECT_KEYS("a{\n|bc\n}", "<Ctrl+Tab>", "a{\n|bc\n}");
    EXPECT_KEYS("|  ab\n", "<Tab>", "|  ab\n");   // the start of the text
    EXPECT_KEYS("a{\n bc|", "<Tab>", "a{\n bc|"); // and its end are left alone
    EXPECT_KEYS("a{|", "<Enter>b", "a{\nb|");
}

TEST_F(CodeEditorTest, EmacsKeysComeBeforeTheToolkitsOwn)
{
    EXPECT_KEYS("abc\nde|f\nghi", "<Ctrl+P>", "ab|c\ndef\nghi");
    EXPECT_KEYS("abc\ndef|\ngh\ni", "<Ctrl+N>", "abc\ndef\ngh|\ni");
    EXPECT_KEYS("a|bc\ndef", "<Ctrl+P>", "a|bc\ndef");
    EXPECT_KEYS("abc\nd|ef", "<Ctrl+N>", "abc\ndef|");
    EXPECT_KEYS("abc\nde|f", "<Ctrl+A>x", "abc\nx|def");
    EXPECT_KEYS("ab|c\ndef", "<Ctrl+E>", "abc|\ndef");
    EXPECT_KEYS("abc\nd|ef", "<Ctrl+E>", "abc\ndef|");
    EXPECT_KEYS("abc\nd|ef", "<Ctrl+B><Ctrl+B>", "abc\n|def");
    EXPECT_KEYS("ab|c\ndef", "<Ctrl+F><Ctrl+F>", "abc\n|def");
    EXPECT_KEYS("ab|\ncd", "<Ctrl+D>", "ab|cd");
    EXPECT_KEYS("a|bc", "<Ctrl+D><Ctrl+D><Ctrl+D>", "a|");
    EXPECT_KEYS("ab|cd\nef", "<Ctrl+K>", "ab|cd\nef"); // has no action, and must not cut for the toolkit
}

TEST_F(CodeEditorTest, ACharacterOfTwoUnitsIsStruckAndSteppedOverAsOne)
{
    load("");
    view->document()->setPlainText(QString::fromUtf8("a\xf0\x9f\x90\x9f"
                                                     "b"));
    editor->SetCursorPos(1, 1, false);
    const struct {
        const char* keys;
        int position;
    } rows[] = {{"<Ctrl+F>", 1}, {"<Ctrl+F>", 3}, {"<Ctrl+B>", 1}};
    for (const auto& row : rows) {
        type(row.keys);
        EXPECT_EQ(view->textCursor().position(), row.position) << row.keys;
    }
    type("<Ctrl+D>");
    EXPECT_EQ(now(), "a|b");
}

TEST_F(CodeEditorTest, EveryKeyIsUndoneOneByOne)
{
    load("ab\r\n");
    const QAbstractButton* undo = find<QAbstractButton>("UndoButton");
    EXPECT_FALSE(undo->isEnabled());
    type("xy");
    EXPECT_TRUE(undo->isEnabled());
    type("<Ctrl+Z>");
    EXPECT_EQ(now(), "xa|b\n") << "the cursor stays at its line and column";
    click("UndoButton");
    EXPECT_EQ(now(), "ab|\n");
    EXPECT_FALSE(undo->isEnabled());
    choose("UndoMnu");
    EXPECT_EQ(now(), "ab|\n");
    EXPECT_EQ(title(), "code.txt*") << "undo takes nothing of the mark back";

    for (int i = 0; i < 40; ++i)
        type("z");
    for (int i = 0; i < 31; ++i)
        type("<Ctrl+Z>");
    EXPECT_EQ(view->document()->toPlainText().count(u'z'), 9);
    EXPECT_FALSE(undo->isEnabled());
    type("<Ctrl+Z>");
    EXPECT_EQ(view->document()->toPlainText().count(u'z'), 9);
}

TEST_F(CodeEditorTest, WhatTheMouseChangesCanBeUndone)
{
    load("one\r\ntwo\r\n");
    QMimeData tabs;
    tabs.setText(QStringLiteral("\tx\r\ny\t"));
    dropAt(QPoint(0, 4), tabs, Qt::CopyAction);
    EXPECT_EQ(editor->text(), "  x\r\ny  one\r\ntwo\r\n");
    EXPECT_EQ(title(), "code.txt*");
    EXPECT_EQ(label("ShowHelp"), "") << "y is no statement";
    click("UndoButton");
    EXPECT_EQ(editor->text(), "one\r\ntwo\r\n");

    view->selectAll();
    view->cut(); // nobody announces this one
    EXPECT_EQ(editor->text(), "");
    click("UndoButton");
    EXPECT_EQ(editor->text(), "one\r\ntwo\r\n");

    choose("DeleteMnu");
    click("UndoButton");
    EXPECT_EQ(editor->text(), "one\r\ntwo\r\n");
}

TEST_F(CodeEditorTest, CopyAndPasteKeepTheText)
{
    put("ab\nc|d");
    view->selectAll();
    choose("CopyMnu");
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), "ab\ncd");
    QApplication::clipboard()->setText(QStringLiteral("1\t2"));
    choose("PasteMnu");
    EXPECT_EQ(now(), "1  2|");
    type("<Ctrl+Z>");
    EXPECT_EQ(editor->text(), "ab\r\ncd");
}

TEST_F(CodeEditorTest, ShowsWhereTheCursorIsAndWhatItsLineMeans)
{
    load("program{\r\n  moveleft me 3\r\n\r\n  if {\r\n  nothing\r\n");
    EXPECT_EQ(label("ShowCursorPos"), "L:1, C:1");
    EXPECT_EQ(label("ShowHelp"), "Welcome to the Zorbino Code Editor!");
    const struct {
        int line, column;
        const char* position;
        const char* help;
    } rows[] = {
        {2, 4, "L:2, C:4", "MOVELEFT <object> <amount>"},
        {3, 1, "L:3, C:1", "MOVELEFT <object> <amount>"}, // an empty line changes nothing
        {4, 99, "L:4, C:7", "IF <A> <op> <B> { ... }ELSE{ ... }IF"},
        {5, 1, "L:5, C:1", ""},
    };
    for (const auto& row : rows) {
        editor->SetCursorPos(row.line, row.column, false);
        QTest::keyRelease(view, Qt::Key_Control);
        EXPECT_EQ(label("ShowCursorPos"), row.position);
        EXPECT_EQ(label("ShowHelp"), row.help);
    }
    editor->SetCursorPos(2, 1, false);
    QTest::keyPress(view, Qt::Key_Return); // and held on
    EXPECT_EQ(label("ShowCursorPos"), "L:3, C:3");
    editor->SetCursorPos(0, 7, false);
    EXPECT_EQ(label("ShowCursorPos"), "L:0, C:7") << "what was asked for, until the next look";
}

TEST_F(CodeEditorTest, GoesToATypedLine)
{
    load("aa\r\nbb\r\ncc\r\ndd\r\n");
    const struct {
        const char* keys;
        const char* after;
    } rows[] = {
        {"<Ctrl+1>3<Enter>", "aa\nbb\n|cc\ndd\n"},   {"<Ctrl+1>abc<Enter>", "|aa\nbb\ncc\ndd\n"},
        {"<Ctrl+1>1.7<Enter>", "aa\n|bb\ncc\ndd\n"}, {"<Ctrl+1><Enter>", "|aa\nbb\ncc\ndd\n"},
        {"<Ctrl+1>99<Enter>", "aa\nbb\ncc\ndd\n|"},  {"<Ctrl+1>2<Esc>", "aa\nbb\ncc\ndd\n|"},
        {"<Ctrl+!>2<Enter>", "aa\n|bb\ncc\ndd\n"}, // the same key where digits need Shift
    };
    for (const auto& row : rows) {
        type(row.keys);
        EXPECT_EQ(now(), row.after) << row.keys;
        EXPECT_FALSE(find<QLineEdit>("Minibuffer")->isVisible());
        EXPECT_TRUE(view->hasFocus());
    }
    click("Gotolinebutton");
    EXPECT_EQ(label("ShowStatus"), "Goto Line:");
    EXPECT_FALSE(find<QWidget>("Toolbar1")->isVisible());
    EXPECT_FALSE(find<QWidget>("Toolbar2")->isVisible());
    EXPECT_EQ(find<QLineEdit>("Minibuffer")->pos(), QPoint(88, 2));
    type("<Esc>");
    EXPECT_TRUE(find<QWidget>("Toolbar1")->isVisible());
}

TEST_F(CodeEditorTest, SearchesFromMatchToMatch)
{
    load("move a\r\nmoveleft b\r\nMOVE c\r\n");
    const QLineEdit* prompt = find<QLineEdit>("Minibuffer");
    type("<Ctrl+S>");
    EXPECT_TRUE(prompt->isVisible());
    EXPECT_EQ(label("ShowStatus"), "Search For:" + std::string(100, ' ') + "(Ctrl-S to find next)");
    type("move<Enter>");
    EXPECT_EQ(now(), "move a\n|moveleft b\nMOVE c\n");
    EXPECT_TRUE(view->hasFocus());
    EXPECT_TRUE(prompt->isVisible());
    type("<Ctrl+S>");
    EXPECT_EQ(now(), "move a\nmoveleft b\n|MOVE c\n");
    choose("SearchMnu");
    EXPECT_EQ(now(), "|move a\nmoveleft b\nMOVE c\n");
    type("x");
    EXPECT_FALSE(prompt->isVisible());
    EXPECT_EQ(now(), "x|move a\nmoveleft b\nMOVE c\n");

    click("SearchButton");
    EXPECT_EQ(prompt->text(), QString());
    type("zebra");
    EXPECT_EQ(boxDuring([this] { type("<Enter>"); }), "Search string not found!");
    EXPECT_TRUE(prompt->isVisible());
    EXPECT_EQ(editor->focusWidget(), prompt);
    type("<Ctrl+Z>"); // edits the prompt, not the text
    EXPECT_EQ(now(), "x|move a\nmoveleft b\nMOVE c\n");
    EXPECT_EQ(boxDuring([this] { choose("FindAndReplace"); }), "Sorry, not implemented yet!");
}

TEST_F(CodeEditorTest, AKeyHeldSinceThePromptDoesNotTypeIntoTheText)
{
    load("aa\r\naa\r\n");
    type("<Ctrl+S>a");
    QTest::keyPress(QApplication::focusWidget(), Qt::Key_Return);
    ASSERT_TRUE(view->hasFocus());
    for (int i = 0; i < 5; ++i)
        QTest::simulateEvent(view, true, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"), true);
    // X11 lets a held key go up and down again at the same moment, not always marked as a repetition.
    for (const QEvent::Type eventType : {QEvent::KeyRelease, QEvent::KeyPress}) {
        QKeyEvent event(eventType, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
        event.setTimestamp(1234);
        QApplication::sendEvent(view, &event);
    }
    EXPECT_EQ(editor->text(), "aa\r\naa\r\n");
}

TEST_F(CodeEditorTest, ALongPressOpensThePromptAndSearchesForNothing)
{
    load("aa\r\naa\r\n");
    QTest::keyPress(view, Qt::Key_S, Qt::ControlModifier);
    const QLineEdit* prompt = find<QLineEdit>("Minibuffer");
    for (int i = 0; i < 5; ++i)
        QTest::simulateEvent(editor->focusWidget(), true, Qt::Key_S, Qt::ControlModifier, QString(), true);
    EXPECT_EQ(editor->focusWidget(), prompt);
    EXPECT_EQ(now(), "|aa\naa\n");
}

TEST_F(CodeEditorTest, LoadsIndentsAndSaves)
{
    load("PROGRAM{\nCLASSES{\n}CLASSES");
    EXPECT_EQ(editor->text(), "PROGRAM{\r\n  CLASSES{\r\n  }CLASSES\r\n");
    EXPECT_EQ(title(), "code.txt");
    EXPECT_FALSE(editor->isModified());
    EXPECT_FALSE(find<QAbstractButton>("UndoButton")->isEnabled());
    EXPECT_EQ(desk.calls.filter(QStringLiteral("LoadFile")).join(u'|').toStdString(),
              "Begin CodeEditor.LoadFile|CodeEditor.LoadFile: Opening games\\00000001\\code.txt|"
              "CodeEditor.LoadFile: loaded into CodeView|CodeEditor.LoadFile: done");
    type("; ");
    QTest::sendKeyEvent(QTest::Click, view, Qt::Key_Adiaeresis, QString(QChar(0xe4)), Qt::NoModifier);
    EXPECT_TRUE(editor->isModified());
    EXPECT_EQ(title(), "code.txt*");
    choose("SaveMnu");
    EXPECT_EQ(installation.read(file), "; \xc3\xa4PROGRAM{\r\n  CLASSES{\r\n  }CLASSES\r\n");
    EXPECT_FALSE(editor->isModified());
    EXPECT_EQ(title(), "code.txt");
    type("<Ctrl+Z>");
    EXPECT_TRUE(editor->isModified()) << "not what the file holds any more";
}

TEST_F(CodeEditorTest, ATextThatCannotBeSavedStays)
{
    load("a\r\n");
    type("b");
    const auto expectRefusal = [this] {
        const std::string message = boxDuring([this] { choose("SaveMnu"); });
        EXPECT_NE(message.find("not saved"), std::string::npos) << message;
        EXPECT_TRUE(editor->isModified());
        EXPECT_EQ(title(), "code.txt*");
        EXPECT_EQ(editor->text(), "ba\r\n");
    };
    {
        const FullDisk full;
        expectRefusal();
    }
    EXPECT_EQ(installation.read(file), "a\r\n");
    installation.remove("games/00000001");
    expectRefusal();
    installation.makeFolder("games/00000001");
    choose("SaveMnu");
    EXPECT_EQ(installation.read(file), "ba\r\n");
}

TEST_F(CodeEditorTest, WhatSomebodyElseHasSavedIsNotReplacedWithoutAQuestion)
{
    load("a\r\n");
    type("b");
    installation.write(file, "other\r\n");
    const auto save = [this](const QString& answer) {
        bool isSaved = false;
        const std::string box = boxDuring([&] { isSaved = editor->saveFile(); }, answer);
        EXPECT_NE(box.find("code.txt was changed by somebody else"), std::string::npos) << box;
        return isSaved;
    };
    EXPECT_FALSE(save(QString()));
    EXPECT_EQ(installation.read(file), "other\r\n");
    EXPECT_TRUE(editor->isModified());
    EXPECT_EQ(editor->text(), "ba\r\n");
    EXPECT_TRUE(save(QStringLiteral("yes")));
    EXPECT_EQ(installation.read(file), "ba\r\n");

    type("c");
    EXPECT_TRUE(editor->saveFile()) << "its own file is nobody else's";
    installation.write(file, "x\r\n");
    load("x\r\n");
    type("d");
    EXPECT_TRUE(editor->saveFile()) << "read since it was changed";
    installation.remove(file);
    EXPECT_TRUE(editor->saveFile()) << "nothing is there to be lost";
}

TEST_F(CodeEditorTest, ATextMendedWhileItIsLoadedAsksNothing)
{
    const std::string strange = "\tif x\u00a0= 1 {\t\r\n";
    load(strange);
    EXPECT_EQ(editor->text(), "if x = 1 {\r\n");
    EXPECT_FALSE(editor->isModified());
    EXPECT_EQ(title(), "code.txt");
    EXPECT_EQ(installation.read(file), strange);
    EXPECT_TRUE(editor->saveFile());
    EXPECT_EQ(installation.read(file), "if x = 1 {\r\n");
}

TEST_F(CodeEditorTest, AFileThatCannotBeReadLeavesTheWindowHidden)
{
    installation.makeFolder("games/00000001");
    EXPECT_FALSE(editor->LoadFile(QLatin1String(path)));
    EXPECT_FALSE(editor->isVisible());
    editor->show();
    type("x");
    EXPECT_TRUE(editor->saveFile()) << "a missing file is made";
    EXPECT_EQ(installation.read(file), "x");

    // Made by somebody else meanwhile.
    installation.remove(file);
    EXPECT_FALSE(editor->LoadFile(QLatin1String(path)));
    installation.write(file, "other");
    EXPECT_NE(boxDuring([this] { EXPECT_FALSE(editor->saveFile()); }).find("somebody else"),
              std::string::npos);
    EXPECT_EQ(installation.read(file), "other");
}

TEST_F(CodeEditorTest, HugeAndStrangeFilesDoNotHang)
{
    load(std::string("a\0b\bc\x1b\t\r\n{", 10) + std::string(3, '}'));
    EXPECT_EQ(editor->text(), "abc\r\n{}}}\r\n");
    load(std::string(1 << 20, 'x'));
    type("y");
    EXPECT_EQ(editor->text().size(), (1U << 20U) + 3);
    std::string lines;
    for (int i = 0; i < 200'000; ++i)
        lines += "}\n";
    load(lines);
    type("y");
    EXPECT_EQ(view->document()->blockCount(), 200'001);
    installation.write(file, std::string(2'000'000, '\n'));
    EXPECT_FALSE(editor->LoadFile(QLatin1String(path))) << "no program has so many lines";
}

TEST_F(CodeEditorTest, AutoIndentCanBeUndoneAndKeepsTheLine)
{
    put("a{\nbb\ncc|c\n}a\n");
    click("AutoIndentButton");
    EXPECT_EQ(now(), "a{\n  bb\n  |ccc\n}a\n");
    EXPECT_EQ(label("ShowStatus"), "");
    EXPECT_TRUE(view->hasFocus());
    click("UndoButton");
    EXPECT_EQ(editor->text(), "a{\r\nbb\r\nccc\r\n}a\r\n");
}

TEST_F(CodeEditorTest, ClosingOnlyHidesUntilItIsMeant)
{
    load("a\r\n");
    type("x");
    EXPECT_FALSE(editor->close());
    EXPECT_FALSE(editor->isVisible());
    editor->showMinimized();
    editor->show();
    EXPECT_FALSE(editor->isMinimized());
    EXPECT_EQ(editor->text(), "xa\r\n");
    type("<Ctrl+Z>");
    EXPECT_EQ(editor->text(), "a\r\n");
    QPointer<CodeEditor> gone(editor.release());
    gone->closeForGood();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(gone.isNull());
}

TEST_F(CodeEditorTest, EveryItemIsThereAndTheIdleOnesCannotBeChosen)
{
    load("a\r\n");
    const struct {
        const char* name;
        const char* caption;
        const char* shortcut;
        bool isEnabled;
    } items[] = {
        {"OpenMnu", "Return to Checkp&oint...", "", false},
        {"SaveMnu", "&Save", "", true},
        {"SaveAsMnu", "S&ave Checkpoint...", "", false},
        {"PrintMnu", "&Print", "", true},
        {"UndoMnu", "&Undo", "Ctrl+Z", false},
        {"CopyMnu", "&Copy", "", true},
        {"PasteMnu", "&Paste", "", true},
        {"CutLineMnu", "&Cut Line", "Ctrl+K", false},
        {"SearchMnu", "&Search.../Find Next", "Ctrl+S", true},
        {"FindAndReplace", "&Find and Replace...", "Ctrl+R", true},
        {"GotoLineMnu", "&Goto Line...", "", false},
        {"UpMnu", "&Up", "Ctrl+P", true},
        {"DownMnu", "&Down", "Ctrl+N", true},
        {"LeftMnu", "&Left", "Ctrl+B", true},
        {"RightMnu", "&Right", "Ctrl+F", true},
        {"DeleteMnu", "&Delete", "Ctrl+D", true},
        {"HomeMnu", "&Beginning of Line", "Ctrl+A", true},
        {"EndMnu", "&End of Line", "Ctrl+E", true},
        {"FontMnu", "&Font...", "", false},
        {"LifeMnu", "Show How the Run &Went", "", true},
    };
    for (const auto& item : items) {
        const auto* action = find<QAction>(item.name);
        EXPECT_EQ(action->text().toStdString(), item.caption);
        EXPECT_EQ(action->shortcut().toString(QKeySequence::PortableText).toStdString(), item.shortcut);
        EXPECT_EQ(action->isEnabled(), item.isEnabled) << item.name;
    }
    const struct {
        const char* name;
        const char* tip;
    } buttons[] = {
        {"PrintButton", "Print"},
        {"FontButton", "Change Font"},
        {"UndoButton", "Undo (Ctrl-Z)"},
        {"SearchButton", "Search (Ctrl-S)"},
        {"AutoIndentButton", "Auto-indent"},
        {"Gotolinebutton", "Goto Line (Ctrl-1)"},
    };
    for (const auto& button : buttons) {
        EXPECT_EQ(find<QAbstractButton>(button.name)->toolTip().toStdString(), button.tip);
        EXPECT_FALSE(find<QAbstractButton>(button.name)->accessibleName().isEmpty());
    }
    EXPECT_EQ(find<QLabel>("ShowHelp")->toolTip().toStdString(),
              "Shows the format of the command you are using");
    const QWidget* bar = find<QWidget>("Toolbar1");
    EXPECT_EQ(bar->height(), find<QWidget>("helpBar")->height() + find<QWidget>("Toolbar2")->height() + 2);
    EXPECT_EQ(view->mapTo(editor->centralWidget(), QPoint()), QPoint(0, bar->height()));
}

TEST_F(CodeEditorTest, ItsButtonsGiveUpTheirCaptionsWhereThereIsNoRoom)
{
    const QFont usual = QApplication::font();
    for (const int points : {11, 17}) {
        QFont font = usual;
        font.setPointSize(points);
        QApplication::setFont(font);
        editor = std::make_unique<CodeEditor>(desk, desk.module().CurrentGame);
        load("a\r\n");
        const int least = editor->minimumSizeHint().width();
        EXPECT_LT(least, 600);
        std::set<std::size_t> captioned{0};
        for (const int width : {least, 640, 683, 800, 1024, 1280, 1366, 1920}) {
            SCOPED_TRACE(testing::Message() << points << " points, " << width << " pixels");
            editor->resize(width, 500);
            QCoreApplication::processEvents(); // the bars lay themselves out
            EXPECT_EQ(editor->width(), width);
            const std::size_t now = captionsShown();
            EXPECT_GE(now, *captioned.rbegin()) << "fewer than in a smaller window";
            captioned.insert(now);
            EXPECT_LT(find<QWidget>("ShowCursorPos")->geometry().right(), width);
        }
        EXPECT_EQ(captioned, (std::set<std::size_t>{0, 2, 6})) << "none, those below their icons, all";
    }
    QApplication::setFont(usual);
}
