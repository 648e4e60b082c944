// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "forms/Desk.h"
#include "mapeditor/MapPainting.h"
#include "platform/FileStamp.h"
#include "platform/Surface.h"

#include <QMainWindow>

#include <array>
#include <optional>
#include <string>
#include <string_view>

class ColorSwatch;
class MapCanvas;
class MapDisplay;
class QCheckBox;
class QComboBox;
class QFrame;
class QLineEdit;

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
    QFrame* makeNewMapPanel(QWidget* parent);
    QWidget* makeSide();

    Brush brush() const;
    void RedrawMap();
    void scaleBackground();
    void placeNewMapPanel();
    void showTitle();
    void showLegend();
    /// A map is there from now on.
    void mapOpened();

    QString exampleFolder() const;
    std::optional<QString> askName(const QString& title, const QString& prompt, const QString& start);
    /// Whether a map may be saved under the name; else the user has been told why not.
    bool mayBeSavedAs(const QString& name);
    bool mayReplace(const std::string& productPath);
    /// Takes the map out of the bytes of its file; false where they are damaged.
    bool takeMap(const QString& name, std::string_view bytes);
    bool loadBackground(const std::string& productPath);
    bool loadBackgroundOf(const QString& mapName);

    Desk& m_desk;
    MapPainting m_painting;
    int m_currentColor = 0;
    bool m_loading = false;
    QString m_fileName;
    FileStamp m_fileStamp; ///< what the file of that name held

    Surface m_picture; ///< what the display shows
    Surface m_backgroundPicture;
    Surface m_resizedPicture;

    MapCanvas* m_canvas = nullptr;
    MapDisplay* m_display = nullptr;
    forms::PictureArea* m_background = nullptr;
    forms::PictureArea* m_backgroundResized = nullptr;
    QFrame* m_newMap = nullptr;
    QComboBox* m_sizes = nullptr;
    QCheckBox* m_delete = nullptr;
    QCheckBox* m_onlyCurrent = nullptr;
    std::array<ColorSwatch*, mapColorCount> m_swatches = {};
    std::array<QLineEdit*, mapColorCount> m_legend = {};
};
