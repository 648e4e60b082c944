// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "forms/Desk.h"
#include "games/GameLock.h"
#include "platform/pictures/PictureFiles.h"

#include <QPointer>

#include <memory>
#include <vector>

class GameEditor;
class MapEditor;
class Properties;
class Resources;
class SpriteEditor;
class Tracker;
class ZorbinoMain;

/// The program around the windows: it owns what they share and opens each of them. At most one of a kind is
/// open, one sprite editor for each graphic.
class Workbench : public Desk
{
public:
    explicit Workbench(const std::filesystem::path& root);
    ~Workbench() override;

    Workbench(const Workbench&) = delete;
    Workbench& operator=(const Workbench&) = delete;

    /// Opens the library, with a backdrop that has been read before, and tells where nothing can be saved.
    void start(const QImage& backdrop);
    /// Opens the progress window; messages that come before it are lost.
    void showTracker();
    /// Opens each window once, on the first game of the library; false where one does not come up.
    bool openEachWindow();

    ZB& module() override { return m_module; }
    const Installation& installation() override { return m_installation; }
    PictureReader& pictures() override { return m_pictures; }
    void LogProgress(const QString& message) override;
    void showLibrary() override;
    void showGameEditor() override;
    void showMapEditor() override;
    void showSpriteEditor(const QString& graphicName) override;
    void showProperties() override;
    void showResources() override;
    bool closeGameWindows() override;
    bool mayChangeGame(QWidget* parent) override;
    CodeEditorForm* createCodeEditor(const GameRecord& game) override;
    void gameTitleChanged() override;
    void exitProgram() override;

private:
    void lockGame();

    Installation m_installation;
    PictureFiles m_pictures;
    ZB m_module;
    GameLock m_gameLock;
    bool m_mayChangeShared = false; ///< the user wants to save into a game that is open elsewhere
    std::unique_ptr<Tracker> m_tracker;
    QPointer<ZorbinoMain> m_library;
    QPointer<GameEditor> m_gameEditor;
    QPointer<MapEditor> m_mapEditor;
    QPointer<Properties> m_properties;
    QPointer<Resources> m_resources;
    std::vector<QPointer<SpriteEditor>> m_spriteEditors;
};
