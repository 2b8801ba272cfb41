#include "library/foundsong.h"

#include "base/fileidentity.h"
#include "base/plainfile.h"
#include "history/history.h"

#include <QHash>
#include <QSet>

#include <algorithm>

namespace brisel
{

namespace
{

/// The contents that changes of this program alone have made of the song since \a song.
QSet<Fingerprint> ownContents(const HistorySong &song, History &history)
{
    QSet<Fingerprint> contents{song.before, song.after};
    const QList<HistorySong> changes = history.changes(song.path, song.id);
    for (const HistorySong &change : changes) {
        if (contents.contains(change.before))
            contents.insert(change.after);
    }
    return contents;
}

} // namespace

FoundSong FoundSong::at(const QString &path, const HistorySong &song, History &history)
{
    PlainFile file;
    if (!file.open(path))
        return {};
    if (song.after.isOf(file))
        return {Kind::AsWritten, song.after};
    if (song.before.isOf(file))
        return {Kind::AsBefore, song.before};
    QHash<qint64, QByteArray> checksums; // by the size of the tag
    const QSet<Fingerprint> contents = ownContents(song, history);
    for (const Fingerprint &content : contents) {
        if (content.size != file.size() || content.checksum.isEmpty())
            continue;
        auto present = checksums.constFind(content.tagSize);
        if (present == checksums.cend())
            present = checksums.insert(content.tagSize, content.checksumOf(file));
        if (*present == content.checksum)
            return {Kind::WrittenLater, content};
    }
    return {Kind::Other, {}};
}

std::optional<HistorySong> changeToRestore(const QString &path, History &history)
{
    PlainFile file;
    if (!file.open(path))
        return history.lastChange(path);
    const auto madeThis = [&file](const HistorySong &song) { return song.after.isOf(file); };
    const QList<HistorySong> changes = history.changes(path);
    if (!changes.isEmpty()) {
        // The program may have ended between an entry and its change.
        const bool wasMade = !changes.last().before.isOf(file);
        const auto made = std::find_if(changes.crbegin(), changes.crend(), madeThis);
        return wasMade || made == changes.crend() ? changes.last() : *made;
    }
    const QList<HistorySong> elsewhere = history.changesTo(file.size());
    const auto moved =
        std::find_if(elsewhere.cbegin(), elsewhere.cend(), [&madeThis](const HistorySong &song) {
            return !entryExists(song.path) && madeThis(song);
        });
    return moved == elsewhere.cend() ? std::nullopt : std::optional(*moved);
}

} // namespace brisel
