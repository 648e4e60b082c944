#pragma once

#include "forms/Desk.h"
#include "play/SpriteFiles.h"
#include "play/SpriteModel.h"

#include <QMainWindow>

#include <string>

class ColourPlate;
class FrameView;
class PaletteView;
class QAction;
class QComboBox;
class QLabel;
class QScrollArea;
class QSpinBox;
class QTimer;
class StripView;

/// The paint window for the frames of one sprite graphic of the current game.
class SpriteEditor : public QMainWindow
{
    Q_OBJECT
public:
    /// An empty name starts a new graphic.
    SpriteEditor(Desk& desk, const QString& graphicName);
    ~SpriteEditor() override;

    /// Asks what to do with unsaved work; false where the user wants to stay.
    bool mayClose();
    const SpriteModel& model() const { return m_model; }
    const QString& graphicName() const { return m_name; }

    void CurrentFrame_MouseDown(Qt::MouseButtons buttons, Qt::KeyboardModifiers shift, int x, int y);
    void CurrentFrame_MouseMove(Qt::MouseButtons buttons, Qt::KeyboardModifiers shift, int x, int y);
    void CurrentFrame_MouseUp(Qt::MouseButtons buttons, Qt::KeyboardModifiers shift, int x, int y);
    void CurrentFrame_LostFocus();
    void palettep_MouseMove(Pixel colour);

Q_SIGNALS:
    /// A graphic of the current game has been written.
    void saved(const QString& graphicName);

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    enum Tool { PointerTool = 1, PencilTool = 2, FillTool = 3 };
    static constexpr int noStroke = -100;
    struct Command;

    void Form_Load(const QString& graphicName);
    void makeCommands();
    QAction* command(const char* name) const;
    void makeToolbar();
    QWidget* makeColours();
    QWidget* makeStage();
    QWidget* makeSide();
    QWidget* makeFrames();
    void connectModel();

    void newSprite();
    void openSprite();
    bool saveSprite();
    bool saveSpriteAs();
    bool saveAs(const QString& name);
    /// Takes a graphic of the game in; unless the answer is Done everything stays as it is.
    SpriteLoad load(const QString& name);
    void moreColours();
    void setTool(int chosen);
    void setSwatch(Pixel colour);
    void setFrameSize();
    /// Ends what is still under way: a stroke, a frame size that is being typed.
    void finishInput();
    void endStroke();

    /// Brings every view up to date with the model.
    void refresh();
    /// After a change on the current frame only.
    void refreshPixels();
    void refreshState();
    void placeCurrentFrame();
    void showCurrentOnStrip();
    void preview_Timer();
    void updatePreviewTimer();
    void showPosition(int x, int y);

    Desk& m_desk;
    std::string m_folder; ///< of the game that this window was opened for
    SpriteModel m_model;
    QString m_name;
    bool m_discardAllowed = false; ///< the user has said that unsaved work may go

    std::int32_t lastX = noStroke;
    std::int32_t lastY = noStroke;
    std::int32_t tool = PencilTool;

    FrameView* m_currentFrame = nullptr;
    QWidget* m_stage = nullptr;
    StripView* m_strip = nullptr;
    QScrollArea* m_stripArea = nullptr;
    PaletteView* m_palette = nullptr;
    ColourPlate* m_swatch = nullptr;
    QLabel* m_preview = nullptr;
    QComboBox* m_kind = nullptr;
    QSpinBox* m_width = nullptr;
    QSpinBox* m_height = nullptr;
    QLabel* m_hint = nullptr;
    QLabel* m_nameLabel = nullptr;
    QLabel* m_position = nullptr;
    QTimer* m_previewTimer = nullptr;
    int m_previewFrame = 0;
};
