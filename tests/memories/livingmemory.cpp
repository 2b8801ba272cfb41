#include "tests/memories/livingmemory.h"
#include "tests/scriptedindex.h"

#include "index/index.h"
#include "index/longnames.h"
#include "tests/testfiles.h"

#include <QDirIterator>

#include <unistd.h>

namespace brisel
{

using namespace Sample;

namespace
{

constexpr int markSize = 8;

QByteArray markOf(int song)
{
    return '#' + QByteArray::number(song).rightJustified(markSize - 2, '0') + '#';
}

bool isSong(const QString &path)
{
    static const QStringList suffixes{u"mid"_qs, u"kar"_qs, u"mp3"_qs,
                                      u"zb3"_qs, u"zb4"_qs, u"zb5"_qs};
    return suffixes.contains(QFileInfo(path).suffix().toLower());
}

template <typename List>
auto oneOf(std::mt19937 &random, const List &list)
{
    return list.at(below(random, list.size()));
}

QString namesOf(const QStringList &paths)
{
    QStringList names;
    for (const QString &path : paths)
        names.append(QFileInfo(path).fileName());
    return names.join(u", "_qs);
}

} // namespace

LivingMemory::LivingMemory(std::mt19937 &random) : m_random(random)
{
    m_sendFolder = below(random, 2) == 0 ? root() : m_card.path(u"BASI"_qs);
    QDir().mkpath(m_sendFolder);
}

QString LivingMemory::scan()
{
    m_songs.clear();
    m_byBytes.clear();
    QString problem;
    QDirIterator walk(root(), QDir::Files, QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        const QString path = walk.next();
        if (!isSong(path))
            continue;
        const QByteArray mark = fileContent(path).right(markSize);
        const int song = mark.mid(1, markSize - 2).toInt();
        const QString below = path.mid(root().size());
        if (mark != markOf(song))
            problem = u"half a song: "_qs + below;
        if (m_songs.contains(song))
            problem = u"one song twice: "_qs + below + u", "_qs + m_songs.value(song);
        m_songs.insert(song, below);
        m_byBytes.insert(codePageBytes(below), song);
    }
    return problem;
}

QDateTime LivingMemory::nextMoment()
{
    m_seconds += 2 + below(m_random, 100000);
    return QDateTime::fromSecsSinceEpoch(m_seconds);
}

QByteArray LivingMemory::newTitle()
{
    static const QList<QByteArray> shared{"Volare", "Caff\xE8 nero", "(Io)"};
    static const QList<QByteArray> words{"Amore",
                                         "\xC9toile",
                                         "ni\xF1o",
                                         "Stra\xDF"
                                         "e",
                                         "'O sole",
                                         "9 maggio",
                                         "zeta",
                                         "Bella"};
    if (below(m_random, 4) == 0)
        return oneOf(m_random, shared);
    QByteArray title = oneOf(m_random, words) + ' ' + QByteArray::number(m_numbers) + ' ' +
                       QByteArray::number(below(m_random, 1000));
    if (below(m_random, 8) == 0)
        title = title.leftJustified(56, 'x'); // "ß" is sorted as two letters
    return title;
}

/// \a isPlain: without texts inside, for formats that allow it.
QByteArray LivingMemory::content(int song, const QString &suffix, bool isPlain)
{
    static const QList<QByteArray> names{"Anna",
                                         "\xC9"
                                         "dith",
                                         "bruno",
                                         "BRUNO",
                                         "Coro '70",
                                         "x"};
    const QByteArray title = newTitle();
    const QByteArray artist = oneOf(m_random, names);
    const QByteArray genre = oneOf(m_random, names);
    QByteArray bytes;
    if (suffix == u"mp3") {
        bytes = isPlain ? QByteArray(300, 'x') : mp3Song(title, artist, genre);
    } else if (suffix.startsWith(u"zb")) {
        bytes = "_ZB" + suffix.right(1).toLatin1() + QByteArray(400, '\0');
        bytes[38] = static_cast<char>(below(m_random, 256));
        bytes[201] = static_cast<char>(below(m_random, 2));
        bytes.replace(138, title.size(), title);
        bytes.replace(234, artist.size(), artist);
        bytes.replace(266, genre.size(), genre);
    } else if (isPlain) {
        bytes = "no song at all";
    } else {
        bytes = midi(metaEvent(3, title) + kordiaEvent(2, artist) + kordiaEvent(1, genre) +
                     (below(m_random, 2) == 0 ? metaEvent(6, "A") : QByteArray()) +
                     metaEvent(0x51, QByteArray::fromHex("07A120")));
    }
    return bytes + markOf(song);
}

void LivingMemory::write(const SampleMemory &memory, const QString &path, int song)
{
    // A title made from a name that is not Latin-1 would have a '?', which has no place in the
    // order.
    const bool isPlain = !path.contains(u'Я') && below(m_random, 6) == 0;
    memory.write(path, content(song, QFileInfo(path).suffix(), isPlain));
    memory.setDate(path, nextMoment());
}

QString LivingMemory::newPath(bool isSent)
{
    static const QStringList folders{
        u""_qs,       u""_qs,     u"A/"_qs,           u"A/B/"_qs,         u"BASI/"_qs,
        u"Città/"_qs, u"É/ü/"_qs, u"Canzoni mie/"_qs, u"A/Napoletane/"_qs};
    static const QStringList names{u"SONG"_qs,
                                   u"song"_qs,
                                   u"Caf"_qs,
                                   u"é"_qs,
                                   u"ñu"_qs,
                                   u"straß"_qs,
                                   u"Я"_qs,
                                   u"Canzone bella "_qs,
                                   u"Canzone d'estate "_qs,
                                   u"Été à Parigi "_qs};
    static const QStringList suffixes{u".mid"_qs, u".mid"_qs, u".kar"_qs, u".mp3"_qs,
                                      u".mp3"_qs, u".zb3"_qs, u".zb4"_qs, u".zb5"_qs};
    const QString folder = oneOf(m_random, folders);
    QString name = oneOf(m_random, names);
    if (isSent && below(m_random, 2) == 0)
        name = u"Canzone bella "_qs;
    return (isSent ? QString() : folder) + name + QString::number(m_numbers) +
           oneOf(m_random, suffixes);
}

QString LivingMemory::addSong()
{
    ++m_numbers;
    const QString path = newPath(false);
    write(m_card, path, m_numbers);
    return u"add %1 %2"_qs.arg(QString::number(m_numbers), path);
}

QString LivingMemory::remove(int song)
{
    const QString path = m_songs.value(song);
    QFile::remove(root() + path);
    m_sent.remove(song);
    return u"delete %1 %2"_qs.arg(QString::number(song), path);
}

QString LivingMemory::moveByHand(int song)
{
    static const QStringList folders{u"/"_qs, u"/MOVED/"_qs, u"/A/"_qs};
    const QString path = m_songs.value(song);
    ++m_numbers;
    const QString place =
        oneOf(m_random, folders) + u"M%1."_qs.arg(m_numbers) + QFileInfo(path).suffix();
    QDir().mkpath(QFileInfo(root() + place).path());
    if (!QFile::rename(root() + path, root() + place))
        qFatal("can't move %s", qPrintable(path));
    m_sent.remove(song);
    return u"move %1 %2 to %3"_qs.arg(QString::number(song), path, place);
}

void LivingMemory::noteRename(int song)
{
    if (!LongNames::isLong(m_sent.value(song)))
        m_sent.remove(song);
}

QString LivingMemory::giveTitle(int song)
{
    const QString path = m_songs.value(song);
    write(m_card, path.mid(1), song);
    return u"new title of %1 %2"_qs.arg(QString::number(song), path);
}

QString LivingMemory::pickSongs(QStringList &files)
{
    for (int left = 1 + below(m_random, 4); left > 0; --left) {
        int song = 0;
        if (!m_sent.isEmpty() && below(m_random, 2) == 0) {
            song = oneOf(m_random, m_sent.keys());
        } else {
            song = ++m_numbers;
            m_sent.insert(song, newPath(true));
            write(m_disk, m_sent.value(song), song);
        }
        if (below(m_random, 3) == 0)
            write(m_disk, m_sent.value(song), song);
        const QString path = m_disk.path(m_sent.value(song));
        if (!files.contains(path))
            files.append(path);
    }
    return u"send "_qs + namesOf(files);
}

QStringList LivingMemory::sentSongs() const
{
    QStringList files;
    for (auto song = m_sent.cbegin(); song != m_sent.cend(); ++song) {
        if (m_songs.contains(song.key()))
            files.append(m_disk.path(*song));
    }
    return files;
}

void LivingMemory::dateSentSongs()
{
    scan();
    for (auto song = m_songs.cbegin(); song != m_songs.cend(); ++song) {
        if (m_sent.contains(song.key()))
            m_card.setDate(song->mid(1), nextMoment());
    }
}

PlayerSet LivingMemory::freshSet(bool &isBuilt) const
{
    const SampleMemory fresh;
    for (const QString &path : m_songs) {
        QDir().mkpath(QFileInfo(fresh.root() + path).path());
        if (::link(QFile::encodeName(root() + path).constData(),
                   QFile::encodeName(fresh.root() + path).constData()) != 0)
            qFatal("can't link %s", qPrintable(path));
    }
    ScriptedIndex index;
    index.setRenameQuestion([](const QString &, const QString &) { return 3; });
    isBuilt = index.createIndex(fresh.root());
    return PlayerSet(fresh.root());
}

} // namespace brisel
