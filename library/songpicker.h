#pragma once

#include <QSet>
#include <QString>
#include <QStringList>

class Progress;

/// The names that song files have, as a file dialog's filter takes them.
extern const QString songNamePatterns;

/// Makes of files and folders the list that a user would have picked in a file dialog: the full
/// paths of all files that have a song's name. Nothing is picked twice under one path.
class SongPicker
{
public:
    /// \a progress takes events and a cancel while folders are looked through.
    explicit SongPicker(Progress &progress);

    /// Picks the file at \a path, or every song below that folder in the order of a folder scan.
    /// What is missing, no plain file or of another kind is passed over.
    void add(const QString &path);

    const QStringList &songs() const { return m_songs; }

private:
    bool pick(const QString &file);

    Progress &m_progress;
    QStringList m_songs;
    QSet<QString> m_known;          ///< paths of the songs
    QSet<QString> m_visitedFolders; ///< their identities
};
