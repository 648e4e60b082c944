#pragma once

#include "forms/Desk.h"
#include "platform/qt/QtPictures.h"
#include "support/TemporaryInstallation.h"

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
    CodeEditorForm* createCodeEditor() override { return nullptr; }
    void gameTitleChanged() override
    {
        calls += QStringLiteral("title ") + QString::fromStdString(m_module.CurrentGame.title);
    }
    void exitProgram() override { calls += QStringLiteral("exit"); }

private:
    std::optional<Surface> read(const std::filesystem::path& file) override
    {
        picturesRead.push_back(std::filesystem::relative(file, m_installation.root()).string());
        return m_pictures.read(file);
    }

    Installation m_installation;
    QtPictures m_pictures;
    ZB m_module;
};
