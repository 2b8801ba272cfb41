#pragma once

#include <QCoreApplication>
#include <QList>
#include <QString>

namespace brisel
{

class PlaylistDocument;

/// A song that an entry without a good song may mean.
struct EntryGuess {
    Q_DECLARE_TR_FUNCTIONS(brisel::EntryGuess)

public:
    /// The guesses for an entry of \a document, the best one first, each song once. Songs without
    /// a record in "title.id2" are left out: they can't be entries.
    static QList<EntryGuess> of(const PlaylistDocument &document, qsizetype playlist,
                                qsizetype entry);

    qsizetype song = 0; ///< position in MemoryContents
    QString why;        ///< in the current language
};

} // namespace brisel
