#include "library/backuplist.h"

#include "base/csvreader.h"
#include "base/filechecksum.h"
#include "base/fileidentity.h"
#include "base/filereading.h"
#include "base/filewriting.h"
#include "base/plainfile.h"
#include "base/songsuffix.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <array>

namespace brisel
{

namespace
{

constexpr qint64 largestList = 64 * 1024 * 1024; ///< bytes
constexpr qsizetype mostLines = 1000000;         ///< bounds the memory that a list takes
constexpr qsizetype checksumSize = 32;           ///< bytes
constexpr auto checksumKind = QCryptographicHash::Blake2b_256;

enum Column { Name, Path, Size, Checksum, ColumnCount };
constexpr std::array<QLatin1StringView, ColumnCount> columnNames{
    QLatin1StringView("file"), QLatin1StringView("origine"), QLatin1StringView("byte"),
    QLatin1StringView("blake2b-256")};

/// The position of each column in the records; -1 for a missing one.
using Columns = std::array<qsizetype, ColumnCount>;

Columns columnsIn(const QStringList &heading)
{
    Columns columns{};
    for (int column = 0; column < ColumnCount; ++column)
        columns.at(column) = heading.indexOf(columnNames.at(column));
    return columns;
}

bool isPlainName(const QString &name)
{
    return !name.isEmpty() && name != QLatin1String(".") && name != QLatin1String("..") &&
           !name.contains(u'/') && !name.contains(QChar(0));
}

/// Returns true for an absolute path without steps such as "..".
bool isPlainPath(const QString &path)
{
    if (!path.startsWith(u'/'))
        return false;
    const QStringList names = path.mid(1).split(u'/');
    return std::all_of(names.cbegin(), names.cend(), isPlainName);
}

/// \a path as an absolute one without steps such as "..", where links allow it.
QString plainPath(const QString &path)
{
    const QFileInfo file(path);
    const QString cleaned = QDir::cleanPath(file.absoluteFilePath());
    const QString canonical = file.canonicalFilePath();
    return canonical.isEmpty() || isSameFile(cleaned, path) ? cleaned : canonical;
}

/// Returns true if a backup could have copied the file \a path to \a name: both are songs, or
/// graphics of songs, of one kind.
bool isOfASong(const QString &name, const QString &path)
{
    const QString suffix = QFileInfo(path).suffix();
    return QFileInfo(name).suffix().compare(suffix, Qt::CaseInsensitive) == 0 &&
           (isSongSuffix(suffix) || suffix.compare(QLatin1String("cdg"), Qt::CaseInsensitive) == 0);
}

BackupList::Line lineOf(const QStringList &record, const Columns &columns)
{
    BackupList::Line line;
    line.entry.name = record.value(columns.at(Name));
    line.entry.path = record.value(columns.at(Path));
    bool isNumber = false;
    line.entry.size = record.value(columns.at(Size)).toLongLong(&isNumber);
    const QByteArray digits = record.value(columns.at(Checksum)).toLatin1();
    line.entry.checksum = QByteArray::fromHex(digits);
    if (!isNumber || line.entry.size < 0 || digits.size() != 2 * checksumSize ||
        line.entry.checksum.toHex() != digits.toLower())
        line.refused = BackupList::damagedLine;
    else if (!isPlainName(line.entry.name) || !isPlainPath(line.entry.path) ||
             !isOfASong(line.entry.name, line.entry.path))
        line.refused = BackupList::unsafeLine;
    return line;
}

} // namespace

bool BackupEntry::isOf(const PlainFile &file) const
{
    return file.isOpen() && file.size() == size && fileChecksum(file, checksumKind) == checksum;
}

QString BackupList::fileName()
{
    return QStringLiteral("contenuto.csv");
}

bool BackupList::add(const QString &path, const QString &copy)
{
    PlainFile file;
    if (!file.open(copy))
        return false;
    const QByteArray checksum = fileChecksum(file, checksumKind);
    if (checksum.isEmpty())
        return false;
    m_text += CsvReader::quoted(QFileInfo(copy).fileName()) + ',' +
              CsvReader::quoted(plainPath(path)) + ',' + QByteArray::number(file.size()) + ',' +
              checksum.toHex() + "\r\n";
    ++m_count;
    return true;
}

bool BackupList::write(const QString &folder) const
{
    QByteArray heading("\xEF\xBB\xBF");
    for (const QLatin1StringView name : columnNames)
        heading += QByteArray(name.data(), name.size()) + ',';
    heading.chop(1);
    const QByteArray text = heading + "\r\n" + m_text;
    return m_count <= mostLines && text.size() <= largestList &&
           replaceFile(folder + u'/' + fileName(), text);
}

std::optional<QList<BackupList::Line>> BackupList::read(const QString &folder)
{
    const FileContent content = readWholeFile(folder + u'/' + fileName(), largestList);
    return content.isDone() ? lines(content.bytes) : std::nullopt;
}

std::optional<QList<BackupList::Line>> BackupList::lines(const QByteArray &content)
{
    CsvReader reader(content);
    const Columns columns = columnsIn(reader.next().value_or(QStringList()));
    if (std::any_of(columns.cbegin(), columns.cend(), [](qsizetype column) { return column < 0; }))
        return std::nullopt;
    QList<Line> lines;
    QSet<QString> paths;
    while (reader.hasNext()) {
        if (lines.size() == mostLines)
            return std::nullopt;
        const std::optional<QStringList> record = reader.next();
        Line line = record.has_value() ? lineOf(*record, columns) : Line{{}, damagedLine};
        if (!line.refused.has_value() && paths.contains(line.entry.path))
            line.refused = twice;
        paths.insert(line.entry.path);
        lines.append(line);
    }
    return lines;
}

} // namespace brisel
