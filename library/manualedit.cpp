#include "library/manualedit.h"

#include "base/debugstream.h"
#include "base/fileidentity.h"
#include "db/usersongsreltablemodel.h"
#include "history/historyrecorder.h"
#include "library/songchanges.h"
#include "library/songfailure.h"
#include "library/songfilename.h"

#include <QFileInfo>

#include <numeric>
#include <utility>

namespace brisel
{

std::optional<SongFile> ManualEdit::open(Run &run, UserSongsRelTableModel &model, int row)
{
    const QString path = model.fileName(row);
    debug() << "File name: " << path;
    debug() << "[MainWindow] Manual modifing row: " << row; // the log has always spelt it so
    SongFile file(path);
    if (!file.isOpen) {
        run.report().add(RunReport::Step::Read, path, file.whyNotOpen());
        return std::nullopt;
    }
    file.info.fileName = path;
    return file;
}

ManualEdit::ManualEdit(UserSongsRelTableModel &model, MetaSong song, SongInfo info, QString path,
                       int row, Spread spread)
    : m_model(model), m_song(std::move(song)), m_edited(std::move(info)), m_path(std::move(path)),
      m_row(row), m_spread(spread)
{
}

ManualEdit::ManualEdit(UserSongsRelTableModel &model, QList<int> rows, SeveralEdit edit)
    : m_model(model), m_rows(std::move(rows)), m_several(std::move(edit))
{
}

void ManualEdit::setRecorder(HistoryRecorder *recorder)
{
    m_recorder = recorder;
    m_lot.setBeforeReplacing([recorder] {
        if (recorder != nullptr)
            recorder->flush();
    });
}

ManualEdit::Outcome ManualEdit::run(Run &run)
{
    if (!isSeveral()) {
        SongInfo before;
        m_song.getSongInfo(before);
        const WhyNot whyNot = setEdited();
        m_whyNotSaved = whyNot.has_value() ? finishSong(run, {m_row, m_path, before}, whyNot)
                                           : saveSong(run, m_song, before, m_path, m_row);
    }
    if (isSeveral() || m_spread.any()) {
        const QList<int> rows = rowsToCopyTo();
        run.begin({tr("Aggiornamento file"), tr("Aggiorno la libreria..."),
                   isSeveral() ? static_cast<int>(rows.size()) : m_model.goodRowCount()});
        const Outcome outcome = spreadOverRows(run, rows);
        if (m_recorder != nullptr)
            m_recorder->finish(run.report());
        run.end();
        return outcome;
    }
    if (m_recorder != nullptr)
        m_recorder->finish(run.report());
    return Run::isEnding() ? Outcome::Interrupted : Outcome::Done;
}

/// Sets the data in the edited song. Returns why its markers can't be set.
ManualEdit::WhyNot ManualEdit::setEdited()
{
    SongInfo edited = m_edited;
    edited.markers = m_markers.value_or(edited.markers); // a container has a flag for them
    WhyNot whyNot;
    if (m_markers.has_value() && !m_song.setMarkers(*m_markers))
        whyNot = m_song.canSetMarkers() ? markersMisread : markersNotWritable;
    m_song.setSongInfo(edited, true);
    return whyNot;
}

QList<int> ManualEdit::rowsToCopyTo()
{
    if (isSeveral())
        return m_rows;
    QList<int> rows(m_model.goodRowCount());
    std::iota(rows.begin(), rows.end(), 0);
    rows.removeOne(m_row);
    return rows;
}

/// Sets the data of the song in \a file that are copied to it.
void ManualEdit::setCopied(SongFile &file) const
{
    SongInfo info = file.info;
    info.fileName = file.path;
    if (isSeveral()) {
        const SongFields fields = m_several.apply(info, file.path);
        file.song.setSongInfo(info, true, fields);
        return;
    }
    if (m_spread.titleFromFileName)
        info.title = titleFromFileName(file.path);
    if (m_spread.author)
        info.author = m_edited.author;
    if (m_spread.artist)
        info.artist = m_edited.artist;
    if (m_spread.genre)
        info.genre = m_edited.genre;
    file.song.setSongInfo(info, true);
}

/// Saves a song that was changed in memory.
ManualEdit::WhyNot ManualEdit::saveSong(Run &run, MetaSong &song, const SongInfo &before,
                                        const QString &path, int row)
{
    song.setKeeper(m_recorder);
    debug() << "Saving to file: " << path;
    // A song on a removed memory must not be created in the mount folder.
    const bool isSaved = isRegularFile(path) && song.saveToFile(path);
    const WhyNot whyNot = isSaved ? std::nullopt : WhyNot(brisel::whyNotSaved(song, path));
    return finishSong(run, {row, path, before}, whyNot);
}

ManualEdit::Outcome ManualEdit::spreadOverRows(Run &run, const QList<int> &rows)
{
    for (qsizetype i = 0; i < rows.size(); ++i) {
        const int row = rows.at(i);
        run.processEvents();
        if (!run.mayGoOn()) {
            finishLot(run);
            noteRowsLeft(run, rows.sliced(i));
            return Outcome::Interrupted;
        }
        spreadOver(run, row, isSeveral() ? static_cast<int>(i) + 1 : row + 1);
    }
    finishLot(run);
    return Outcome::Done;
}

/// Reports the rows that an interrupted run did not reach.
void ManualEdit::noteRowsLeft(Run &run, const QList<int> &rows)
{
    for (const int row : rows)
        m_memories.note(run.report(), RunReport::Step::Change, m_model.fileName(row),
                        Run::interrupted);
}

void ManualEdit::spreadOver(Run &run, int row, int step)
{
    const QString path = m_model.fileName(row);
    if (m_lot.isFull() || m_lot.holds(QFileInfo(path).canonicalFilePath()))
        finishLot(run);
    std::optional<SongFile> file = openFile(run, path, row);
    if (!file.has_value())
        return;
    file->song.setKeeper(m_recorder);
    setCopied(*file);
    debug() << "Saving to file: " << path;
    const WriteResult result =
        isRegularFile(path) ? file->song.saveInLot(path, m_lot) : WriteResult::Failed;
    if (result == WriteResult::Staged)
        m_staged.append({row, path, file->info});
    else
        finishSong(run, {row, path, file->info},
                   result == WriteResult::Done ? std::nullopt
                                               : WhyNot(brisel::whyNotSaved(file->song, path)));
    run.setStep(step);
}

std::optional<SongFile> ManualEdit::openFile(Run &run, const QString &path, int row)
{
    SongFile file(path, m_memories);
    if (file.isOpen)
        return file;
    m_model.setOutcome(
        row, SongOutcome::NotReadable,
        m_memories.note(run.report(), RunReport::Step::Read, path, file.whyNotOpen()));
    return std::nullopt;
}

void ManualEdit::finishLot(Run &run)
{
    const QList<Staged> staged = std::exchange(m_staged, {});
    const QList<WriteResult> results = m_lot.commit();
    for (qsizetype i = 0; i < staged.size(); ++i) {
        const Staged &song = staged.at(i);
        if (m_recorder != nullptr)
            m_recorder->settle(song.path, results.at(i));
        if (results.at(i) == WriteResult::Done) {
            finishSong(run, song, std::nullopt);
            continue;
        }
        if (results.at(i) != WriteResult::Changed) {
            MetaSong::logFailedSave();
            finishSong(run, song, whyNotPlaced(song.path));
            continue;
        }
        // Another program has changed the song since it was read: it is read again.
        if (std::optional<SongFile> file = openFile(run, song.path, song.row)) {
            setCopied(*file);
            saveSong(run, file->song, file->info, song.path, song.row);
        }
    }
}

/// Reports whether the row's song was saved, and its changes, and shows its content in both cases.
/// Returns the reported reason.
ManualEdit::WhyNot ManualEdit::finishSong(Run &run, const Staged &song, WhyNot whyNot)
{
    if (whyNot.has_value()) {
        debug() << "Error!";
        whyNot = m_memories.note(run.report(), RunReport::Step::Save, song.path, *whyNot);
    } else {
        debug() << "Ok";
        run.report().count(RunReport::Success::Edited);
    }
    if (const SongFile held(song.path); held.isOpen) {
        m_model.updateRow(song.row, held.info, held.song.stateWhenRead());
        if (!whyNot.has_value())
            run.report().addChanges(song.path,
                                    reportedChanges(fieldChanges(song.before, held.info)));
    }
    m_model.setStatus(song.row, Database::Edited,
                      whyNot.has_value() ? SongOutcome::NotWritten : SongOutcome::Edited, whyNot);
    return whyNot;
}

} // namespace brisel
