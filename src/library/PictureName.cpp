#include "library/PictureName.h"

#include <QFileInfo>

namespace
{

constexpr int longestStem = 60;

QString kindOf(const QString& fileName)
{
    const QString suffix = QFileInfo(fileName).suffix().toLower();
    if (suffix == u"jpeg" || suffix == u"jpe")
        return QStringLiteral("jpg");
    return suffix == u"bmp" || suffix == u"gif" || suffix == u"jpg" ? suffix : QString();
}

QString stemOf(const QString& fileName)
{
    QString stem;
    // Taken apart, "ä" is an "a" with two dots behind it, and the dots are dropped.
    for (const QChar c :
         QFileInfo(fileName).completeBaseName().normalized(QString::NormalizationForm_KD).toLower()) {
        const bool plain = (c >= u'a' && c <= u'z') || (c >= u'0' && c <= u'9') || c == u'-' || c == u'_';
        if (plain)
            stem += c;
        else if (c == u'ß')
            stem += u"ss";
        else if (c.isSpace() || c == u'.')
            stem += u'_';
    }
    stem.truncate(longestStem);
    if (stem.isEmpty())
        return QStringLiteral("picture");
    return stem == u"icon" ? QStringLiteral("icon_picture") : stem;
}

} // namespace

QString writablePictureName(const QString& fileName)
{
    const QString kind = kindOf(fileName);
    return kind.isEmpty() ? QString() : stemOf(fileName) + u'.' + kind;
}
