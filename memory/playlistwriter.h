#pragma once

#include "base/reason.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

namespace brisel
{

class FileLot;
class MemoryContents;
class MemoryIdentity;
class PlaylistDocument;
class Run;

/// Writes the changed playlists of a document to its memory: their songs files and path files, and
/// nothing else. An interruption leaves each playlist as it was or as it is now, never a mixture:
/// docs/formats/playlists.md, "What the memory window writes".
class PlaylistWriter
{
public:
    /// The memory was changed since the document was read.
    static constexpr Reason changedMeanwhile{QT_TRANSLATE_NOOP(
        "RunReport", "nel frattempo la memoria è stata cambiata, e ora viene letta di nuovo")};

    /// \a document must outlive this; \a run gets pulses.
    PlaylistWriter(PlaylistDocument &document, Run &run) : m_document(document), m_run(run) {}

    /// Writes what is modified to the memory \a identity. Returns false if not everything was
    /// written; the rest stays modified.
    [[nodiscard]] bool save(const MemoryIdentity &identity);
    /// Why the last save() failed, and the file that could not be written; the name is empty if the
    /// whole memory is meant.
    const std::optional<Reason> &failure() const { return m_failure; }
    const QString &failedFile() const { return m_failedFile; }

private:
    struct Playlist {
        qsizetype number = 0; ///< in the document
        QByteArray songs;
        QByteArray paths;
        QString songsPath;
        QString pathsPath;
        QByteArray unfit;       ///< the path file while the songs file is replaced; empty for none
        bool isInSteps = false; ///< the path file is written after the songs file is on the disk
    };

    [[nodiscard]] bool check(const MemoryIdentity &identity);
    [[nodiscard]] bool isIndexAsRead() const;
    [[nodiscard]] bool checkSongsFile(qsizetype playlist);
    [[nodiscard]] bool saveLot(const QList<Playlist> &lot, const MemoryIdentity &identity);
    [[nodiscard]] bool stage(FileLot &lot, const QString &path, const QByteArray &content);
    [[nodiscard]] bool stageSongs(FileLot &lot, const QList<Playlist> &playlists);
    bool cleanUp(const QList<Playlist> &playlists);
    Playlist playlistOf(qsizetype number) const;
    QByteArray pathsLeft(const Playlist &playlist) const;
    bool fail(const Reason &reason, const QString &file = {});

    PlaylistDocument &m_document;
    Run &m_run;
    std::optional<Reason> m_failure;
    QString m_failedFile;
};

} // namespace brisel
