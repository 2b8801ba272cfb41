#pragma once

#include "base/filelot.h"
#include "base/run.h"
#include "history/history.h"
#include "library/foundsong.h"
#include "library/movedsongs.h"
#include "library/pulledmemories.h"
#include "songfile/songinfo.h"

#include <QCoreApplication>
#include <QMultiHash>

#include <optional>

namespace brisel
{

class HistoryRecorder;
class UserSongsRelTableModel;

/// Takes changes back: writes the old bytes of songs from the history into their files, and updates
/// the rows of these songs. A file that another program has changed since is only written after a
/// question; a song that is no longer at its path is looked for among the files of the list, and
/// the first one with its content is taken that is not in the place of a change of its own.
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
        SongInfo before;     ///< the song that is overwritten
        Fingerprint content; ///< what is written
    };

    Outcome restoreSongs(Run &run);
    void restore(Run &run, const HistorySong &song);
    FoundSong lookAt(const QString &path, const HistorySong &song);
    QString findMoved(Run &run, const HistorySong &song);
    bool isTwin(const HistorySong &song, const QString &path);
    bool isInItsPlace(const QString &path);
    bool mayOverwrite(Run &run, const QString &path);
    using Content = std::optional<Fingerprint>;
    void write(Run &run, const HistorySong &song, const QString &path, const Content &content);
    void finishLot(Run &run);
    void finishSong(Run &run, const Staged &song, std::optional<Reason> whyNot);
    void note(Run &run, const QString &path, Reason reason);

    UserSongsRelTableModel &m_model;
    History &m_history;
    QList<HistorySong> m_songs;
    HistoryRecorder *m_recorder;
    PulledMemories m_memories;
    FileLot m_lot;
    QList<Staged> m_staged;                ///< the songs in the lot
    QMultiHash<QString, int> m_rows;       ///< of the list, by their paths
    QMultiHash<QString, qsizetype> m_left; ///< the songs that are not processed yet, by their paths
    QHash<QString, QString> m_newPlaces;   ///< of songs that were found elsewhere
    QMultiHash<QString, QString> m_taken;  ///< the paths of these songs, by their new places
    MovedSongs m_moved;
};

} // namespace brisel
