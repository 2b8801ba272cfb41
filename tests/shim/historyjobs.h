#pragma once

#include <QStringList>

namespace brisel
{

/// Jobs of the worker that keep a history. The arguments are the path of the history, the folder of
/// a catalogue "songsdb_debug", and the songs. Return true if all songs were written.
bool synchroniseSongs(const QStringList &arguments);
/// Edits the first song and copies its data to all others.
bool editSongs(const QStringList &arguments);
/// Takes the newest run back.
bool restoreSongs(const QStringList &arguments);

} // namespace brisel
