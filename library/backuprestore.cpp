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
        restoreMissing(run, copy, path);
        return;
    }
    PlainFile present;
    if (!present.open(path)) {
        note(run, path, whyNoSong(MetaSong(), path));
        return;
    }
    if (entry.isOf(present)) {
        note(run, path, BackupRestore::asInBackup);
        return;
    }
    const Old old = oldSong(copy, path, present);
    if (const WhyNot whyNot = whyNotReplace(run, path, present, old); whyNot.has_value())
        note(run, path, *whyNot);
    else
        replace(run, copy, path, present, old);
}

void BackupRestore::restoreMissing(Run &run, const QString &copy, const QString &path)
{
    // The folder in which a pulled memory was mounted may still be there.
    if (fileKind(QFileInfo(path).path()) != FileKind::Folder ||
        !m_memories.pulledFrom(path).isEmpty()) {
        note(run, path, FileReason::folderMissing);
        return;
    }
    const Staged song{path, std::nullopt};
    CopyResult result = copyIntoLot(m_lot, copy, {path, true});
    if (result == CopyResult::Done) {
        m_staged.append(song);
        return;
    }
    finishLot(run); // it may use the space
    if (result == CopyResult::TargetFailed)
        result = copyToNewFile(copy, path);
    finishCopy(run, copy, song, result);
}

/// Asks, unless \a present is what this program wrote last and can be kept. Returns nothing if the
/// song may be replaced.
BackupRestore::WhyNot BackupRestore::whyNotReplace(Run &run, const QString &path,
                                                   const PlainFile &present, const Old &old)
{
    const std::optional<HistorySong> last = m_history.lastChange(path);
    const bool isOwn = last.has_value() && last->after.isOf(present);
    if (isOwn && old.has_value())
        return std::nullopt;
    bool isYes = false;
    if (!old.has_value())
        isYes = ask(run, Run::Question::ReplaceForGood, path,
                    tr("La copia sostituirà l'intero file, che non verrà conservato nella "
                       "cronologia: non si potrà annullare. Rimettere la copia?"));
    else if (last.has_value())
        isYes = ask(run, Run::Question::RestoreChanged, path,
                    tr("Un altro programma ha cambiato questa song dopo il backup. Rimettere "
                       "comunque la copia?"));
    else
        isYes = ask(run, Run::Question::RestoreChanged, path,
                    tr("Questa song è diversa dalla copia, e la cronologia non dice chi l'ha "
                       "cambiata. Rimettere comunque la copia?"));
    if (isYes)
        return std::nullopt;
    if (Run::isEnding())
        return Run::interrupted;
    return last.has_value() && !isOwn ? BackupRestore::changedSince : BackupRestore::differs;
}

bool BackupRestore::ask(Run &run, Run::Question question, const QString &path, const QString &text)
{
    if (run.isAsking(question))
        finishLot(run);
    return run.ask(question, path, text);
}

void BackupRestore::replace(Run &run, const QString &copy, const QString &path, PlainFile &present,
                            const Old &old)
{
    const SongFile there(path);
    const Staged song{path, there.info, old.has_value()};
    FileState expected = present.state();
    makeWritable(path);
    const bool isOpen = present.open(path);
    expected.changedNs = present.state().changedNs; // by makeWritable()
    if (!isOpen || present.state() != expected) {
        note(run, path, FileReason::changed);
        return;
    }
    if (!old.has_value()) {
        copyOver(run, copy, song, present);
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

/// Copies the whole file over \a present, the file that a link at the path of \a song leads to.
void BackupRestore::copyOver(Run &run, const QString &copy, const Staged &song, PlainFile &present)
{
    const QString place = QFileInfo(song.path).canonicalFilePath();
    const FileState expected = present.state();
    present.close();
    CopyResult result = copyIntoLot(m_lot, copy, {place, false, &expected, song.path});
    if (result == CopyResult::Done) {
        m_staged.append(song);
        return;
    }
    finishLot(run); // it may use the space
    if (result == CopyResult::TargetFailed)
        result = copyOverFile(copy, place);
    finishCopy(run, copy, song, result);
}

void BackupRestore::finishCopy(Run &run, const QString &copy, const Staged &song, CopyResult result)
{
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
            m_model.updateRow(*row, held.info, held.song.stateWhenRead());
        if (!whyNot.has_value())
            m_model.setStatus(*row, Database::Imported, SongOutcome::Restored, std::nullopt);
    }
}

void BackupRestore::note(Run &run, const QString &path, Reason reason)
{
    m_memories.note(run.report(), RunReport::Step::Restore, path, reason);
}

} // namespace brisel
