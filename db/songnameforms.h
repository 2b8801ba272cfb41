#pragma once

#include "songfile/songinfo.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace brisel
{

/// One way to read a song's title and artist out of its names, in words for a search.
struct SongNameForm {
    QStringList title;
    QStringList artist;
    QStringList any; ///< may be words of the title, of the artist or of the file name

    bool isEmpty() const { return title.isEmpty() && artist.isEmpty() && any.isEmpty(); }
    bool operator==(const SongNameForm &other) const = default;
};

/// The words of \a text: letters and digits in a row, combining marks included. Each word is there
/// once, without regard to case, in the order of the text. At most 12 words; a longer word is
/// truncated to 64 characters.
QStringList searchWords(const QString &text);

/// How the song in the file \a fileName (without folder) may be named: by the title and artist of
/// \a info, by a title or file name that is "Artist - Title" or "Title - Artist", and by the words
/// of the file name. A track number at the start, the suffix of a song file and underscores in
/// place of blanks are not part of a name. No form is empty, and none is there twice.
QList<SongNameForm> songNameForms(const SongInfo &info, const QString &fileName);

} // namespace brisel
