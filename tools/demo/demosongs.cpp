#include "tools/demo/demosongs.h"

#include "songfile/metasong.h"
#include "tools/samplesongs.h"

#include <QFile>

namespace brisel
{

static bool writeBrokenSong(const DemoSong &song)
{
    QFile file(song.path);
    return file.open(QIODevice::WriteOnly) && file.write(song.original) == song.original.size();
}

SongInfo readBack(const QString &path)
{
    MetaSong song;
    SongInfo info;
    if (song.importFile(path))
        song.getSongInfo(info);
    return info;
}

QList<DemoSong> writeDemoSongs(const QString &folder)
{
    if (!SampleSongs::writeSet(folder))
        return {};
    QList<DemoSong> songs;
    for (const SampleSongs::Sample &sample : SampleSongs::set()) {
        if (!sample.isSong)
            continue;
        DemoSong song;
        song.path = folder + u'/' + sample.fileName;
        song.original = sample.content;
        song.info = sample.expected;
        if (!sample.catalogueName.isEmpty())
            song.catalogueTitle = SampleSongs::tune(sample.catalogueName).title;
        songs.append(song);
    }

    DemoSong broken;
    broken.path = folder + QStringLiteral("/ROTTA.MID");
    broken.original = QByteArrayLiteral("This was a song once.");
    broken.isReadable = false;
    if (!writeBrokenSong(broken))
        return {};
    songs.append(broken);
    return songs;
}

} // namespace brisel
