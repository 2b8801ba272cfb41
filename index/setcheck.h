#pragma once

#include "index/setfiles.h"

#include <QList>

class IdTable;

/// Whether the files of an index set agree with each other. A card that was pulled, or repaired by
/// a system, leaves files that are empty, cut, full of zeros or another file's. But each song
/// stands in all lists, with the same record, in its order and its group; songs for which that is
/// not so are unsure.
///
/// Texts are stored truncated in Latin-1, but ordered by their full Unicode form: where a '?' or
/// the truncation hides the difference, any order is accepted.
class SetCheck
{
public:
    SetCheck() = default;
    /// Checks \a files, in which "index.id2" has the songs \a ids, by one walk over each.
    SetCheck(const SetFiles &files, const IdTable &ids);

    /// False when one of the files is not what it should be.
    bool isSound() const { return m_isSound; }
    /// False when a song is missing in a list of all songs, or a record there has no song.
    bool hasAllTexts() const { return m_hasAllTexts; }
    /// True when the lists may not say what the song at \a position is.
    bool isUnsure(qsizetype position) const { return m_unsure.at(position); }
    /// Where the record of the song at \a position stands in "title.id2", in bytes from its start;
    /// -1 when it has none.
    qsizetype titleAt(qsizetype position) const { return m_titleAt.at(position); }

private:
    struct Walk;

    void checkList(std::size_t list, const SetFiles &files, const IdTable &ids);
    void meetHeader(Walk &walk, qsizetype at);
    void meetSong(Walk &walk, qsizetype at);
    void closeGroup(Walk &walk, qsizetype end);
    void checkAlphabet(const Walk &walk, const QByteArray &table);
    void checkOrder(const QByteArray &order);
    void doubt(const Walk &walk, qsizetype first, qsizetype end);

    bool m_isSound = true;
    bool m_hasAllTexts = true;
    QList<bool> m_unsure;
    QList<qsizetype> m_titleAt;
    /// Where the headers of the songs' groups stand in "artist.id2" and "genre.id2".
    std::array<QList<qsizetype>, SetFiles::Lists> m_headerAt;
};
