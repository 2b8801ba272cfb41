#include "library/restore.h"

#include "base/filefailure.h"
#include "base/plainfile.h"
#include "db/database.h"
#include "db/usersongsreltablemodel.h"
#include "history/historyrecorder.h"
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

QStringList pathsOf(UserSongsRelTableModel &model)
{
    QStringList paths;
    const int count = model.goodRowCount();
    for (int row = 0; row < count; ++row)
        paths.append(model.fileName(row));
    return paths;
}

/// The start of the audio in the MP3 at \a path; nothing if it is not an MP3.
std::optional<qint64> audioStartOf(const QString &path)
{
    MetaSong song;
    return song.importFile(path) ? song.audioStart() : std::nullopt;
}

/// Returns true if \a old are the bytes that the entry was made for. \a file is the song that they
/// are put back into, and has \a content; of an MP3 with other audio only the tag's length is
/// known.
bool isIntact(const HistorySong &song, const OldSong &old, const PlainFile &file,
              const std::optional<Fingerprint> &content)
{
    if (!old.isMp3())
        return Fingerprint::ofWhole(old.bytes) == song.before;
    if (!content.has_value())
        return old.bytes.size() == song.before.tagSize;
    const qint64 audioSize = file.size() - content->tagSize;
    QByteArray audio;
    return file.read(content->tagSize, std::min(audioSize, Fingerprint::checkedAudio), audio) &&
           Fingerprint::ofMp3(old.bytes, audio, old.bytes.size() + audioSize) == song.before;
}

} // namespace

Restore::Restore(UserSongsRelTableModel &model, History &history, QList<HistorySong> songs,
                 HistoryRecorder *recorder)
    : m_model(model), m_history(history), m_songs(std::move(songs)), m_recorder(recorder)
{
    std::sort(m_songs.begin(), m_songs.end(),
              [](const HistorySong &a, const HistorySong &b) { return a.id > b.id; });
    for (qsizetype i = 0; i < m_songs.size(); ++i)
        m_left.insert(m_songs.at(i).path, i);
    const QStringList paths = pathsOf(model);
    for (int row = 0; row < paths.size(); ++row)
        m_rows.insert(paths.at(row), row);
    m_moved = MovedSongs(paths);
    m_lot.setBeforeReplacing([recorder] {
        if (recorder != nullptr)
            recorder->flush();
    });
}

Restore::Outcome Restore::run(Run &run)
{
    logBanner("RESTORE");
    run.begin({tr("Ripristino"), tr("Ripristino delle song..."), static_cast<int>(m_songs.size())});
    QSet<qint64> runs;
    for (const HistorySong &song : std::as_const(m_songs))
        runs.insert(song.run);
    m_history.setProtected(runs);
    const Outcome outcome = restoreSongs(run);
    m_history.setProtected({});
    if (m_recorder != nullptr)
        m_recorder->finish(run.report());
    run.end();
    return outcome;
}

Restore::Outcome Restore::restoreSongs(Run &run)
{
    const UserSongsRelTableModel::ManyChanges changes(m_model);
    for (qsizetype i = 0; i < m_songs.size(); ++i) {
        if (!run.mayGoOn()) {
            finishLot(run);
            for (; i < m_songs.size(); ++i)
                note(run, m_songs.at(i).path, Run::interrupted);
            return Outcome::Interrupted;
        }
        m_left.remove(m_songs.at(i).path, i);
        restore(run, m_songs.at(i));
        run.setStep(static_cast<int>(i) + 1);
        run.processEvents();
    }
    finishLot(run);
    return Outcome::Done;
}

void Restore::restore(Run &run, const HistorySong &song)
{
    const QString path = m_newPlaces.value(song.path, song.path);
    if (m_lot.isFull() || m_lot.holds(QFileInfo(path).canonicalFilePath()))
        finishLot(run);
    const FoundSong found = lookAt(path, song);
    if (found.kind == FoundSong::Kind::AsBefore) {
        note(run, path, Restore::alreadyBefore);
    } else if (found.isOwn()) {
        write(run, song, path, found.content);
    } else if (const QString place = findMoved(run, song); !place.isEmpty()) {
        m_newPlaces.insert(song.path, place);
        m_taken.insert(place, song.path);
        write(run, song, place, song.after);
    } else if (!isRegularFile(path)) {
        note(run, path, whyNoSong(MetaSong(), path));
    } else if (mayOverwrite(run, path)) {
        write(run, song, path, std::nullopt);
    } else {
        note(run, path, Run::isEnding() ? Run::interrupted : Restore::changedSince);
    }
}

FoundSong Restore::lookAt(const QString &path, const HistorySong &song)
{
    // Another song that was found there is not this one, even if it is equal by now.
    if (m_taken.contains(path) && !m_newPlaces.contains(song.path))
        return {FoundSong::Kind::Other, {}};
    return FoundSong::at(path, song, m_history);
}

