// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "editor/CodeEditor.h"

#include "editor/EditorBars.h"
#include "editor/Indentation.h"
#include "editor/ProgramText.h"
#include "forms/MessageBoxes.h"
#include "forms/Replacing.h"
#include "forms/Style.h"
#include "forms/Texts.h"
#include "language/Vocabulary.h"
#include "platform/TextFile.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QScopeGuard>
#include <QTextBlock>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

constexpr int leastPoints = 12;
constexpr int columnsShown = 84;
constexpr int linesShown = 28;
constexpr int widestFirst = 1200;
/// No program of a game comes near these; a file beyond them is something else.
constexpr std::uintmax_t largestFile = 16U << 20U;
constexpr qsizetype mostLines = 1'000'000;

/// A path cut behind its last backslash into folder and file name.
std::pair<std::string_view, std::string_view> SplitPath(std::string_view path)
{
    const std::size_t backslash = path.rfind('\\');
    const std::size_t cut = backslash == std::string_view::npos ? 0 : backslash + 1;
    return {path.substr(0, cut), path.substr(cut)};
}

QString fileNamePart(std::string_view path)
{
    return forms::fromUtf8(SplitPath(path).second);
}

bool isMiddleOfPair(const QTextDocument& document, int position)
{
    return document.characterAt(position).isLowSurrogate();
}

} // namespace

/// The window while it works and must not be disturbed: toolbars hidden, disabled, under the hourglass.
class CodeEditor::Busy
{
public:
    explicit Busy(CodeEditor& editor)
        : m_editor(editor)
        , m_focus(editor.focusWidget())
    {
        m_editor.m_isBusy = true;
        m_editor.m_bars->showToolbars(false);
        QApplication::setOverrideCursor(Qt::WaitCursor);
        m_editor.setEnabled(false);
    }
    ~Busy()
    {
        m_editor.setEnabled(true);
        QApplication::restoreOverrideCursor();
        m_editor.showToolbars();
        if (m_focus)
            m_focus->setFocus();
        m_editor.m_isBusy = false;
        if (m_editor.m_deleteWhenDone)
            m_editor.deleteLater();
    }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;

private:
    CodeEditor& m_editor;
    QPointer<QWidget> m_focus; ///< within the window, active or not: a dialog may just be closing
};

// The window

CodeEditor::CodeEditor(Desk& desk, const GameRecord& game)
    : m_desk(desk)
    , m_game(game)
    , m_bars(new EditorBars)
    , m_CodeView(new CodeView([this](const QKeyEvent& event) { return CodeView_KeyDown(event); }))
    , m_history(*m_CodeView->document())
{
    Form_Load();
}

CodeEditor::~CodeEditor()
{
    delete m_CodeView; // it would still call back when the rest of the window is gone
}

void CodeEditor::Form_Load()
{
    m_desk.LogProgress(u"CodeEditor.Form_Load: Begin"_s);
    setObjectName(u"CodeEditor"_s);
    setWindowTitle(u"Code Editor"_s);
    m_CodeView->setFont(forms::fixedFont(std::max(leastPoints, QApplication::font().pointSize() + 1)));

    auto* area = new QWidget;
    auto* column = new QVBoxLayout(area);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_bars);
    column->addWidget(m_CodeView, 1);
    setCentralWidget(area);
    makeMenus();
    connectButtons();
    connectText();

    connect(&m_history, &EditHistory::changed, this, &CodeEditor::markModified);
    connect(&m_history, &EditHistory::undoCountChanged, this, [this](int count) {
        m_bars->button("UndoButton")->setEnabled(count > 0);
        m_UndoMnu->setEnabled(count > 0);
    });
    m_bars->Minibuffer()->installEventFilter(this);
    setFirstSize();
    ShowPosition(1, 1);
    m_CodeView->setFocus();
    m_desk.LogProgress(u"CodeEditor.Form_Load: Done"_s);
}

