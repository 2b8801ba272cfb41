#include "tests/lives/restoremodel.h"

#include <algorithm>

namespace brisel
{

bool RestoreModel::Version::isLike(const Version &other) const
{
    constexpr qsizetype checkedAudio = 4096;
    const qsizetype checked = isMp3() ? tagSize + checkedAudio : bytes.size();
    return tagSize == other.tagSize && bytes.size() == other.bytes.size() &&
           bytes.left(checked) == other.bytes.left(checked);
}

RestoreModel::Result RestoreModel::restore(QList<qint64> ids, QList<bool> answers)
{
    std::sort(ids.begin(), ids.end(), std::greater<>());
    m_left = ids;
    m_newPlaces.clear();
    m_taken.clear();
    m_refused.clear();
    m_made.clear();
    m_answers = answers;
    m_result = {};
    for (const qint64 id : ids) {
        m_left.removeFirst();
        restoreOne(id);
    }
    return m_result;
}

/// What is at \a path, as the change \a id and the later ones of its song know it.
RestoreModel::Found RestoreModel::at(const QString &path, qint64 id) const
{
    const auto file = files.constFind(path);
    if (file == files.cend())
        return {};
    const Change &change = changes[id];
    if (change.after.isLike(*file))
        return {Kind::Own, change.after.tagSize};
    if (change.before.isLike(*file))
        return {Kind::Before, change.before.tagSize};
    QList<Version> ours{change.before, change.after};
    const auto follow = [&](const Change &later) {
        const bool follows = later.path == change.path &&
                             std::any_of(ours.cbegin(), ours.cend(), [&](const Version &version) {
                                 return version.isLike(later.before);
                             });
        if (follows)
            ours.append(later.after);
    };
    std::for_each(changes.upperBound(id), changes.cend(), follow);
    std::for_each(m_made.cbegin(), m_made.cend(), follow);
    for (const Version &version : ours) {
        if (version.isLike(*file))
            return {Kind::Own, version.tagSize};
    }
    return {Kind::Other, -1};
}

/// The first file of the list with the content that the change \a id made, unless it is there
/// because of a change that is still to be taken back.
QString RestoreModel::moved(qint64 id)
{
    for (const QString &path : list) {
        const auto file = files.constFind(path);
        if (file == files.cend() || m_refused.contains(path) || !changes[id].after.isLike(*file))
            continue;
        const bool isHome = std::any_of(m_left.cbegin(), m_left.cend(), [&](qint64 left) {
            const QString home = changes[left].path;
            const Kind kind = at(path, left).kind;
            return m_newPlaces.value(home, home) == path &&
                   (kind == Kind::Own || kind == Kind::Before);
        });
        if (!isHome)
            return path;
        m_refused.insert(path);
    }
    return {};
}

void RestoreModel::restoreOne(qint64 id)
{
    const QString home = changes[id].path;
    const bool isElsewhere = m_newPlaces.contains(home);
    const QString path = m_newPlaces.value(home, home);
    Found found = at(path, id);
    if (m_taken.contains(path) && !isElsewhere)
        found = {Kind::Other, -1};
    if (found.kind == Kind::Before) {
        ++m_result.skipped;
    } else if (found.kind == Kind::Own) {
        write(path, id, found.tagSize);
    } else if (const QString place = moved(id); !place.isEmpty()) {
        m_newPlaces.insert(home, place);
        m_taken.insert(place);
        write(place, id, changes[id].after.tagSize);
    } else if (!files.contains(path)) {
        ++m_result.failed;
    } else {
        ++m_result.asked;
        if (m_answers.isEmpty() || !m_answers.takeFirst())
            ++m_result.skipped;
        else if (!write(path, id, std::nullopt))
            ++m_result.failed;
    }
}

/// Puts the old bytes back, before the present audio of an MP3. Without \a tagSize another program
/// has written the file.
bool RestoreModel::write(const QString &path, qint64 id, std::optional<qsizetype> tagSize)
{
    const Version &old = changes[id].before;
    QByteArray &content = files[path];
    if (old.isMp3() && !tagSize.has_value())
        tagSize = audioStart(content);
    if (old.isMp3() && !tagSize.has_value())
        return false;
    const QByteArray restored =
        old.isMp3() ? old.bytes.left(old.tagSize) + content.mid(*tagSize) : old.bytes;
    m_made.append({path, {content, tagSize.value_or(-1)}, {restored, old.tagSize}});
    content = restored;
    m_refused.remove(path);
    ++m_result.restored;
    return true;
}

} // namespace brisel
