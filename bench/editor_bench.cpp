// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

// What a key costs in the code editor, beside a bare text box with the same text in the same run. The two are
// measured in turns, so that whatever else the machine does strikes both. Prints times in microseconds (the
// median), the ratio and its limit, and ends with 1 where a limit is not kept. Runs off screen with
// QT_QPA_PLATFORM=offscreen.
#include "editor/CodeEditor.h"
#include "forms/Style.h"
#include "support/PretendDesk.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMainWindow>
#include <QPlainTextEdit>
#include <QTextBlock>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <memory>

namespace
{

constexpr int rounds = 301;
constexpr int loadRounds = 15;
constexpr auto codePath = "games\\00000001\\code.txt";

/// A program text of `lines` lines, indented as the editor would.
std::string programText(int lines)
{
    std::string text;
    while (lines > 0) {
        text += "if key$left = \"true\" {\r\n"
                "  moveleft me 3 ; to the left\r\n"
                "  change counter$steps 1\r\n"
                "}if\r\n";
        lines -= 4;
    }
    return text;
}

std::string withoutIndentation(std::string text)
{
    for (std::size_t at = 0; (at = text.find("\n  ", at)) != std::string::npos;)
        text.erase(at + 1, 2);
    return text;
}

double median(std::vector<double> times)
{
    std::nth_element(times.begin(), times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2),
                     times.end());
    return times[times.size() / 2];
}

/// Everything that waits is done, and what has changed is painted.
void settle()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

double microseconds(const std::function<void()>& deed)
{
    QElapsedTimer clock;
    clock.start();
    deed();
    settle();
    return static_cast<double>(clock.nsecsElapsed()) / 1000.0;
}

void pressKey(QWidget* target, Qt::Key key, Qt::KeyboardModifiers modifiers, const QString& text)
{
    for (const QEvent::Type type : {QEvent::ShortcutOverride, QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, modifiers, text);
        QCoreApplication::sendEvent(target, &event);
    }
}

void typeX(QWidget* target)
{
    pressKey(target, Qt::Key_X, Qt::NoModifier, QStringLiteral("x"));
}

