// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "language/ParseFault.h"
#include "platform/FileSource.h"
#include "recording/PlayFile.h"
#include "recording/PlaySums.h"
#include "recording/PlayedRun.h"
#include "recording/Recording.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

/// The play of a recording. Nothing where there is no run, or one that is too long to be kept.
std::optional<PlayFile> keepPlay(const Recording& recording, PictureReader& pictures, PlayLabel label);

/// A game at the beginning of a run.
struct PlayStart {
    RunState beginning;
    std::shared_ptr<RunFiles> files;
};

/// Starts a program text (lines separated by CR LF) with the files of the folder `path` and the seed of a
/// play. Nothing where it has a fault, which the reporter knows, or needs more memory than there is.
std::optional<PlayStart> startPlay(const PlayFile& play, std::string text, const FileSource& files,
                                   const std::string& path, PictureReader& pictures, ParseReporter& reporter);

/// How a play went in the game as it is now.
struct PlayVerdict {
    bool isProgramChanged = false;
    std::vector<std::string> files; ///< a sentence for each that is not as it was
    std::int64_t otherFrame = 0;    ///< from this one on it goes another way; 0: from none
    int line = 0;                   ///< of the program where that comes from; 0: it has not changed
    std::int64_t otherState =
        0; ///< so many frames were over when the state's sum was first another; 0: never
    std::optional<RuntimeFault> otherMistake;  ///< that it did not end with when it was kept
    std::int64_t mistakeFrame = 0;             ///< the frame that came upon it
    std::optional<RuntimeFault> missedMistake; ///< that it ended with then, but does not any more

    /// For whoever plays it, also where the program has changed.
    bool goesTheSame() const { return otherFrame == 0 && !otherMistake && !missedMistake; }
    /// Nothing at all is other than it was.
    bool allMet() const { return goesTheSame() && otherState == 0 && !isProgramChanged && files.empty(); }

    /// "From frame 214 on this play goes another way (line 31)", or how else it differs, without a full stop;
    /// empty where it goes the same.
    std::string difference() const;
    /// What is not as it was, a sentence each.
    std::vector<std::string> sentences() const;
};

/// Plays a kept play in the game as it is now and compares the two as it goes. What it costs may be spread:
/// it plays as many frames at a time as it is told to.
class PlayCheck
{
public:
    PlayCheck(const PlayFile& play, const PlayStart& start, PictureReader& pictures);
    /// Records what is played.
    void record(Recording& recording);
    /// Leaves out what comes behind so many frames.
    void setUntil(std::int64_t frame) { m_until = frame; }

    /// Plays at most so many frames. False when there is no more to play.
    bool play(std::int64_t frames);
    /// Up to here.
    const PlayVerdict& verdict() const { return m_verdict; }
    /// As far as it has been played.
    PlayedRun& run() { return m_run; }

private:
    void compareFile(const PlayedFile& file);
    bool isOver() const;
    void playFrame();
    void compareFrame();
    void compareMistakes(const std::optional<RuntimeFault>& found);
    void goesAnotherWay(std::int64_t frame);
    void remember();
    void end();

    const PlayFile& m_play;
    PlayStart m_start;
    PictureReader& m_pictures;
    PlayedRun m_run;
    PlayWay m_way;
    PlayVerdict m_verdict;
    Recording* m_recording = nullptr;
    std::int64_t m_until = PlayFile::mostFrames + 1;
    std::int64_t m_frames = 0; ///< that came to their end
    bool m_isOver = false;
    std::shared_ptr<const RunState> m_lastState; ///< at the last sum: from there a line is looked for
};
