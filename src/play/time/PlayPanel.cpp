// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#include "play/time/PlayPanel.h"

#include "forms/ActionRow.h"
#include "forms/Icons.h"
#include "forms/MessageBoxes.h"
#include "forms/Texts.h"
#include "games/WritableName.h"
#include "platform/pictures/PngFile.h"
#include "play/time/TimeMachine.h"

#include <QDateTime>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <utility>

namespace
{

using namespace Qt::StringLiterals;

constexpr int slice = 8; // milliseconds
constexpr int gap = 6;
constexpr int iconSide = 20;
constexpr int fewestRows = 3;
constexpr std::string_view filmEnding = ".gif";
constexpr std::string_view pictureEnding = ".png";

/// While one lives, the mouse says that it takes a moment.
class Patience
{
public:
    Patience() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~Patience() { QGuiApplication::restoreOverrideCursor(); }
    Patience(const Patience&) = delete;
    Patience& operator=(const Patience&) = delete;
};

QListWidget* makeList(const char* name, const QString& accessibleName, int rows)
{
    auto* list = new QListWidget;
    list->setObjectName(QLatin1StringView(name));
    list->setAccessibleName(accessibleName);
    list->setIconSize(QSize(iconSide, iconSide));
    list->setUniformItemSizes(true);
    list->setHorizontalScrollMode(QListWidget::ScrollPerPixel);
    list->setMinimumHeight(rows * (iconSide + gap));
    return list;
}

QLabel* makeNote(const char* name)
{
    auto* note = new QLabel;
    note->setObjectName(QLatin1StringView(name));
    note->setTextFormat(Qt::PlainText);
    note->setWordWrap(true);
    note->setTextInteractionFlags(Qt::TextSelectableByMouse);
    note->hide();
    return note;
}

void setNote(QLabel& note, const QString& text)
{
    note.setText(text);
    note.setVisible(!text.isEmpty());
}

QString inOneLine(std::string_view text)
{
    return forms::withoutEndlessLines(forms::fromUtf8(text).simplified());
}

} // namespace

struct PlayPanel::ButtonRow {
    QPushButton* PlayPanel::*button;
    forms::ActionOf<PlayPanel> action;
};

PlayPanel::PlayPanel(TimeMachine& machine, PlayKeeper& keeper, PinWatch& pins, Desk& desk)
    : m_machine(machine)
    , m_keeper(keeper)
    , m_pins(pins)
    , m_desk(desk)
    , m_list(makeList("PlayList", u"Plays that are kept"_s, fewestRows))
    , m_pinNote(makeNote("PinNote"))
    , m_pinList(makeList("PinList", u"Pinned plays that go another way"_s, 1))
    , m_note(makeNote("PlayNote"))
    , m_progress(new QProgressBar)
    , m_stop(new QPushButton)
{
    // clang-format off
    static constexpr std::array<ButtonRow, 7> buttons = {{
        {&PlayPanel::m_keep, {{"KeepPlay", "keep", u"&Keep this play", u"Keep the run that is shown, to see it again another day"}, &PlayPanel::KeepPlay_Click}},
        {&PlayPanel::m_film, {{"Film", "film", u"&Film", u"Make a film of the last ten seconds up to this moment"}, &PlayPanel::Film_Click}},
        {&PlayPanel::m_picture, {{"KeepPicture", "background", u"Pi&cture", u"Save the picture of this moment"}, &PlayPanel::KeepPicture_Click}},
        {&PlayPanel::m_open, {{"OpenPlay", "folder", u"Op&en", u"Play it again and go through it"}, &PlayPanel::OpenPlay_Click}},
        {&PlayPanel::m_rename, {{"RenamePlay", "edit", u"Rena&me", u"Give it another name"}, &PlayPanel::RenamePlay_Click}},
        {&PlayPanel::m_pin, {{"PinPlay", "checkpoint", u"P&in", u"Look after it: whenever the program has changed, I tell you whether this play still goes the same"}, &PlayPanel::PinPlay_Click}},
        {&PlayPanel::m_remove, {{"RemovePlay", "remove", u"&Remove", u"Throw it away"}, &PlayPanel::RemovePlay_Click}},
    }};
    // clang-format on
    setObjectName(u"PlayPanel"_s);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, gap, 0, 0);
    layout->setSpacing(gap);
    layout->addLayout(makeButtons(buttons.data(), buttons.data() + 3));
    layout->addWidget(m_list, 1);
    layout->addLayout(makeButtons(buttons.data() + 3, buttons.data() + buttons.size()));
    layout->addLayout(makeProgress());
    layout->addWidget(m_note);
    layout->addWidget(m_pinNote);
    layout->addWidget(m_pinList);
    m_pin->setCheckable(true);

    connect(m_list, &QListWidget::currentRowChanged, this, &PlayPanel::refresh);
    connect(m_list, &QListWidget::itemActivated, this, &PlayPanel::OpenPlay_Click);
    connect(m_pinList, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { openDifference(m_pinList->row(item)); });
    connect(m_pinList, &QListWidget::itemActivated, this,
            [this](QListWidgetItem* item) { openDifference(m_pinList->row(item)); });
    connect(&m_pins, &PinWatch::changed, this, &PlayPanel::showPins);
    connect(&m_machine, &TimeMachine::forgotten, this, [this] {
        stopWork();
        setNote(*m_note, {});
    });
    m_work.setObjectName(u"PlayTimer"_s);
    m_work.callOnTimeout(this, &PlayPanel::workOn);
    showPins();
    refresh();
}

