#include "library/backuprestore.h"

#include "base/filefailure.h"
#include "base/plainfile.h"
#include "db/database.h"
#include "db/usersongsreltablemodel.h"
#include "history/historyrecorder.h"
#include "library/safecopy.h"
#include "library/songchanges.h"
#include "library/songfailure.h"
#include "library/songfile.h"
#include "library/workflowlog.h"
#include "songfile/readonlyflag.h"
#include "songfile/songrestoring.h"

#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace brisel
{

namespace
{

/// Returns true if both files have the same bytes from these positions to their ends.
bool haveSameRest(const PlainFile &first, qint64 firstPos, const PlainFile &second,
                  qint64 secondPos)
{
    constexpr qint64 blockSize = 1 << 20; // bytes
    const qint64 rest = first.size() - firstPos;
    if (rest < 0 || rest != second.size() - secondPos)
        return false;
    QByteArray a;
    QByteArray b;
    for (qint64 done = 0; done < rest; done += blockSize) {
        const qint64 size = std::min(blockSize, rest - done);
        if (!first.read(firstPos + done, size, a) || !second.read(secondPos + done, size, b) ||
            a != b)
            return false;
    }
    return true;
}

/// What of the song \a copy must be put back into \a present: the whole file or, if both are MP3s
/// with the same audio, the tag. Nothing if that can't be taken back later.
std::optional<OldSong> oldSong(const QString &copy, const QString &path, const PlainFile &present)
{
    SongFile song(copy);
    PlainFile file;
    if (!song.isOpen || !file.open(copy))
        return std::nullopt;
    OldSong old{song.info.format, {}};
    if (!old.isMp3()) {
        const bool isSmall =
            file.size() <= MetaSong::maxSongSize && present.size() <= MetaSong::maxSongSize;
        return isSmall && file.read(0, file.size(), old.bytes) ? std::optional(old) : std::nullopt;
    }
    const qint64 tagSize = song.song.audioStart().value_or(0);
    const SongFile there(path);
    const std::optional<qint64> tagThere = there.song.audioStart();
    if (!there.isOpen || !tagThere.has_value() ||
        !haveSameRest(file, tagSize, present, *tagThere) || !file.read(0, tagSize, old.bytes))
        return std::nullopt;
    return old;
}

/// Returns true if the copy is still the one that the backup made. A link is not.
bool isWhole(const BackupEntry &entry, const QString &copy)
{
    PlainFile file;
    return !QFileInfo(copy).isSymbolicLink() && file.open(copy) && entry.isOf(file);
}

} // namespace

BackupRestore::BackupRestore(UserSongsRelTableModel &model, History &history, QString folder,
                             QList<BackupEntry> entries, HistoryRecorder *recorder)
    : m_model(model), m_history(history), m_folder(std::move(folder)),
      m_entries(std::move(entries)), m_recorder(recorder)
{
    const int count = model.goodRowCount();
    for (int row = 0; row < count; ++row)
        m_rows.insert(model.fileName(row), row);
    m_lot.setBeforeReplacing([recorder] {
        if (recorder != nullptr)
            recorder->flush();
    });
}

BackupRestore::Outcome BackupRestore::run(Run &run)
{
    logBanner("RESTORE BACKUP");
    run.begin(
        {tr("Ripristino"), tr("Ripristino del backup..."), static_cast<int>(m_entries.size())});
    const Outcome outcome = restoreAll(run);
    if (m_recorder != nullptr)
        m_recorder->finish(run.report());
    run.end();
    return outcome;
}

BackupRestore::Outcome BackupRestore::restoreAll(Run &run)
{
    const UserSongsRelTableModel::ManyChanges changes(m_model);
    for (const BackupEntry &entry : m_entries)
        m_memories.pulledFrom(entry.path); // remembers the memory at the start
    for (qsizetype i = 0; i < m_entries.size(); ++i) {
        if (!run.mayGoOn()) {
            finishLot(run);
            for (; i < m_entries.size(); ++i)
                note(run, m_entries.at(i).path, Run::interrupted);
            return Outcome::Interrupted;
        }
        restore(run, m_entries.at(i));
        run.setStep(static_cast<int>(i) + 1);
        run.processEvents();
    }
    finishLot(run);
    return Outcome::Done;
}

void BackupRestore::restore(Run &run, const BackupEntry &entry)
{
    const QString &path = entry.path;
    const QString copy = m_folder + u'/' + entry.name;
    if (m_lot.isFull() || m_lot.holds(path) || m_lot.holds(QFileInfo(path).canonicalFilePath()))
        finishLot(run);
    if (!isWhole(entry, copy)) {
        note(run, path, BackupRestore::damagedCopy);
        return;
    }
    if (!entryExists(path)) {
        if (fileKind(QFileInfo(path).path()) == FileKind::Folder)
            copyTo(run, copy, {path, std::nullopt}, true);
        else
            note(run, path, FileReason::folderMissing);
        return;
    }
    PlainFile present;
    if (!present.open(path))
        note(run, path, whyNoSong(MetaSong(), path));
    else if (entry.isOf(present))
        note(run, path, BackupRestore::asInBackup);
    else if (mayReplace(run, path, present))
        replace(run, copy, path, present);
    else
        note(run, path, Run::isEnding() ? Run::interrupted : BackupRestore::changedSince);
}

/// Asks, unless \a present is what this program wrote last.
bool BackupRestore::mayReplace(Run &run, const QString &path, const PlainFile &present)
{
    const std::optional<HistorySong> last = m_history.lastChange(path);
    if (last.has_value() && last->after.isOf(present))
        return true;
    if (run.isAsking(Run::Question::RestoreChanged))
        finishLot(run);
    return run.ask(Run::Question::RestoreChanged, path,
                   tr("Un altro programma ha cambiato questa song dopo il backup. Rimettere "
                      "comunque la copia?"));
}

void BackupRestore::replace(Run &run, const QString &copy, const QString &path, PlainFile &present)
{
    const SongFile there(path);
    Staged song{path, there.info, true};
    makeWritable(path);
    // The attributes may have changed.
    if (!present.open(path)) {
        note(run, path, FileReason::changed);
        return;
    }
    const std::optional<OldSong> old = oldSong(copy, path, present);
    if (!old.has_value()) {
        song.isKept = false;
        present.close();
        copyTo(run, copy, song, false);
        return;
    }
    const qint64 tagSize = there.song.audioStart().value_or(0);
    const WriteResult result = restoreSong(path, present, *old, tagSize, m_lot, m_recorder);
    if (result == WriteResult::Staged)
        m_staged.append(song);
    else if (result == WriteResult::Done)
        finishSong(run, song, std::nullopt);
    else
        finishSong(run, song,
                   result == WriteResult::Changed ? FileReason::changed : whyNotPlaced(path));
}

/// Copies the whole file.
void BackupRestore::copyTo(Run &run, const QString &copy, const Staged &song, bool isNew)
{
    CopyResult result = copyIntoLot(m_lot, copy, song.path, !isNew);
    if (result == CopyResult::Done) {
        m_staged.append(song);
        return;
    }
    // The lot may use the space.
    finishLot(run);
    if (result == CopyResult::TargetFailed)
        result = isNew ? copyToNewFile(copy, song.path) : copyOverFile(copy, song.path);
    if (result == CopyResult::Done)
        finishSong(run, song, std::nullopt);
    else
        finishSong(run, song,
                   result == CopyResult::SourceFailed
                       ? BackupRestore::damagedCopy
                       : whyUnwritable(song.path, QFileInfo(copy).size()));
}

void BackupRestore::finishLot(Run &run)
{
    const QList<Staged> songs = std::exchange(m_staged, {});
    const QList<WriteResult> results = m_lot.commit();
    for (qsizetype i = 0; i < songs.size(); ++i) {
        const Staged &song = songs.at(i);
        const WriteResult result = results.at(i);
        if (song.isKept && m_recorder != nullptr)
            m_recorder->settle(song.path, result);
        WhyNot whyNot;
        if (result != WriteResult::Done)
            whyNot =
                result == WriteResult::Changed ? FileReason::changed : whyUnwritable(song.path, 0);
        finishSong(run, song, whyNot);
    }
}

/// Reports whether the song was restored, and shows its content in its rows.
void BackupRestore::finishSong(Run &run, const Staged &song, WhyNot whyNot)
{
    const SongFile held(song.path);
    if (whyNot.has_value()) {
        note(run, song.path, *whyNot);
    } else {
        run.report().count(RunReport::Success::Restored);
        if (held.isOpen && song.before.has_value())
            run.report().addChanges(song.path,
                                    reportedChanges(fieldChanges(*song.before, held.info)));
    }
    for (auto row = m_rows.constFind(song.path); row != m_rows.cend() && row.key() == song.path;
         ++row) {
        if (held.isOpen)
            m_model.updateRow(*row, held.info);
        if (!whyNot.has_value())
            m_model.setStatus(*row, Database::Imported);
    }
}

void BackupRestore::note(Run &run, const QString &path, Reason reason)
{
    m_memories.note(run.report(), RunReport::Step::Restore, path, reason);
}

} // namespace brisel
