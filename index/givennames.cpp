#include "index/givennames.h"

#include "base/fileidentity.h"
#include "base/filelot.h"
#include "base/folderhandle.h"
#include "index/chosennames.h"
#include "index/longnames.h"
#include "index/songinfoindex.h"

#include <QCryptographicHash>

#include <algorithm>

namespace brisel
{

namespace
{

const QByteArray namesHead = "brisel2pc names 1\n";
constexpr qsizetype checkDigits = 8;
constexpr qsizetype maxNamesLine = 16 * 1024;     ///< bytes
constexpr qint64 maxNamesFile = 32 * 1024 * 1024; ///< bytes
constexpr qsizetype maxNameLength = 255;          ///< units of UTF-16, as FAT has it
constexpr int fieldsOfLine = 4;
constexpr qsizetype maxLines = 4 * GivenNames::maxNames; ///< with those that no longer count
constexpr int mostNamesOfASong = 16;                     ///< that are followed, one after the other

/// Files of another version have other lines.
QByteArray checkOf(const QByteArray &fields)
{
    return QCryptographicHash::hash(namesHead + fields, QCryptographicHash::Sha1)
        .toHex()
        .left(checkDigits);
}

QByteArray encoded(const QString &text)
{
    return text.toUtf8().toPercentEncoding("/");
}

/// Returns false if \a field is not a result of encoded().
bool decode(const QByteArray &field, QString &text)
{
    text = QString::fromUtf8(QByteArray::fromPercentEncoding(field));
    return encoded(text) == field;
}

bool isName(QStringView name)
{
    return !name.isEmpty() && name.size() <= maxNameLength && name != u"." && name != u".." &&
           !name.contains(u'/') && !name.contains(QChar(u'\0'));
}

bool isFolderPath(const QString &folder)
{
    if (folder == QStringLiteral("/"))
        return true;
    const QList<QStringView> names = QStringView(folder).split(u'/');
    return names.size() > 1 && names.first().isEmpty() &&
           std::all_of(names.cbegin() + 1, names.cend(), isName);
}

QString placeKey(const QString &folder, const QString &name)
{
    return foldedText(folder + u'/' + name);
}

QString lastName(const QString &path)
{
    return path.mid(path.lastIndexOf(u'/') + 1);
}

} // namespace

const QString &GivenNames::fileName()
{
    static const QString name = QStringLiteral("names");
    return name;
}

void GivenNames::setRoot(const QString &root)
{
    *this = GivenNames();
    m_root = root;
    m_work.setRoot(root);
}

bool GivenNames::load()
{
    QByteArray content;
    if (!m_work.read(fileName(), maxNamesFile, content)) {
        m_isUnreadable = m_work.has(fileName());
        return !m_isUnreadable;
    }
    m_isWhole = content.startsWith(namesHead);
    m_isOpenLine = !content.endsWith('\n');
    for (qsizetype start = m_isWhole ? namesHead.size() : 0; start < content.size();) {
        const qsizetype newline = content.indexOf('\n', start);
        const qsizetype end = newline < 0 ? content.size() : newline;
        Name name;
        const bool isRead = newline >= 0 && end - start <= maxNamesLine &&
                            read(content.mid(start, end - start), name) && enter(name);
        m_isWhole = m_isWhole && isRead;
        start = end + 1;
    }
    return true;
}

bool GivenNames::read(const QByteArray &line, Name &name)
{
    const QList<QByteArray> fields = line.split(' ');
    if (fields.size() != fieldsOfLine || fields.first() != checkOf(line.mid(checkDigits + 1)) ||
        !decode(fields.at(1), name.folder) || !decode(fields.at(2), name.from) ||
        !decode(fields.at(3), name.to) || !isFolderPath(name.folder))
        return false;
    if (name.folder == QStringLiteral("/"))
        name.folder.clear();
    return isName(name.from) && isName(name.to) && canGive(name.from, name.to);
}

bool GivenNames::canGive(const QString &from, const QString &to)
{
    return LongNames::canGive(from, to) || ChosenNames::canChoose(from, to);
}

QByteArray GivenNames::lineOf(const Name &name)
{
    const QByteArray fields = encoded(name.folder.isEmpty() ? QStringLiteral("/") : name.folder) +
                              ' ' + encoded(name.from) + ' ' + encoded(name.to);
    return checkOf(fields) + ' ' + fields + '\n';
}

/// The keys of the earlier name: itself, and as the index has it, with '?' for characters that the
/// code page lacks.
QStringList GivenNames::keysOf(const Name &name)
{
    QStringList keys{placeKey(name.folder, name.from)};
    if (const QString indexed = pathFromBytes(pathBytes(name.from)); indexed != name.from)
        keys.append(placeKey(name.folder, indexed));
    return keys;
}

/// A name replaces earlier ones that contradict it. Returns false if there is no room for it.
bool GivenNames::enter(const Name &name)
{
    const auto known = m_byGiven.constFind(placeKey(name.folder, name.to));
    if (known != m_byGiven.cend())
        drop(*known);
    if (m_byGiven.size() >= maxNames || m_names.size() >= maxLines)
        return false;
    for (const QString &key : keysOf(name))
        m_byLong.insert(key, m_names.size());
    m_byGiven.insert(placeKey(name.folder, name.to), m_names.size());
    m_names.append(name);
    return true;
}

void GivenNames::drop(qsizetype index)
{
    Name &name = m_names[index];
    for (const QString &key : keysOf(name))
        m_byLong.remove(key, index);
    m_byGiven.remove(placeKey(name.folder, name.to));
    name.isDropped = true;
    m_isWhole = false;
}

QString GivenNames::pathOf(const Name &name, const QString &last) const
{
    return m_root + name.folder + u'/' + last;
}

QString GivenNames::placeOf(const QString &destination) const
{
    const QString name = lastName(destination);
    return destination.chopped(name.size()) + today(folderOf(destination), name);
}

QString GivenNames::follow(const QString &path) const
{
    if (m_byGiven.isEmpty())
        return path;
    QString way;
    const QStringList names = path.split(u'/', Qt::SkipEmptyParts);
    for (const QString &name : names)
        way += u'/' + today(folderOf(m_root + way + u'/'), name);
    return way;
}

bool GivenNames::isKnown(const QString &place) const
{
    const QString folder = folderOf(place);
    return !folder.isNull() && m_byGiven.contains(placeKey(folder, lastName(place)));
}

bool GivenNames::wasGiven(const QString &from, const QString &place) const
{
    const QString folder = folderOf(place);
    const auto known =
        folder.isNull() ? m_byGiven.cend() : m_byGiven.constFind(placeKey(folder, lastName(place)));
    return known != m_byGiven.cend() && foldedText(m_names.at(*known).from) == foldedText(from);
}

/// Returns the present name of \a name in \a folder.
QString GivenNames::today(const QString &folder, const QString &name) const
{
    if (folder.isNull() || !m_byLong.contains(placeKey(folder, name)) ||
        fileKind(m_root + folder + u'/' + name) != FileKind::Missing)
        return name;
    const qsizetype line = lineTo(folder, name);
    return line < 0 ? name : m_names.at(line).to;
}

/// Returns the line with the present name of the file that once had the name \a name; -1 if it has
/// none. A song may have got several names, one after the other.
qsizetype GivenNames::lineTo(const QString &folder, const QString &name) const
{
    QStringList earlier{name};
    for (qsizetype next = 0; next < earlier.size(); ++next) {
        QList<qsizetype> known = m_byLong.values(placeKey(folder, earlier.at(next)));
        // An exact match comes first, for memories with case-sensitive names; then the newest name.
        std::sort(known.begin(), known.end(), [&](qsizetype a, qsizetype b) {
            const bool isSameA = m_names.at(a).from == earlier.at(next);
            const bool isSameB = m_names.at(b).from == earlier.at(next);
            return isSameA != isSameB ? isSameA : a > b;
        });
        for (const qsizetype index : std::as_const(known)) {
            const FileKind kind = fileKind(pathOf(m_names.at(index), m_names.at(index).to));
            if (kind == FileKind::Regular || kind == FileKind::Folder)
                return index;
            if (kind == FileKind::Missing && earlier.size() < mostNamesOfASong)
                earlier.append(m_names.at(index).to);
        }
    }
    return -1;
}

/// Returns the folder of the absolute path \a path in the form of the lines; null if it is not on
/// the memory.
QString GivenNames::folderOf(const QString &path) const
{
    const QString way = wayBelow(m_root, path.left(path.lastIndexOf(u'/') + 1));
    return way.isEmpty() ? way : u'/' + way;
}

bool GivenNames::add(const QString &folder, const QString &from, const QString &to)
{
    const Name name{folder.isEmpty() ? QString() : u'/' + folder, from, to, true};
    const QByteArray line = lineOf(name);
    if (line.size() > maxNamesLine || !canGive(from, to) || !enter(name))
        return false;
    const bool isNew = !m_work.has(fileName());
    const QByteArray before = isNew ? namesHead : m_isOpenLine ? QByteArray("\n") : QByteArray();
    const bool isWritten =
        (!isNew || m_work.make()) && m_work.append(fileName(), before + line, maxNamesFile);
    m_isOpenLine = !isWritten;
    m_isWhole = m_isWhole && isWritten;
    return isWritten;
}

bool GivenNames::meet(const QString &path)
{
    if (m_names.isEmpty())
        return false;
    const QString below = path.mid(m_root.size());
    const auto known = m_byGiven.constFind(foldedText(below));
    const QString name = lastName(below);
    if (known != m_byGiven.cend())
        noteMet(m_names[*known], name);
    // Names that a user chose are too common: another song may have the same one.
    return known == m_byGiven.cend() && LongNames::isGiven(name);
}

/// The file may have been renamed in letter case only, and not every memory ignores that.
void GivenNames::noteMet(Name &name, const QString &present)
{
    name.isMet = true;
    if (name.to == present || !canGive(name.from, present) ||
        fileKind(pathOf(name, name.to)) != FileKind::Missing)
        return;
    name.to = present;
    m_isWhole = false;
}

void GivenNames::addStranger(const QString &path)
{
    m_strangers.insert(foldedText(lastName(path)), path.mid(m_root.size()));
}

bool GivenNames::tidy()
{
    if (m_isUnreadable)
        return false;
    joinNames();
    followMoves();
    if (m_isWhole)
        return true;
    QByteArray content;
    for (const Name &name : std::as_const(m_names))
        content += name.isDropped ? QByteArray() : lineOf(name);
    if (content.isEmpty()) {
        m_work.remove(fileName());
        m_isWhole = true;
        return true;
    }
    FileLot lot;
    lot.setMemory(m_root);
    m_isWhole = m_work.make() && lot.write({m_work.path(fileName())}, namesHead + content) &&
                lot.commitAll();
    m_isOpenLine = m_isOpenLine && !m_isWhole;
    return m_isWhole;
}

/// A song that got several names one after the other keeps only its first and its present one.
void GivenNames::joinNames()
{
    const qsizetype lines = m_names.size();
    for (qsizetype index = 0; index < lines; ++index) {
        const Name name = m_names.at(index);
        if (name.isDropped || name.isMet || fileKind(pathOf(name, name.to)) != FileKind::Missing)
            continue;
        const qsizetype last = lineTo(name.folder, name.to);
        if (last < 0)
            continue;
        drop(index);
        Name joined = m_names.at(last);
        joined.from = name.from;
        if (canGive(joined.from, joined.to))
            enter(joined);
        else
            drop(last); // it has its first name again
    }
}

/// When a known file has disappeared and exactly one unknown file has its name, it was probably
/// moved by hand.
void GivenNames::followMoves()
{
    QMultiHash<QString, qsizetype> lost;
    for (qsizetype index = 0; index < m_names.size(); ++index) {
        const Name &name = m_names.at(index);
        // Names in an unreadable folder are kept.
        if (!name.isDropped && !name.isMet && fileKind(pathOf(name, name.to)) == FileKind::Missing)
            lost.insert(foldedText(name.to), index);
    }
    const QStringList given = lost.uniqueKeys();
    for (const QString &key : given) {
        const QList<qsizetype> indices = lost.values(key);
        for (const qsizetype index : indices)
            drop(index);
        if (indices.size() != 1 || m_strangers.count(key) != 1)
            continue;
        Name moved = m_names.at(indices.first());
        const QString path = m_strangers.value(key);
        moved.isDropped = false;
        moved.to = lastName(path);
        moved.folder = path.chopped(moved.to.size() + 1);
        enter(moved);
    }
    m_strangers.clear();
}

} // namespace brisel
