// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

// Thousands of keys in no order that anybody would think of, and a second editor that is as plain as can be:
// whole copies of the text for undo, places counted one by one.
#include "editor/CodeEditor.h"
#include "editor/PlainIndentation.h"
#include "support/Dialogs.h"
#include "support/PretendDesk.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>
#include <string_view>
#include <vector>

using namespace Qt::StringLiterals;

namespace
{

/// Text, cursor, undo and prompt after the rules, one key at a time.
class PlainEditor
{
public:
    static constexpr int steps = 31;

    QString text;
    qsizetype cursor = 0;
    QString prompt;
    enum { Closed, Line, Search } mode = Closed;
    bool inPrompt = false;
    int undoCount = 0;
    int messages = 0;

    QString position() const
    {
        const QString before = text.first(cursor);
        return u"L:%1, C:%2"_s.arg(before.count(u'\n') + 1).arg(cursor - before.lastIndexOf(u'\n'));
    }

    void key(const QString& name, const QString& clipboard)
    {
        inPrompt ? promptKey(name) : textKey(name, clipboard);
    }

private:
    qsizetype startOf(qsizetype p) const { return p == 0 ? 0 : text.lastIndexOf(u'\n', p - 1) + 1; }
    qsizetype endOf(qsizetype p) const
    {
        while (p < text.size() && text[p] != u'\n')
            ++p;
        return p;
    }

    void record()
    {
        if (text == m_ring.at(m_index))
            return;
        m_index = (m_index + 1) % steps;
        m_ring.at(m_index) = text;
        undoCount = std::min(undoCount + 1, steps);
    }
    void undo()
    {
        if (undoCount == 0)
            return;
        const qsizetype line = text.first(cursor).count(u'\n') + 1;
        const qsizetype column = cursor - startOf(cursor) + 1;
        text = m_ring.at(m_index);
        m_index = (m_index + steps - 1) % steps;
        --undoCount;
        go(line, column, false);
    }
    void go(qsizetype line, qsizetype column, bool wrap)
    {
        cursor = text.size();
        if (line > text.count(u'\n') + 1)
            return;
        qsizetype p = 0;
        for (qsizetype i = 1; i < line; ++i)
            p = endOf(p) + 1;
        for (qsizetype i = 1; i < column && p < text.size() && (wrap || text[p] != u'\n'); ++i)
            ++p;
        for (qsizetype i = column; wrap && i < 0 && p > 0; ++i)
            --p;
        cursor = p;
    }
    void put(const QString& what)
    {
        text.insert(cursor, what);
        cursor += what.size();
    }
    void indent()
    {
        QString lines = text;
        lines.replace(u"\n"_s, u"\r\n"_s);
        const qsizetype p = plainIndentLine(lines, cursor + text.first(cursor).count(u'\n'));
        cursor = p - lines.first(p).count(u'\n');
        text = lines.replace(u"\r\n"_s, u"\n"_s);
        close();
        record();
    }
    void close()
    {
        mode = Closed;
        inPrompt = false;
    }
    void open(decltype(Closed) what)
    {
        mode = what;
        inPrompt = true;
        prompt.clear();
    }
    void find()
    {
        qsizetype found =
            cursor + 1 > text.size() ? -1 : text.toLower().indexOf(prompt.toLower(), cursor + 1);
        if (found < 0)
            found = text.toLower().indexOf(prompt.toLower());
        if (found < 0) {
            ++messages;
            inPrompt = true;
            return;
        }
        cursor = found;
        inPrompt = false;
    }

    void promptKey(const QString& name)
    {
        if (name == u"Esc") {
            close();
        } else if (name == u"Back") {
            prompt.chop(1);
        } else if (name == u"Ctrl+S") {
            mode == Search ? find() : open(Search);
        } else if (name == u"Enter") {
            if (mode == Search)
                return find();
            bool isNumber = false;
            const int line = prompt.toInt(&isNumber);
            go(isNumber ? line : 1, 1, false);
            close();
        } else if (name.size() == 1) {
            prompt += name;
        }
    }

    void textKey(const QString& name, const QString& clipboard)
    {
        if (name == u"Ctrl+Z")
            return undo();
        record();
        const qsizetype line = text.first(cursor).count(u'\n') + 1;
        const qsizetype column = cursor - startOf(cursor) + 1;
        if (name.size() == 1) {
            close();
            put(name);
        } else if (name == u"Enter") {
            close();
            put(u"\n"_s);
            record();
            indent();
        } else if (name == u"Tab") {
            indent();
        } else if (name == u"Esc") {
            close();
        } else if (name == u"Back") {
            close();
            if (cursor > 0)
                text.remove(--cursor, 1);
        } else if (name == u"Del" || name == u"Ctrl+D") {
            text.remove(cursor, 1);
        } else if (name == u"Left") {
            cursor = std::max<qsizetype>(cursor - 1, 0);
        } else if (name == u"Right") {
            cursor = std::min(cursor + 1, text.size());
        } else if (name == u"Home") {
            cursor = startOf(cursor);
        } else if (name == u"End") {
            cursor = endOf(cursor);
        } else if (name == u"Ctrl+P") {
            go(line - 1, column, false);
        } else if (name == u"Ctrl+N") {
            go(line + 1, column, false);
        } else if (name == u"Ctrl+B") {
            go(line, column - 1, true);
        } else if (name == u"Ctrl+F") {
            go(line, column + 1, true);
        } else if (name == u"Ctrl+A") {
            go(line, 1, false);
        } else if (name == u"Ctrl+E") {
            go(line + 1, -1, true);
        } else if (name == u"Ctrl+V") {
            close(); // the key of a test has a text
            put(clipboard);
        } else if (name == u"Ctrl+S") {
            mode == Search ? find() : open(Search);
        } else if (name == u"Ctrl+1") {
            open(Line);
        }
    }