QLayout* PlayPanel::makeButtons(const ButtonRow* first, const ButtonRow* last)
{
    auto* line = new QHBoxLayout;
    line->setSpacing(gap);
    for (const ButtonRow* row = first; row != last; ++row) {
        auto* button = new QPushButton;
        forms::setUpButton(*button, row->action);
        button->setIconSize(QSize(iconSide, iconSide));
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, row->action.handler);
        this->*row->button = button;
        line->addWidget(button);
    }
    line->addStretch(1);
    return line;
}

QLayout* PlayPanel::makeProgress()
{
    m_progress->setObjectName(u"Progress"_s);
    m_progress->setAccessibleName(u"How much is done"_s);
    m_progress->hide();
    m_stop->setText(u"&Stop"_s);
    forms::setUpButton(*m_stop, "StopWork", "cancel", u"Give it up"_s);
    m_stop->hide();
    connect(m_stop, &QPushButton::clicked, this, [this] {
        stopWork();
        setNote(*m_note, {});
    });
    auto* line = new QHBoxLayout;
    line->addWidget(m_progress, 1);
    line->addWidget(m_stop);
    return line;
}

// What is shown.

void PlayPanel::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    reload(chosen() ? chosen()->file : std::string());
}

void PlayPanel::reload(const std::string& chosen)
{
    {
        const QSignalBlocker quiet(m_list);
        m_entries = m_keeper.list();
        m_list->clear();
        for (const PlayKeeper::Entry& entry : m_entries) {
            auto* item = new QListWidgetItem(inOneLine(entry.name), m_list);
            if (entry.isPinned)
                item->setText(item->text() + u"  (pinned)"_s);
            item->setIcon(
                forms::icon(!entry.isReadable ? "warning" : (entry.isPinned ? "checkpoint" : "film")));
            item->setToolTip(inOneLine(entry.file));
            if (entry.file == chosen)
                m_list->setCurrentItem(item);
        }
    }
    refresh();
}

const PlayKeeper::Entry* PlayPanel::chosen() const
{
    const int row = m_list->currentRow();
    return row >= 0 && static_cast<std::size_t>(row) < m_entries.size()
               ? &m_entries[static_cast<std::size_t>(row)]
               : nullptr;
}

/// A run is there and waits, or is over: it can be kept.
bool PlayPanel::isAtRest() const
{
    return !m_machine.isEmpty() && !m_machine.isRunning() && !m_work.isActive();
}

void PlayPanel::refresh()
{
    for (QPushButton* button : {m_keep, m_film, m_picture})
        button->setEnabled(isAtRest());
    const PlayKeeper::Entry* const entry = chosen();
    const bool mayChange = entry && !m_work.isActive();
    m_open->setEnabled(mayChange);
    m_remove->setEnabled(mayChange);
    m_rename->setEnabled(mayChange && entry->isReadable);
    m_pin->setEnabled(mayChange && entry->isReadable);
    m_pin->setChecked(entry && entry->isPinned);
}

void PlayPanel::showPins()
{
    setNote(*m_pinNote, forms::fromUtf8(m_pins.summary()));
    m_pinList->clear();
    for (const PinWatch::Difference& each : m_pins.differences())
        new QListWidgetItem(forms::icon("warning"), inOneLine(each.name + ": " + each.text), m_pinList);
    m_pinList->setVisible(!m_pins.differences().empty());
}

