// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "library/PropertiesDraft.h"

#include <QWidget>

#include <array>

class Desk;
class QFormLayout;
class QLabel;
class QLineEdit;
class QListWidget;
class QScrollBar;
class QToolButton;

/// The game's title, author and icon. Every keystroke saves; there is nothing to confirm.
class Properties : public QWidget
{
    Q_OBJECT
public:
    /// `game` is the record that everybody else sees; what is typed goes into it.
    Properties(Desk& desk, GameRecord& game, QWidget* parent = nullptr);

    void IconScroll_Scroll();

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void Form_Load();
    void title_Change();
    void Author_Change();
    void IconScroll_Change();
    void IconSelector_Click(int index);
    void Command1_Click();

    void layOut();
    void nameControls();
    void addRow(QFormLayout& form, const QString& caption, const char* key, QWidget* field, QWidget* target);
    QWidget* makeIcons();
    QWidget* makeSelector();
    void showGameIcon();
    void listIcons();
    bool mayReplaceStored();
    void showStored();
    void useIcon(const QString& fileName);
    bool hasGoodIcon();

    static constexpr int selectors = 4;

    Desk& m_desk;
    PropertiesDraft m_draft;
    QLineEdit* m_title;
    QLineEdit* m_author;
    QLabel* m_showIcon;
    QLabel* m_notSaved;
    std::array<QToolButton*, selectors> m_iconSelector = {};
    QScrollBar* m_iconScroll;
    QListWidget* m_iconName;
};
