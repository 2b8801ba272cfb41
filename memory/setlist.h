#pragma once

#include <QCoreApplication>
#include <QList>
#include <QString>

namespace brisel
{

class PlaylistDocument;
class Run;

/// A playlist to be printed: its songs in playing order, with the data that musicians need.
class SetList
{
    Q_DECLARE_TR_FUNCTIONS(brisel::SetList)

public:
    struct Song {
        QString title;
        QString artist;
        QString key;
        int bpm = 0;    ///< 0: unknown
        int length = 0; ///< seconds; 0: unknown
    };

    /// Reads the songs of a playlist from their files; one that can't be read has what the index
    /// and the entry have. \a run shows the progress and can interrupt it: then the list is
    /// incomplete and false is returned.
    [[nodiscard]] bool read(const PlaylistDocument &document, qsizetype playlist, Run &run);
    const QList<Song> &songs() const { return m_songs; }

    /// A page with a table of the songs, in the current language.
    QString html() const;
    /// Writes the page as a PDF, in place of a file at \a path. Returns false on failure: then
    /// that file is unchanged. Needs a QGuiApplication.
    [[nodiscard]] bool writePdf(const QString &path) const;

private:
    QString m_name;
    QList<Song> m_songs;
};

} // namespace brisel
