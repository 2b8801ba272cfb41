#include "base/bytes.h"
#include "base/memoryidentity.h"
#include "fuzz/fuzzing.h"
#include "fuzz/memoryset.h"
#include "fuzz/targets.h"
#include "index/indexrecords.h"
#include "index/playlists.h"
#include "memory/entryguess.h"
#include "memory/playlistdocument.h"
#include "memory/playlistwriter.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

#include <algorithm>

namespace brisel
{

namespace
{

enum MemoryPart {
    Paths,
    Titles,
    ListOfPlaylists,
    Songs1,
    Songs2,
    Paths1,
    Paths2,
    Edits,
    MemoryParts
};

const QList<qint16> listNumbers{1, 2};
const QString listName = QStringLiteral("playlist/playlist.dat");

/// Makes a memory with a set whose paths and titles are given, and two playlists.
void makeMemory(const QString &root, const QList<QByteArray> &parts)
{
    REQUIRE(!QFileInfo::exists(root) || QDir(root).removeRecursively());
    QList<QByteArray> files = sampleSetFiles(sampleIndexSongs());
    for (qsizetype i = 0; i < files.size(); ++i) {
        const QString &name = IndexSet::names().at(i);
        const bool isGiven =
            name == QStringLiteral("index.id2") || name == QStringLiteral("title.id2");
        const QByteArray &given = parts.at(name == QStringLiteral("index.id2") ? Paths : Titles);
        putFile(root + u'/' + name, isGiven && !given.isEmpty() ? given : files.at(i));
    }
    putFile(root + u'/' + listName, parts.at(ListOfPlaylists));
    for (qsizetype i = 0; i < listNumbers.size(); ++i) {
        putFile(root + u'/' + Playlists::songsFileName(listNumbers.at(i)), parts.at(Songs1 + i));
        putFile(root + u'/' + Playlists::pathsFileName(listNumbers.at(i)), parts.at(Paths1 + i));
    }
}

/// A playlist that is changed in the same way as the document, in the plainest form.
struct ModelPlaylist {
    QList<QByteArray> records;

    explicit ModelPlaylist(const QByteArray &file)
    {
        for (qsizetype pos = 0; fits(file, pos, IndexRecord::size); pos += IndexRecord::size)
            records.append(file.mid(pos, IndexRecord::size));
    }

