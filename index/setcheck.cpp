#include "index/setcheck.h"

#include "base/bytes.h"
#include "index/idtable.h"
#include "index/indexrecords.h"
#include "index/songinfoindex.h"

#include <cstring>

namespace brisel
{

namespace
{

enum class Order { Rises, Equal, Falls, Unknown };

/// Returns a letter as it is compared; -1 for one that may replace others, or is folded to a letter
/// beyond Latin-1.
int folded(char letter)
{
    if (letter == '?')
        return -1;
    const char16_t code = QChar(QLatin1Char(letter)).toCaseFolded().unicode();
    constexpr char16_t last = 0xFF; // of Latin-1
    return code <= last ? code : -1;
}

/// Compares the text of the record at \a first of \a list with the one at \a second of \a other.
Order orderOf(const QByteArray &list, qsizetype first, const QByteArray &other, qsizetype second)
{
    const char *a = list.constData() + first + SongRecord::titleAt;
    const char *b = other.constData() + second + SongRecord::titleAt;
    for (int i = 0; i < SongRecord::titleWidth; ++i, ++a, ++b) {
        if (*a == *b && *a != '?') {
            if (*a == 0)
                return Order::Equal;
            continue;
        }
        const int one = folded(*a);
        const int two = folded(*b);
        if (one < 0 || two < 0)
            return Order::Unknown;
        if (one != two)
            return one < two ? Order::Rises : Order::Falls;
    }
    return Order::Unknown;
}

bool isSameRecord(const QByteArray &a, qsizetype aAt, const QByteArray &b, qsizetype bAt)
{
    return std::memcmp(a.constData() + aAt, b.constData() + bAt, IndexRecord::size) == 0;
}

/// Returns true if the texts may be equal, ignoring case.
bool isSameText(const QByteArray &a, qsizetype aAt, const QByteArray &b, qsizetype bAt)
{
    const Order order = orderOf(a, aAt, b, bAt);
    return order == Order::Equal || order == Order::Unknown;
}

/// The entry of an alphabet table for the text at \a at; -1 if there is no entry for its initial.
int initialAt(const QByteArray &list, qsizetype at)
{
    const int code = QChar(QLatin1Char(list.at(at + SongRecord::titleAt))).toUpper().unicode() -
                     AlphabetTable::firstCharacter;
    return code >= 0 && code < AlphabetTable::entries ? code : -1;
}

} // namespace

/// The state of the walk through one list.
struct SetCheck::Walk {
    std::size_t list;
    const SetFiles &files;
    const IdTable &ids;
    const QByteArray &content;
    bool isGrouped;
    QList<bool> met;
    std::array<quint32, AlphabetTable::entries> firstOffsets{};
    qsizetype header = -1;   ///< of the current group
    qsizetype previous = -1; ///< the song before, in the group or the list
    int songsBefore = 0;     ///< in the group before
    int entries = 0;         ///< the count for "fsinfos.id2"
    bool isDoubted = false;  ///< the current group
};

SetCheck::SetCheck(const SetFiles &files, const IdTable &ids)
    : m_unsure(ids.size(), false), m_titleAt(ids.size(), -1)
{
    constexpr qsizetype countsSize = 12; // bytes
    m_isSound =
        files.paths.size() == ids.size() * IndexRecord::size && files.counts.size() == countsSize;
    for (std::size_t list = 0; list < SetFiles::Lists; ++list)
        checkList(list, files, ids);
    checkOrder(files.order);
}

void SetCheck::checkList(std::size_t list, const SetFiles &files, const IdTable &ids)
{
    const QByteArray &content = files.lists.at(list).content;
    Walk walk{list, files, ids, content, SetFiles::isGrouped(list), QList<bool>(ids.size(), false)};
    walk.firstOffsets.fill(AlphabetTable::noEntry);
    m_headerAt.at(list).fill(-1, ids.size());
    qsizetype at = 0;
    for (; fits(content, at, IndexRecord::size); at += IndexRecord::size) {
        const bool isHeader = walk.isGrouped && GroupHeader::isAt(content, at);
        if (isHeader || !walk.isGrouped) {
            ++walk.entries;
            const int initial = initialAt(content, at);
            if (initial >= 0 && walk.firstOffsets.at(initial) == AlphabetTable::noEntry)
                walk.firstOffsets.at(initial) = static_cast<quint32>(at);
        }
        if (isHeader)
            meetHeader(walk, at);
        else
            meetSong(walk, at);
    }
    closeGroup(walk, at);
    for (qsizetype position = 0; position < ids.size(); ++position) {
        const qsizetype title = m_titleAt.at(position);
        const bool isWanted =
            !SetFiles::isMp3Only(list) ||
            (title >= 0 &&
             SongRecord::typeOf(byteAt(files.lists.at(SetFiles::Titles).content,
                                       title + SongRecord::typeAt)) == SongInfoIndex::Mp3);
        if (isWanted != walk.met.at(position)) {
            m_isSound = false;
            m_unsure[position] = true;
            m_hasAllTexts = m_hasAllTexts && SetFiles::isMp3Only(list);
        }
    }
    m_hasAllTexts = m_hasAllTexts && (SetFiles::isMp3Only(list) || at == content.size());
    m_isSound = m_isSound && at == content.size() &&
                le16At(files.counts, static_cast<qsizetype>(list) * 2) ==
                    static_cast<quint16>(walk.entries);
    checkAlphabet(walk, files.lists.at(list).alphabet);
}

void SetCheck::meetHeader(Walk &walk, qsizetype at)
{
    const qsizetype before = walk.header;
    closeGroup(walk, at);
    walk.header = at;
    walk.previous = -1;
    if (before < 0)
        return;
    const Order order = orderOf(walk.content, before, walk.content, at);
    walk.isDoubted = order == Order::Equal || order == Order::Falls;
    if (walk.isDoubted)
        doubt(walk, before, at);
}

/// Checks the header of the group that ends at \a end.
void SetCheck::closeGroup(Walk &walk, qsizetype end)
{
    if (walk.header < 0)
        return;
    const auto songs = static_cast<int>((end - walk.header) / IndexRecord::size) - 1;
    if (walk.isDoubted || songs == 0 || be16At(walk.content, walk.header) != walk.songsBefore ||
        be16At(walk.content, walk.header + 2) != songs)
        doubt(walk, walk.header, end);
    walk.songsBefore = songs;
    walk.isDoubted = false;
}

void SetCheck::meetSong(Walk &walk, qsizetype at)
{
    const qsizetype position = walk.ids.positionOf(be32At(walk.content, at));
    bool isRight = position >= 0 && (!walk.isGrouped || walk.header >= 0);
    if (position >= 0) {
        const QByteArray &titles = walk.files.lists.at(SetFiles::Titles).content;
        isRight = isRight && !walk.met.at(position);
        walk.met[position] = true;
        if (walk.list == SetFiles::Titles)
            m_titleAt[position] = at;
        else
            isRight = isRight && m_titleAt.at(position) >= 0 &&
                      isSameRecord(walk.content, at, titles, m_titleAt.at(position));
        m_headerAt.at(walk.list)[position] = walk.header;
        if (SetFiles::isMp3Only(walk.list) && walk.header >= 0) {
            // The group of an MP3 has the same name in the list of all songs.
            const std::size_t all = walk.list - SetFiles::Titles3;
            const qsizetype header = m_headerAt.at(all).at(position);
            isRight =
                isRight && header >= 0 &&
                isSameText(walk.content, walk.header, walk.files.lists.at(all).content, header);
        }
    }
    if (walk.previous >= 0 &&
        orderOf(walk.content, walk.previous, walk.content, at) == Order::Falls) {
        isRight = false;
        doubt(walk, walk.previous, at);
    }
    walk.previous = at;
    if (!isRight)
        doubt(walk, at, at + IndexRecord::size);
    if (position < 0)
        m_hasAllTexts = m_hasAllTexts && SetFiles::isMp3Only(walk.list);
}

/// An entry may lead to a text that begins with '?', which may replace a character without an
/// entry, or the long s or the dotless i, which have the entries of "S" and "I".
void SetCheck::checkAlphabet(const Walk &walk, const QByteArray &table)
{
    m_isSound = m_isSound && table.size() == AlphabetTable::size;
    for (int initial = 0; initial < AlphabetTable::entries && m_isSound; ++initial) {
        const quint32 offset = be32At(table, qsizetype{initial} * 4);
        const quint32 first = walk.firstOffsets.at(initial);
        if (offset == first)
            continue;
        const char letter = static_cast<char>(AlphabetTable::firstCharacter + initial);
        const bool leadsToGap =
            offset % IndexRecord::size == 0 && fits(walk.content, offset, IndexRecord::size) &&
            (!walk.isGrouped || GroupHeader::isAt(walk.content, offset)) &&
            walk.content.at(static_cast<qsizetype>(offset) + SongRecord::titleAt) == '?';
        m_isSound = (letter == '?' && (leadsToGap || offset == AlphabetTable::noEntry)) ||
                    ((letter == 'S' || letter == 'I') && leadsToGap && offset < first);
    }
}

/// Checks that each song is there once. Their order is checked when the paths are sorted.
void SetCheck::checkOrder(const QByteArray &order)
{
    QList<bool> met(m_unsure.size(), false);
    m_isSound = m_isSound && order.size() == met.size() * 2;
    for (qsizetype at = 0; at < order.size() && m_isSound; at += 2) {
        const quint16 record = le16At(order, at);
        m_isSound = record < met.size() && !met.at(record);
        if (m_isSound)
            met[record] = true;
    }
}

/// Marks the known songs from \a first up to \a end as unsure.
void SetCheck::doubt(const Walk &walk, qsizetype first, qsizetype end)
{
    m_isSound = false;
    for (qsizetype at = first; at < end; at += IndexRecord::size) {
        const bool isHeader = walk.isGrouped && GroupHeader::isAt(walk.content, at);
        const qsizetype position = isHeader ? -1 : walk.ids.positionOf(be32At(walk.content, at));
        if (position >= 0)
            m_unsure[position] = true;
    }
}

} // namespace brisel
