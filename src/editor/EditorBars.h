// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

#include <array>

class QFrame;
class QLabel;
class QLineEdit;
class QToolButton;

/// What stands above the text: two toolbars, the display of the cursor's place and the help bar. A prompt
/// takes the place of the toolbars.
class EditorBars : public QWidget
{
    Q_OBJECT

public:
    explicit EditorBars(QWidget* parent = nullptr);

    QToolButton* button(const char* name) const;
    QLineEdit* Minibuffer() const { return m_Minibuffer; }

    /// The caption of the search prompt. Its hint stands to the right of the input field.
    static QString searchPrompt();
    /// The width at which every caption and every prompt can be read whole.
    int wishedWidth() const;
    QSize minimumSizeHint() const override;

    void showToolbars(bool shown);
    void showPosition(int line, int column);
    void showHelp(const QString& usage);
    /// Repainted at once, so that it is seen before the work that it tells about.
    void showStatus(const QString& status);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    class StatusLabel;
    /// Which buttons have a caption. Where there is no room, those beside their icons go first.
    enum Captions { None, BelowIcons, All };

    QFrame* makeHelpBar();
    void measure();
    void setCaptions(Captions captions);
    void fitCaptions();
    void placePrompt();

    QFrame* m_Toolbar1;
    QFrame* m_Toolbar2;
    QFrame* m_helpBar;
    QLabel* m_ShowHelp;
    QLabel* m_ShowCursorPos;
    StatusLabel* m_ShowStatus;
    QLabel* m_Logo;
    QLineEdit* m_Minibuffer;
    std::array<int, All + 1> m_leastWidths{}; ///< with these captions
    Captions m_captions = All;
};
