#include "app/Form1.h"

#include "forms/Forms.h"
#include "language/ZBLProgramExp.h"
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

/// Keeps the one message of a parse.
class Keeper : public ParseReporter
{
public:
    void parseError(std::string_view report, int line) override
    {
        message = report;
        errorLine = line;
    }
    void beep() override { QApplication::beep(); }

    std::string message;
    int errorLine = 0;
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
    forms::dressButton(*made, name, iconName, tip);
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
    , ProgramText(textBox("ProgramText", tr("The program text")))
    , Listing(textBox("Listing", tr("What was read")))
{
    setObjectName(QStringLiteral("Form1"));
    setWindowTitle(tr("Parse test"));
    FileName->setObjectName(QStringLiteral("FileName"));
    FileName->setPlaceholderText(QStringLiteral("games/00000001/code.txt"));
    auto* label = new QLabel(tr("Program &file:"));
    label->setBuddy(FileName);
    auto* parse = button("ParseButton", "ok", tr("&Parse"), tr("Read the program file"));
    auto* line = button("LineButton", "gotoline", tr("&Line..."), tr("Move the text cursor to a line"));

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
    const auto bytes = readFileBytes(name, Installation::maximumFileSize);
    if (!bytes) {
        forms::tell(this, tr("I can't read the file \"%1\".").arg(FileName->text()));
        return;
    }
    const std::string text = withProductLineEnds(decodeText(*bytes));
    ProgramText->setPlainText(forms::fromUtf8(text));

    const LineArray lines(text);
    Keeper keeper;
    ZBLProgramExp program;
    if (program.Parse(lines, keeper)) {
        Listing->setPlainText(forms::fromUtf8(program.Display()));
        return;
    }
    Listing->setPlainText(forms::fromUtf8(keeper.message));
    goToLine(*ProgramText, keeper.errorLine);
}

void Form1::LineButton_Click()
{
    const auto answer = forms::askText(this, windowTitle(), tr("line number"));
    if (answer)
        goToLine(*ProgramText, answer->toInt());
}
