// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "forms/Desk.h"
#include "play/GameWindow.h"
#include "play/spy/SpyWindow.h"
#include "recording/Questions.h"
#include "recording/Recording.h"
#include "recording/Replay.h"
#include "recording/RunIndex.h"
#include "recording/SpriteStory.h"
#include "runtime/ZBInterpreter.h"

#include <QObject>
#include <QTimer>

#include <memory>
#include <optional>
#include <string>
#include <vector>

/// Records every run of the game editor and takes its windows to any moment of the last one: the game window
/// shows the picture of that moment, the spy window its history, state and variables. While a run is on it is
/// paused for that, and "now" is where it waits.
class TimeMachine : public QObject
{
    Q_OBJECT
public:
    struct Windows {
        GameWindow& game;
        SpyWindow& spy;
        CodeEditorForm& code;
    };
    TimeMachine(ZBInterpreter& interpreter, Windows windows, PictureReader& pictures);
    ~TimeMachine() override;

    /// Nothing has been played, or nothing can be shown at this instant.
    bool isEmpty() const { return recording().isEmpty(); }
    /// What is shown: the last run, or another that is shown instead of it.
    const Recording& recording() const { return m_other ? *m_other : m_recording; }
    PictureReader& pictures() { return m_pictures; }
    bool isInPast() const { return m_isInPast; }
    /// The moment that is shown; outside the past the last.
    Moment moment();
    Moment last();
    /// The line that is about to run there; 0 between frames.
    int line();
    /// What is known of the run that is shown; null where there is none. It is found out bit by bit while no
    /// frame is to be played.
    const RunIndex* index() const { return m_index.get(); }
    /// Begins to find that out, where the run waits or is over.
    void startIndexing();
    /// What happened in the frame that one sees at a moment.
    Answers whatHappened(Moment moment);
    /// The card of the sprite at a place of the field, in pixels, at the moment that is shown. Nothing where
    /// there is none, or while the game runs.
    std::optional<SpriteCard> cardAt(QPoint place);

    /// A run is on, so that there is a now to come back to.
    bool isOn() const { return m_interpreter.isOn() && !m_other; }

    /// Shows a moment. `resting`: the user stays there, so that all of the history is wanted.
    void goTo(Moment moment, bool resting = true);
    void stepForward();
    void stepBack();
    void moveFrames(std::int64_t frames);
    /// Back to where the run waits, or to the end of one that is over.
    void toNow();
    /// Shows no past any more: nobody looks.
    void leave();
    /// A new run is about to begin: nothing is left of the last.
    void forget();
    /// The run that is shown goes on by itself at this instant.
    bool isRunning() const { return isOn() && !m_interpreter.StepMode(); }
    /// What the past is shown with has changed: the boxes of the spy window.
    void refresh();
    void setShowMap(bool on);
    /// Whether boxes and names are drawn over the field wherever it stands still.
    void setShowBoxes(bool on);

    /// The run goes on from the moment that is shown, with the keys that are held now; what came after it is
    /// kept as the old ending until the next run. False where that cannot be done now.
    bool goOnFromHere(bool paused = false);
    bool hasOldEnding() const { return m_oldEnding != nullptr; }
    bool isOldEndingShown() const { return m_other && m_other == m_oldEnding; }
    void showOldEnding(bool on);
    /// Shows a kept play, which goes through the program as it is now, instead of the last run; null leads
    /// back to that.
    void showRun(std::shared_ptr<const Recording> play, const std::string& name = {});
    bool isPlayShown() const { return m_other && m_other != m_oldEnding; }
    /// The name of the play that is shown.
    const std::string& playName() const { return m_playName; }
    /// The program as it would be played now.
    std::string programText() const { return m_windows.code.text(); }
    /// The picture of the moment that is shown. There is one where a run waits or is over.
    const Surface& picture();
    /// A run that goes on waits from now on.
    void pause();

    /// The codes of the keys that are down at the moment that is shown.
    std::vector<int> keysDown();
    /// Presses or releases a key there. In the past the run then waits at that moment as now.
    void toggleKey(int code);

Q_SIGNALS:
    /// Another moment is shown, or another run.
    void changed();
    /// A new run is about to begin, which nobody is to disturb.
    void forgotten();
    /// The picture of the game was clicked there, in pixels.
    void pictureClicked(QPoint place);
    /// All is known of the run that is shown.
    void indexed();
    /// Another run is shown than before.
    void runShown();

private:
    Replay& replay();
    void show(bool resting);
    std::vector<std::string> explanations(const std::vector<std::string>& history);
    /// How much of a run there is.
    struct Extent {
        std::uint64_t version = 0;
        std::int64_t frames = -1;
        bool isBroken = false;

        bool operator==(const Extent&) const = default;
    };
    static Extent extentOf(const Recording& recording);
    void indexOn();
    void showLineMarks();
    void showBoxes();
    void showOther(std::shared_ptr<const Recording> other);
    void countLines();

    ZBInterpreter& m_interpreter;
    Windows m_windows;
    PictureReader& m_pictures;
    Recording m_recording;
    std::shared_ptr<Recording> m_oldEnding;
    std::shared_ptr<const Recording> m_other; ///< that is shown instead of the last run
    std::string m_playName;
    std::uint64_t m_counted = 0; ///< sum of the program whose lines the code editor counts; 0: the last run's
    bool m_linesFit = true;      ///< they are those of the run that is shown
    std::unique_ptr<Replay> m_replay; ///< of what is shown; made when it is first asked for
    std::uint64_t m_replayed = 0;     ///< the version of the recording that it was made for
    bool m_isInPast = false;
    bool m_showsMap = false;
    bool m_showsBoxes = false;
    std::vector<std::string> m_variables;       ///< those that are shown
    std::vector<std::string> m_variablesBefore; ///< at the moment that was shown before
    Moment m_variablesAt{-1, 0};                ///< the moment that they are of
    QTimer m_rest;                              ///< after which all of the history is shown
    std::unique_ptr<RunIndex> m_index;
    QTimer m_indexing;
    Extent m_known; ///< what the index is of
};
