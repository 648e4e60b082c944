// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "forms/ActionRow.h"
#include "games/GameRecord.h"
#include "library/Backdrop.h"

#include <QCache>
#include <QImage>
#include <QPixmap>
#include <QWidget>

#include <array>
#include <vector>

class ActionWindow;
class Desk;
class QAbstractButton;
class QLabel;
class QScrollBar;
class TileArea;

/// The library: a tray with the user's games, a panel for the one that was picked, and what can be done with
/// the library as a whole. Every opening reads the list of games anew; icons are read when they come into
/// view.
class ZorbinoMain : public QWidget
{
    Q_OBJECT
public:
    /// Without a backdrop it reads one itself.
    explicit ZorbinoMain(Desk& desk, const QImage& backdrop = QImage());

    /// The pictures of the big buttons, and how large they are.
    static constexpr std::array buttonIcons = {"create", "unpack", "special", "exit"};
    static constexpr QSize buttonPicture{68, 68};

    void DrawGameTile(TileArea& area, const GameRecord& game, int left, int top);
    void DisableTray();
    void EnableTray();
    void scrollbar_Scroll();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Form_Load();
    void GameTray_MouseDown(int x);
    void scrollbar_Change();
    void Work_Click();
    void PlayGame_Click();
    void delete_Click();
    void Pack_Click();
    void Cancel_Click();
    void CreateButton_Click();
    void UnPackButton_Click();
    void SpecialButton_Click();
    void LaunchMapEditor_Click();
    void ExitButton_Click();

    void layOut();
    QWidget* makeToolRow();
    ActionWindow* makeActionWindow();
    QAbstractButton* toolButton(const forms::ActionOf<ZorbinoMain>& row, QSize iconSize);
    void setTrayEnabled(bool on);
    void spreadBackdrop();
    void refreshGames();
    void redrawGames();
    void drawTray();
    void pick(int index);
    void sayNotEnabled();
    void GameTray_Key(int key);
    void takeOuterSize();

    Desk& m_desk;
    std::vector<GameRecord> m_games;
    QCache<QString, QPixmap> m_icons;
    const Backdrop m_picture;
    QPixmap m_backdrop; ///< the picture as it fills the window
    bool m_hasOuterSize = false;

    TileArea* m_tray = nullptr;
    QScrollBar* m_scrollbar = nullptr;
    QLabel* m_tempPic = nullptr;
    ActionWindow* m_actionWindow = nullptr;
    QAbstractButton* m_createButton = nullptr;
    QAbstractButton* m_unPackButton = nullptr;
    QAbstractButton* m_specialButton = nullptr;
};