void typeEnter(QWidget* target)
{
    pressKey(target, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
}

void typeUndo(QWidget* target)
{
    pressKey(target, Qt::Key_Z, Qt::ControlModifier, QString());
}

/// The bare text box, in a window of the same size and with the same font.
class Bare
{
public:
    Bare()
        : m_box(new QPlainTextEdit)
    {
        m_window.setCentralWidget(m_box);
        m_box->setFont(forms::fixedFont(12));
        m_box->setLineWrapMode(QPlainTextEdit::NoWrap);
    }
    void show(QSize size)
    {
        m_window.resize(size);
        m_window.show();
        m_box->setFocus();
        settle();
    }
    void load(const std::string& text) { m_box->setPlainText(QString::fromStdString(text)); }
    QPlainTextEdit* box() { return m_box; }

private:
    QMainWindow m_window;
    QPlainTextEdit* m_box;
};

void moveTo(QPlainTextEdit* box, int line)
{
    QTextCursor cursor(box->document()->findBlockByNumber(line));
    cursor.movePosition(QTextCursor::EndOfBlock);
    box->setTextCursor(cursor);
    box->centerCursor();
    settle();
}

class Bench
{
public:
    Bench()
        : m_desk(m_installation.path())
        , m_editor(std::make_unique<CodeEditor>(m_desk, m_desk.module().CurrentGame))
        , m_view(m_editor->findChild<CodeView*>())
    {
    }

    int run()
    {
        std::printf("%-46s %10s %10s %7s %7s\n", "", "editor us", "bare us", "ratio", "limit");
        const double keyAtThousand = keys(1000, "at 1,000 lines");
        const double keyAtTenThousand = keys(10'000, "at 10,000 lines");
        row("a character at 10,000 / at 1,000 lines", keyAtTenThousand, keyAtThousand, 1.5);
        const Loading few = loading(2500, 0);
        const Loading many = loading(10'000, 2.5);
        // Both grow with the memory they touch, and with whatever else the machine does just then.
        row("growth of loading from 2,500 to 10,000 lines", many.ours / few.ours, many.bare / few.bare, 1.5);
        std::printf("extremes\n");
        extreme("200,000 lines", programText(200'000));
        extreme("one line of a megabyte", std::string(1U << 20U, 'm') + "\r\n");
        return m_failures > 0 ? 1 : 0;
    }

private:
    void row(const char* what, double ours, double bare, double limit)
    {
        const double ratio = ours / bare;
        const bool fails = limit > 0 && ratio > limit;
        m_failures += fails ? 1 : 0;
        std::printf("%-46s %10.1f %10.1f %7.2f %7.1f%s\n", what, ours, bare, ratio, limit,
                    fails ? "  TOO SLOW" : "");
    }

    void loadBoth(const std::string& text)
    {
        m_installation.write("games/00000001/code.txt", text);
        m_editor->LoadFile(QLatin1String(codePath));
        settle();
        m_bare.show(m_editor->size());
        m_bare.load(text);
        moveTo(m_view, m_view->document()->blockCount() / 2);
        moveTo(m_bare.box(), m_bare.box()->document()->blockCount() / 2);
        typeX(m_view);
        typeX(m_bare.box());
        settle();
    }

    double keys(int lines, const char* where)
    {
        loadBoth(programText(lines));
        std::vector<double> ours[3];
        std::vector<double> bare[2];
        for (int i = 0; i < rounds; ++i) {
            ours[0].push_back(microseconds([this] { typeX(m_view); }));
            bare[0].push_back(microseconds([this] { typeX(m_bare.box()); }));
            ours[1].push_back(microseconds([this] { typeX(m_view); }));
            ours[2].push_back(microseconds([this] { typeUndo(m_view); }));
            // The lines are kept short and the number of lines the same.
            if (i % 20 == 19)
                clearLines();
        }
        std::vector<double> enters[2];
        for (int i = 0; i < rounds / 3; ++i) {
            enters[0].push_back(microseconds([this] { typeEnter(m_view); }));
            enters[1].push_back(microseconds([this] { typeEnter(m_bare.box()); }));
        }
        std::printf("%s\n", where);
        row("  a character typed until it is painted", median(ours[0]), median(bare[0]), 2.5);
        row("  Enter with the new line indented", median(enters[0]), median(enters[1]), 1.7);
        row("  undo of one edit beside a bare Enter", median(ours[2]), median(enters[1]), 2.0);
        return median(ours[0]);
    }

    void clearLines()
    {
        for (QPlainTextEdit* box : {static_cast<QPlainTextEdit*>(m_view), m_bare.box()}) {
            QTextCursor cursor = box->textCursor();
            cursor.movePosition(QTextCursor::StartOfBlock, QTextCursor::KeepAnchor);
            cursor.insertText(QStringLiteral("x"));
        }
        typeX(m_view);
        settle();
    }

    struct Loading {
        double ours;
        double bare;
    };
    Loading loading(int lines, double limit)
    {
        const std::string text = withoutIndentation(programText(lines));
        m_installation.write("games/00000001/code.txt", text);
        std::vector<double> ours;
        std::vector<double> bare;
        for (int i = 0; i < loadRounds; ++i) {
            ours.push_back(microseconds([this] { m_editor->LoadFile(QLatin1String(codePath)); }));
            bare.push_back(microseconds([this] {
                const std::optional<std::string> file = m_desk.installation().readText(codePath);
                m_bare.load(*file);
            }));
            m_desk.calls.clear();
        }
        char what[80];
        std::snprintf(what, sizeof what, "loading %d lines with indentation", lines);
        const Loading times{median(ours), median(bare)};
        row(what, times.ours, times.bare, limit);
        return times;
    }

    /// No limit is set here, but nobody shall wait for seconds.
    void extreme(const std::string& what, const std::string& text)
    {
        m_installation.write("games/00000001/code.txt", text);
        const double load = microseconds([this] { m_editor->LoadFile(QLatin1String(codePath)); });
        const double bareLoad = microseconds([this, &text] { m_bare.load(text); });
        row(("  loading " + what).c_str(), load, bareLoad, 0);
        std::vector<double> ours;
        std::vector<double> bare;
        for (int i = 0; i < loadRounds; ++i) {
            ours.push_back(microseconds([this] { typeX(m_view); }));
            bare.push_back(microseconds([this] { typeX(m_bare.box()); }));
        }
        row("  a character typed there", median(ours), median(bare), 0);
    }

    ScratchFolder m_installation;
    PretendDesk m_desk;
    std::unique_ptr<CodeEditor> m_editor;
    CodeView* m_view;
    Bare m_bare;
    int m_failures = 0;
};

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    forms::setUpApplication();
    return Bench().run();
}
