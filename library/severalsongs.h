#pragma once

#include "songfile/songfields.h"
#include "songfile/songinfo.h"

#include <QList>

class QSqlTableModel;

namespace brisel
{

/// What several songs of the list have in common, as the table shows it.
struct SharedSongs {
    /// Compares the rows \a rows of \a model, the table of the library. Reads no file.
    static SharedSongs of(const QSqlTableModel &model, const QList<int> &rows);

    int songs = 0;
    SongInfo info; ///< the shared data; in its format all formats, with commas
    SongFields shared = SongFields::none(); ///< the fields that are equal in all songs
};

/// What is written into several songs.
struct SeveralEdit {
    /// What each song gets from the name of its own file.
    enum class FromName { Nothing, Title, TitleAndArtist };

    /// The fields to be written into the song of the file \a path, whose data \a info are changed.
    SongFields apply(SongInfo &info, const QString &path) const;
    bool isEmpty() const { return fields == SongFields::none() && fromName == FromName::Nothing; }

    SongInfo data;
    SongFields fields = SongFields::none(); ///< of the data; the others stay
    FromName fromName = FromName::Nothing;
};

} // namespace brisel
