#pragma once

#include <QWidget>

#include <array>

class Desk;
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
    explicit Properties(Desk& desk, QWidget* parent = nullptr);

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void Form_Load();
    void title_Change();
    void Author_Change();
    void IconScroll_Change();
    void IconScroll_Scroll();
    void IconSelector_Click(int index);
    void Command1_Click();

    void layOut();
    QWidget* makeSelector();
    void showGameIcon();

    static constexpr int selectors = 4;

    Desk& m_desk;
    QLineEdit* m_title;
    QLineEdit* m_author;
    QLabel* m_showIcon;
    QLabel* m_notSaved;
    std::array<QToolButton*, selectors> m_iconSelector = {};
    QScrollBar* m_iconScroll;
    QListWidget* m_iconName;
    bool m_saveFailed = false;
};
