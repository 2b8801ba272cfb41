#pragma once

#include "tests/index/samplememory.h"
#include "tests/memories/playerset.h"
#include "tests/memories/playlistmodel.h"

#include <QMap>
#include <QSet>

#include <random>

/// A number below \a end. The standard's own distributions differ between its libraries.
inline int below(std::mt19937 &random, qsizetype end)
{
    return static_cast<int>(random() % static_cast<std::mt19937::result_type>(end));
}

/// The songs on a memory, and those on a disk that are sent to it. Each holds a number by which it
/// is known whatever its name becomes.
class LivingMemory
{
public:
    explicit LivingMemory(std::mt19937 &random);

    QString root() const { return m_card.root(); }
    const SampleMemory &card() const { return m_card; }
    /// The folder on the memory that songs are sent to.
    const QString &sendFolder() const { return m_sendFolder; }

    /// By number: the paths of the songs on the memory, as look() has found them; they begin
    /// with "/".
    const QMap<int, QString> &songs() const { return m_songs; }
    /// The number of the song that \a bytes of "index.id2" name; PlaylistModel::lost when
    /// there is none.
    int songAt(const QByteArray &bytes) const
    {
        return m_byBytes.value(bytes, PlaylistModel::lost);
    }
    /// Walks over the memory. Gives what is wrong: two files of one song, or half a song.
    QString look();

    // What the user does; each is said in words.
    QString addSong();
    QString remove(int song);
    QString moveByHand(int song);
    QString giveTitle(int song);
    /// Picks songs to be sent, new ones and such as were sent before; \a files are their paths.
    QString pickSongs(QStringList &files);
    /// All songs that were sent and stand where that has brought them.
    QStringList sentSongs() const;
    /// Dates what was sent as a later copy: dates count whole seconds.
    void dateSentSongs();

    /// A set that a fresh build makes of the same songs; \a isBuilt: that went well.
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