void CodeEditor::connectText()
{
    connect(m_CodeView, &CodeView::characterTyped, this, &CodeEditor::CodeView_KeyPress);
    // As if Tab had been pressed. At once and not through the queue: what is typed on must find the line
    // indented.
    connect(m_CodeView, &CodeView::lineBroken, this, &CodeEditor::CodeView_Tab);
    connect(m_CodeView, &CodeView::keyReleased, this, &CodeEditor::CodeView_KeyUp);
    connect(m_CodeView, &CodeView::mouseReleased, this, &CodeEditor::CodeView_MouseUp);
    connect(m_CodeView, &CodeView::focused, this, &CodeEditor::CodeView_GotFocus);
    connect(m_CodeView, &CodeView::textChanged, this, &CodeEditor::CodeView_Change);
    connect(m_CodeView, &CodeView::customContextMenuRequested, this, &CodeEditor::CodeView_ContextMenu);
    connect(m_CodeView, &CodeView::lineAsked, this, [this](int line) {
        if (m_lineAsked)
            m_lineAsked(line);
    });
}

/// Room for a program as programs are, and with large letters still on a small screen.
void CodeEditor::setFirstSize()
{
    const QFontMetrics metrics(m_CodeView->font());
    const int wished = std::max(metrics.horizontalAdvance(u'0') * columnsShown, m_bars->wishedWidth());
    resize(std::min(wished, widestFirst),
           metrics.lineSpacing() * linesShown + m_bars->sizeHint().height() + menuBar()->sizeHint().height());
}

void CodeEditor::show()
{
    forms::bringUp(*this);
}

void CodeEditor::focusText()
{
    activateWindow();
    m_CodeView->setFocus();
}

void CodeEditor::setLineAsked(std::function<void(int line)> lineAsked)
{
    m_lineAsked = std::move(lineAsked);
}

void CodeEditor::closeEvent(QCloseEvent* event)
{
    if (m_AllowClose)
        return;
    event->ignore();
    hide();
}

void CodeEditor::closeForGood()
{
    m_AllowClose = true;
    close();
    if (m_isBusy)
        m_deleteWhenDone = true; // somebody further up still works with it
    else
        deleteLater();
}

void CodeEditor::resizeEvent(QResizeEvent* event)
{
    m_desk.LogProgress(u"CodeEditor.Form_Resize:begin"_s);
    QMainWindow::resizeEvent(event);
    m_desk.LogProgress(u"CodeEditor.Form_Resize: end"_s);
}

bool CodeEditor::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_bars->Minibuffer()) {
        if (event->type() == QEvent::KeyPress)
            return Minibuffer_KeyDown(*static_cast<QKeyEvent*>(event));
        if (event->type() == QEvent::KeyRelease)
            m_promptRepeats.release(*static_cast<QKeyEvent*>(event));
        if (event->type() == QEvent::ShortcutOverride && isKeptFromCommands(*static_cast<QKeyEvent*>(event)))
            event->accept();
    }
    return QMainWindow::eventFilter(watched, event);
}

// Files

bool CodeEditor::LoadFile(const QString& productPath)
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const auto arrow = qScopeGuard([] { QApplication::restoreOverrideCursor(); });
    m_desk.LogProgress(u"Begin CodeEditor.LoadFile"_s);
    m_desk.LogProgress(u"CodeEditor.LoadFile: Opening "_s + productPath);
    const std::string path = forms::toUtf8(productPath);
    const std::optional<std::string> bytes = m_desk.installation().readBytes(path, largestFile);
    const QString loaded = bytes ? ProgramText::fromFile(decodeText(*bytes)) : QString();
    if (m_isBusy || !bytes || loaded.count(u'\n') > mostLines) {
        if (!m_desk.installation().find(path)) { // nothing there that saving could destroy
            m_FileName = path;
            m_stamp = FileStamp();
        }
        close();
        return false;
    }
    m_CodeView->forgetRun();
    m_history.setText(loaded);
    placeCursor(0);
    m_desk.LogProgress(u"CodeEditor.LoadFile: loaded into CodeView"_s);
    show();
    setWindowTitle(fileNamePart(path));
    // Also where blanks were replaced or lines indented on the way in: nobody is asked about what he has not
    // done, and until he saves the file stays as it was.
    m_Modified = false;
    m_FileName = path;
    m_stamp = FileStamp(*bytes);
    m_desk.LogProgress(u"CodeEditor.LoadFile: done"_s);
    AutoIndentAll();
    return true;
}

