// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "forms/Desk.h"
#include "platform/pictures/PictureFiles.h"
#include "support/ScratchFolder.h"

#include <QStringList>

#include <filesystem>
#include <string>
#include <vector>

/// Writes down what the windows ask for, and notes which pictures they read.
class PretendDesk : public Desk, private PictureReader
{
public:
    explicit PretendDesk(const std::filesystem::path& root)
        : m_installation(root)
    {
    }

    QStringList calls;
    bool mayChange = true; ///< the answer to whether a game may be changed that somebody else works on
    std::vector<std::string> picturesRead;

    ZB& module() override { return m_module; }
    const Installation& installation() override { return m_installation; }
    PictureReader& pictures() override { return *this; }
    void LogProgress(const QString& message) override { calls += message; }
    void showLibrary() override { calls += QStringLiteral("library"); }
    void showGameEditor() override { calls += QStringLiteral("game editor"); }
    void showMapEditor() override { calls += QStringLiteral("map editor"); }
    void showSpriteEditor(const QString& name) override { calls += QStringLiteral("sprite editor ") + name; }
    void showProperties() override { calls += QStringLiteral("properties"); }
    void showResources() override { calls += QStringLiteral("resources"); }
    bool closeGameWindows() override { return true; }
    bool mayChangeGame(QWidget* /*parent*/) override
    {
        if (!mayChange)
            calls += QStringLiteral("may change");
        return mayChange;
    }
    CodeEditorForm* createCodeEditor(const GameRecord& /*game*/) override { return nullptr; }
    void gameTitleChanged() override
    {
        calls += QStringLiteral("title ") + QString::fromStdString(m_module.CurrentGame.title);
    }
    void exitProgram() override { calls += QStringLiteral("exit"); }

private:
    std::optional<Surface> decode(std::string_view bytes) override { return m_pictures.decode(bytes); }
    std::optional<Surface> read(const std::filesystem::path& file) override
    {
        picturesRead.push_back(std::filesystem::relative(file, m_installation.root()).string());
        return m_pictures.read(file);
    }

    Installation m_installation;
    PictureFiles m_pictures;
    ZB m_module;
};
