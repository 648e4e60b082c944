#pragma once

#include "forms/Desk.h"

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <filesystem>
#include <fstream>
#include <string>

/// A desk with one game folder and nobody around it; for the code editor.
class EditorDesk : public Desk, public PictureReader
{
public:
    EditorDesk()
    {
        std::filesystem::create_directories(folder());
        m_module.CurrentGame = {"", "My Game", "00000001\\"};
    }

    std::filesystem::path folder() const { return root() / "games" / "00000001"; }
    void writeCode(const std::string& bytes) const
    {
        std::ofstream(folder() / "code.txt", std::ios::binary) << bytes;
    }
    std::string readCode() const
    {
        std::ifstream in(folder() / "code.txt", std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

    QStringList progress;

    ZB& module() override { return m_module; }
    const Installation& installation() override { return m_installation; }
    PictureReader& pictures() override { return *this; }
    std::optional<Surface> read(const std::filesystem::path&) override { return std::nullopt; }
    void LogProgress(const QString& message) override { progress.append(message); }
    void showLibrary() override {}
    void showGameEditor() override {}
    void showMapEditor() override {}
    void showSpriteEditor(const QString&) override {}
    void showProperties() override {}
    void showResources() override {}
    bool closeGameWindows() override { return true; }
    CodeEditorForm* createCodeEditor() override { return nullptr; }
    void gameTitleChanged() override {}
    void exitProgram() override {}

private:
    std::filesystem::path root() const { return m_folder.path().toStdString(); }

    QTemporaryDir m_folder;
    ZB m_module;
    Installation m_installation{root()};
};
