#include "library/manualedit.h"

#include "base/debugstream.h"
#include "base/fileidentity.h"
#include "base/runguard.h"
#include "db/usersongsreltablemodel.h"
#include "library/progress.h"
#include "library/songfailure.h"
#include "library/songfilename.h"
#include "songfile/metasong.h"

#include <QFileInfo>

#include <utility>

/// What the song in the file \a path is to hold once \a spread is applied.
static SongInfo infoWith(const MetaSong &song, const QString &path, const SongInfo &edited,
                         const ManualEdit::Spread &spread)
{
    SongInfo info;
    song.getSongInfo(info);
    info.fileName = path;
    if (spread.titleFromFileName)
        info.title = titleFromFileName(path);
    if (spread.author)
        info.author = edited.author;
    if (spread.artist)
        info.artist = edited.artist;
    if (spread.genre)
        info.genre = edited.genre;
    return info;
}

void ManualEdit::modifySong(MetaSong &song, const SongInfo &info, const QString &path, int row)
{
    song.setSongInfo(info, true);
    debug() << "Saving to file: " << path;
    // A song that went away with its memory is not made anew where the memory was.
    const bool isSaved = isRegularFile(path) && song.saveToFile(path);
    finishSong(path, row, isSaved ? std::nullopt : WhyNot(whyNotSaved(song, path)));
}

void ManualEdit::spreadOverList(const SongInfo &edited, int editedRow, const Spread &spread,
                                Progress &progress)
{
    const int count = m_model.goodRowCount();
    for (int row = 0; row < count && !RunGuard::endRequested(); ++row) {
        if (row == editedRow)
            continue;
        const QString path = m_model.fileName(row);
        if (m_lot.isFull() || m_lot.holds(QFileInfo(path).canonicalFilePath()))
            finishLot(edited, spread);
        MetaSong song;
        if (!importFile(song, path))
            continue;
        song.setSongInfo(infoWith(song, path, edited, spread), true);
        debug() << "Saving to file: " << path;
        const WriteResult result =
            isRegularFile(path) ? song.saveInLot(path, m_lot) : WriteResult::Failed;
        if (result == WriteResult::Staged)
            m_staged.append({row, path});
        else
            finishSong(path, row,
                       result == WriteResult::Done ? std::nullopt
                                                   : WhyNot(whyNotSaved(song, path)));
        progress.setValue(row + 1);
    }
    finishLot(edited, spread);
}

bool ManualEdit::importFile(MetaSong &song, const QString &path)
{
    if (m_memories.pulledFrom(path).isEmpty() && song.importFile(path))
        return true;
    note(RunReport::Step::Read, path, whyNoSong(song, path));
    return false;
}

void ManualEdit::note(RunReport::Step lack, const QString &path, Reason reason)
{
    const QString memory = m_memories.pulledFrom(path);
    if (memory.isEmpty())
        m_report.add(lack, path, reason);
    else
        m_report.addShared(lack, memory, MemoryReason::gone);
}

void ManualEdit::finishLot(const SongInfo &edited, const Spread &spread)
{
    const QList<Staged> staged = std::exchange(m_staged, {});
    const QList<WriteResult> results = m_lot.commit();
    for (qsizetype i = 0; i < staged.size(); ++i) {
        const auto &[row, path] = staged.at(i);
        if (results.at(i) == WriteResult::Done) {
            finishSong(path, row, std::nullopt);
            continue;
        }
        if (results.at(i) != WriteResult::Changed) {
            MetaSong::logFailedSave();
            finishSong(path, row, whyNotPlaced(path));
            continue;
        }
        // Another program has changed the song since it was read: it is read anew.
        MetaSong song;
        if (importFile(song, path))
            modifySong(song, infoWith(song, path, edited, spread), path, row);
    }
}

/// Reports whether the row's song was saved, and shows what it holds either way.
void ManualEdit::finishSong(const QString &path, int row, WhyNot whyNotSaved)
{
    if (whyNotSaved.has_value()) {
        debug() << "Error!";
        note(RunReport::Step::Save, path, *whyNotSaved);
    } else {
        debug() << "Ok";
        m_report.count(RunReport::Success::Edited);
    }
    MetaSong saved;
    if (saved.importFile(path)) {
        SongInfo held;
        saved.getSongInfo(held);
        m_model.updateRow(row, held);
    }
    m_model.setStatus(row, Database::Edited);
}
