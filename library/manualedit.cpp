#include "library/manualedit.h"

#include "base/debugstream.h"
#include "base/fileidentity.h"
#include "db/usersongsreltablemodel.h"
#include "history/historyrecorder.h"
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
    song.setKeeper(m_recorder);
    song.setSongInfo(info, true);
    debug() << "Saving to file: " << path;
    // A song on a removed memory must not be created in the mount folder.
    const bool isSaved = isRegularFile(path) && song.saveToFile(path);
    finishSong(run, path, row, isSaved ? std::nullopt : WhyNot(whyNotSaved(song, path)));
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
        m_staged.append({row, path});
    else
        finishSong(run, path, row,
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
        const auto &[row, path] = staged.at(i);
        if (m_recorder != nullptr)
            m_recorder->settle(path, results.at(i));
        if (results.at(i) == WriteResult::Done) {
            finishSong(run, path, row, std::nullopt);
            continue;
        }
        if (results.at(i) != WriteResult::Changed) {
            MetaSong::logFailedSave();
            finishSong(run, path, row, whyNotPlaced(path));
            continue;
        }
        // Another program has changed the song since it was read: it is read again.
        if (std::optional<SongFile> file = openFile(run, path))
            saveSong(run, file->song, spreadInfo(*file), path, row);
    }
}

/// Reports whether the row's song was saved, and shows its content in both cases.
void ManualEdit::finishSong(Run &run, const QString &path, int row, WhyNot whyNotSaved)
{
    if (whyNotSaved.has_value()) {
        debug() << "Error!";
        m_memories.note(run.report(), RunReport::Step::Save, path, *whyNotSaved);
    } else {
        debug() << "Ok";
        run.report().count(RunReport::Success::Edited);
    }
    if (const SongFile held(path); held.isOpen)
        m_model.updateRow(row, held.info);
    m_model.setStatus(row, Database::Edited);
}

} // namespace brisel
