// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Surface.h"

#include <QWidget>

namespace forms
{

/// A picture area: shows a surface that somebody else owns, at its top left corner, one pixel to one. The
/// device pixel ratio is compensated by scaling, without smoothing.
class PictureArea : public QWidget
{
    Q_OBJECT
public:
    explicit PictureArea(const char* objectName, QWidget* parent = nullptr);
    /// `surface` is shown from now on; null shows nothing. Call update() when its pixels have changed.
    void showSurface(const Surface* surface);

protected:
    /// What is shown.
    virtual const Surface* surface() const { return m_surface; }
    void paintEvent(QPaintEvent* event) override;

private:
    const Surface* m_surface = nullptr;
};

} // namespace forms
