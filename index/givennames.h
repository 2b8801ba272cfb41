#pragma once

#include "index/workfolder.h"

#include <QHash>
#include <QList>
#include <QMultiHash>
#include <QString>

/// The short names that the files and folders of one memory got in place of their long ones. They
/// are kept in a file on the memory, docs/formats/given-names.md, so that a song that is sent again
/// is recognised.
///
/// That file can be changed, damaged or deleted by others, and songs can be moved or deleted
/// without it. So a name is used only if the file exists under its short name and not under its
/// long one. Names are case-insensitive, as they are on the player.
class GivenNames
{
public:
    /// The file's name in the work folder.
    static const QString &fileName();

    /// Forgets all names. The next calls are about the memory with the root \a root.
    void setRoot(const QString &root);
    /// Reads the names from the memory; invalid lines are skipped. False when the file exists but
    /// can't be read: then no name is known.
    [[nodiscard]] bool load();

    /// The absolute path of the file that a song sent as \a destination, an absolute path on the
    /// memory, has become there; \a destination itself when none is known.
    QString placeOf(const QString &destination) const;
    /// \a path, which begins with "/" at the root, with the current short name in place of each
    /// long one.
    QString follow(const QString &path) const;
    /// True when the absolute path \a place is known as that of the long name \a from, whether the
    /// file is there or not.
    bool wasGiven(const QString &from, const QString &place) const;
    /// True when the file at the absolute path \a place is known as the one of some long name.
    bool isKnown(const QString &place) const;

    /// Remembers that \a to is now the name of \a from in \a folder, a path below the root without
    /// "/" at either end. False when that is not on the memory; it is known to this object all the
    /// same. Flushes nothing.
    bool add(const QString &folder, const QString &from, const QString &to);
    /// Flushes what add() wrote to the disk. False when that failed.
    [[nodiscard]] bool flush() const;

    /// A walk over the memory has reached the file or folder at the absolute path \a path. True
    /// when its name looks like a given one and is not known.
    bool meet(const QString &path);
    /// \a path, for which meet() returned true, was not on the memory before: it may have been
    /// moved.
    void addStranger(const QString &path);
    /// At the end of a walk that met all files: forgets names whose file has disappeared, unless
    /// one new file of that name was met in another folder; then the name follows it there.
    /// Rewrites the file in one step when its lines have changed, and removes it when no name is
    /// left. False when it could not be written.
    [[nodiscard]] bool tidy();

    /// More names are not remembered.
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
    bool enter(const Name &name);
    void drop(qsizetype index);
    QString pathOf(const Name &name, const QString &last) const;
    QString today(const QString &folder, const QString &name) const;
    QString folderOf(const QString &path) const;
    void followMoves();

    QString m_root;
    WorkFolder m_work;
    QList<Name> m_names;
    QMultiHash<QString, qsizetype> m_byLong;  ///< by folded path
    QHash<QString, qsizetype> m_byGiven;      ///< by folded path; each belongs to one long name
    QMultiHash<QString, QString> m_strangers; ///< met without a name; by folded name
    bool m_isWhole = true;       ///< the file on the memory has the lines of m_names, and no others
    bool m_isUnreadable = false; ///< the file exists but could not be read now
    bool m_isOpenLine = false;   ///< the file on the memory may end within a line
};
