#pragma once

#include "index/givennames.h"

#include <QHash>
#include <QSet>
#include <QStringList>

namespace brisel
{

class Run;

/// Where the songs of a transfer belong: in files of their own names, or, when they were sent
/// before and have short names since then, in these.
class SongPlaces
{
public:
    /// Begins a run over songs for the memory \a root; for an empty one each song has its own name.
    void begin(const QString &root);

    /// The path of the file that \a source, sent as \a destination, is to replace or to become. A
    /// song of which the memory knows nothing is compared with the files that the short name could
    /// have been given to, as long as \a run may go on: the one with the same content is
    /// the song.
    QString placeOf(const QString &source, const QString &destination, Run &run);

    /// Has the memory remember the songs that were found by their content.
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
    QString m_folder;                         ///< the one that m_candidates is of
    QHash<QString, QStringList> m_candidates; ///< files with given names, by shape and size
    QHash<QString, QByteArray> m_contents;    ///< checksums of candidates
    QSet<QString> m_taken;                    ///< candidates that are songs of this run
    QList<Found> m_found;
};

} // namespace brisel
