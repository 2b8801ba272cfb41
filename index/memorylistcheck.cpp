#include "index/memorylistcheck.h"

#include "index/memoryfindings.h"
#include "index/memorysongs.h"

#include <algorithm>
#include <array>
#include <limits>

namespace brisel
{

namespace
{

constexpr quint32 noOffset = 0xFFFFFFFF;
constexpr int firstInitial = 0x20;
constexpr int initials = 64;

/// The position of the first character that may replace one that Latin-1 lacks.
qsizetype firstGap(const QString &text)
{
    const qsizetype gap = text.indexOf(u'?');
    return gap < 0 ? std::numeric_limits<qsizetype>::max() : gap;
}

/// Compares two texts up to the first character that may be a replacement; 0 if they are equal so
/// far.
int compareKnown(const QString &a, const QString &b)
{
    const qsizetype known = std::min(firstGap(a), firstGap(b));
    return QString::compare(a.left(known), b.left(known), Qt::CaseInsensitive);
}

/// The entry of an alphabet table for \a text; -1 if there is no entry for its initial.
int initialOf(const QString &text)
{
    const int code = text.isEmpty() ? 0 : text.at(0).toUpper().unicode();
    return code >= firstInitial && code < firstInitial + initials ? code - firstInitial : -1;
}

} // namespace

/// Checks a sequence of texts for ascending order.
struct MemoryListCheck::Order {
    /// Returns false if \a text should be before one of the earlier texts.
    bool take(const QString &text)
    {
        const bool whole = !text.contains(u'?');
        const bool rises =
            !m_any || (compareKnown(m_last, text) <= 0 &&
                       (!whole || !m_anyWhole || compareKnown(m_lastWhole, text) <= 0));
        m_any = true;
        m_last = text;
        if (whole) {
            m_anyWhole = true;
            m_lastWhole = text;
        }
        return rises;
    }
    /// Returns true if \a text is equal to the last text and both are stored completely.
    bool isLast(const QString &text) const
    {
        constexpr int fieldWidth = 58;
        return m_any && text.size() < fieldWidth && !text.contains(u'?') &&
               QString::compare(m_last, text, Qt::CaseInsensitive) == 0;
    }
    void restart() { *this = Order(); }

private:
    bool m_any = false;
    bool m_anyWhole = false;
    QString m_last;
    QString m_lastWhole;
};

MemoryListCheck::MemoryListCheck(const QString &name, const MemoryFile &file, bool grouped,
                                 MemoryFindings &findings, Run &run)
    : m_name(name), m_file(file), m_grouped(grouped), m_findings(findings), m_run(run)
{
}

void MemoryListCheck::checkSongs(const IndexedSongs &songs, bool mp3Only)
{
    const qsizetype all = songs.paths.records();
    QList<bool> met(all, false);
    for (qsizetype record = 0; record < m_file.records() && countStep(m_run); ++record) {
        if (m_grouped && m_file.isHeader(record))
            continue;
        const quint32 id = m_file.id(record);
        const qsizetype song = songs.recordOfId.value(id, -1);
        if (song < 0) {
            m_findings.addDamage(
                tr("%1, record %2: nessuna song ha l'id %3").arg(m_name).arg(record).arg(id));
            continue;
        }
        const auto path = [&songs, song] { return MemorySongs::fromBytes(songs.paths.path(song)); };
        if (met.at(song))
            m_findings.addDamage(
                tr("%1, record %2: song ripetuta: %3").arg(m_name).arg(record).arg(path()));
        met[song] = true;
        const qsizetype title = songs.titleOfRecord.at(song);
        if (title >= 0 && mp3Only && !songs.titles.isMp3(title))
            m_findings.addDamage(
                tr("%1, record %2: la song non è un MP3: %3").arg(m_name).arg(record).arg(path()));
        else if (title >= 0 && m_file.body(record) != songs.titles.body(title))
            m_findings.addDamage(tr("%1, record %2: dati diversi da title.id2: %3")
                                     .arg(m_name)
                                     .arg(record)
                                     .arg(path()));
    }
    for (qsizetype song = 0; song < all && countStep(m_run); ++song) {
        const qsizetype title = songs.titleOfRecord.at(song);
        const bool wanted = songs.recordOfId.value(songs.paths.id(song), -1) == song &&
                            (!mp3Only || (title >= 0 && songs.titles.isMp3(title)));
        if (wanted && !met.at(song))
            m_findings.addDamage(tr("%1: manca la song %2")
                                     .arg(m_name, MemorySongs::fromBytes(songs.paths.path(song))));
    }
}

void MemoryListCheck::checkOrder()
{
    Order groups;
    Order songs;
    int songsInGroup = 0;
    for (qsizetype record = 0; record < m_file.records() && countStep(m_run); ++record) {
        const QString text = m_file.text(record);
        if (m_grouped && m_file.isHeader(record)) {
            checkGroup(record, songsInGroup);
            songsInGroup = 0;
            songs.restart();
            if (groups.isLast(text))
                m_findings.addDamage(
                    tr("%1, record %2: gruppo ripetuto: %3").arg(m_name).arg(record).arg(text));
            if (groups.take(text))
                continue;
        } else {
            if (m_grouped && record == 0)
                m_findings.addDamage(tr("%1, record 0: song senza gruppo").arg(m_name));
            ++songsInGroup;
            if (songs.take(text))
                continue;
        }
        m_findings.addDamage(
            tr("%1, record %2: fuori ordine: %3").arg(m_name).arg(record).arg(text));
    }
}

/// Checks the header \a header, after a group of \a songsBefore songs.
void MemoryListCheck::checkGroup(qsizetype header, int songsBefore)
{
    const int before = m_file.announcedSongsBefore(header);
    if (before != songsBefore)
        m_findings.addDamage(tr("%1, record %2: il gruppo precedente ha %3 song, non %4")
                                 .arg(m_name)
                                 .arg(header)
                                 .arg(songsBefore)
                                 .arg(before));
    // The songs are counted by reading ahead: each song is read for only one header.
    qsizetype end = header + 1;
    while (end < m_file.records() && !m_file.isHeader(end) && countStep(m_run))
        ++end;
    const int announced = m_file.announcedSongs(header);
    const auto there = static_cast<int>(end - header - 1);
    if (there == 0)
        m_findings.addDamage(tr("%1, record %2: gruppo senza song").arg(m_name).arg(header));
    else if (announced != there)
        m_findings.addDamage(tr("%1, record %2: il gruppo ha %3 song, non %4")
                                 .arg(m_name)
                                 .arg(header)
                                 .arg(there)
                                 .arg(announced));
}

void MemoryListCheck::checkAlphabet(const QString &tableName, const MemoryFile &table)
{
    std::array<quint32, initials> first{};
    first.fill(noOffset);
    for (qsizetype record = 0; record < m_file.records() && countStep(m_run); ++record) {
        const int initial = isEntry(record) ? initialOf(m_file.text(record)) : -1;
        if (initial >= 0 && first.at(initial) == noOffset)
            first.at(initial) = static_cast<quint32>(record * MemoryFile::recordSize);
    }
    for (int initial = 0; initial < initials; ++initial) {
        const quint32 offset = table.bigEndian32(qsizetype{initial} * 4);
        if (offset != first.at(initial) && !canStandFor(offset, first.at(initial), initial))
            m_findings.addDamage(tr("%1: la lettera \"%2\" porta al posto sbagliato")
                                     .arg(tableName, QChar(firstInitial + initial)));
    }
}

/// Returns true if \a offset may be right for \a initial although the first stored text with that
/// initial is at \a first: a '?' may replace a character without an entry, or the long s or the
/// dotless i, which have the entries of "S" and "I".
bool MemoryListCheck::canStandFor(quint32 offset, quint32 first, int initial) const
{
    const char16_t character = static_cast<char16_t>(firstInitial + initial);
    const qsizetype record = offset / MemoryFile::recordSize;
    const bool leadsToGap = offset % MemoryFile::recordSize == 0 && record < m_file.records() &&
                            isEntry(record) && m_file.text(record).startsWith(u'?');
    if (character == u'?')
        return leadsToGap || offset == noOffset;
    return (character == u'S' || character == u'I') && leadsToGap && offset < first;
}

int MemoryListCheck::count() const
{
    if (!m_grouped)
        return static_cast<int>(m_file.records());
    int headers = 0;
    for (qsizetype record = 0; record < m_file.records(); ++record)
        headers += m_file.isHeader(record) ? 1 : 0;
    return headers;
}

} // namespace brisel
