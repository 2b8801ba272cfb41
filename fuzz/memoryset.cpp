#include "fuzz/memoryset.h"

#include <algorithm>

QList<SongInfoIndex> sampleIndexSongs(quint32 firstId)
{
    QList<SongInfoIndex> songs;
    for (const char *name : {"/AMAPOLA.MID", "/ROCK/BLUE.MP3", "/ROCK/GREEN.ZB4", "/Zeta.kar",
                             "/CAF\xC9.MID", "/CIELITO.ZB5"}) {
        SongInfoIndex song;
        song.setPath(QString::fromLatin1(name));
        song.title = song.path.mid(1).toUpper();
        song.artist = songs.size() % 2 == 0 ? QStringLiteral("ABBEY") : QStringLiteral("ZORN");
        song.genre = QStringLiteral("POP");
        song.id = firstId + static_cast<quint32>(songs.size());
        song.posidx = static_cast<quint16>(songs.size());
        song.bpm = 120;
        song.date = 20240229;
        song.time = 235959;
        songs.append(song);
    }
    return songs;
}

bool commitEmptySet(IndexSet &set)
{
    const QStringList &names = IndexSet::names();
    const bool done = std::all_of(names.cbegin(), names.cend(),
                                  [&set](const QString &name) { return set.stage(name, {}); }) &&
                      set.commit();
    set.discard();
    return done;
}
