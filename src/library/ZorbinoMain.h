// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "forms/ActionRow.h"
#include "games/GameRecord.h"

#include <QCache>
#include <QElapsedTimer>
#include <QImage>
#include <QPixmap>
#include <QWidget>

#include <array>
#include <span>
#include <vector>

class Desk;
class Installation;
class PictureReader;
class QAbstractButton;
class QFrame;
class QLabel;
class QLayout;
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

    /// One of the two pictures of the library, by chance; a null image where it cannot be read. In any
    /// thread.
    static QImage readBackdrop(const Installation& installation, PictureReader& pictures);
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
    void Form_Load(const QImage& picture);
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
    QFrame* makeActionWindow();
    struct GameAction;
    static std::span<const GameAction> gameActions();
    QLayout* makeActions(QWidget* panel);
    int longestHelp() const;
    QAbstractButton* toolButton(const forms::ActionOf<ZorbinoMain>& row, QSize iconSize);
    void explain(QWidget* control, const QString& help);
    void setTrayEnabled(bool on);
    void spreadBackdrop();
    void refreshGames();
    void redrawGames();
    void drawTray();
    void pick(int index);
    void sayNotEnabled();
    void GameTray_Key(int key);
    void centreActionWindow();
    void takeOuterSize();

    Desk& m_desk;
    std::vector<GameRecord> m_games;
    QCache<QString, QPixmap> m_icons;
    QElapsedTimer m_sincePicked;
    QPixmap m_picture;  ///< the background as it was loaded
    QPixmap m_backdrop; ///< as it fills the window
    bool m_hasOuterSize = false;

    TileArea* m_tray = nullptr;
    QScrollBar* m_scrollbar = nullptr;
    QLabel* m_tempPic = nullptr;
    QFrame* m_actionWindow = nullptr;
    TileArea* m_gamePicture = nullptr;
    QLabel* m_help = nullptr;
    QAbstractButton* m_work = nullptr;
    QAbstractButton* m_createButton = nullptr;
    QAbstractButton* m_unPackButton = nullptr;
    QAbstractButton* m_specialButton = nullptr;
};
