#pragma once

#include "base/filecopying.h"
#include "base/filelot.h"
#include "base/run.h"
#include "library/backuplist.h"
#include "library/pulledmemories.h"
#include "songfile/songinfo.h"
#include "songfile/songrestoring.h"

#include <QCoreApplication>
#include <QList>
#include <QMultiHash>
#include <QString>

#include <optional>

namespace brisel
{

class History;
class HistoryRecorder;
class PlainFile;
class UserSongsRelTableModel;

/// Puts the copies of a backup back where they came from, and updates the rows of these songs. A
/// missing song is written anew. One that has another content than this program wrote last is only
/// replaced after a question, and so is a file that the history can't keep.
class BackupRestore
{
    Q_DECLARE_TR_FUNCTIONS(BackupRestore)

public:
    enum class Outcome {
        Done,        ///< every copy was processed
        Interrupted, ///< by the user or the end of the program; the remaining songs are unchanged
    };

    static constexpr Reason asInBackup{
        QT_TRANSLATE_NOOP("RunReport", "la song è già come nel backup"), Reason::Kind::Skip};
    static constexpr Reason damagedCopy{
        QT_TRANSLATE_NOOP("RunReport", "la copia nel backup manca o è stata cambiata")};
    /// The user did not want to replace a song that differs from the copy.
    static constexpr Reason changedSince{
        QT_TRANSLATE_NOOP("RunReport", "un altro programma l'ha cambiata dopo il backup"),
        Reason::Kind::Skip};
    static constexpr Reason differs{
        QT_TRANSLATE_NOOP("RunReport", "è diversa dalla copia e non doveva essere sostituita"),
        Reason::Kind::Skip};

    /// For the copies \a entries in \a folder. \a recorder keeps what is overwritten, so that it
    /// can be taken back; null for none. An MP3 with other audio, and files that are not songs, are
    /// not kept. All must outlive this object.
    BackupRestore(UserSongsRelTableModel &model, History &history, QString folder,
                  QList<BackupEntry> entries, HistoryRecorder *recorder);

    /// Processes each copy once, in lots.
    [[nodiscard]] Outcome run(Run &run);

private:
    /// A song in the lot.
    struct Staged {
        QString path;
        std::optional<SongInfo> before; ///< what was there; nothing for a new file
        bool isKept = false;            ///< by the recorder
    };
    using WhyNot = std::optional<Reason>;
    /// What of a copy must be put back; nothing if the whole file is copied, unkept.
    using Old = std::optional<OldSong>;

    Outcome restoreAll(Run &run);
    void restore(Run &run, const BackupEntry &entry);
    void restoreMissing(Run &run, const QString &copy, const QString &path);
    WhyNot whyNotReplace(Run &run, const QString &path, const PlainFile &present, const Old &old);
    bool ask(Run &run, Run::Question question, const QString &path, const QString &text);
    void replace(Run &run, const QString &copy, const QString &path, PlainFile &present,
                 const Old &old);
    void copyOver(Run &run, const QString &copy, const Staged &song, PlainFile &present);
    void finishCopy(Run &run, const QString &copy, const Staged &song, CopyResult result);
    void finishLot(Run &run);
    void finishSong(Run &run, const Staged &song, WhyNot whyNot);
    void note(Run &run, const QString &path, Reason reason);

    UserSongsRelTableModel &m_model;
    History &m_history;
    const QString m_folder;
    const QList<BackupEntry> m_entries;
    HistoryRecorder *m_recorder;
    PulledMemories m_memories;
    FileLot m_lot;
    QList<Staged> m_staged;
    QMultiHash<QString, int> m_rows; ///< of the list, by their paths
};

} // namespace brisel
