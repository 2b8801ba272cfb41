#include "library/manualedit.h"

#include "base/debugstream.h"
#include "base/fileidentity.h"
#include "db/usersongsreltablemodel.h"
#include "history/historyrecorder.h"
#include "library/songchanges.h"
#include "library/songfailure.h"
#include "library/songfilename.h"

#include <QFileInfo>

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
    saveSong(run, m_song, m_edited, m_path, m_row);
    if (m_spread.any()) {
        run.begin(
            {tr("Aggiornamento file"), tr("Aggiorno la libreria..."), m_model.goodRowCount()});
        spreadOverList(run);
        if (m_recorder != nullptr)
            m_recorder->finish(run.report());
        run.end();
    } else if (m_recorder != nullptr) {
        m_recorder->finish(run.report());
    }
    return Run::isEnding() ? Outcome::Interrupted : Outcome::Done;
}

/// The new data of the song in \a file after copying.
SongInfo ManualEdit::spreadInfo(const SongFile &file) const
{
    SongInfo info = file.info;
    info.fileName = file.path;
    if (m_spread.titleFromFileName)
        info.title = titleFromFileName(file.path);
    if (m_spread.author)
        info.author = m_edited.author;
    if (m_spread.artist)
        info.artist = m_edited.artist;
    if (m_spread.genre)
        info.genre = m_edited.genre;
    return info;
}

void ManualEdit::saveSong(Run &run, MetaSong &song, const SongInfo &info, const QString &path,
                          int row)
{
    SongInfo before;
    song.getSongInfo(before);
    song.setKeeper(m_recorder);
    song.setSongInfo(info, true);
    debug() << "Saving to file: " << path;
    // A song on a removed memory must not be created in the mount folder.
    const bool isSaved = isRegularFile(path) && song.saveToFile(path);
    finishSong(run, {row, path, before}, isSaved ? std::nullopt : WhyNot(whyNotSaved(song, path)));
}

void ManualEdit::spreadOverList(Run &run)
{
    const int count = m_model.goodRowCount();
    for (int row = 0; row < count && !Run::isEnding(); ++row) {
        if (row != m_row)
            spreadOver(run, row);
    }
    finishLot(run);
}

void ManualEdit::spreadOver(Run &run, int row)
{
    const QString path = m_model.fileName(row);
    if (m_lot.isFull() || m_lot.holds(QFileInfo(path).canonicalFilePath()))
        finishLot(run);
    std::optional<SongFile> file = openFile(run, path);
    if (!file.has_value())
        return;
    file->song.setKeeper(m_recorder);
    file->song.setSongInfo(spreadInfo(*file), true);
    debug() << "Saving to file: " << path;
    const WriteResult result =
        isRegularFile(path) ? file->song.saveInLot(path, m_lot) : WriteResult::Failed;
    if (result == WriteResult::Staged)
        m_staged.append({row, path, file->info});
    else
        finishSong(run, {row, path, file->info},
                   result == WriteResult::Done ? std::nullopt
                                               : WhyNot(whyNotSaved(file->song, path)));
    run.setStep(row + 1);
}

std::optional<SongFile> ManualEdit::openFile(Run &run, const QString &path)
{
    SongFile file(path, m_memories);
    if (file.isOpen)
        return file;
    m_memories.note(run.report(), RunReport::Step::Read, path, file.whyNotOpen());
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
        if (std::optional<SongFile> file = openFile(run, song.path))
            saveSong(run, file->song, spreadInfo(*file), song.path, song.row);
    }
}

/// Reports whether the row's song was saved, and its changes, and shows its content in both cases.
void ManualEdit::finishSong(Run &run, const Staged &song, WhyNot whyNotSaved)
{
    if (whyNotSaved.has_value()) {
        debug() << "Error!";
        m_memories.note(run.report(), RunReport::Step::Save, song.path, *whyNotSaved);
    } else {
        debug() << "Ok";
        run.report().count(RunReport::Success::Edited);
    }
    if (const SongFile held(song.path); held.isOpen) {
        m_model.updateRow(song.row, held.info);
        if (!whyNotSaved.has_value())
            run.report().addChanges(song.path,
                                    reportedChanges(fieldChanges(song.before, held.info)));
    }
    m_model.setStatus(song.row, Database::Edited);
}

} // namespace brisel
