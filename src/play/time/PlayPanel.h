// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "forms/Desk.h"
#include "play/time/FilmMaker.h"
#include "play/time/PinWatch.h"
#include "play/time/PlayKeeper.h"

#include <QTimer>
#include <QWidget>

#include <memory>
#include <optional>
#include <string>
#include <vector>

class QLabel;
class QLayout;
class QListWidget;
class QProgressBar;
class QPushButton;
class TimeMachine;

/// The plays that are kept with the game: keeps the run that is shown, opens, renames, pins and removes them,
/// and tells which of the pinned ones go another way now. Films the run that is shown, and saves its picture.
/// What takes long is done in small pieces.
class PlayPanel : public QWidget
{
    Q_OBJECT
public:
    PlayPanel(TimeMachine& machine, PlayKeeper& keeper, PinWatch& pins, Desk& desk);

    /// Another moment is shown, or the run goes on or waits.
    void refresh();
    /// Gives up what is being done.
    void stopWork();

    void KeepPlay_Click();
    void OpenPlay_Click();
    void RenamePlay_Click();
    void PinPlay_Click();
    void RemovePlay_Click();
    void Film_Click();
    void KeepPicture_Click();

protected:
    void showEvent(QShowEvent* event) override;

private:
    struct ButtonRow;
    /// What the user is asked for when a file gets its name.
    struct Wish {
        QString title;
        QString prompt;
        QString name; ///< that is proposed
        std::string ending;
    };
    struct Name {
        std::string name;
        std::string file;
    };

    QLayout* makeButtons(const ButtonRow* first, const ButtonRow* last);
    QLayout* makeProgress();
    void reload(const std::string& chosen);
    const PlayKeeper::Entry* chosen() const;
    std::optional<Name> askName(Wish wish, const std::string& own = {});
    bool mayBeCalled(const Name& name, const QString& wish, const std::string& own);
    bool isAtRest() const;
    void warnUnsaved(const std::string& name);
    void tellSaved(const std::string& file);
    void open(const std::string& file, std::int64_t frame);
    void startWork(const QString& note);
    void workOn();
    void showPlay();
    void saveFilm();
    void showPins();
    void openDifference(int row);

    TimeMachine& m_machine;
    PlayKeeper& m_keeper;
    PinWatch& m_pins;
    Desk& m_desk;
    QPushButton* m_keep = nullptr;
    QPushButton* m_film = nullptr;
    QPushButton* m_picture = nullptr;
    QListWidget* m_list;
    QPushButton* m_open = nullptr;
    QPushButton* m_rename = nullptr;
    QPushButton* m_pin = nullptr;
    QPushButton* m_remove = nullptr;
    QLabel* m_pinNote;
    QListWidget* m_pinList;
    QLabel* m_note;
    QProgressBar* m_progress;
    QPushButton* m_stop;
    std::vector<PlayKeeper::Entry> m_entries; ///< that the list shows

    QTimer m_work;
    // What is being done: one of them, or nothing.
    std::unique_ptr<PlayTrial> m_opening;
    std::unique_ptr<FilmMaker> m_filming;
    std::shared_ptr<Recording> m_opened;
    std::string m_openedName;
    std::int64_t m_openedAt = 0; ///< the frame to be shown; 0: the last
    std::string m_filmFile;
};
