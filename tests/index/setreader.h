#pragma once

#include "tests/index/samplememory.h"

#include <QMap>
#include <QSet>

namespace brisel
{

/// A reader of index sets that shares no code with the program: it finds what the player could not
/// read.
class SetReader
{
public:
    explicit SetReader(const SampleMemory &memory) : m_memory(memory)
    {
        readPaths();
        const int songs = m_paths.size();
        const int titles = readSongs(u"title.id2"_qs, nullptr);
        int artists = 0;
        int genres = 0;
        check(titles == songs && readSongs(u"artist.id2"_qs, &artists) == songs &&
                  readSongs(u"genre.id2"_qs, &genres) == songs,
              "songs differ");
        int artists3 = 0;
        int genres3 = 0;
        const int titles3 = readSongs(u"title3.id2"_qs, nullptr);
        check(readSongs(u"artist3.id2"_qs, &artists3) == titles3 &&
                  readSongs(u"genre3.id2"_qs, &genres3) == titles3,
              "MP3 songs differ");
        readOrder();
        QByteArray counts;
        for (const int count : {titles, artists, genres, titles3, artists3, genres3}) {
            counts += static_cast<char>(count & 0xFF);
            counts += static_cast<char>(count >> 8);
        }
        check(m_memory.read(u"fsinfos.id2"_qs) == counts, "counts differ");
    }

    /// Returns the first fault, or an empty text if all fifteen files belong together.
    QString problem() const { return m_problem; }
    QByteArray pathOf(quint32 id) const { return m_paths.value(id); }
    qsizetype songCount() const { return m_paths.size(); }

    /// The paths that the records of a playlist name now.
    QList<QByteArray> playlist(const QString &name) const
    {
        QList<QByteArray> paths;
        const QByteArray content = m_memory.read(name);
        for (qsizetype pos = 0; pos + 64 <= content.size(); pos += 64)
            paths.append(m_paths.value(number(content, pos), "<none>"));
        return paths;
    }

private:
    static quint32 number(const QByteArray &content, qsizetype pos)
    {
        return content.mid(pos, 4).toHex().toUInt(nullptr, 16);
    }

    void check(bool good, const char *problem)
    {
        if (!good && m_problem.isEmpty())
            m_problem = QLatin1StringView(problem);
    }

    void readPaths()
    {
        const QByteArray content = m_memory.read(u"index.id2"_qs);
        check(content.size() % 64 == 0, "half a path record");
        for (qsizetype pos = 0; pos + 64 <= content.size(); pos += 64) {
            check(!m_paths.contains(number(content, pos)), "an id twice");
            m_paths.insert(number(content, pos), content.mid(pos + 4).constData());
            check(QFile::exists(m_memory.root() + QString::fromLatin1(m_paths.last())) ||
                      m_paths.last().contains('\x82'),
                  "a path without a file");
        }
    }

    void readOrder()
    {
        const QByteArray content = m_memory.read(u"ordfile.id2"_qs);
        check(content.size() == m_paths.size() * 2, "order of another size");
        QSet<int> seen;
        for (qsizetype pos = 0; pos + 2 <= content.size(); pos += 2)
            seen.insert(quint8(content.at(pos)) + quint8(content.at(pos + 1)) * 256);
        check(seen.size() == m_paths.size(), "a record number twice");
        for (const int record : seen)
            check(record < m_paths.size(), "a record number too high");
    }

    int readSongs(const QString &name, int *groups)
    {
        const QByteArray content = m_memory.read(name);
        check(content.size() % 64 == 0, "half a song record");
        int songs = 0;
        int announced = 0;
        for (qsizetype pos = 0; pos + 64 <= content.size(); pos += 64) {
            if (groups != nullptr && content.mid(pos + 62, 2) == QByteArray("\0\xFF", 2)) {
                announced += quint8(content.at(pos + 2)) * 256 + quint8(content.at(pos + 3));
                ++*groups;
                continue;
            }
            ++songs;
            check(m_paths.contains(number(content, pos)), "an unknown id");
        }
        check(groups == nullptr || announced == songs, "groups of another size");
        const QByteArray table = m_memory.read(u'a' + name);
        check(table.size() == 256, "an alphabet table of another size");
        for (qsizetype pos = 0; pos + 4 <= table.size(); pos += 4) {
            const quint32 offset = number(table, pos);
            check(offset == 0xFFFFFFFF || offset < content.size(), "an offset behind the end");
            check(offset == 0xFFFFFFFF ||
                      QChar::toUpper(quint8(content.at(offset + 4))) == 0x20u + pos / 4,
                  "an offset to another initial");
        }
        return songs;
    }

    const SampleMemory &m_memory;
    QMap<quint32, QByteArray> m_paths;
    QString m_problem;
};

} // namespace brisel
