#include "index/songinfoindex.h"

#include "base/lettercase.h"

#include <QTextCodec>

#include <algorithm>
#include <ctime>

namespace brisel
{

namespace
{

/// QStringEncoder would write 0x7F for characters that the page lacks; the player's files have '?'.
QTextCodec *pathCodec()
{
    static QTextCodec *const codec = QTextCodec::codecForName("IBM 850");
    return codec;
}

/// Returns true for a text of ASCII letters, which are equal in all code pages.
bool isPlain(const QString &text)
{
    return std::all_of(text.cbegin(), text.cend(),
                       [](QChar character) { return character >= u' ' && character <= u'~'; });
}

/// The stored key; it is computed if the path was set without it.
QByteArray keyOf(const SongInfoIndex &song)
{
    return song.pathKey.isEmpty() ? pathSortKey(song.path) : song.pathKey;
}

int compareTexts(const QString &a, const QString &b)
{
    return QString::compare(a, b, Qt::CaseInsensitive);
}

} // namespace

QString SongInfoIndex::typeName(quint8 type)
{
    static const QStringList names{QStringLiteral("MIDI"), QStringLiteral("MP3"),
                                   QStringLiteral("ZB3"), QStringLiteral("ZB4"),
                                   QStringLiteral("ZB5")};
    return names.value(type, QStringLiteral("?"));
}

void SongInfoIndex::setPath(const QString &newPath)
{
    path = newPath;
    pathKey = pathSortKey(newPath);
}

// QDateTime would access the system's time zone file for each song.
void SongInfoIndex::setModified(qint64 seconds)
{
    const time_t moment = seconds;
    struct tm local {
    };
    ::localtime_r(&moment, &local);
    const auto number = [](int first, int second, int third) {
        return static_cast<quint32>(first) * 10000 + static_cast<quint32>(second) * 100 +
               static_cast<quint32>(third);
    };
    date = number(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
    time = number(local.tm_hour, local.tm_min, local.tm_sec);
}

QString stringToUpper(const QString &text)
{
    return upperCased(text);
}

QByteArray pathBytes(const QString &path)
{
    // Looking up the codec is slow, and it would change nothing here.
    if (isPlain(path))
        return path.toLatin1();
    return pathCodec() != nullptr ? pathCodec()->fromUnicode(path) : path.toLatin1();
}

QString pathFromBytes(const QByteArray &bytes)
{
    if (std::all_of(bytes.cbegin(), bytes.cend(),
                    [](char byte) { return byte >= ' ' && byte <= '~'; }))
        return QString::fromLatin1(bytes);
    return pathCodec() != nullptr ? pathCodec()->toUnicode(bytes) : QString::fromLatin1(bytes);
}

QByteArray pathSortKey(const QString &path)
{
    return isPlain(path) ? path.toLatin1().toUpper() : pathBytes(stringToUpper(path));
}

QString foldedText(const QString &text)
{
    QString folded = text;
    foldLetters(folded.data(), folded.size());
    return folded;
}

void foldLetters(QChar *letters, qsizetype count)
{
    for (qsizetype i = 0; i < count; ++i) {
        const char16_t letter = letters[i].unicode();
        if (letter < 0x80) {
            if (letter >= u'A' && letter <= u'Z')
                letters[i] = QChar(static_cast<char16_t>(letter + (u'a' - u'A')));
        } else if (letters[i].isHighSurrogate() && i + 1 < count &&
                   letters[i + 1].isLowSurrogate()) {
            const char32_t wide =
                QChar::toCaseFolded(QChar::surrogateToUcs4(letters[i], letters[i + 1]));
            letters[i] = QChar(QChar::highSurrogate(wide));
            letters[++i] = QChar(QChar::lowSurrogate(wide));
        } else {
            letters[i] = letters[i].toCaseFolded();
        }
    }
}

bool compareByPath(const SongInfoIndex &a, const SongInfoIndex &b)
{
    return qstrcmp(keyOf(a).constData(), keyOf(b).constData()) < 0;
}

bool compareByPosidx(const SongInfoIndex &a, const SongInfoIndex &b)
{
    return a.posidx < b.posidx;
}

bool compareById(const SongInfoIndex &a, const SongInfoIndex &b)
{
    return a.id < b.id;
}

bool compareTitle(const SongInfoIndex &a, const SongInfoIndex &b)
{
    return compareTexts(a.title, b.title) < 0;
}

bool compareArtist(const SongInfoIndex &a, const SongInfoIndex &b)
{
    const int order = compareTexts(a.artist, b.artist);
    return order != 0 ? order < 0 : compareTitle(a, b);
}

bool compareGenre(const SongInfoIndex &a, const SongInfoIndex &b)
{
    const int order = compareTexts(a.genre, b.genre);
    return order != 0 ? order < 0 : compareTitle(a, b);
}

} // namespace brisel
