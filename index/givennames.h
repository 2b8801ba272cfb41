#pragma once

#include "index/workfolder.h"

#include <QHash>
#include <QList>
#include <QMultiHash>
#include <QString>

namespace brisel
{

/// The names that the files and folders of one memory got in place of earlier ones: short names,
/// and names that the user chose for songs. They are kept in a file on the memory,
/// docs/formats/given-names.md, so that a song that is sent again is recognised, and playlists
/// follow a song whose renaming was cut.
///
/// That file can be changed, damaged or deleted by others, and songs can be moved or deleted
/// without it. So a name is used only if the file exists under its new name, or one that it got in
/// place of that, and not under its earlier one. Names are case-insensitive, as they are on the
/// player.
class GivenNames
{
public:
    /// The file's name in the work folder.
    static const QString &fileName();

    /// Forgets all names. The next calls are about the memory with the root \a root.
    void setRoot(const QString &root);
    /// Reads the names from the memory; invalid lines are skipped. Returns false if the file exists
    /// but can't be read: then no name is known.
    [[nodiscard]] bool load();

    /// Returns the present absolute path of the file that was sent as \a destination, an absolute
    /// path on the memory; \a destination itself if it got no other name.
    QString placeOf(const QString &destination) const;
    /// \a path, which begins with "/" at the root, with the current name in place of each earlier
    /// one.
    QString follow(const QString &path) const;
    /// Returns true if the absolute path \a place is stored for the long name \a from, whether the
    /// file exists or not.
    bool wasGiven(const QString &from, const QString &place) const;
    /// Returns true if the absolute path \a place is stored for any long name.
    bool isKnown(const QString &place) const;

    /// Stores that \a to is now the name of \a from in \a folder, a path below the root without "/"
    /// at either end. Returns false if it could not be written to the memory; this object still has
    /// it. Flushes nothing.
    bool add(const QString &folder, const QString &from, const QString &to);
    /// Flushes what add() wrote to the disk. Returns false on failure.
    [[nodiscard]] bool flush() const { return m_work.flush(fileName()); }

    /// A walk over the memory has reached the file or folder at the absolute path \a path. True
    /// when its name looks like a given one and is not known.
    bool meet(const QString &path);
    /// \a path, for which meet() returned true, was not on the memory before: it may have been
    /// moved.
    void addStranger(const QString &path);
    /// At the end of a walk that met all files: forgets names whose file has disappeared, unless
    /// one new file of that name was met in another folder; then the name follows it there.
    /// Rewrites the file in one step when its lines have changed, and removes it when no name is
    /// left. Returns false if it could not be written.
    [[nodiscard]] bool tidy();

    /// The most names that are stored.
    static constexpr int maxNames = 65535;

private:
    struct Name {
        QString folder; ///< below the root; begins with "/", or is empty
        QString from;
        QString to;
        bool isMet = false;
        bool isDropped = false;
    };

    static QByteArray lineOf(const Name &name);
    static bool read(const QByteArray &line, Name &name);
    static bool canGive(const QString &from, const QString &to);
    static QStringList keysOf(const Name &name);
    bool enter(const Name &name);
    void drop(qsizetype index);
    void noteMet(Name &name, const QString &present);
    QString pathOf(const Name &name, const QString &last) const;
    QString today(const QString &folder, const QString &name) const;
    qsizetype lineTo(const QString &folder, const QString &name) const;
    QString folderOf(const QString &path) const;
    void joinNames();
    void followMoves();

    QString m_root;
    WorkFolder m_work;
    QList<Name> m_names;
    QMultiHash<QString, qsizetype> m_byLong;  ///< by folded path
    QHash<QString, qsizetype> m_byGiven;      ///< by folded path; each belongs to one long name
    QMultiHash<QString, QString> m_strangers; ///< met, but not stored; by folded name
    bool m_isWhole = true;       ///< the file on the memory has the lines of m_names, and no others
    bool m_isUnreadable = false; ///< the file exists but could not be read now
    bool m_isOpenLine = false;   ///< the file on the memory may end within a line
};

} // namespace brisel