void PlayPanel::openDifference(int row)
{
    if (m_work.isActive() || row < 0 || static_cast<std::size_t>(row) >= m_pins.differences().size())
        return;
    const PinWatch::Difference difference = m_pins.differences()[static_cast<std::size_t>(row)];
    open(difference.file, difference.frame);
}

// Names.

std::optional<PlayPanel::Name> PlayPanel::askName(Wish wish, const std::string& own)
{
    for (;;) {
        const auto answer = forms::askText(this, wish.title, wish.prompt, wish.name);
        if (!answer)
            return std::nullopt;
        wish.name = answer->simplified();
        Name name{forms::toUtf8(wish.name), {}};
        name.file = PlayKeeper::fileOf(name.name, wish.ending);
        if (mayBeCalled(name, wish.name, own))
            return name;
    }
}

bool PlayPanel::mayBeCalled(const Name& name, const QString& wish, const std::string& own)
{
    if (name.file.empty()) {
        forms::tell(this, u"I need a name with at least one letter or digit in it."_s);
        return false;
    }
    if (isIconName(name.file.substr(0, name.file.rfind('.')))) {
        forms::tell(this,
                    u"I cannot use the name \"%1\": it is that of the picture that stands for your game. "
                    "Please think of another name."_s.arg(wish));
        return false;
    }
    return name.file == own || !m_keeper.isTaken(name.file) ||
           forms::askOk(
               this, windowTitle().isEmpty() ? u"Save"_s : windowTitle(),
               u"There is a file named %1 already. Shall I replace it?"_s.arg(forms::fromUtf8(name.file)));
}

void PlayPanel::warnUnsaved(const std::string& name)
{
    forms::warn(this,
                u"I could not save %1. Maybe the disk is full, or I am not allowed to write there."_s.arg(
                    inOneLine(name)));
}

void PlayPanel::tellSaved(const std::string& file)
{
    const auto path = m_keeper.installation().find(m_keeper.folder() + file);
    const QString folder = path ? forms::fromUtf8(path->parent_path().string()) : QString();
    setNote(*m_note, u"I have saved %1 in the folder of your game: %2"_s.arg(forms::fromUtf8(file), folder));
}

// The plays.

void PlayPanel::KeepPlay_Click()
{
    if (!isAtRest())
        return;
    const auto name = askName({u"Keep This Play"_s, u"What is the name of this play?"_s,
                               forms::fromUtf8(m_keeper.freeName("Play")), std::string(PlayFile::ending)});
    if (!name || !m_desk.mayChangeGame(this) || !isAtRest())
        return;
    PlayLabel label;
    label.version = ZB_VERSION;
    label.title = m_desk.module().CurrentGame.title;
    label.kept = QDateTime::currentDateTime().toString(u"yyyy-MM-dd HH:mm"_s).toStdString();
    label.name = name->name;
    std::optional<PlayFile> play;
    {
        const Patience patience;
        play = keepPlay(m_machine.recording(), m_machine.pictures(), std::move(label));
    }
    if (!play)
        return forms::warn(this, u"This run is too long to be kept."_s);
    if (!m_keeper.save(name->file, *play))
        return warnUnsaved(name->name);
    m_pins.forget(name->file);
    reload(name->file);
    setNote(*m_note, {});
}

void PlayPanel::RenamePlay_Click()
{
    if (!chosen() || m_work.isActive())
        return;
    const PlayKeeper::Entry entry = *chosen();
    const auto name = askName({u"Rename"_s, u"What is the new name of this play?"_s, inOneLine(entry.name),
                               std::string(PlayFile::ending)},
                              entry.file);
    if (!name || !m_desk.mayChangeGame(this))
        return;
    if (!m_keeper.rename(entry.file, name->name))
        warnUnsaved(name->name);
    m_pins.forget(entry.file);
    reload(name->file);
}

void PlayPanel::PinPlay_Click()
{
    if (!chosen() || m_work.isActive())
        return;
    const PlayKeeper::Entry entry = *chosen();
    if (m_desk.mayChangeGame(this) && !m_keeper.setPinned(entry.file, !entry.isPinned))
        warnUnsaved(entry.name);
    m_pins.forget(entry.file);
    reload(entry.file);
}

