// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

class QLabel;

/// The progress window: one line that says what the program did last. It is repainted at once, so that the
/// line stays readable when the next step hangs. It lies below the other windows, takes no keyboard and never
/// keeps the program alive on its own.
class Tracker : public QWidget
{
    Q_OBJECT
public:
    explicit Tracker(QWidget* parent = nullptr);

    void showProgress(const QString& message);

protected:
    void showEvent(QShowEvent* event) override;

private:
    QLabel* m_lastgood;
};
