#include "base/filewriting.h"
#include "base/runguard.h"
#include "index/index.h"

#include <QTextStream>

namespace
{

SongCompare listOrder(SORT_MODE mode)
{
    if (mode == SortByGenre)
        return compareGenre;
    return mode == SortByArtist ? compareArtist : compareTitle;
}

} // namespace

int Index::saveSongsList(const QString &root, const QString &fileName, SORT_MODE mode)
{
    setRoot(root);
    if (!checkIndexFile())
        return -1;
    if (loadAllIndexFile() < 0)
        return 0;
    sortSongs(m_songs, listOrder(mode));
    emit progressMaxSetup(static_cast<int>(m_songs.size()));

    QByteArray list;
    QTextStream lines(&list);
    lines << tr("TITOLO") << ';' << tr("ARTISTA") << ';' << tr("GENERE") << ';' << tr("FILE")
          << ";\n";
    int written = 0;
    for (const SongInfoIndex &song : std::as_const(m_songs)) {
        if (RunGuard::endRequested())
            return 0;
        // Fields stand as they are: a ";" in a title shifts the columns of its line.
        lines << song.title << ';' << song.artist << ';' << song.genre << ';'
              << QStringView(song.absolutePath).mid(m_root.size()) << ";\n";
        emit currentPathChanged(song.absolutePath);
        emit progressValueChanged(++written);
    }
    lines.flush();
    return replaceFile(fileName, list) ? 1 : 0;
}
