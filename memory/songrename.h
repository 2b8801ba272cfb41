#pragma once

#include "base/run.h"
#include "index/memoryrenames.h"
#include "memory/memorycontents.h"
#include "memory/songfiles.h"

#include <QCoreApplication>
#include <QSet>
#include <QString>

#include <optional>

namespace brisel
{

class MemoryClaim;

/// Gives a song on a memory, and the graphics file of an MP3, another name that the player finds;
/// the index and the playlists follow.
///
/// The new name is stored in the given names of the memory before the file gets it, so that an
/// update after an interruption finishes the work.
class SongRename
{
    Q_DECLARE_TR_FUNCTIONS(SongRename)

public:
    enum class Outcome {
        Done,
        Refused, ///< nothing was changed: the reason is in the report
        Failed,  ///< the song has its new name, but not everything follows, or a third one: see the
                 ///< report
    };

    static constexpr Reason invalidName{
        QT_TRANSLATE_NOOP("RunReport", "il nuovo nome non è possibile")};
    static constexpr Reason unchangeable{
        QT_TRANSLATE_NOOP("RunReport", "non è stato possibile rinominare il file")};
    /// Of a change of letter case that stopped half way.
    static constexpr Reason keptBetween{
        QT_TRANSLATE_NOOP("RunReport", "la song ha ora questo nome")};

    /// The playlists could not follow from a path with '?' in place of a folder's characters.
    static constexpr Reason unknownFolder{QT_TRANSLATE_NOOP(
        "RunReport", "una cartella del percorso ha un carattere che Brisel non conosce")};

    /// For the song at the absolute path \a path, of the index or of its file (see SongFiles), on
    /// the memory \a root, a path without "/" at its end. \a contents are those of the memory, read
    /// since its claim was prepared; empty if it has no index. They must outlive this. Reads the
    /// song's folder.
    SongRename(const QString &root, const MemoryContents &contents, const QString &path)
        : SongRename(root, contents, path, SongFiles(root, contents).find(path))
    {
    }

    /// Why the song can have no other name: its file can't be determined, or its folder has no name
    /// for the player. Empty if it can.
    const std::optional<Reason> &obstacle() const { return m_obstacle; }
    /// The song's name without its suffix.
    QString base() const;
    /// The suffix with its point, which stays.
    QString suffix() const;
    /// Returns why \a base can't be the song's name without its suffix, in the current language;
    /// empty if it can. Fast enough for each key that is typed.
    [[nodiscard]] QString problem(const QString &base) const;

    /// Renames the song to \a base. Afterwards the contents are those of before.
    [[nodiscard]] Outcome run(Run &run, MemoryClaim &claim, const QString &base);

private:
    SongRename(const QString &root, const MemoryContents &contents, const QString &path,
               const SongFiles::Place &place);
    void findNamesOfPlaylists();
    [[nodiscard]] QString newName(const QString &base) const { return base + suffix(); }
    [[nodiscard]] QString problemOfPlace(const QString &base) const;
    [[nodiscard]] QString rename(MemoryRenames &renames, const QString &to) const;

    const QString m_root;
    const MemoryContents &m_contents;
    const QString m_folder;
    const QString m_name;
    std::optional<Reason> m_obstacle;
    QString m_companion;         ///< the name of the graphics file; empty if there is none
    QSet<QString> m_taken;       ///< folded names of the other entries of the folder
    QSet<QByteArray> m_promised; ///< sort keys of the paths that playlists have for other songs
};

} // namespace brisel
