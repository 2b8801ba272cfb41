#pragma once

#include "base/fileidentity.h"
#include "base/reason.h"
#include "db/songsdbrecord.h"
#include "library/cataloguelookup.h"
#include "songfile/fieldchange.h"

#include <QList>
#include <QString>

#include <memory>
#include <optional>

namespace brisel
{

/// What a synchronisation would change in one song of the library.
struct PreviewSong {
    int row = 0; ///< of the library
    QString path;
    FileState state; ///< of the file when it was read
    /// How the song was found; empty if it was not found, or not read.
    std::optional<FoundBy> foundBy;
    bool isPublished = false; ///< by the maker
    std::optional<Reason> whyNotRead;
    QList<FieldChange> changes; ///< in the order of fieldChanges()
    /// The record that the user chose; null if the catalogue was asked.
    std::shared_ptr<const SongsDbRecord> chosen;

    bool wasFound() const { return foundBy.has_value(); }
};

/// True if the text before the change is lost: it is not empty or a placeholder, and the new text
/// does not contain it, ignoring case. Numbers, keys and markers are not texts.
bool losesText(const FieldChange &change);

} // namespace brisel
