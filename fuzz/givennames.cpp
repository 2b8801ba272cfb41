#include "index/givennames.h"
#include "fuzz/fuzzing.h"
#include "fuzz/targets.h"

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QFileInfo>

namespace brisel
{

namespace
{

const QByteArray namesFileHead = "brisel2pc names 1\n";

/// A fuzzer can't guess a checksum: "#" at the start of a line is replaced by that of the rest.
QByteArray namesBytes(const QByteArray &input)
{
    QByteArray content;
    for (qsizetype start = 0; start < input.size();) {
        const qsizetype newline = input.indexOf('\n', start);
        const qsizetype end = newline < 0 ? input.size() : newline;
        const QByteArray line = input.mid(start, end - start);
        if (line.startsWith("# "))
            content +=
                QCryptographicHash::hash(namesFileHead + line.mid(2), QCryptographicHash::Sha1)
                    .toHex()
                    .left(8) +
                line.mid(1);
        else
            content += line;
        if (newline >= 0)
            content += '\n';
        start = end + 1;
    }
    return content;
}

QStringList filesOf(const QString &root)
{
    QStringList files;
    QDirIterator walk(root, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (walk.hasNext())
        files.append(walk.next());
    files.sort();
    return files;
}

/// The song of a long name stays in its folder, under the long name or one that it was given.
void requirePlace(const GivenNames &names, const QString &destination)
{
    const QString place = names.placeOf(destination);
    REQUIRE(QFileInfo(place).path() == QFileInfo(destination).path());
    REQUIRE(place == destination || (QFileInfo::exists(place) && names.isKnown(place)));
}

} // namespace

void checkGivenNames(const QByteArray &input)
{
    const QString root = scratchFolder() + QStringLiteral("/memory");
    const QString file = root + QStringLiteral("/.brisel2pc/names");
    const QStringList songs{QStringLiteral("/Longna-1.mid"), QStringLiteral("/POP/Longna-1.mid"),
                            QStringLiteral("/POP/index.id2"), QStringLiteral("/outside.mid")};
    for (const QString &song : songs.mid(0, 3))
        putFile(root + song, "song");
    putFile(QFileInfo(root).path() + songs.last(), "song");
    putFile(file, namesBytes(input));
    const QStringList before = filesOf(QFileInfo(root).path());

    GivenNames names;
    names.setRoot(root);
    REQUIRE(names.load());
    for (const QString &folder : {QString(), QStringLiteral("/POP")})
        requirePlace(names, root + folder + QStringLiteral("/Long name.mid"));
    REQUIRE(names.follow(QStringLiteral("/POP/B.MID")) == QStringLiteral("/POP/B.MID"));
    for (const QString &song : songs.mid(0, 2))
        names.meet(root + song);
    REQUIRE(names.tidy());

    // The remaining names count, and are written once; no other file changes.
    QStringList after = before;
    if (!QFileInfo::exists(file))
        after.removeOne(file);
    REQUIRE(filesOf(QFileInfo(root).path()) == after);
    const QByteArray left = fileBytes(file);
    REQUIRE(left.isEmpty() || (left.startsWith(namesFileHead) && left.endsWith('\n')));
    REQUIRE(left.count('\n') <= 3);
    GivenNames again;
    again.setRoot(root);
    REQUIRE(again.load());
    REQUIRE(again.tidy());
    REQUIRE(fileBytes(file) == left);
}

} // namespace brisel
