#pragma once

#include "base/filelot.h"
#include "base/run.h"
#include "history/history.h"
#include "library/movedsongs.h"
#include "library/pulledmemories.h"
#include "songfile/songinfo.h"

#include <QCoreApplication>
#include <QMultiHash>
#include <QSet>

#include <optional>

namespace brisel
{

class HistoryRecorder;
class UserSongsRelTableModel;

/// Takes changes back: writes the old bytes of songs from the history into their files, and updates
/// the rows of these songs. A file that another program has changed since is only written after a
/// question; a song that is no longer at its path is looked for among the files of the list.
class Restore
{
    Q_DECLARE_TR_FUNCTIONS(Restore)

public:
    enum class Outcome {
        Done,        ///< every song was processed
        Interrupted, ///< by the user or the end of the program; the remaining songs are unchanged
    };

    static constexpr Reason alreadyBefore{
        QT_TRANSLATE_NOOP("RunReport", "la song è già come prima della modifica"),
        Reason::Kind::Skip};
    static constexpr Reason notKept{
        QT_TRANSLATE_NOOP("RunReport", "nella cronologia non c'è più la vecchia versione")};
    static constexpr Reason changedSince{
        QT_TRANSLATE_NOOP("RunReport", "un altro programma l'ha cambiata dopo la modifica"),
        Reason::Kind::Skip};

    /// What is found in the place of a song.
    enum class Found { AsWritten, AsBefore, Other, Nothing };
    /// Compares the file at \a path with the two versions of \a song.
    static Found look(const HistorySong &song, const QString &path);

    /// For the changes \a songs of \a history, which may be of several runs, and several of one
    /// song. \a recorder keeps what is overwritten, so that restoring can be taken back; null for
    /// none. All must outlive this object.
    Restore(UserSongsRelTableModel &model, History &history, QList<HistorySong> songs,
            HistoryRecorder *recorder);

    /// Processes each change once, the newest first, in lots.
    [[nodiscard]] Outcome run(Run &run);

private:
    using Step = RunReport::Step;

    struct Staged {
        QString path;
        SongInfo before; ///< the song that is overwritten
    };

    Outcome restoreSongs(Run &run);
    void restore(Run &run, const HistorySong &song);
    QString placeOf(const HistorySong &song);
    bool mayOverwrite(Run &run, const QString &path);
    void write(Run &run, const HistorySong &song, const QString &path, bool isChanged);
    void finishLot(Run &run);
    void finishSong(Run &run, const Staged &song, std::optional<Reason> whyNot);
    void note(Run &run, const QString &path, Reason reason);

    UserSongsRelTableModel &m_model;
    History &m_history;
    QList<HistorySong> m_songs;
    HistoryRecorder *m_recorder;
    PulledMemories m_memories;
    FileLot m_lot;
    QList<Staged> m_staged;              ///< the songs in the lot
    QMultiHash<QString, int> m_rows;     ///< of the list, by their paths
    QSet<QString> m_places;              ///< the paths of all songs
    QHash<QString, QString> m_newPlaces; ///< of songs that were found elsewhere
    MovedSongs m_moved;
};

} // namespace brisel
