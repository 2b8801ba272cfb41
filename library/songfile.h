#pragma once

#include "base/reason.h"
#include "library/pulledmemories.h"
#include "songfile/metasong.h"

#include <QString>

namespace brisel
{

/// A song file that was opened, or was to be opened, and the record that it holds.
struct SongFile {
    /// Opens the file at \a path.
    explicit SongFile(const QString &path);
    /// As above, but does not try a file on a memory that was pulled.
    SongFile(const QString &path, PulledMemories &memories);

    /// Why the file did not open.
    Reason whyNotOpen() const;

    QString path;
    MetaSong song;
    SongInfo info; ///< without names; empty when the file did not open
    bool isOpen = false;

private:
    void open();
};

} // namespace brisel
