// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "forms/Texts.h"
#include "support/PretendDesk.h"

#include <QImage>

#include <functional>
#include <utility>
#include <vector>

/// A code editor without a window: a text, and a record of what it was asked to do.
class PretendCodeEditor : public CodeEditorForm
{
public:
    bool isVisible() const override { return visible; }
    void hide() override { visible = false; }
    void show() override { visible = true; }
    void SetCursorPos(int line, int column, bool wrap) override
    {
        moves += QStringLiteral("%1,%2%3 ").arg(line).arg(column).arg(wrap ? u" wrap" : u"");
    }
    void focusText() override { moves += QStringLiteral("focus"); }
    bool LoadFile(const QString& productPath) override
    {
        loaded = productPath;
        visible = true;
        return true;
    }
    bool saveFile() override
    {
        ++saves;
        return saveWorks;
    }
    std::string text() const override { return program; }
    bool isModified() const override { return modified; }
    void closeForGood() override { closed = true; }
    QWidget* widget() override { return nullptr; }
    void runBegins() override { ++runs; }
    void showLineMarks(std::vector<LineMark> marks) override { lineMarks = std::move(marks); }
    void showMomentAt(int line) override { moment = line; }
    void setLineAsked(std::function<void(int line)> asked) override { lineAsked = std::move(asked); }

    std::string program;
    QString loaded;
    QString moves;
    std::vector<LineMark> lineMarks;
    std::function<void(int line)> lineAsked;
    int moment = 0;
    int runs = 0;
    int saves = 0;
    bool saveWorks = true;
    bool visible = false;
    bool modified = false;
    bool closed = false;
};

/// The program around the windows of a run: one game in a temporary installation folder.
class PlayDesk : private ScratchFolder, public PretendDesk
{
public:
    PlayDesk()
        : PretendDesk(ScratchFolder::path())
    {
        module().CurrentGame = {"Anna", "Bounce", "00000001\\"};
    }

    void writeProgram(const std::string& text) const { write("games/00000001/code.txt", text); }
    /// A graphic of 16 x 16 pixels named "dot".
    void writeGraphic() const
    {
        QImage sheet(32, 16, QImage::Format_RGB32);
        sheet.fill(Qt::black);
        for (int i = 0; i < 256; ++i)
            sheet.setPixelColor(i % 16, i / 16, QColor(200, i, 60));
        write("games/00000001/dot.spr", "a dot\r\nSimple,16,16,1\r\n");
        sheet.save(forms::fromUtf8((ScratchFolder::path() / "games/00000001/dot.spb").string()), "BMP");
    }
    qsizetype libraries() const { return calls.count(QStringLiteral("library")); }

    bool closeGameWindows() override { return gameWindowsClose; }
    CodeEditorForm* createCodeEditor(const GameRecord& /*game*/) override { return &code; }

    PretendCodeEditor code;
    bool gameWindowsClose = true;
};

/// A program whose only state runs these lines once and then those in every frame.
inline std::string programOf(const std::string& initialize, const std::string& loop)
{
    return "program{\r\nclasses{\r\n}classes\r\nstates{\r\nbegin{\r\ninitialize{\r\n" + initialize +
           "\r\n}initialize\r\nloop{\r\n" + loop + "\r\n}loop\r\n}begin\r\n}states\r\n}program\r\n";
}
