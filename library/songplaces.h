#pragma once

#include "index/givennames.h"

#include <QHash>
#include <QSet>
#include <QStringList>

namespace brisel
{

class Run;

/// The destinations of the songs of a transfer: files with their own names or, if they were sent
/// before and then got short names, these files.
class SongPlaces
{
public:
    /// Begins a run over songs for the memory \a root; if it is empty, each song keeps its own
    /// name.
    void begin(const QString &root);

    /// Returns the path of the file that \a source, sent as \a destination, must replace or become.
    /// If the memory has no given name for the song, it is compared with the files that could have
    /// its short name, until \a run is interrupted: the one with the same content is the song.
    QString placeOf(const QString &source, const QString &destination, Run &run);

    /// Stores the names of the songs that were found by their content on the memory.
    void remember();

private:
    struct Found {
        QString folder;
        QString name;
        QString shortName;
    };

    QString twinOf(const QString &source, const QString &destination, Run &run);
    const QStringList &candidates(const QString &folder, const QString &shape, qint64 size);
    QByteArray contentOf(const QString &path, Run &run);
    static QString keyOf(const QString &shape, qint64 size);

    QString m_root;
    GivenNames m_names;
    QString m_folder;                         ///< the folder of m_candidates
    QHash<QString, QStringList> m_candidates; ///< files with given names, by shape and size
    QHash<QString, QByteArray> m_contents;    ///< checksums of candidates
    QSet<QString> m_taken;                    ///< candidates that are songs of this run
    QList<Found> m_found;
};

} // namespace brisel
