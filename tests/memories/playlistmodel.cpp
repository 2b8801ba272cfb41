#include "tests/memories/playlistmodel.h"

#include <algorithm>

namespace brisel
{

/// Matches the entries of a model with what a playlist plays.
class PlaylistModel::Match
{
public:
    Match(const QList<Entry> &model, const QList<Played> &now, const Songs &songs)
        : m_model(model), m_now(now), m_songs(songs)
    {
    }

    /// True if what plays now starts with the entries of the model, in order, and continues with
    /// songs of the playlist only. found() then returns the matched entries.
    bool run() { return follow(0, 0); }
    QList<Entry> found() const
    {
        QList<Entry> entries;
        std::copy(m_found.crbegin(), m_found.crend(), std::back_inserter(entries));
        return entries;
    }

private:
    bool isRequired(const Entry &entry) const
    {
        const int song = entry.played.song;
        const auto title = m_songs.titles.constFind(song);
        if (!entry.isRequired || title == m_songs.titles.cend() || m_songs.doubtful.contains(song))
            return false;
        const auto sharing = std::count(m_songs.titles.cbegin(), m_songs.titles.cend(), *title);
        return !m_songs.areIdsLost || (*title == entry.played.title && sharing == 1);
    }
    bool mayBe(const Entry &entry, const Played &played) const
    {
        return played.song == entry.played.song ||
               (!isRequired(entry) && m_songs.titles.value(played.song) == entry.played.title);
    }
    bool isOfPlaylist(const Played &played) const
    {
        return std::any_of(m_model.cbegin(), m_model.cend(),
                           [&](const Entry &entry) { return mayBe(entry, played); });
    }
    bool take(const Entry &entry)
    {
        m_found.append(entry);
        return true;
    }
    bool follow(qsizetype model, qsizetype now)
    {
        if (model == m_model.size()) {
            if (!std::all_of(m_now.cbegin() + now, m_now.cend(),
                             [this](const Played &played) { return isOfPlaylist(played); }))
                return false;
            for (qsizetype i = m_now.size() - 1; i >= now; --i)
                take({m_now.at(i)});
            return true;
        }
        if (m_failed.contains({model, now}))
            return false;
        const Entry &entry = m_model.at(model);
        if (now < m_now.size() && mayBe(entry, m_now.at(now)) && follow(model + 1, now + 1))
            return take({m_now.at(now)});
        if (!isRequired(entry) && follow(model + 1, now))
            return take({entry.played, false});
        m_failed.insert({model, now});
        return false;
    }

    const QList<Entry> &m_model;
    const QList<Played> &m_now;
    const Songs &m_songs;
    QList<Entry> m_found; ///< in reverse order
    QSet<std::pair<qsizetype, qsizetype>> m_failed;
};

void PlaylistModel::fill(int number, const QList<Played> &entries)
{
    QList<Entry> &playlist = m_playlists[number];
    playlist.clear();
    for (const Played &played : entries)
        playlist.append({played, played.song != lost});
}

void PlaylistModel::lose(int song)
{
    for (QList<Entry> &playlist : m_playlists) {
        for (Entry &entry : playlist)
            entry.isRequired = entry.isRequired && entry.played.song != song;
    }
}

QString PlaylistModel::compare(int number, const QList<Played> &now, const Songs &songs)
{
    Match match(m_playlists[number], now, songs);
    if (match.run()) {
        m_playlists[number] = match.found();
        return {};
    }
    const auto text = [](const Played &played, bool isRequired) {
        return u"%1%2(%3)"_qs.arg(isRequired ? u"" : u"?")
            .arg(played.song)
            .arg(QString::fromLatin1(played.title));
    };
    QStringList wanted;
    for (const Entry &entry : std::as_const(m_playlists[number])) {
        wanted.append(
            text(entry.played, entry.isRequired && songs.titles.contains(entry.played.song)));
    }
    QStringList there;
    for (const Played &played : now)
        there.append(text(played, true));
    return u"playlist %1 should play\n    %2\nand plays\n    %3"_qs.arg(
        QString::number(number), wanted.join(u' '), there.join(u' '));
}

} // namespace brisel
