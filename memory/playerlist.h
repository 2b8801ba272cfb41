#pragma once

#include "library/songsearch.h"
#include "memory/memorycontents.h"
#include "memory/memorylook.h"

#include <QFlags>
#include <QList>
#include <QString>

#include <memory>
#include <string_view>

namespace brisel
{

/// One of the lists that the player shows, by title, artist or genre, over the bytes of its file:
/// groups, with the songs of each, as far as they match a search. The lists by title are one group.
/// Songs of the index that the list lacks follow in a last group.
class PlayerList
{
public:
    /// Why the player can't open a song, or shows it wrongly.
    enum class Mark : quint8 {
        QuestionMark = 1, ///< '?' in the path, for a character that the code page lacks
        NotListed = 2,    ///< no record in one of the lists
        IdTwice = 4,      ///< another song has the same id, or a list has the id twice
        NoPath = 8,       ///< the record's id has no path in "index.id2"
        NoFile = 16,
        OtherDate = 32, ///< the file was changed after the song was indexed
        Unreadable = 64,
    };
    Q_DECLARE_FLAGS(Marks, Mark)

    struct Song {
        qint32 record = -1;   ///< number of its record in the file; -1 if the list lacks the song
        qint32 position = -1; ///< in the contents; -1 if the index lacks the id
    };
    struct Group {
        enum class Kind {
            Named,
            Unnamed, ///< songs before the first header
            Lacking, ///< songs of the index that are not in the list
        };
        Kind kind = Kind::Unnamed;
        qint32 header = -1; ///< number of its record in the file
        qint32 first = 0;   ///< its first song among the shown ones
        qint32 count = 0;   ///< of the shown songs
        qint32 total = 0;   ///< songs, shown or not
    };
    /// What an entry of the alphabet table leads to.
    struct Jump {
        QChar character;
        bool leads = false; ///< false: to no record of this kind
        qint32 record = -1;
    };

    /// \a contents must not be null. Shows all of the titles.
    void setContents(std::shared_ptr<const MemoryContents> contents);
    /// Shows the list \a list, a number of SetFiles::ListIndex, with the same search.
    void setList(std::size_t list);
    /// The marks of the files; null while they are unknown. \a look must outlive this, or the next
    /// call.
    void setLook(const MemoryLook *look) { m_look = look; }
    /// Shows only the songs that match \a search.
    void setSearch(const SongSearch &search);
    /// Prepares up to \a count more songs for the search. Returns true if there are others.
    bool prepare(qsizetype count);

    std::size_t list() const { return m_list; }
    bool isGrouped() const { return SetFiles::isGrouped(m_list); }
    const MemoryContents &contents() const { return *m_contents; }

    /// The groups with shown songs.
    const QList<Group> &groups() const { return m_shownGroups; }
    QString groupName(const Group &group) const;
    /// The shown songs, group by group.
    qsizetype size() const { return m_shown.size(); }
    /// All songs, shown or not.
    qsizetype total() const { return m_songs.size(); }
    const Song &song(qsizetype shown) const { return m_songs.at(m_shown.at(shown)); }

    QString title(const Song &song) const;
    QString path(const Song &song) const;
    quint8 bpm(const Song &song) const;
    QString format(const Song &song) const;
    bool hasMarkers(const Song &song) const;
    quint32 id(const Song &song) const;
    Marks marks(const Song &song) const;

    /// The entries of the player's alphabet table for this list.
    QList<Jump> jumps() const;
    /// The shown song that is, or follows, the record of \a jump; for a list of groups the first
    /// song of that group. -1 if there is none.
    qsizetype target(const Jump &jump) const;

private:
    void readGroups();
    void addLackingSongs(const QList<bool> &met);
    void beginGroup(Group::Kind kind, qint32 header);
    void addSong(const Song &song);
    void show();
    bool hasWords(std::string_view texts) const;
    QString fieldOf(SongSearch::Field field, const Song &song, std::string_view texts) const;
    std::string_view preparedTexts(qsizetype position) const;
    QByteArray textsOf(const Song &song, const Group &group) const;
    quint8 byteOf(const Song &song, int at) const;
    const QByteArray &file() const { return m_contents->files().lists.at(m_list).content; }

    std::shared_ptr<const MemoryContents> m_contents = std::make_shared<MemoryContents>();
    const MemoryLook *m_look = nullptr;
    std::size_t m_list = SetFiles::Titles;
    QList<Song> m_songs;
    QList<Group> m_groups; ///< `first` is the number of the group's first song in m_songs
    SongSearch m_search;
    QList<QByteArray> m_words; ///< of the search
    QList<qint32> m_shown;     ///< numbers in m_songs
    QList<Group> m_shownGroups;
    QByteArray m_texts;        ///< of the songs, folded, one after the other
    QList<quint32> m_textEnds; ///< in m_texts, by position, of those that are prepared
};

} // namespace brisel

// In the namespace it would hide the operators of Qt.
Q_DECLARE_OPERATORS_FOR_FLAGS(brisel::PlayerList::Marks)