bool CodeEditor::saveFile()
{
    const QPointer<CodeEditor> self(this);
    if (!forms::mayReplace(this, m_desk, m_FileName, m_stamp) || self.isNull())
        return false;
    const std::string program = text();
    if (m_FileName.empty() || !m_desk.installation().write(m_FileName, program)) {
        forms::warn(this, u"Sorry, your program was not saved!\n\n"
                          "I could not write it to the disk. Maybe the disk is full, or the game's "
                          "folder is gone or may not be changed.\n\n"
                          "Your text is still here in the Code Editor. Please don't close it "
                          "before you have saved."_s);
        return false;
    }
    m_Modified = false;
    m_stamp = FileStamp(program);
    setWindowTitle(fileNamePart(m_FileName));
    return true;
}

std::string CodeEditor::text() const
{
    return ProgramText::toProgram(m_history.text());
}

void CodeEditor::markModified()
{
    if (m_Modified)
        return;
    m_Modified = true;
    setWindowTitle(fileNamePart(m_FileName) + u'*');
}

// The cursor

void CodeEditor::UpdateCursorPosition()
{
    const QTextCursor cursor = m_CodeView->textCursor();
    ShowPosition(cursor.blockNumber() + 1, cursor.positionInBlock() + 1);
}

void CodeEditor::ShowPosition(int line, int column)
{
    m_CurrentLine = line;
    m_CurrentColumn = column;
    m_bars->showPosition(line, column);
}

void CodeEditor::SetCursorPos(int line, int column, bool wrap)
{
    placeCursor(ProgramText::positionOf(*m_CodeView->document(), line, column, wrap));
    ShowPosition(line, column);
}

void CodeEditor::placeCursor(int position)
{
    QTextCursor cursor = m_CodeView->textCursor();
    if (isMiddleOfPair(*m_CodeView->document(), position))
        position += position < cursor.position() ? -1 : 1; // on in the direction that it comes from
    cursor.setPosition(position);
    m_CodeView->setTextCursor(cursor);
    m_CodeView->ensureCursorVisible();
}

void CodeEditor::ShowLineHelp()
{
    const QTextCursor cursor = m_CodeView->textCursor();
    const QTextBlock line = cursor.block();
    if (cursor.position() == 0 || line.length() <= 1)
        return;
    const QString text = line.text();
    const QString word = ProgramText::statementWord(text).toString();
    m_bars->showHelp(forms::fromUtf8(StatementHelp(forms::toUtf8(word))));
}

// Changes

void CodeEditor::UndoChange()
{
    if (m_history.undoCount() < 1)
        return;
    const int line = m_CurrentLine;
    const int column = m_CurrentColumn;
    m_history.UndoChange();
    SetCursorPos(line, column, false);
}

