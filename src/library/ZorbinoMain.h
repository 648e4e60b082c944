#pragma once

#include "runtime/ZB.h"

#include <QCache>
#include <QElapsedTimer>
#include <QPixmap>
#include <QWidget>

#include <vector>

class Desk;
class QAbstractButton;
class QFrame;
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
    explicit ZorbinoMain(Desk& desk, QWidget* parent = nullptr);

    /// Starts to read the large pictures of the next library window, beside whatever the caller does
    /// meanwhile.
    static void readAhead(Desk& desk);

    void DrawGameTile(TileArea& area, const GameRecord& game, int left, int top);
    void DisableTray();
    void EnableTray();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Form_Load(const QImage& picture);
    void GameTray_MouseDown(int x);
    void scrollbar_Change();
    void scrollbar_Scroll();
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
    QAbstractButton* pictureButton(const char* name, const char* iconName, const QString& tip,
                                   void (ZorbinoMain::*click)());
    void explain(QWidget* control, const QString& help);
    void setTrayEnabled(bool on);
    void spreadBackdrop();
    void refreshGames();
    void drawTray();
    void pick(int index);
    void GameTray_Key(int key);
    void centreActionWindow();
    void takeOuterSize(int triesLeft);

    Desk& m_desk;
    std::vector<GameRecord> m_games;
    QCache<QString, QPixmap> m_icons;
    QElapsedTimer m_sincePicked;
    QPixmap m_picture;  ///< the background as it was loaded
    QPixmap m_backdrop; ///< as it fills the window

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