    void move(const QList<qsizetype> &rows, qsizetype place)
    {
        QList<QByteArray> moved;
        for (qsizetype row = records.size() - 1; row >= 0; --row) {
            if (!rows.contains(row))
                continue;
            moved.prepend(records.takeAt(row));
            place -= row < place ? 1 : 0;
        }
        for (qsizetype i = 0; i < moved.size(); ++i)
            records.insert(place + i, moved.at(i));
    }
};

/// Changes one playlist, and the model in the same way.
void edit(PlaylistDocument &document, qsizetype list, ModelPlaylist &model, Script &script)
{
    enum Action { Add, Move, Remove, Repair, Actions };
    const MemoryContents &known = *document.contents();
    const qsizetype size = document.size(list);
    const int action = script.byte() % Actions;
    const qsizetype first = size == 0 ? 0 : script.byte() % size;
    const qsizetype second = script.byte() % (size + 1);
    const qsizetype song = known.size() == 0 ? -1 : script.byte() % known.size();
    const quint32 id = song < 0 ? 0 : known.id(song);
    const qsizetype position = known.positionOf(id);
    const QByteArray record = position < 0 ? QByteArray() : known.record(position);
    if (action == Add) {
        const qsizetype added = document.add(list, second, {id});
        REQUIRE(added == (record.isEmpty() || size == PlaylistDocument::maxEntries ? 0 : 1));
        if (added == 1)
            model.records.insert(second, record);
    } else if (size == 0) {
        return;
    } else if (action == Move) {
        const QList<qsizetype> rows{first, std::min(first + 2, size - 1)};
        document.move(list, rows, second);
        model.move(rows, second);
    } else if (action == Remove) {
        document.remove(list, {first});
        model.records.removeAt(first);
    } else {
        REQUIRE(document.repair(list, first, id) == !record.isEmpty());
        if (!record.isEmpty())
            model.records[first] = record;
    }
}

void checkGuesses(const PlaylistDocument &document, qsizetype list)
{
    if (document.size(list) == 0)
        return;
    QSet<qsizetype> songs;
    for (const EntryGuess &guess : EntryGuess::of(document, list, 0)) {
        REQUIRE(!document.contents()->record(guess.song).isEmpty());
        REQUIRE(!songs.contains(guess.song));
        songs.insert(guess.song);
    }
}

/// Everything on the memory but the files of the playlists.
QMap<QString, QByteArray> otherFiles(const QString &root)
{
    QMap<QString, QByteArray> files{{listName, fileBytes(root + u'/' + listName)}};
    const QStringList names =
        QDir(root).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    for (const QString &name : names)
        files.insert(name, fileBytes(root + u'/' + name));
    return files;
}

void checkSave(PlaylistDocument &document, Run &run)
{
    const QString root = document.contents()->root();
    const auto others = otherFiles(root);
    QList<QByteArray> songs;
    QList<QByteArray> paths;
    for (qsizetype list = 0; list < document.count(); ++list) {
        const bool isChanged = document.isModified(list);
        songs.append(isChanged ? document.songsFile(list) : document.songsFileOnDisk(list));
        paths.append(isChanged ? document.pathsFile(list) : document.pathsFileOnDisk(list));
        REQUIRE(!isChanged || songs.last().size() % IndexRecord::size == 0);
        REQUIRE(!isChanged || songs.last().size() == paths.last().size());
    }
    REQUIRE(PlaylistWriter(document, run).save(MemoryIdentity(root)));
    REQUIRE(!document.isModified());
    for (qsizetype list = 0; list < document.count(); ++list) {
        if (document.state(list) != MemoryContents::Playlist::State::Good)
            continue;
        const QString folder = root + u'/';
        const qint16 number = document.number(list);
        REQUIRE(fileBytes(folder + Playlists::songsFileName(number)) == songs.at(list));
        REQUIRE(fileBytes(folder + Playlists::pathsFileName(number)) == paths.at(list));
    }
    REQUIRE(otherFiles(root) == others);
}

} // namespace

void checkMemoryPlaylists(const QByteArray &input)
{
    constexpr int mostEdits = 40;
    const QString root = scratchFolder() + QStringLiteral("/memory");
    const QList<QByteArray> parts = splitInput(input, MemoryParts);
    makeMemory(root, parts);
    Run run;
    const auto known = std::make_shared<MemoryContents>();
    REQUIRE(known->read(root, run) == MemoryContents::Outcome::Done);
    PlaylistDocument document;
    document.setContents(known);
    REQUIRE(!document.isModified());
    QList<ModelPlaylist> models;
    QList<QByteArray> before;
    for (qsizetype list = 0; list < document.count(); ++list) {
        models.append(ModelPlaylist(document.songsFileOnDisk(list)));
        before.append(document.songsFile(list));
        REQUIRE(before.last() == models.last().records.join());
        REQUIRE(document.faults(list) <= document.size(list));
        checkGuesses(document, list);
    }
    Script script(parts.at(Edits));
    for (int i = 0; i < mostEdits && !script.atEnd() && document.count() > 0; ++i) {
        const qsizetype list = script.byte() % document.count();
        if (document.isEditable(list))
            edit(document, list, models[list], script);
    }
    for (qsizetype list = 0; list < document.count(); ++list)
        REQUIRE(document.songsFile(list) == models.at(list).records.join());
    document.undoStack().setIndex(0);
    REQUIRE(!document.isModified());
    for (qsizetype list = 0; list < document.count(); ++list)
        REQUIRE(document.songsFile(list) == before.at(list));
    document.undoStack().setIndex(document.undoStack().count());
    checkSave(document, run);
}

} // namespace brisel