int CodeEditor::IndentLine(int position)
{
    QTextDocument& document = *m_CodeView->document();
    if (position == 0 || position == document.characterCount() - 1)
        return position;
    const QTextBlock block = document.findBlock(position);
    QTextBlock above = block.previous();
    while (above.isValid() && above.length() <= 1)
        above = above.previous();
    const QString line = block.text();
    const Indentation::Level level = Indentation::levelOf(line, above.isValid() ? above.text() : QString());
    if (level.isBelowZero)
        QApplication::beep();

    const int start = block.position();
    const Indentation::Blanks blanks = Indentation::blanksAround(line);
    const int wanted = Indentation::unit * level.level;
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    cursor.setPosition(start + static_cast<int>(line.size()));
    cursor.setPosition(cursor.position() - blanks.behind, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    cursor.setPosition(start);
    if (blanks.before < wanted) {
        cursor.insertText(QString(wanted - blanks.before, u' '));
    } else {
        cursor.setPosition(start + blanks.before - wanted, QTextCursor::KeepAnchor);
        cursor.removeSelectedText();
    }
    cursor.endEditBlock();
    return start + wanted;
}

/// Shows how far the work on a long text has come. A short one is done before anybody could look.
class CodeEditor::IndentProgress
{
public:
    explicit IndentProgress(CodeEditor& editor)
        : m_editor(editor)
    {
        m_sinceShown.start();
    }
    void tell(int line, bool isBelowZero)
    {
        constexpr qint64 often = 17; // milliseconds: 60 times a second
        m_isBelowZero |= isBelowZero;
        if (m_sinceShown.elapsed() < often)
            return;
        beep();
        if (!m_busy)
            m_busy.emplace(m_editor);
        m_editor.m_bars->showStatus(u"Autoindenting... (line %1)"_s.arg(line));
        QCoreApplication::processEvents();
        m_sinceShown.restart();
    }
    void finish(bool isBelowZero)
    {
        m_isBelowZero |= isBelowZero;
        beep();
        m_busy.reset();
    }

private:
    void beep()
    {
        if (std::exchange(m_isBelowZero, false))
            QApplication::beep();
    }

    CodeEditor& m_editor;
    QElapsedTimer m_sinceShown;
    bool m_isBelowZero = false; ///< since the last beep
    std::optional<Busy> m_busy;
};

bool CodeEditor::AutoIndentAll()
{
    if (m_isBusy)
        return false;
    UpdateCursorPosition();
    const int line = m_CurrentLine;
    const int column = m_CurrentColumn;
    const QString before = m_history.text();
    IndentProgress progress(*this);
    const Indentation::IndentedText after = Indentation::AutoIndentAll(
        ProgramText::StripControlCharacters(before),
        [&progress](int lineNumber, bool isBelowZero) { progress.tell(lineNumber, isBelowZero); });
    const bool isChanged = after.text != before;
    if (isChanged)
        m_CodeView->runLines().keepLinesWhile([&] { m_history.setText(after.text); });
    progress.finish(after.isBelowZero);
    SetCursorPos(line, column, false);
    m_bars->showStatus(QString());
    return isChanged;
}

void CodeEditor::AutoIndentButton_Click()
{
    RecordChange();
    if (AutoIndentAll())
        markModified();
}

void CodeEditor::DeleteMnu_Click()
{
    const int line = m_CurrentLine;
    const int column = m_CurrentColumn;
    QTextCursor cursor = m_CodeView->textCursor();
    const int position = cursor.position();
    QTextDocument& document = *m_CodeView->document();
    if (position >= document.characterCount() - 1)
        return;
    const int behind = position + (isMiddleOfPair(document, position + 1) ? 2 : 1);
    cursor.setPosition(position);
    cursor.setPosition(behind, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    SetCursorPos(line, column, false);
}

void CodeEditor::CopyMnu_Click()
{
    QGuiApplication::clipboard()->setText(m_CodeView->selectedText());
}

/// All that Ctrl+V does in the text, from its way down to its way up.
void CodeEditor::PasteMnu_Click()
{
    m_CodeView->setFocus();
    RecordChange();
    m_CodeView->paste();
    CodeView_KeyUp();
}

void CodeEditor::FindAndReplace_Click()
{
    forms::tell(this, u"Sorry, not implemented yet!"_s);
}

void CodeEditor::PrintButton_Click()
{
    const QPointer<CodeEditor> self(this);
    const QString documentName =
        m_game.title.empty() ? fileNamePart(m_FileName) : forms::fromUtf8(m_game.title);
    if (m_isBusy || !m_winCode.PrintDialog(this, documentName) || self.isNull())
        return;
    if (m_MinibufferMode != MinibufferMode::Closed)
        CloseMinibuffer(); // the caption that tells what it asks is about to go
    bool isPrinted = false;
    {
        const Busy busy(*this);
        m_bars->showStatus(u"Printing..."_s);
        isPrinted = m_winCode.print(m_history.text(), m_CodeView->font());
    }
    activateWindow(); // it could not take over from the dialog while it was disabled
    if (!isPrinted)
        forms::warn(this, u"Sorry, I could not print your program!\n\n"
                          "Please look whether the printer is switched on and has paper. If you "
                          "are making a PDF file, try another folder for it."_s);
}
