#include "library/manualedit.h"

#include "base/debugstream.h"
#include "base/fileidentity.h"
#include "base/runguard.h"
#include "db/usersongsreltablemodel.h"
#include "library/progress.h"
#include "library/songfailure.h"
#include "library/songfilename.h"
#include "songfile/metasong.h"

void ManualEdit::modifySong(MetaSong &song, const SongInfo &info, const QString &path, int row)
{
    song.setSongInfo(info, true);
    debug() << "Saving to file: " << path;
    // A song that went away with its memory is not made anew where the memory was.
    if (isRegularFile(path) && song.saveToFile(path)) {
        debug() << "Ok";
        m_report.count(RunReport::Success::Edited);
    } else {
        debug() << "Error!";
        m_report.add(RunReport::Lack::Saved, path, whyNotSaved(song, path));
    }

    MetaSong saved;
    if (saved.importFile(path)) {
        SongInfo held;
        saved.getSongInfo(held);
        m_model.updateRow(row, held);
    }
    m_model.setStatus(row, Database::Edited);
}

void ManualEdit::spreadOverList(const SongInfo &edited, int editedRow, const Spread &spread,
                                Progress &progress)
{
    const int count = m_model.goodRowCount();
    for (int row = 0; row < count && !RunGuard::endRequested(); ++row) {
        if (row == editedRow)
            continue;
        const QString path = m_model.fileName(row);
        MetaSong song;
        if (!song.importFile(path)) {
            m_report.add(RunReport::Lack::Read, path, whyNoSong(song, path));
            continue;
        }
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
        modifySong(song, info, path, row);
        progress.setValue(row + 1);
    }
}
