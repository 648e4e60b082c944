// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "forms/Desk.h"
#include "mapeditor/MapFiles.h"
#include "mapeditor/MapPainting.h"
#include "platform/Surface.h"

#include <QMainWindow>

#include <optional>

class ColorLegend;
class MapCanvas;
class MapDisplay;
class NewMapPanel;

namespace forms
{
class PictureArea;
}

/// Paints colored maps square by square. Maps are named relative to the folder of the games, so that a game
/// finds a map that was saved as its folder's name, a backslash and a name.
class MapEditor : public QMainWindow
{
    Q_OBJECT
public:
    explicit MapEditor(Desk& desk);

    const ZBMap& map() const { return m_painting.map(); }

    void Form_Load();
    void Form_Resize();
    void FileNew_Click();
    void CreateNewMap_Click();
    void FileOpen_Click();
    void FileSave_Click();
    void ViewBackground_Click();
    void ColorSelect_Click(int index);
    void LegendText_Change(int index);
    void OnlyCurrent_Click();
    void Display_MouseDown(int x, int y);
    void Display_MouseMove(int x, int y);
    void Display_MouseUp();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void makeMenus();
    void makePage();
    void placeToolbar();

    Brush brush() const;
    void RedrawMap();
    void scaleBackground();
    void showTitle();
    /// A map is there from now on.
    void mapOpened();
    void showBackground(Surface picture);

    QString exampleFolder() const;
    std::optional<QString> askName(const QString& title, const QString& prompt, const QString& start);
    /// Whether a map may be saved under the name; else the user has been told why not, or does not want it.
    bool maySaveAs(const QString& name);
    void showLoaded(const QString& name, MapLoad result);

    Desk& m_desk;
    MapPainting m_painting;
    MapFiles m_files;
    int m_currentColor = 0;
    bool m_loading = false;

    Surface m_picture; ///< what the display shows
    Surface m_backgroundPicture;
    Surface m_resizedPicture;

    MapCanvas* m_canvas = nullptr;
    MapDisplay* m_display = nullptr;
    forms::PictureArea* m_background = nullptr;
    forms::PictureArea* m_backgroundResized = nullptr;
    NewMapPanel* m_newMap = nullptr;
    ColorLegend* m_legend = nullptr;
};
