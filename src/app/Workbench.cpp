// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "app/Workbench.h"

#include "app/Tracker.h"
#include "app/WritableCheck.h"
#include "editor/CodeEditor.h"
#include "forms/MessageBoxes.h"
#include "forms/PlaceWindow.h"
#include "forms/Replacing.h"
#include "forms/Style.h"
#include "games/GameFolders.h"
#include "library/Properties.h"
#include "library/Resources.h"
#include "library/ZorbinoMain.h"
#include "mapeditor/MapEditor.h"
#include "play/GameEditor.h"
#include "sprites/SpriteEditor.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>

#include <functional>
#include <utility>

namespace
{

using namespace Qt::StringLiterals;

/// Shows the one window of its kind; it is made where there is none.
template<typename Form, typename... What> void open(QPointer<Form>& form, Desk& desk, What&... what)
{
    if (form.isNull()) {
        form = new Form(desk, what...);
        form->setAttribute(Qt::WA_DeleteOnClose);
        forms::placeWindow(*form);
    }
    forms::bringUp(*form);
}

/// Closes a window for good; false where it stays.
bool shut(QWidget* window)
{
    return window == nullptr || window->close();
}

/// Does something once a window has been painted: by then the desktop has put it in its place, so that what
/// is shown over it comes up there, too.
class OncePainted : public QObject
{
public:
    OncePainted(QWidget* window, std::function<void()> action)
        : QObject(window)
        , m_action(std::move(action))
    {
        window->installEventFilter(this);
    }
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) {
            watched->removeEventFilter(this);
            QTimer::singleShot(0, watched, m_action);
            deleteLater();
        }
        return false;
    }

private:
    std::function<void()> m_action;
};

} // namespace

Workbench::Workbench(const std::filesystem::path& root)
    : m_installation(root)
{
}

Workbench::~Workbench()
{
    for (const auto& editor : m_spriteEditors)
        delete editor.data();
    delete m_resources.data();
    delete m_properties.data();
    delete m_mapEditor.data();
    delete m_gameEditor.data();
    delete m_library.data();
    QCoreApplication::sendPostedEvents(nullptr,
                                       QEvent::DeferredDelete); // the code editor goes later than the rest
}

void Workbench::showTracker()
{
    m_tracker = std::make_unique<Tracker>();
    m_tracker->show();
}

void Workbench::LogProgress(const QString& message)
{
    if (m_tracker)
        m_tracker->showProgress(message);
}

void Workbench::showLibrary()
{
    open(m_library, *this);
}

void Workbench::start(const QImage& backdrop)
{
    open(m_library, *this, backdrop);
    const WritableCheck check(m_installation);
    if (!check.isWritable())
        new OncePainted(m_library,
                        [library = m_library, text = check.message()] { forms::warn(library, text); });
}

void Workbench::showGameEditor()
{
    const bool isNew = m_gameEditor.isNull();
    open(m_gameEditor, *this, m_module.CurrentGame);
    if (isNew)
        lockGame();
}

/// The game is locked for as long as its game editor lives.
void Workbench::lockGame()
{
    m_gameLock = GameLock(m_installation, m_module.CurrentGame.folder);
    m_mayChangeShared = false;
    QObject::connect(m_gameEditor, &QObject::destroyed, [this] { m_gameLock = GameLock(); });
    if (!m_gameLock.isTakenElsewhere())
        return;
    // Later, when whoever opens the game is done with it.
    QTimer::singleShot(0, m_gameEditor, [editor = m_gameEditor] {
        forms::tell(editor, u"Somebody else is working on this game, too, in another window of Zorbino.\n\n"
                            "You may look at it and play it. I will ask you before I save anything."_s);
    });
}

bool Workbench::mayChangeGame(QWidget* parent)
{
    if (!m_mayChangeShared && m_gameLock.isTakenElsewhere())
        m_mayChangeShared = forms::askReplaceShared(parent);
    return m_mayChangeShared || !m_gameLock.isTakenElsewhere();
}

void Workbench::showMapEditor()
{
    open(m_mapEditor, *this);
}

void Workbench::showProperties()
{
    open(m_properties, *this, m_module.CurrentGame);
}

void Workbench::showResources()
{
    open(m_resources, *this, m_module.CurrentGame);
}

void Workbench::showSpriteEditor(const QString& graphicName)
{
    std::erase_if(m_spriteEditors, [](const auto& editor) { return editor.isNull(); });
    for (const auto& editor : m_spriteEditors) {
        if (!graphicName.isEmpty() && editor->graphicName().compare(graphicName, Qt::CaseInsensitive) == 0) {
            forms::bringUp(*editor);
            return;
        }
    }
    auto* editor = new SpriteEditor(*this, graphicName);
    editor->setAttribute(Qt::WA_DeleteOnClose);
    m_spriteEditors.emplace_back(editor);
    forms::placeWindow(*editor);
    forms::bringUp(*editor);
}

bool Workbench::closeGameWindows()
{
    for (const auto& editor : std::vector(m_spriteEditors)) {
        if (!shut(editor))
            return false; // it has asked about what is not saved
    }
    return shut(m_properties) && shut(m_resources);
}

CodeEditorForm* Workbench::createCodeEditor(const GameRecord& game)
{
    return new CodeEditor(*this, game);
}

void Workbench::gameTitleChanged()
{
    if (m_gameEditor)
        m_gameEditor->showTitle();
}

void Workbench::exitProgram()
{
    QCoreApplication::exit(0);
}

bool Workbench::openEachWindow()
{
    const auto games = ListGames(m_installation);
    if (games.empty())
        return false;
    m_module.CurrentGame = games.front();
    void (Desk::*const windows[])() = {&Desk::showLibrary, &Desk::showGameEditor, &Desk::showProperties,
                                       &Desk::showResources, &Desk::showMapEditor};
    for (const auto window : windows) {
        (this->*window)();
        QCoreApplication::processEvents();
    }
    showSpriteEditor(QString());
    QCoreApplication::processEvents();
    return m_library && m_gameEditor && m_properties && m_resources && m_mapEditor &&
           !m_spriteEditors.empty();
}
