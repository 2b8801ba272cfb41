#pragma once

#include "tests/index/samplememory.h"
#include "tests/memories/playerset.h"
#include "tests/memories/playlistmodel.h"

#include <QMap>
#include <QSet>

#include <random>

namespace brisel
{

/// A number from 0 to \a end - 1. The standard distributions differ between implementations.
inline int below(std::mt19937 &random, qsizetype end)
{
    return static_cast<int>(random() % static_cast<std::mt19937::result_type>(end));
}

/// The songs on a memory, and those on a disk that are sent to it. Each contains a number that
/// identifies it under any name.
class LivingMemory
{
public:
    explicit LivingMemory(std::mt19937 &random);

    QString root() const { return m_card.root(); }
    const SampleMemory &card() const { return m_card; }
    /// The folder on the memory that songs are sent to.
    const QString &sendFolder() const { return m_sendFolder; }

    /// The paths of the songs on the memory by number, as found by scan(); they start with "/".
    const QMap<int, QString> &songs() const { return m_songs; }
    /// The number of the song whose path in "index.id2" is \a bytes; PlaylistModel::lost if there
    /// is no such song.
    int songAt(const QByteArray &bytes) const
    {
        return m_byBytes.value(bytes, PlaylistModel::lost);
    }
    /// Reads the memory. Describes what is wrong: two files of one song, or a truncated song.
    QString scan();

    // Actions of the user; each returns its description.
    QString addSong();
    QString remove(int song);
    QString moveByHand(int song);
    QString giveTitle(int song);
    /// The song was renamed on the memory: if it was sent under a short name, sending it again
    /// makes another file.
    void noteRename(int song);
    /// Picks songs to send, new ones and ones that were sent before, and adds their paths to \a
    /// files.
    QString pickSongs(QStringList &files);
    /// The paths on the disk of all sent songs that are still where they were copied to.
    QStringList sentSongs() const;
    /// Gives sent songs a later date, because a date counts whole seconds.
    void dateSentSongs();

    /// The set of a new index of the same songs; \a isBuilt: true if that succeeded.
    PlayerSet freshSet(bool &isBuilt) const;

private:
    QString newPath(bool isSent);
    QByteArray content(int song, const QString &suffix, bool isPlain);
    QByteArray newTitle();
    void write(const SampleMemory &memory, const QString &path, int song);
    QDateTime nextMoment();

    std::mt19937 &m_random;
    SampleMemory m_card;
    SampleMemory m_disk;
    QString m_sendFolder;
    QMap<int, QString> m_songs;
    QHash<QByteArray, int> m_byBytes;
    QMap<int, QString> m_sent; ///< paths on the disk
    int m_numbers = 0;
    qint64 m_seconds = 1'400'000'000;
};

} // namespace brisel
