#pragma once

#include "index/setfiles.h"

#include <QList>

namespace brisel
{

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
    /// Checks \a files, in which "index.id2" has the songs \a ids, in one pass over each file.
    SetCheck(const SetFiles &files, const IdTable &ids);

    /// Returns false if one of the files is damaged.
    bool isSound() const { return m_isSound; }
    /// Returns false if a song is missing in a list of all songs, or a record there has no song.
    bool hasAllTexts() const { return m_hasAllTexts; }
    /// Returns true if the lists may be wrong about the song at \a position.
    bool isUnsure(qsizetype position) const { return m_unsure.at(position); }
    /// The offset in bytes of the record of the song at \a position in "title.id2"; -1 if it has
    /// none.
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
    /// The offsets of the headers of the songs' groups in "artist.id2" and "genre.id2".
    std::array<QList<qsizetype>, SetFiles::Lists> m_headerAt;
};

} // namespace brisel
