#pragma once

#include <QString>

/// The name under which a picture comes into a game, so that a program can write it in quotes: lower case, no
/// blanks and nothing but plain letters, digits, "-" and "_". Never the name of an icon. Empty where the
/// ending of `fileName` is of none of the kinds that a game can show.
QString writablePictureName(const QString& fileName);
