#include "library/numberednames.h"

#include "base/graphicsfiles.h"

#include <QFile>
#include <QHash>
#include <QSet>

namespace brisel
{

namespace
{

constexpr qsizetype longestName = 255; ///< bytes

/// The same for names that some file system takes for one.
QString keyOf(const QString &name)
{
    return name.normalized(QString::NormalizationForm_C).toCaseFolded();
}

/// Gives each file of a folder its name.
class Namer
{
public:
    /// No name and no graphics get one of the names \a reserved.
    explicit Namer(const QStringList &reserved)
    {
        for (const QString &name : reserved)
            m_reserved.insert(keyOf(name));
    }

    /// A number never makes the name of a file that comes later.
    void addOwnName(const QString &name)
    {
        m_own.insert(keyOf(name));
        m_own.insert(keyOf(graphicsPath(name)));
    }
    QString take(const QString &name)
    {
        QString taken =
            hasKeyIn(m_reserved, name) || hasKeyIn(m_taken, name) ? numbered(name) : name;
        m_taken.insert(keyOf(taken));
        m_taken.insert(keyOf(graphicsPath(taken)));
        return taken;
    }

private:
    static bool hasKeyIn(const QSet<QString> &keys, const QString &name)
    {
        return keys.contains(keyOf(name)) || keys.contains(keyOf(graphicsPath(name)));
    }
    QString numbered(const QString &name);

    QSet<QString> m_reserved;   ///< keys
    QSet<QString> m_own;        ///< the keys of the names before they get numbers
    QSet<QString> m_taken;      ///< the keys of the names that were given
    QHash<QString, int> m_next; ///< for each key without number: all numbers below are used
};

QString Namer::numbered(const QString &name)
{
    static constexpr qsizetype longestNumber = 8; // " (65535)"
    const qsizetype point = name.lastIndexOf(u'.');
    QString stem = point < 0 ? name : name.left(point);
    const QString suffix = point < 0 ? QString() : name.mid(point);
    const qsizetype most = longestName - longestNumber - QFile::encodeName(suffix).size();
    while (!stem.isEmpty() && QFile::encodeName(stem).size() > most)
        stem.chop(stem.size() > 1 && stem.back().isLowSurrogate() ? 2 : 1);
    int &number = m_next[keyOf(stem + suffix)];
    number = std::max(number, 2);
    QString candidate;
    do
        candidate = QStringLiteral("%1 (%2)%3").arg(stem, QString::number(number++), suffix);
    while (hasKeyIn(m_taken, candidate) || hasKeyIn(m_own, candidate) ||
           hasKeyIn(m_reserved, candidate));
    return candidate;
}

QString nameOf(const QString &path)
{
    return path.mid(path.lastIndexOf(u'/') + 1);
}

} // namespace

QStringList numberedNames(const QStringList &files, const QStringList &reserved)
{
    Namer namer(reserved);
    for (const QString &file : files)
        namer.addOwnName(nameOf(file));
    QStringList names;
    names.reserve(files.size());
    for (const QString &file : files)
        names.append(namer.take(nameOf(file)));
    return names;
}

} // namespace brisel
