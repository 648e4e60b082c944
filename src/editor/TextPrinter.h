#pragma once

class QFont;
class QPrinter;
class QString;

/// Prints a text in one font from the top of the first page on. Lines wider than the page go on below; pages
/// follow as they are needed. False where the printer could not be used.
[[nodiscard]] bool printText(QPrinter& printer, const QString& text, const QFont& font);
