#include "memory/playerlist.h"

#include "base/bytes.h"
#include "index/indexrecords.h"

#include <algorithm>
#include <array>
#include <functional>
#include <utility>

namespace brisel
{

namespace
{

/// The lines of the texts of a song.
enum TextLine { TitleLine, ArtistLine, GenreLine, PathLine };

/// A line of folded texts in UTF-8.
QString lineOf(std::string_view texts, TextLine number)
{
    for (int line = 0; line < number; ++line)
        texts.remove_prefix(texts.find('\n') + 1);
    return QString::fromUtf8(texts.data(), static_cast<qsizetype>(texts.find('\n')));
}

QString fieldText(const QByteArray &file, qint32 record)
{
    return QString::fromLatin1(fieldAt(
        file, qsizetype{record} * IndexRecord::size + SongRecord::titleAt, SongRecord::titleWidth));
}

} // namespace

void PlayerList::setContents(std::shared_ptr<const MemoryContents> contents)
{
    m_contents = std::move(contents);
    m_look = nullptr;
    m_texts.clear();
    m_textEnds.clear();
    readGroups();
    show();
}

void PlayerList::setList(std::size_t list)
{
    m_list = list;
    readGroups();
    show();
}

void PlayerList::setSearch(const SongSearch &search)
{
    m_search = search;
    m_words.clear();
    for (const QString &word : search.words())
        m_words.append(word.toUtf8());
    show();
}

bool PlayerList::prepare(qsizetype count)
{
    const qsizetype end = std::min(m_contents->size(), m_textEnds.size() + count);
    while (m_textEnds.size() < end) {
        m_texts += textsOf({-1, static_cast<qint32>(m_textEnds.size())}, {});
        m_textEnds.append(static_cast<quint32>(m_texts.size()));
    }
    return m_textEnds.size() < m_contents->size();
}

void PlayerList::readGroups()
{
    const QByteArray &content = file();
    const auto records = static_cast<qint32>(content.size() / IndexRecord::size);
    QList<bool> met(m_contents->size(), false);
    m_songs.clear();
    m_songs.reserve(records);
    m_groups.clear();
    for (qint32 record = 0; record < records; ++record) {
        const qsizetype at = qsizetype{record} * IndexRecord::size;
        if (isGrouped() && GroupHeader::isAt(content, at)) {
            beginGroup(Group::Kind::Named, record);
            continue;
        }
        const qsizetype position = m_contents->positionOf(be32At(content, at));
        if (position >= 0)
            met[position] = true;
        if (m_groups.isEmpty())
            beginGroup(Group::Kind::Unnamed, -1);
        addSong({record, static_cast<qint32>(position)});
    }
    addLackingSongs(met);
}

void PlayerList::addLackingSongs(const QList<bool> &met)
{
    bool isBegun = false;
    for (qsizetype position = 0; position < met.size(); ++position) {
        const bool belongs =
            !SetFiles::isMp3Only(m_list) || m_contents->type(position) == SongInfoIndex::Mp3;
        if (met.at(position) || !belongs)
            continue;
        if (!isBegun)
            beginGroup(Group::Kind::Lacking, -1);
        isBegun = true;
        addSong({-1, static_cast<qint32>(position)});
    }
}

void PlayerList::beginGroup(Group::Kind kind, qint32 header)
{
    m_groups.append({kind, header, static_cast<qint32>(m_songs.size())});
}

void PlayerList::addSong(const Song &song)
{
    m_songs.append(song);
    ++m_groups.last().count;
    ++m_groups.last().total;
}

void PlayerList::show()
{
    m_shown.clear();
    m_shownGroups.clear();
    m_shown.reserve(m_songs.size());
    const bool isAllShown = m_search.isEmpty();
    if (!isAllShown)
        prepare(m_contents->size());
    QByteArray own; // of a song without a path
    std::string_view texts;
    const Song *song = nullptr;
    const auto textOf = [&](SongSearch::Field field) { return fieldOf(field, *song, texts); };
    // Made once: there may be 65,535 songs.
    const std::function<QString(SongSearch::Field)> fields = textOf;
    for (const Group &group : std::as_const(m_groups)) {
        Group shown = group;
        shown.first = static_cast<qint32>(m_shown.size());
        for (qint32 number = group.first; number < group.first + group.count; ++number) {
            song = &m_songs.at(number);
            if (!isAllShown && song->position < 0) {
                own = textsOf(*song, group);
                texts = {own.constData(), static_cast<std::size_t>(own.size())};
            } else if (!isAllShown) {
                texts = preparedTexts(song->position);
            }
            if (isAllShown || (hasWords(texts) && m_search.fulfils(fields)))
                m_shown.append(number);
        }
        shown.count = static_cast<qint32>(m_shown.size()) - shown.first;
        if (shown.count > 0 || isAllShown)
            m_shownGroups.append(shown);
    }
}

bool PlayerList::hasWords(std::string_view texts) const
{
    return std::all_of(m_words.cbegin(), m_words.cend(), [texts](const QByteArray &word) {
        return texts.find(std::string_view(word.constData(),
                                           static_cast<std::size_t>(word.size()))) != texts.npos;
    });
}

std::string_view PlayerList::preparedTexts(qsizetype position) const
{
    const quint32 start = position == 0 ? 0 : m_textEnds.at(position - 1);
    return {m_texts.constData() + start, std::size_t{m_textEnds.at(position) - start}};
}

/// Empty for the fields that the index lacks.
QString PlayerList::fieldOf(SongSearch::Field field, const Song &song, std::string_view texts) const
{
    switch (field) {
    case SongSearch::Field::Title:
        return lineOf(texts, TitleLine);
    case SongSearch::Field::Artist:
        return lineOf(texts, ArtistLine);
    case SongSearch::Field::Genre:
        return lineOf(texts, GenreLine);
    case SongSearch::Field::FileName:
        return lineOf(texts, PathLine).section(u'/', -1);
    case SongSearch::Field::Folder:
        return lineOf(texts, PathLine).section(u'/', 0, -2);
    case SongSearch::Field::Format:
        return format(song);
    case SongSearch::Field::Bpm:
        return QString::number(bpm(song));
    default:
        return {};
    }
}

/// In UTF-8: a search of bytes is faster. Words must not match across two texts. Of a song without
/// a path only its record is known, and the group that it is in.
QByteArray PlayerList::textsOf(const Song &song, const Group &group) const
{
    std::array<QString, PathLine + 1> texts;
    if (song.position >= 0) {
        texts = {m_contents->title(song.position), m_contents->artist(song.position),
                 m_contents->genre(song.position), m_contents->path(song.position)};
    } else {
        texts.at(TitleLine) = title(song);
        if (isGrouped())
            texts.at(m_list % 3 == SetFiles::Artists ? ArtistLine : GenreLine) = groupName(group);
    }
    QString lines;
    for (QString &text : texts)
        lines += text.replace(u'\n', u' ') + u'\n';
    return foldedForSearch(lines).toUtf8();
}

QString PlayerList::groupName(const Group &group) const
{
    return group.kind == Group::Kind::Named ? fieldText(file(), group.header) : QString();
}

/// A byte of the record of \a song, of "title.id2" if the list lacks the song.
quint8 PlayerList::byteOf(const Song &song, int at) const
{
    return song.record < 0 ? byteAt(m_contents->record(song.position), at)
                           : byteAt(file(), qsizetype{song.record} * IndexRecord::size + at);
}

QString PlayerList::title(const Song &song) const
{
    return song.record < 0 ? m_contents->title(song.position) : fieldText(file(), song.record);
}

QString PlayerList::path(const Song &song) const
{
    return song.position < 0 ? QString() : m_contents->path(song.position);
}

quint8 PlayerList::bpm(const Song &song) const
{
    return byteOf(song, SongRecord::bpmAt);
}

QString PlayerList::format(const Song &song) const
{
    return SongInfoIndex::typeName(SongRecord::typeOf(byteOf(song, SongRecord::typeAt)));
}

bool PlayerList::hasMarkers(const Song &song) const
{
    return SongRecord::hasMarkers(byteOf(song, SongRecord::typeAt));
}

quint32 PlayerList::id(const Song &song) const
{
    return song.record < 0 ? m_contents->id(song.position)
                           : be32At(file(), qsizetype{song.record} * IndexRecord::size);
}

PlayerList::Marks PlayerList::marks(const Song &song) const
{
    if (song.position < 0)
        return Mark::NoPath;
    const MemoryContents::Marks known = m_contents->marks(song.position);
    Marks marks;
    marks.setFlag(Mark::QuestionMark, known.testFlag(MemoryContents::Mark::QuestionMark));
    marks.setFlag(Mark::NotListed, known.testFlag(MemoryContents::Mark::NotListed));
    marks.setFlag(Mark::IdTwice, known.testFlag(MemoryContents::Mark::IdTwice));
    if (m_look == nullptr)
        return marks;
    const MemoryLook::FileMarks file = m_look->marks(song.position);
    marks.setFlag(Mark::NoFile, file.testFlag(MemoryLook::FileMark::Missing));
    marks.setFlag(Mark::OtherDate, file.testFlag(MemoryLook::FileMark::OtherDate));
    marks.setFlag(Mark::Unreadable, file.testFlag(MemoryLook::FileMark::Unreadable));
    return marks;
}

/// An entry is followed only to a record where the player would find one.
QList<PlayerList::Jump> PlayerList::jumps() const
{
    const QByteArray &table = m_contents->files().lists.at(m_list).alphabet;
    constexpr qsizetype entrySize = 4; // bytes
    QList<Jump> jumps;
    for (int entry = 0; entry < AlphabetTable::entries; ++entry) {
        if (!fits(table, entry * entrySize, entrySize))
            break;
        const quint32 offset = be32At(table, entry * entrySize);
        if (offset == AlphabetTable::noEntry)
            continue;
        Jump jump{QChar(static_cast<char16_t>(AlphabetTable::firstCharacter + entry))};
        jump.leads = offset % IndexRecord::size == 0 && fits(file(), offset, IndexRecord::size) &&
                     (!isGrouped() || GroupHeader::isAt(file(), offset));
        if (jump.leads)
            jump.record = static_cast<qint32>(offset / IndexRecord::size);
        jumps.append(jump);
    }
    return jumps;
}

qsizetype PlayerList::target(const Jump &jump) const
{
    if (!jump.leads)
        return -1;
    if (isGrouped()) {
        for (const Group &group : m_shownGroups) {
            if (group.header >= jump.record && group.count > 0)
                return group.first;
        }
        return -1;
    }
    for (qsizetype shown = 0; shown < m_shown.size(); ++shown) {
        if (song(shown).record >= jump.record)
            return shown;
    }
    return -1;
}

} // namespace brisel
