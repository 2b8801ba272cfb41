#pragma once

#include "songfile/fingerprint.h"

#include <QString>

#include <optional>

namespace brisel
{

class History;
struct HistorySong;

/// What is found in the place of a song that has an entry in the history.
struct FoundSong {
    enum class Kind {
        AsWritten,    ///< as the change left it
        AsBefore,     ///< as before the change
        WrittenLater, ///< as a later change left it, and only this program wrote it since
        Other,        ///< another program wrote it, now or between the changes
        Nothing,      ///< the file does not exist, or can't be opened
    };

    Kind kind = Kind::Nothing;
    Fingerprint content; ///< of the file, unless Other or Nothing

    /// Compares the file at \a path with the change \a song of \a history and the later ones.
    static FoundSong at(const QString &path, const HistorySong &song, History &history);

    /// True if the history has every change of the file since \a song was made.
    bool isOwn() const { return kind != Kind::Other && kind != Kind::Nothing; }
};

/// The change that is taken back first if the user wants the file at \a path restored: the newest
/// one that was made, or the one that made its content at a path where no file is any more. Nothing
/// if the history has none, or can't be read.
std::optional<HistorySong> changeToRestore(const QString &path, History &history);

} // namespace brisel