    std::array<QString, steps> m_ring;
    std::size_t m_index = 0;
};

/// The others edit a prompt as the toolkit pleases.
bool isForPrompt(const QString& name)
{
    return name.size() == 1 || QStringList{u"Enter"_s, u"Esc"_s, u"Back"_s, u"Ctrl+S"_s}.contains(name);
}

struct Key {
    QString name;
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    int weight;
};

std::vector<Key> allKeys()
{
    std::vector<Key> keys = {
        {u"Enter"_s, Qt::Key_Return, {}, 14}, {u"Tab"_s, Qt::Key_Tab, {}, 8},
        {u"Esc"_s, Qt::Key_Escape, {}, 4},    {u"Back"_s, Qt::Key_Backspace, {}, 8},
        {u"Del"_s, Qt::Key_Delete, {}, 4},    {u"Left"_s, Qt::Key_Left, {}, 5},
        {u"Right"_s, Qt::Key_Right, {}, 5},   {u"Home"_s, Qt::Key_Home, {}, 3},
        {u"End"_s, Qt::Key_End, {}, 5},
    };
    for (const char16_t c : std::u16string_view(u"ab{}; 123456"))
        keys.push_back({QString(c), static_cast<Qt::Key>(c), {}, c < u'a' && c != u' ' ? 3 : 8});
    for (const char16_t c : std::u16string_view(u"PNBFAEDVSZ1")) {
        keys.push_back({u"Ctrl+"_s + QChar(c), static_cast<Qt::Key>(c), Qt::ControlModifier,
                        c == u'Z'   ? 20
                        : c == u'V' ? 2
                                    : 5});
    }
    return keys;
}

class RandomKeysTest : public testing::TestWithParam<unsigned>
{
protected:
    ScratchFolder installation;
    PretendDesk desk{installation.path()};
    CodeEditor editor{desk, desk.module().CurrentGame};
    CodeView* view = editor.findChild<CodeView*>(u"CodeView"_s);
    QLineEdit* prompt = editor.findChild<QLineEdit*>(u"Minibuffer"_s);
    PlainEditor plain;

    void expectSame(const QString& keys)
    {
        const std::string after = keys.right(200).toStdString();
        ASSERT_EQ(view->document()->toPlainText().toStdString(), plain.text.toStdString()) << after;
        ASSERT_EQ(view->textCursor().position(), plain.cursor) << after;
        ASSERT_EQ(editor.findChild<QLabel*>(u"ShowCursorPos"_s)->text().toStdString(),
                  plain.position().toStdString())
            << after;
        ASSERT_EQ(editor.findChild<QAbstractButton*>(u"UndoButton"_s)->isEnabled(), plain.undoCount > 0)
            << after;
        ASSERT_EQ(prompt->isVisible(), plain.mode != PlainEditor::Closed) << after;
        ASSERT_EQ(editor.focusWidget() == prompt, plain.inPrompt) << after;
        ASSERT_EQ(prompt->text(), plain.prompt) << after;
    }
};

} // namespace

TEST_P(RandomKeysTest, DoWhatTheyDoInASecondEditor)
{
    const QString clipboard = u"if a {\nb\n}"_s;
    QApplication::clipboard()->setText(clipboard);
    installation.write("games/00000001/code.txt", "a{\r\nb\r\n}a\r\n");
    ASSERT_TRUE(editor.LoadFile(u"games\\00000001\\code.txt"_s));
    ASSERT_TRUE(QTest::qWaitForWindowActive(&editor));
    plain.text = u"a{\n  b\n}a\n"_s;

    const std::vector<Key> keys = allKeys();
    std::vector<int> weights;
    for (const Key& key : keys)
        weights.push_back(key.weight);
    std::mt19937 chance(GetParam());
    std::discrete_distribution<std::size_t> anyKey(weights.begin(), weights.end());
    const Dialogs dialogs; // sends "not found" away
    QString pressed;
    for (int i = 0; i < 2000; ++i) {
        const Key& key = keys[anyKey(chance)];
        if (plain.inPrompt && !isForPrompt(key.name))
            continue;
        pressed += u'<' + key.name + u'>';
        if (key.name.size() == 1)
            QTest::keyClick(editor.focusWidget(), key.name[0].toLatin1());
        else
            QTest::keyClick(editor.focusWidget(), key.key, key.modifiers);
        plain.key(key.name, clipboard);
        if (!editor.isActiveWindow()) { // a message has come up and gone
            editor.activateWindow();
            ASSERT_TRUE(QTest::qWaitFor([this] { return editor.isActiveWindow(); }));
        }
        ASSERT_NO_FATAL_FAILURE(expectSame(pressed));
    }
    EXPECT_EQ(dialogs.said.size(), static_cast<std::size_t>(plain.messages));
    EXPECT_GT(plain.messages, 0) << "the keys reach this too";
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomKeysTest, testing::Values(1U, 20U, 300U));
