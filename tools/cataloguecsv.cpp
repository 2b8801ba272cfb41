#include "tools/cataloguecsv.h"

#include "songfile/rawmidifile.h"

#include <QSet>
#include <QStringDecoder>
#include <QStringList>

#include <algorithm>
#include <array>
#include <utility>

namespace brisel
{

namespace
{

const QString header =
    QStringLiteral("title;artist;genre;author;length;bpm;key;filename;markers;altartist");
constexpr int fieldCount = 10;
constexpr int longestSong = 3600; // seconds
constexpr int slowestBpm = 20;
constexpr int fastestBpm = 400;
constexpr int longestFileName = 8;     // characters
constexpr int longestMarkerText = 125; // characters; a MIDI file keeps 124 of them
constexpr int lastBar = 65535;

/// Reads the quoted field that starts at \a at and moves \a at past its closing quote.
bool readQuoted(const QString &line, qsizetype &at, QString &field)
{
    for (++at; at < line.size(); ++at) {
        if (line.at(at) == u'"') {
            ++at;
            if (at >= line.size() || line.at(at) != u'"')
                return true;
        }
        field += line.at(at);
    }
    return false;
}

/// Splits a line at its semicolons. Like all checks, returns what is wrong; empty if nothing is.
QString splitLine(const QString &line, QStringList &fields)
{
    for (qsizetype at = 0;; ++at) {
        QString field;
        if (at < line.size() && line.at(at) == u'"') {
            if (!readQuoted(line, at, field))
                return QStringLiteral("a quoted field has no closing quote");
        } else {
            const qsizetype semicolon = line.indexOf(u';', at);
            const qsizetype end = semicolon < 0 ? line.size() : semicolon;
            field = line.mid(at, end - at);
            if (field.contains(u'"'))
                return QStringLiteral("a quote inside a field that is not quoted");
            at = end;
        }
        fields.append(field);
        if (at >= line.size())
            return {};
        if (line.at(at) != u';')
            return QStringLiteral("text after the closing quote of a field");
    }
}

bool isLatin1Text(const QString &text)
{
    return std::all_of(text.begin(), text.end(), [](QChar character) {
        const char16_t code = character.unicode();
        return (code >= 0x20 && code < 0x7F) || (code >= 0xA0 && code <= 0xFF);
    });
}

/// A minor key has a blank before its minus in the catalogue.
bool isKeyName(const QString &key)
{
    QString inSongFile = key;
    const bool isMinor = inSongFile.endsWith(u'-');
    inSongFile.replace(QStringLiteral(" -"), QStringLiteral("-"));
    return isMinor == key.endsWith(QStringLiteral(" -")) &&
           RawMidiFile::getKeysList().contains(inSongFile);
}

QString checkNumber(const QString &text, const char *name, int lowest, int highest, int &number)
{
    const bool isDecimal = !text.isEmpty() && std::all_of(text.begin(), text.end(), [](QChar c) {
        return c >= u'0' && c <= u'9';
    });
    bool fits = false;
    number = text.toInt(&fits);
    if (isDecimal && fits && number >= lowest && number <= highest)
        return {};
    return QStringLiteral("%1 is no number from %2 to %3")
        .arg(QLatin1StringView(name))
        .arg(lowest)
        .arg(highest);
}

QString checkFileName(const QString &name)
{
    const bool isShort = !name.isEmpty() && name.size() <= longestFileName;
    const bool isPlain = std::all_of(name.begin(), name.end(), [](QChar c) {
        return (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9');
    });
    if (isShort && isPlain)
        return {};
    return QStringLiteral("filename is not 1 to %1 characters of A to Z and 0 to 9")
        .arg(longestFileName);
}

QString checkMarkers(const QString &markers)
{
    if (markers.isEmpty())
        return {};
    QStringList parts = markers.split(u';');
    if (!parts.takeLast().isEmpty() || parts.size() % 2 != 0)
        return QStringLiteral("markers are not made of bar;text; pairs");
    int lastBarSeen = -1;
    for (qsizetype i = 0; i < parts.size(); i += 2) {
        int bar = 0;
        QString problem = checkNumber(parts.at(i), "the bar of a marker", 0, lastBar, bar);
        if (!problem.isEmpty())
            return problem;
        if (bar <= lastBarSeen)
            return QStringLiteral("the bars of the markers do not rise");
        const QString &text = parts.at(i + 1);
        if (text.trimmed().isEmpty() || text.size() > longestMarkerText)
            return QStringLiteral("the text of a marker is not 1 to %1 characters long")
                .arg(longestMarkerText);
        lastBarSeen = bar;
    }
    return {};
}

QString readRow(const QString &line, CatalogueRow &row)
{
    QStringList fields;
    QString problem = splitLine(line, fields);
    if (!problem.isEmpty())
        return problem;
    if (fields.size() != fieldCount)
        return QStringLiteral("%1 fields instead of %2").arg(fields.size()).arg(fieldCount);
    for (const QString &field : std::as_const(fields)) {
        if (!isLatin1Text(field))
            return QStringLiteral("a character that is not printable Latin-1");
    }
    row.title = fields.at(0);
    row.artist = fields.at(1);
    row.genre = fields.at(2);
    row.author = fields.at(3);
    row.key = fields.at(6);
    row.fileName = fields.at(7);
    row.markers = fields.at(8);
    row.altArtist = fields.at(9);

    if (row.title.trimmed().isEmpty())
        return QStringLiteral("title is empty");
    if (row.genre.trimmed().isEmpty())
        return QStringLiteral("genre is empty");
    if (!row.key.isEmpty() && !isKeyName(row.key))
        return QStringLiteral("key is no key name");
    const std::array problems{
        checkNumber(fields.at(4), "length", 1, longestSong, row.length),
        checkNumber(fields.at(5), "bpm", slowestBpm, fastestBpm, row.bpm),
        checkFileName(row.fileName),
        checkMarkers(row.markers),
    };
    const auto found = std::find_if(problems.begin(), problems.end(),
                                    [](const QString &text) { return !text.isEmpty(); });
    return found == problems.end() ? QString() : *found;
}

/// The lines of the source without line ends; the last line may have none.
QList<QByteArray> linesOf(const QByteArray &csv)
{
    QList<QByteArray> lines = csv.split('\n');
    if (lines.last().isEmpty())
        lines.removeLast();
    for (QByteArray &line : lines) {
        if (line.endsWith('\r'))
            line.chop(1);
    }
    return lines;
}

} // namespace

bool readCatalogueCsv(const QByteArray &csv, QList<CatalogueRow> &rows, CatalogueCsvError &error)
{
    rows.clear();
    QSet<QString> fileNames;
    const QList<QByteArray> lines = linesOf(csv);
    error = {1, QStringLiteral("the file is empty")};
    for (qsizetype i = 0; i < lines.size(); ++i) {
        QStringDecoder decoder(QStringDecoder::Utf8);
        const QString line = decoder(lines.at(i));
        CatalogueRow row;
        QString problem;
        if (decoder.hasError())
            problem = QStringLiteral("not UTF-8");
        else if (i == 0)
            problem =
                line == header ? QString() : QStringLiteral("the first line is not ") + header;
        else
            problem = readRow(line, row);
        if (problem.isEmpty() && i > 0 && fileNames.contains(row.fileName))
            problem = QStringLiteral("filename %1 stands twice").arg(row.fileName);
        error = {static_cast<int>(i) + 1, problem};
        if (!problem.isEmpty())
            return false;
        if (i > 0) {
            fileNames.insert(row.fileName);
            rows.append(row);
        }
    }
    return !lines.isEmpty();
}

} // namespace brisel
