#pragma once

#include "base/graphicsfiles.h"
#include "base/run.h"
#include "memory/memorycontents.h"
#include "memory/songentries.h"
#include "memory/songfiles.h"

#include <QCoreApplication>
#include <QHash>
#include <QMultiHash>
#include <QSet>
#include <QStringList>

namespace brisel
{

class FileLot;
class MemoryClaim;
class PlaylistRecords;

/// Removes songs from a memory, with their graphics files and their entries in the playlists, and
/// brings the index up to date.
///
/// The files are deleted first, then the entries, then the records of the index. An interruption
/// leaves entries or records without a file, which the next update repairs.
class SongRemoval
{
    Q_DECLARE_TR_FUNCTIONS(SongRemoval)

public:
    enum class Outcome {
        Done,
        Refused,     ///< nothing was changed: the reason is in the report
        Interrupted, ///< by the user or the end of the program; the remaining songs are there
        Failed,      ///< something is in the report; songs that are there keep their entries
    };

    static constexpr Reason outside{QT_TRANSLATE_NOOP("RunReport", "si trova fuori dalla memoria")};
    static constexpr Reason notASong{QT_TRANSLATE_NOOP("RunReport", "non è una song")};

    /// For the songs or graphics files \a files, absolute paths on the memory as in its index or of
    /// the files themselves: see SongFiles.
    SongRemoval(MemoryClaim &claim, QStringList files);

    /// Deletes what \a files name: of a link the link itself, and nothing outside of the memory.
    /// The graphics file of an MP3 stays if there is another MP3 with its name.
    /// The report counts the songs that are gone, also those whose files were missing before. A
    /// song whose file can't be determined stays, with its entries.
    [[nodiscard]] Outcome run(Run &run);

private:
    void removeFiles(Run &run, SongFiles &files);
    bool removeSong(Run &run, const QString &path, const SongFiles::Place &place);
    bool removeFile(Run &run, const QString &path);
    bool fail(Run &run, const QString &path, const Reason &reason);
    void removeGraphicsOf(Run &run, const QString &song);
    [[nodiscard]] QStringList mp3sNamedLike(const QString &song);
    [[nodiscard]] bool flush(Run &run) const;
    [[nodiscard]] bool follow(Run &run, const MemoryContents &contents,
                              const SongEntries &gone) const;
    [[nodiscard]] bool removeEntries(Run &run, const MemoryContents &contents,
                                     const SongEntries &gone) const;
    [[nodiscard]] bool stage(FileLot &lot, const MemoryContents::Playlist &playlist,
                             const PlaylistRecords &records, const SongEntries &gone) const;

    MemoryClaim &m_claim;
    QStringList m_files;     ///< each once
    QStringList m_gone;      ///< of m_files
    QSet<QString> m_folders; ///< whose entries have changed, relative to the root
    GraphicsFiles m_graphics;
    QHash<QString, QMultiHash<QString, QString>> m_mp3s; ///< by folder, then lower-cased base name
    bool m_isInterrupted = false;
    bool m_hasFailed = false;
};

} // namespace brisel