/// The path of the file of the list that \a song was moved to; empty if it was not found.
QString Restore::findMoved(Run &run, const HistorySong &song)
{
    const bool isStaged =
        std::any_of(m_staged.cbegin(), m_staged.cend(),
                    [&song](const Staged &staged) { return staged.content == song.after; });
    if (isStaged)
        finishLot(run);
    for (;;) {
        QString place = m_moved.find(song.after);
        if (place.isEmpty())
            return {};
        if (m_lot.holds(QFileInfo(place).canonicalFilePath())) {
            finishLot(run);
            if (FoundSong::at(place, song, m_history).kind != FoundSong::Kind::AsWritten)
                continue;
        }
        if (!isTwin(song, place) && !isInItsPlace(place))
            return place;
    }
}

/// True if the file at \a path was there and became like \a song by a change of its own, in the
/// same run or before.
bool Restore::isTwin(const HistorySong &song, const QString &path)
{
    const Fingerprint &content = song.after;
    const QList<HistorySong> changes = m_history.changes(path);
    const auto first =
        std::find_if(changes.cbegin(), changes.cend(), [&content](const HistorySong &change) {
            return change.before == content || change.after == content;
        });
    return path != song.path && first != changes.cend() && first->before != content &&
           first->run <= song.run;
}

/// True if the file at \a path is what one of the remaining changes expects there.
bool Restore::isInItsPlace(const QString &path)
{
    const QStringList homes = m_taken.values(path) + QStringList{path};
    for (const QString &home : homes) {
        if (m_newPlaces.value(home, home) != path)
            continue;
        for (auto i = m_left.constFind(home); i != m_left.cend() && i.key() == home; ++i) {
            if (FoundSong::at(path, m_songs.at(*i), m_history).isOwn())
                return true;
        }
    }
    return false;
}

bool Restore::mayOverwrite(Run &run, const QString &path)
{
    if (run.isAsking(Run::Question::RestoreChanged))
        finishLot(run);
    return run.ask(Run::Question::RestoreChanged, path,
                   tr("Un altro programma ha cambiato questa song dopo la modifica da annullare. "
                      "Ripristinarla comunque?"));
}

/// Over a file with \a content; nothing if another program has written it.
void Restore::write(Run &run, const HistorySong &song, const QString &path, const Content &content)
{
    const std::optional<QByteArray> bytes = m_history.oldBytes(song.id);
    if (!bytes.has_value()) {
        note(run, path, m_history.trouble().value_or(Restore::notKept));
        return;
    }
    const OldSong old{song.format, *bytes};
    makeWritable(path);
    PlainFile file;
    const bool isOpen = file.open(path);
    const std::optional<qint64> tagSize = content.has_value() ? std::optional(content->tagSize)
                                          : old.isMp3()       ? audioStartOf(path)
                                                              : std::optional<qint64>(0);
    if (!isOpen || !tagSize.has_value()) {
        note(run, path, whyNoSong(MetaSong(), path));
        return;
    }
    if (content.has_value() && !content->isOf(file)) {
        note(run, path, FileReason::changed);
        return;
    }
    if (!isIntact(song, old, file, content)) {
        note(run, path, HistoryReason::damaged);
        return;
    }
    const Staged staged{path, SongFile(path).info, song.before};
    const WriteResult result = restoreSong(path, file, old, *tagSize, m_lot, m_recorder);
    if (result == WriteResult::Staged)
        m_staged.append(staged);
    else if (result == WriteResult::Changed)
        finishSong(run, staged, FileReason::changed);
    else
        finishSong(run, staged,
                   result == WriteResult::Done ? std::nullopt : std::optional(whyNotPlaced(path)));
}

void Restore::finishLot(Run &run)
{
    const QList<Staged> songs = std::exchange(m_staged, {});
    const QList<WriteResult> results = m_lot.commit();
    for (qsizetype i = 0; i < songs.size(); ++i) {
        const Staged &song = songs.at(i);
        const WriteResult result = results.at(i);
        if (m_recorder != nullptr)
            m_recorder->settle(song.path, result);
        std::optional<Reason> whyNot;
        if (result != WriteResult::Done)
            whyNot = result == WriteResult::Changed ? FileReason::changed : whyNotPlaced(song.path);
        finishSong(run, song, whyNot);
    }
}

/// Reports whether the song was restored, and its changes, and shows its content in its rows.
void Restore::finishSong(Run &run, const Staged &song, std::optional<Reason> whyNot)
{
    const QString &path = song.path;
    const SongFile held(path);
    if (whyNot.has_value()) {
        note(run, path, *whyNot);
    } else {
        if (m_rows.contains(path))
            m_moved.add(path);
        run.report().count(RunReport::Success::Restored);
        if (held.isOpen)
            run.report().addChanges(path, reportedChanges(fieldChanges(song.before, held.info)));
    }
    for (auto row = m_rows.constFind(path); row != m_rows.cend() && row.key() == path; ++row) {
        if (held.isOpen)
            m_model.updateRow(*row, held.info, held.song.stateWhenRead());
        if (!whyNot.has_value())
            m_model.setStatus(*row, Database::Imported, SongOutcome::Restored, std::nullopt);
    }
}

void Restore::note(Run &run, const QString &path, Reason reason)
{
    m_memories.note(run.report(), Step::Restore, path, reason);
}

} // namespace brisel
