#pragma once

#include "index/songinfoindex.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QStringList>

namespace brisel
{

/// Which songs of an index a list has, in which order, and in which form.
struct SongsListKind {
    enum class Format {
        Csv,  ///< lines of texts with ";" behind each
        Html, ///< a page to print, with a heading for each artist or genre of such an order
    };

    SORT_MODE mode = SortByTitle;
    bool isMp3Only = false;
    Format format = Format::Csv;

    /// Returns false by title; any other number counts as that.
    [[nodiscard]] bool isGrouped() const { return mode == SortByArtist || mode == SortByGenre; }
};

/// Writes the text of a list of songs, in UTF-8 and in the current language.
class SongsListWriter
{
    Q_DECLARE_TR_FUNCTIONS(brisel::Index)

public:
    /// For a list of \a songs songs.
    SongsListWriter(const SongsListKind &kind, qsizetype songs);

    /// Adds a song; in a page with headings, songs of one \a group have the same number.
    void add(const SongInfoIndex &song, int group);
    /// The whole text.
    [[nodiscard]] QByteArray finished() const;

private:
    void addCells(const QStringList &cells, const QString &tag);

    const SongsListKind m_kind;
    int m_group = -1; ///< of the last song
    QString m_text;
};

} // namespace brisel
