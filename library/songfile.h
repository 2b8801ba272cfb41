#pragma once

#include "base/reason.h"
#include "library/pulledmemories.h"
#include "songfile/metasong.h"

#include <QString>

namespace brisel
{

/// A song file that was opened, or failed to open, and its song record.
struct SongFile {
    /// Opens the file at \a path.
    explicit SongFile(const QString &path);
    /// As above, but does not open a file on a pulled memory.
    SongFile(const QString &path, PulledMemories &memories);

    /// The reason why the file did not open.
    Reason whyNotOpen() const;

    QString path;
    MetaSong song;
    SongInfo info; ///< without names; empty if the file did not open
    bool isOpen = false;

private:
    void open();
};

/// Whether songs of \a format, as in SongInfo::format, have MIDI data: then their texts are 8-bit,
/// and they carry markers.
bool hasMidiData(const QString &format);

} // namespace brisel
