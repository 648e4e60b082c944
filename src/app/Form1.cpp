// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "app/Form1.h"

#include "forms/Icons.h"
#include "forms/MessageBoxes.h"
#include "forms/Style.h"
#include "forms/Texts.h"
#include "language/ZBLProgramExp.h"
#include "platform/DiskFile.h"
#include "platform/Installation.h"
#include "platform/TextFile.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSplitter>
#include <QTextBlock>
#include <QVBoxLayout>

namespace
{

using namespace Qt::StringLiterals;

/// Keeps the one fault of a parse.
class Keeper : public ParseReporter
{
public:
    void parseError(const ParseFault& found) override { fault = found; }
    void beep() override { QApplication::beep(); }

    ParseFault fault;
};

QPlainTextEdit* textBox(const char* name, const QString& accessibleName)
{
    auto* box = new QPlainTextEdit;
    box->setObjectName(QLatin1String(name));
    box->setAccessibleName(accessibleName);
    box->setReadOnly(true);
    box->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    box->setLineWrapMode(QPlainTextEdit::NoWrap);
    box->setTabChangesFocus(true);
    box->setFont(forms::fixedFont(10));
    return box;
}

QPushButton* button(const char* name, const char* iconName, const QString& caption, const QString& tip)
{
    auto* made = new QPushButton(caption);
    forms::setUpButton(*made, name, iconName, tip);
    return made;
}

/// Places the text cursor at the start of a line (1 for the first); nothing where the text has no such line.
void goToLine(QPlainTextEdit& box, int line)
{
    const QTextBlock block = box.document()->findBlockByNumber(line - 1);
    if (!block.isValid())
        return;
    box.setTextCursor(QTextCursor(block));
    box.centerCursor();
    box.setFocus();
}

} // namespace

Form1::Form1()
    : FileName(new QLineEdit)
    , ProgramText(textBox("ProgramText", u"The program text"_s))
    , Listing(textBox("Listing", u"What was read"_s))
{
    setObjectName(u"Form1"_s);
    setWindowTitle(u"Parse test"_s);
    FileName->setObjectName(u"FileName"_s);
    FileName->setPlaceholderText(u"games/00000001/code.txt"_s);
    auto* label = new QLabel(u"Program &file:"_s);
    label->setBuddy(FileName);
    auto* parse = button("ParseButton", "ok", u"&Parse"_s, u"Read the program file"_s);
    auto* line = button("LineButton", "gotoline", u"&Line..."_s, u"Move the text cursor to a line"_s);

    auto* row = new QHBoxLayout;
    for (QWidget* widget : {static_cast<QWidget*>(label), static_cast<QWidget*>(FileName),
                            static_cast<QWidget*>(parse), static_cast<QWidget*>(line)})
        row->addWidget(widget);
    auto* halves = new QSplitter(Qt::Horizontal);
    halves->addWidget(ProgramText);
    halves->addWidget(Listing);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(12, 12, 12, 12);
    all->setSpacing(8);
    all->addLayout(row);
    all->addWidget(halves, 1);
    resize(900, 600);

    connect(FileName, &QLineEdit::returnPressed, this, [this] { ParseButton_Click(); });
    connect(parse, &QPushButton::clicked, this, [this] { ParseButton_Click(); });
    connect(line, &QPushButton::clicked, this, [this] { LineButton_Click(); });
}

void Form1::ParseButton_Click()
{
    const std::string name = forms::toUtf8(FileName->text());
    auto bytes = readFileBytes(name, Installation::maximumFileSize);
    if (!bytes) {
        forms::warn(this, u"I can't read the file \"%1\"."_s.arg(FileName->text()));
        return;
    }
    const std::string text = withProductLineEnds(decodeText(std::move(*bytes)));
    ProgramText->setPlainText(forms::fromUtf8(text));

    const LineArray lines(text);
    Keeper keeper;
    ZBLProgramExp program;
    if (program.Parse(lines, keeper)) {
        Listing->setPlainText(forms::fromUtf8(program.Display()));
        return;
    }
    Listing->setPlainText(forms::fromUtf8(reportText(keeper.fault, lines)));
    goToLine(*ProgramText, keeper.fault.line);
}

void Form1::LineButton_Click()
{
    const auto answer = forms::askText(this, windowTitle(), u"line number"_s);
    if (answer)
        goToLine(*ProgramText, answer->toInt());
}
