// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <QHash>
#include <QPixmap>
#include <QStringList>
#include <QWidget>

#include <array>
#include <functional>

class QLabel;
class QScrollBar;
class QToolButton;

/// Four pictures of a list of backgrounds side by side, and the scroll bar that chooses which.
class BackgroundPreviews : public QWidget
{
    Q_OBJECT
public:
    /// How large the pictures are where the screen has room for them.
    static constexpr QSize pictureSize{120, 90};

    /// `read` gives the picture of a name, null where it cannot be read; it is asked once for each name.
    BackgroundPreviews(std::function<QPixmap(const QString& name)> read, QWidget* parent);

    /// Makes all pictures together narrower by this, as far as they can still be told from each other.
    void shrinkBy(int width);
    /// Shows other backgrounds, or what has become of the same ones.
    void setNames(const QStringList& names);
    /// Scrolls as little as shows this one.
    void bringIntoView(int row);

Q_SIGNALS:
    void picked(int row);

private:
    void addPreview(int index);
    void setPictureSize(int index, QSize size);
    void BackgroundScroll_Change();
    void showPreview(int index);
    QPixmap pictureOf(const QString& name);

    static constexpr int previews = 4;

    std::function<QPixmap(const QString&)> m_read;
    QStringList m_names;
    QHash<QString, QPixmap> m_pictures;
    QScrollBar* m_scroll;
    std::array<QToolButton*, previews> m_showBackground = {};
    std::array<QLabel*, previews> m_showBackgroundTitle = {};
};
