#pragma once

#include "base/filewriting.h"
#include "songfile/fieldchange.h"
#include "songfile/fingerprint.h"

#include <QByteArray>
#include <QList>
#include <QString>

namespace brisel
{

/// A song that is about to be rewritten, with everything that is needed to take that back.
struct KeptSong {
    QString path;
    QString format; ///< MetaSong::getFormatString()
    Fingerprint before;
    Fingerprint after;
    QList<FieldChange> fields;
    QByteArray oldBytes; ///< the whole file; of an MP3 the bytes before its audio
};

/// Is shown each song before its file is changed: see MetaSong::setKeeper().
class SongKeeper
{
public:
    SongKeeper() = default;
    virtual ~SongKeeper() = default;
    SongKeeper(const SongKeeper &) = delete;
    SongKeeper &operator=(const SongKeeper &) = delete;

    /// \a song is about to be rewritten.
    virtual void keep(const KeptSong &song) = 0;
    /// The result of writing the song that was kept last under this path. No-op for others.
    virtual void settle(const QString &path, WriteResult result) = 0;
    /// The first of the kept songs is replaced next: on return they must be on the disk.
    virtual void flush() = 0;
};

} // namespace brisel
