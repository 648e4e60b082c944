#pragma once

#include "platform/Surface.h"

#include <QFont>
#include <QIcon>
#include <QString>
#include <QWidget>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

class QAbstractButton;

// What all windows share: icons, message boxes, fonts, conversions, and the widget that shows a picture of
// the core.
namespace forms
{

QString fromUtf8(std::string_view text);
std::string toUtf8(const QString& text);

/// The text with its endless lines cut: messages quote whatever a program holds, and laying a megabyte out
/// takes minutes.
QString withoutEndlessLines(const QString& text);

/// The icon assets/ui/<name>.svg, crisp at every scale.
QIcon icon(const char* name);

/// Begins to draw icons of `size` beside the work of the caller, so that they are there when they are first
/// shown.
void drawAhead(const std::vector<const char*>& names, QSize size);

/// Sets name, accessible name, tip and icon of a button in one go; the tip becomes the accessible name where
/// a caption is missing. Enter presses it.
void dressButton(QAbstractButton& button, const char* objectName, const char* iconName, const QString& tip);

/// Lets Enter press a button that has the focus. Desktops differ in whether the toolkit does that.
void letEnterPress(QAbstractButton& button);

/// "Courier New" by name, or the metric-compatible fixed font that the system has.
QFont fixedFont(int points);

/// Window icon, style sheet and palette for the whole program; call once. Follows a light or dark desktop.
void dressApplication();

/// Shows a window, brought back from a minimised state and above the others.
void bringUp(QWidget& window);

/// Message boxes with the product's title and icon. Escape does what Cancel (or OK) does.
void tell(QWidget* parent, const QString& text);
enum class Answer { Yes, No, Cancel };
Answer askYesNoCancel(QWidget* parent, const QString& title, const QString& text);
/// A question with OK and Cancel; true for OK.
bool askOk(QWidget* parent, const QString& title, const QString& text);
/// An input box; nothing where it was cancelled or the answer is empty.
std::optional<QString> askText(QWidget* parent, const QString& title, const QString& prompt,
                               const QString& start = QString());
/// A box with all colours there are; nothing where it was cancelled.
std::optional<Pixel> askColour(QWidget* parent, const QString& title, Pixel start);

/// A picture area: shows a surface that somebody else owns, at its top left corner, one pixel to one. The
/// device pixel ratio is compensated by scaling, without smoothing.
class PictureArea : public QWidget
{
    Q_OBJECT
public:
    explicit PictureArea(const char* objectName, QWidget* parent = nullptr);
    /// `surface` is shown from now on; null shows nothing. Call update() when its pixels have changed.
    void showSurface(const Surface* surface);
    const Surface* surface() const { return m_surface; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Surface* m_surface = nullptr;
};

} // namespace forms
