#pragma once

#include "forms/Desk.h"
#include "platform/Surface.h"
#include "runtime/ZBMap.h"

#include <QMainWindow>

#include <array>

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

/// Paints coloured maps square by square. Maps are named relative to the folder of the games, so that a game
/// finds a map that was saved as its folder's name, a backslash and a name.
class MapEditor : public QMainWindow
{
    Q_OBJECT
public:
    static constexpr int colours = 7;

    explicit MapEditor(Desk& desk);

    const ZBMap& map() const { return m_map; }

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

    /// Paints one square; false where that changed nothing.
    bool drawOn(int column, int row);
    bool drawStroke(int column, int row);
    void RedrawMap();
    QString exampleFolder() const;
    bool loadBackground(const QString& name);
    void scaleBackground();
    /// A map is there from now on.
    void mapOpened();
    void showTitle();
    void placeNewMapPanel();

    Desk& m_desk;
    ZBMap m_map;
    std::int16_t currentColor = 0;
    bool mouseDown = false;
    std::int32_t lastColumn = -1;
    std::int32_t lastRow = -1;
    bool loading = false;
    bool m_squaresModified = false;
    bool m_legendModified = false; ///< the legend or the background: both outlive a new map
    QString m_fileName;

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
    std::array<ColorSwatch*, colours> m_swatches = {};
    std::array<QLineEdit*, colours> m_legend = {};
};
