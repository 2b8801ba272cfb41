#pragma once

#include "index/workfolder.h"

#include <QHash>
#include <QList>
#include <QMultiHash>
#include <QString>

/// Which short names the files and folders of one memory were given for which long ones. Kept in a
/// file on the memory, docs/formats/given-names.md, so that a song that is sent again is known.
///
/// Nothing depends on that file: anybody can change, damage or delete it, and songs can be moved
/// and deleted without it. So a name counts only where the file stands under it, and nothing under
/// the long one. The letter case of names makes no difference, as it makes none to the player.
class GivenNames
{
public:
    /// The file's name in the work folder.
    static const QString &fileName();

    /// Begins anew, with the memory whose root is \a root: nothing is known of it.
    void setRoot(const QString &root);
    /// Reads what the memory has. Lines that are damaged or name what can't be are left out. False
    /// when a file stands there that can't be read: nothing is known then.
    bool load();

    /// The absolute path of the file that a song sent as \a destination, an absolute path on the
    /// memory, has become there; \a destination itself when none is known.
    QString placeOf(const QString &destination) const;
    /// \a path, which begins with "/" at the root, with the name of today for each of its names
    /// that was shortened.
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
    bool flush() const;

    /// A walk over the memory has come to the file or folder \a path, an absolute path. True when
    /// that has a name such as are given, and is not known.
    bool meet(const QString &path);
    /// \a path, for which meet() said true, was not on the memory before: it may have been moved.
    void addStranger(const QString &path);
    /// At the end of a walk that met all there is: names whose file is gone are forgotten, or where
    /// one new file of that name was met in another folder, follow it there. Writes the file anew,
    /// whole or not at all, when it has other lines than that, and removes it when none is left.
    /// False when it could not be written.
    bool tidy();

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
    bool m_isUnreadable = false; ///< a file stands there that may be readable another day
    bool m_isOpenLine = false;   ///< the file on the memory may end within a line
};
