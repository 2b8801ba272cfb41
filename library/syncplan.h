#pragma once

#include "library/previewsong.h"
#include "songfile/songfields.h"

#include <QList>
#include <QMap>

#include <memory>

namespace brisel
{

/// What the user has chosen to write in the preview of a synchronisation. A default plan is for
/// every song with all its fields.
class SyncPlan
{
public:
    struct Song {
        FileState state; ///< of the file that the user has seen
        QList<FieldChange> changes;
        SongFields fields = SongFields::all();
        std::shared_ptr<const SongsDbRecord> chosen; ///< null if the catalogue is asked
    };

    /// Adds \a song, of which \a fields are written; the others keep the file's value.
    void add(const PreviewSong &song, SongFields fields)
    {
        m_songs.insert(song.row, {song.state, song.changes, fields, song.chosen});
    }
    bool isEmpty() const { return m_songs.isEmpty(); }
    /// In ascending order.
    QList<int> rows() const { return m_songs.keys(); }
    /// Null for a row that is not in the plan.
    const Song *song(int row) const
    {
        const auto found = m_songs.constFind(row);
        return found == m_songs.constEnd() ? nullptr : &*found;
    }

private:
    QMap<int, Song> m_songs; ///< by row
};

} // namespace brisel