void PlayPanel::RemovePlay_Click()
{
    if (!chosen() || m_work.isActive())
        return;
    const PlayKeeper::Entry entry = *chosen();
    if (!forms::askYesNo(this, u"Remove"_s,
                         u"Do you want to throw the play %1 away for good?"_s.arg(inOneLine(entry.name))) ||
        !m_desk.mayChangeGame(this))
        return;
    if (!m_keeper.remove(entry.file) && m_keeper.isTaken(entry.file))
        forms::warn(this, u"I could not throw %1 away. Maybe I am not allowed to write there."_s.arg(
                              inOneLine(entry.name)));
    m_pins.forget(entry.file);
    reload({});
}

void PlayPanel::OpenPlay_Click()
{
    if (chosen() && !m_work.isActive())
        open(std::string(chosen()->file), 0); // a copy: the list is read anew
}

void PlayPanel::open(const std::string& file, std::int64_t frame)
{
    std::string fault;
    auto play = m_keeper.read(file, fault);
    std::string name = play ? play->label.name : std::string();
    if (name.empty())
        name = file.substr(0, file.size() - PlayFile::ending.size());
    if (play)
        m_opening = PlayTrial::start(
            std::move(*play),
            {m_keeper.installation(), m_keeper.folder(), m_machine.pictures(), m_machine.programText()},
            fault);
    if (!m_opening) {
        forms::warn(this, u"I cannot open the play %1. %2"_s.arg(inOneLine(name), inOneLine(fault)));
        reload(file);
        return;
    }
    m_machine.pause();
    m_opened = m_opening->record();
    m_openedName = std::move(name);
    m_openedAt = frame;
    startWork(u"I am playing it again."_s);
}

void PlayPanel::showPlay()
{
    const PlayVerdict verdict = m_opening->verdict();
    const auto run = std::move(m_opened);
    stopWork();
    m_machine.showRun(run, m_openedName);
    if (m_openedAt > 0)
        m_machine.goTo({m_openedAt, 0});
    QStringList texts;
    for (const std::string& sentence : verdict.sentences())
        texts += inOneLine(sentence);
    if (!verdict.goesTheSame())
        texts += u"You see how it goes now."_s;
    if (texts.empty())
        texts += u"This play goes as it went when it was kept."_s;
    setNote(*m_note, texts.join(u'\n'));
}

// To show around.

void PlayPanel::Film_Click()
{
    if (!isAtRest())
        return;
    const auto name =
        askName({u"Film"_s, u"What is the name of your film?"_s,
                 forms::fromUtf8(m_keeper.freeName("film", filmEnding)), std::string(filmEnding)});
    if (!name || !m_desk.mayChangeGame(this) || !isAtRest())
        return;
    m_filming = std::make_unique<FilmMaker>(m_machine.recording(), m_machine.pictures(), m_machine.moment());
    m_filmFile = name->file;
    startWork(u"I am making your film."_s);
}

void PlayPanel::saveFilm()
{
    const std::string bytes = m_filming->finish();
    const std::string file = m_filmFile;
    stopWork();
    setNote(*m_note, {});
    if (bytes.empty() || !m_keeper.installation().write(m_keeper.folder() + file, bytes))
        return warnUnsaved(file);
    tellSaved(file);
}

void PlayPanel::KeepPicture_Click()
{
    if (!isAtRest())
        return;
    const auto name =
        askName({u"Picture"_s, u"What is the name of this picture?"_s,
                 forms::fromUtf8(m_keeper.freeName("picture", pictureEnding)), std::string(pictureEnding)});
    if (!name || !m_desk.mayChangeGame(this) || !isAtRest())
        return;
    const std::string bytes = pngFile(m_machine.picture());
    if (bytes.empty() || !m_keeper.installation().write(m_keeper.folder() + name->file, bytes))
        return warnUnsaved(name->file);
    tellSaved(name->file);
}

// What takes long.

void PlayPanel::startWork(const QString& note)
{
    m_work.start(0);
    m_progress->setValue(0);
    m_progress->show();
    m_stop->show();
    setNote(*m_note, note);
    refresh();
}

void PlayPanel::stopWork()
{
    m_work.stop();
    m_opening.reset();
    m_opened.reset();
    m_filming.reset();
    m_progress->hide();
    m_stop->hide();
    refresh();
}

void PlayPanel::workOn()
{
    if (m_opening) {
        m_progress->setValue(m_opening->percent());
        if (!m_opening->playFor(slice))
            showPlay();
    } else if (m_filming) {
        m_progress->setValue(m_filming->percent());
        if (!m_filming->filmFor(slice))
            saveFilm();
    } else {
        stopWork();
    }
}
