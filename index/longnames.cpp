#include "index/longnames.h"

#include "base/lettercase.h"
#include "index/plannedfolder.h"
#include "index/songinfoindex.h"

#include <QFileInfo>

#include <algorithm>

namespace brisel
{

namespace
{

constexpr int longestShortName = 8;

/// The number of characters of the long name before each range of numbers.
struct Width {
    int characters;
    int firstNumber;
    int lastNumber;
};
constexpr Width widths[]{{6, 1, 9}, {5, 10, 99}, {4, 100, 999}};

/// \a name without its last suffix.
QString baseOf(const QString &name)
{
    return name.left(name.lastIndexOf(u'.'));
}

/// The last suffix of \a name with its point; empty if it has no suffix.
QString suffixWithPoint(const QString &name)
{
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot < 0 ? QString() : name.mid(dot);
}

/// Returns false for characters that short names leave out: fillers, and those that FAT does not
/// allow.
bool isKept(QStringView character)
{
    constexpr char16_t lastControl = 0x1F;
    constexpr char16_t deleteCharacter = 0x7F;
    const QChar unit = character.front();
    return character.size() > 1 ||
           (!unit.isSurrogate() && unit.unicode() > lastControl &&
            unit.unicode() != deleteCharacter && !QStringView(u" .'-\"*/:<>?\\|").contains(unit));
}

/// The first allowed characters of \a base, at most \a width units of UTF-16.
QString startOf(QStringView base, qsizetype width)
{
    QString start;
    while (!base.isEmpty()) {
        const bool isPair =
            base.size() > 1 && base.at(0).isHighSurrogate() && base.at(1).isLowSurrogate();
        const QStringView character = base.first(isPair ? 2 : 1);
        if (start.size() + character.size() > width)
            break;
        if (isKept(character))
            start += character;
        base = base.sliced(character.size());
    }
    return start;
}

/// The common part of the names with \a start and as many digits as \a number has.
QString shapeWith(QStringView start, QStringView number, QStringView suffix)
{
    return foldedText(start.toString() + QString(number.size(), u'#') + suffix.toString());
}

} // namespace

bool LongNames::isLong(const QString &path)
{
    const QStringView name = QStringView(path).sliced(path.lastIndexOf(u'/') + 1);
    const qsizetype dot = name.lastIndexOf(u'.');
    return (dot < 0 ? name.size() : dot) > longestShortName;
}

bool LongNames::canGive(const QString &name, const QString &shortName)
{
    const QString shape = shapeOf(shortName);
    return isLong(name) && !shape.isEmpty() &&
           (shapesFor(name, FileKind::Regular).contains(shape) ||
            shapesFor(name, FileKind::Folder).contains(shape));
}

QString LongNames::shapeOf(const QString &shortName)
{
    const QString base = baseOf(shortName);
    const qsizetype hyphen = base.lastIndexOf(u'-');
    const QStringView start = QStringView(base).first(hyphen + 1);
    const QStringView number = QStringView(base).sliced(hyphen + 1);
    bool isNumber = false;
    const int value = number.toInt(&isNumber);
    const bool isGiven =
        std::any_of(std::cbegin(widths), std::cend(widths), [&](const Width &width) {
            return value >= width.firstNumber && value <= width.lastNumber &&
                   hyphen <= width.characters && number == QString::number(value);
        });
    return hyphen >= 0 && isNumber && isGiven ? shapeWith(start, number, suffixWithPoint(shortName))
                                              : QString();
}

QStringList LongNames::shapesFor(const QString &name, FileKind kind)
{
    const QString base = baseOf(name);
    const QString suffix = kind == FileKind::Folder ? QString() : suffixWithPoint(name);
    QStringList shapes;
    for (const Width &width : widths)
        shapes.append(shapeWith(startOf(base, width.characters) + u'-',
                                QString::number(width.firstNumber), suffix));
    return shapes;
}

QString LongNames::freeName(const QString &name, FileKind kind)
{
    const QString base = baseOf(name);
    const QString suffix = kind == FileKind::Folder ? QString() : suffixWithPoint(name);
    const QString companionSuffix = suffixWithPoint(companionOf(name));
    for (const Width &width : widths) {
        const QString start = startOf(base, width.characters) + u'-';
        int &number = m_nextNumbers[start + suffix + companionSuffix];
        for (number = std::max(number, width.firstNumber); number <= width.lastNumber; ++number) {
            const QString shortBase = start + QString::number(number);
            if (!isTaken(shortBase + suffix) && !m_isReserved(name, shortBase + suffix) &&
                (companionSuffix.isEmpty() || !isTaken(shortBase + companionSuffix)))
                return shortBase + suffix;
        }
    }
    return {};
}

bool LongNames::rename(MemoryRenames &renames, const QString &name, const QString &shortName)
{
    return renames.rename(m_folder, newNames(name, shortName));
}

void LongNames::take(const QString &name, const QString &shortName)
{
    const QList<MemoryRenames::NewName> names = newNames(name, shortName);
    for (const auto &[from, to] : names) {
        m_plan->remove(from);
        m_plan->add(to);
    }
}

/// Of \a name and the graphics file beside it.
QList<MemoryRenames::NewName> LongNames::newNames(const QString &name, const QString &shortName)
{
    QList<MemoryRenames::NewName> names{{name, shortName}};
    const QString companion = companionOf(name);
    if (!companion.isEmpty())
        names.append({companion, baseOf(shortName) + suffixWithPoint(companion)});
    return names;
}

QString LongNames::companionOf(const QString &name)
{
    if (suffixWithPoint(name).compare(QStringLiteral(".mp3"), Qt::CaseInsensitive) != 0)
        return {};
    const QString base = baseOf(name);
    QString companion;
    const QString wanted = base + QStringLiteral(".cdg");
    const QStringList sameLetters =
        m_plan != nullptr ? m_plan->named(wanted) : m_graphics.named(m_folder, wanted);
    for (const QString &graphics : sameLetters) {
        // Whether the case of the base matters depends on the memory's file system.
        const QString found = base + suffixWithPoint(graphics);
        if (found > companion && isFile(found))
            companion = found;
    }
    return companion;
}

bool LongNames::isTaken(const QString &name) const
{
    if (m_plan != nullptr)
        return m_plan->has(name);
    const QFileInfo entry(m_folder + u'/' + name);
    return entry.exists() || entry.isSymLink();
}

bool LongNames::isFile(const QString &name) const
{
    return m_plan != nullptr ? m_plan->has(name) : isRegularFile(m_folder + u'/' + name);
}

} // namespace brisel
