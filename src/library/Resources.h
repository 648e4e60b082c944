// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "games/GameRecord.h"

#include <QFileSystemWatcher>
#include <QPixmap>
#include <QTimer>
#include <QWidget>

class BackgroundPreviews;
class Desk;
class QBoxLayout;
class QListWidget;
class QPushButton;

/// The pictures of a game: its backgrounds with previews, and its sprite graphics, which are drawn from here.
class Resources : public QWidget
{
    Q_OBJECT
public:
    Resources(Desk& desk, GameRecord game, QWidget* parent = nullptr);

    void ListBackgrounds();
    void ListSprites();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Form_Load();
    void AddBackground_Click();
    void Command1_Click();
    void NewSprite_Click();
    void EditSprite_Click();
    void RemoveSprite_Click();

    void layOut();
    void fitScreen();
    QWidget* makeBackgrounds();
    QWidget* makeSprites();
    QPushButton* listButton(const char* name, const char* iconName, const QString& caption, QBoxLayout& box,
                            void (Resources::*click)());
    void relist();
    void backgroundSelected();
    void enableButtons();
    QPixmap previewOf(const QString& name);
    void addPicture(const QString& file);
    /// Writes a picture into the game, asks before it replaces one, and tells where it could not.
    bool writePicture(const QString& name, const std::string& bytes);
    std::string gameFile(const QString& name) const;
    bool mayRemove(const QString& what, const QString& kind, const QString& name);
    /// Deletes files of the game; tells the user where one stays.
    void removeFiles(const QStringList& names, const QString& shownName);

    Desk& m_desk;
    const GameRecord m_game; ///< as it was when the window opened: only its folder matters
    QFileSystemWatcher m_watcher;
    QTimer m_changesSettle;
    QListWidget* m_backgroundNames;
    QPushButton* m_removeBackground = nullptr;
    BackgroundPreviews* m_previews;
    QListWidget* m_spriteNames;
    QPushButton* m_editSprite = nullptr;
    QPushButton* m_removeSprite = nullptr;
};
