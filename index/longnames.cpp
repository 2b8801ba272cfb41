#include "index/longnames.h"

#include <QDir>
#include <QFileInfo>

namespace
{

constexpr int longestShortName = 8;
constexpr int lastNumber = 999;

bool isTaken(const QString &path)
{
    const QFileInfo entry(path);
    return entry.exists() || entry.isSymLink();
}

QString withoutSuffix(const QString &path)
{
    const QFileInfo entry(path);
    return path.left(path.size() - entry.fileName().size()) + entry.completeBaseName();
}

/// The graphics file beside the MP3 \a path, whatever the case of its suffix; empty when none.
QString companionOf(const QString &path)
{
    constexpr int letters = 3;
    const QFileInfo entry(path);
    if (entry.suffix().compare(QStringLiteral("mp3"), Qt::CaseInsensitive) != 0)
        return {};
    for (int upper = 0; upper < 1 << letters; ++upper) {
        QString suffix = QStringLiteral("cdg");
        for (int i = 0; i < letters; ++i) {
            if ((upper & 1 << i) != 0)
                suffix[i] = suffix.at(i).toUpper();
        }
        QString companion = withoutSuffix(path) + u'.' + suffix;
        if (QFileInfo(companion).isFile())
            return companion;
    }
    return {};
}

/// The name that \a companion gets when its MP3 becomes \a shortPath.
QString shortCompanion(const QString &companion, const QString &shortPath)
{
    return withoutSuffix(shortPath) + u'.' + QFileInfo(companion).suffix();
}

QString shortBase(const QString &base, int number)
{
    const int width = number < 10 ? 6 : number < 100 ? 5 : 4;
    QString shortened;
    for (const QChar character : base) {
        if (shortened.size() == width)
            break;
        if (!QStringLiteral(" .'-").contains(character))
            shortened += character;
    }
    return shortened + QStringLiteral("-%1").arg(number);
}

} // namespace

bool LongNames::isLong(const QString &path)
{
    const QStringView name = QStringView(path).sliced(path.lastIndexOf(u'/') + 1);
    const qsizetype dot = name.lastIndexOf(u'.');
    return (dot < 0 ? name.size() : dot) > longestShortName;
}

QString LongNames::freeShortPath(const QString &path)
{
    const QFileInfo entry(path);
    const QString folder = path.left(path.size() - entry.fileName().size());
    const QString suffix = entry.isDir() ? QString() : u'.' + entry.suffix();
    const QString companion = companionOf(path);
    for (int number = 1; number <= lastNumber; ++number) {
        QString candidate = folder + shortBase(entry.completeBaseName(), number) + suffix;
        if (!isTaken(candidate) &&
            (companion.isEmpty() || !isTaken(shortCompanion(companion, candidate))))
            return candidate;
    }
    return {};
}

bool LongNames::rename(const QString &path, const QString &shortPath)
{
    // Not by QFile: where its rename fails it copies, and a full memory would keep half a song.
    QDir folder;
    const QString companion = companionOf(path);
    if (!folder.rename(path, shortPath))
        return false;
    if (companion.isEmpty() || folder.rename(companion, shortCompanion(companion, shortPath)))
        return true;
    folder.rename(shortPath, path);
    return false;
}
