#include "index/memorysongs.h"

#include "base/fileidentity.h"
#include "base/folderhandle.h"
#include "base/run.h"
#include "index/entrylist.h"

#include <QTextCodec>

#include <algorithm>

namespace brisel
{

namespace
{

QTextCodec *codePage()
{
    static QTextCodec *const codec = QTextCodec::codecForName("IBM 850");
    return codec;
}

bool isAnyOf(const QString &name, std::initializer_list<const char *> names)
{
    return std::any_of(names.begin(), names.end(), [&name](const char *wanted) {
        return name.compare(QLatin1StringView(wanted), Qt::CaseInsensitive) == 0;
    });
}

/// Folds each character alone, as names are compared: folding a whole text turns "ß" into "ss".
QString folded(const QString &path)
{
    QString text = path;
    for (QChar &character : text)
        character = character.toCaseFolded();
    return text;
}

} // namespace

bool MemorySongs::find(const Run &run, const QString &root,
                       const std::function<void(const QString &)> &visit)
{
    m_root = root;
    m_songs.clear();
    m_places.clear();
    m_known.clear();
    m_folders = FolderWalk();
    return walk(run, root, visit);
}

QByteArray MemorySongs::sortKey(const QByteArray &key) const
{
    const auto place = m_places.constFind(key);
    return place == m_places.cend() ? key : place->sortKey;
}

QByteArray MemorySongs::toBytes(const QString &path)
{
    return codePage() != nullptr ? codePage()->fromUnicode(path) : path.toLatin1();
}

QString MemorySongs::fromBytes(const QByteArray &bytes)
{
    return codePage() != nullptr ? codePage()->toUnicode(bytes) : QString::fromLatin1(bytes);
}

bool MemorySongs::walk(const Run &run, const QString &folder,
                       const std::function<void(const QString &)> &visit)
{
    if (!m_folders.enter(folder))
        return true;
    const QString slash = QStringLiteral("/");
    const QList<FolderEntry> entries = visibleEntries(folder.isEmpty() ? slash : folder).entries;
    for (const FolderEntry &entry : entries) {
        if (!run.mayGoOn())
            return false;
        const QString path = folder + u'/' + entry.name;
        const bool mayLeave = entry.isLink || entry.kind == FileKind::Folder;
        if (mayLeave && leavesRoot(path, m_root.isEmpty() ? slash : m_root))
            continue;
        if (entry.kind == FileKind::Regular) {
            visit(path);
            if (isSong(path))
                add(path.mid(m_root.size()));
        } else if (entry.kind == FileKind::Folder && !isAnyOf(entry.name, {"sfx", "bridge"}) &&
                   !walk(run, path, visit)) {
            return false;
        }
    }
    return true;
}

void MemorySongs::add(const QString &path)
{
    // A record has no room for a longer path; the run itself has reported such a song.
    constexpr int longestPath = 45;
    if (path.size() > longestPath)
        return;
    const QByteArray sortKey = toBytes(path.toUpper());
    // For the player, paths that differ only in case are one song.
    const QString name = folded(path) + u'\n' + QString::fromLatin1(sortKey);
    if (m_known.contains(name))
        return;
    m_known.insert(name);
    const QByteArray key = keyOf(toBytes(path));
    Place &place = m_places[key];
    if (place.songs++ == 0)
        place.sortKey = sortKey;
    else if (place.sortKey != sortKey)
        place.sortKey = QByteArray();
    m_songs.append({path, key});
}

} // namespace brisel
