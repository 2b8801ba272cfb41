#pragma once

#include "index/index.h"
#include "index/indexset.h"
#include "index/memorycheck.h"
#include "tests/index/samplememory.h"
#include "tests/index/setreader.h"
#include "tests/scriptedindex.h"

#include <QTest>

namespace brisel
{

/// A memory whose songs have changed since its index was built, for tests of runs that go wrong.
namespace Sample
{

inline const QString songsFile = u"playlist/play0007.dat"_qs;
inline const QList<QByteArray> keptSongs{"/D.MID", "/B.MP3", "/\x82.MID"};
inline const QString accented = u"\u00E9.MID"_qs;

inline QByteArray playlistRecord(int id)
{
    const QByteArray title = QByteArray("ABCDE").mid(id, 1);
    return songRecord(QByteArray::number(id).rightJustified(8, '0').constData(), title,
                      title == "B" ? "0001" : "7800");
}

inline const QDateTime songDate(QDate(2004, 1, 1), QTime(1, 1));

/// A memory whose index is built and whose songs have changed since. The ids of its first index: A
/// 0, B 1, C 2, D 3, \u00E9 4; a rebuild gives B 0, C 1, D 2, Z 3, \u00E9 4. In every update the
/// accented song gets a new one.
inline void makeChangedMemory(const SampleMemory &memory)
{
    for (const char *name : {"A", "C", "D"})
        memory.write(QLatin1StringView(name) + u".MID"_qs, midiSong(name, "Artist", "Genre"));
    memory.write(u"B.MP3"_qs, mp3Song("B", "Other", "Genre"));
    memory.write(accented, midiSong("E", "Artist", "Genre"));
    for (const char *name : {"A.MID", "B.MP3", "C.MID", "D.MID"})
        memory.setDate(QLatin1StringView(name), songDate);
    if (!ScriptedIndex().createIndex(memory.root()))
        qFatal("no index");
    memory.remove(u"A.MID"_qs);
    memory.write(u"Z.MID"_qs, midiSong("Z", "Artist", "New"));
    memory.write(u"C.MID"_qs, midiSong("CC", "Artist", "Genre"));
}

/// A copy of that memory, with a playlist of D, B and the accented song.
inline void copyChangedMemory(const SampleMemory &memory)
{
    static const SampleMemory model;
    if (!model.has(u"Z.MID"_qs))
        makeChangedMemory(model);
    const auto files = model.rootFiles();
    for (auto file = files.cbegin(); file != files.cend(); ++file)
        memory.write(file.key(), file.value());
    for (const char *name : {"B.MP3", "D.MID"})
        memory.setDate(QLatin1StringView(name), songDate);
    memory.write(u"playlist/playlist.dat"_qs, field(QByteArray("\7\0", 2), 32));
    memory.write(songsFile, playlistRecord(3) + playlistRecord(1) + playlistRecord(4));
}

inline QMap<QString, QByteArray> setOf(const SampleMemory &memory)
{
    QMap<QString, QByteArray> set;
    for (const QString &name : IndexSet::names()) {
        if (memory.has(name))
            set.insert(name, memory.read(name));
    }
    return set;
}

/// Lets the next run repair \a memory, and checks all of it. \a before is the set before the run
/// that failed.
inline void checkRepaired(const SampleMemory &memory, const QMap<QString, QByteArray> &before)
{
    const auto set = setOf(memory);
    // If the run had finished, the playlists are right already.
    if (set.size() == IndexSet::names().size() && set != before)
        QCOMPARE(SetReader(memory).playlist(songsFile), keptSongs);
    QVERIFY(ScriptedIndex().updateIndex(memory.root()));
    const SetReader reader(memory);
    QCOMPARE(reader.problem(), QString());
    QCOMPARE(reader.songCount(), 5);
    QCOMPARE(reader.playlist(songsFile), keptSongs);
    ScriptedCheck check;
    QVERIFY(check.run(memory.root()));
    QCOMPARE(check.findings(), QStringList());
    QVERIFY(!QFileInfo::exists(memory.path(u".brisel2pc"_qs)));
    QCOMPARE(QDir(memory.path(u"playlist"_qs)).entryList(QDir::Files | QDir::Hidden).size(), 3);
}

} // namespace Sample

} // namespace brisel
