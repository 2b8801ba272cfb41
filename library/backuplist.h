#pragma once

#include "base/reason.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

namespace brisel
{

class PlainFile;

/// One file of a backup.
struct BackupEntry {
    QString name;        ///< of the copy in the folder of the backup
    QString path;        ///< of the file that was copied
    qint64 size = 0;     ///< of the copy, in bytes
    QByteArray checksum; ///< BLAKE2b-256 of the copy, 32 bytes

    /// Returns true if \a file has the content of the copy. Reads nothing if its size differs.
    [[nodiscard]] bool isOf(const PlainFile &file) const;
};

/// The list of a backup, which says which copy came from where: docs/formats/backup.md.
class BackupList
{
public:
    /// Its name in the folder of the backup: "contenuto.csv".
    static QString fileName();

    /// The list could not be read: it is missing, too large, or its columns are not the known ones.
    static constexpr Reason unreadable{
        QT_TRANSLATE_NOOP("RunReport", "la lista del backup manca o è danneggiata")};
    /// A line does not have the form of the list.
    static constexpr Reason damagedLine{
        QT_TRANSLATE_NOOP("RunReport", "la sua riga nella lista del backup è danneggiata")};
    /// A line names a copy outside of the folder, or no song.
    static constexpr Reason unsafeLine{QT_TRANSLATE_NOOP(
        "RunReport", "la lista del backup indica un file che non è una song di quel backup")};
    /// An earlier line has the same path.
    static constexpr Reason twice{
        QT_TRANSLATE_NOOP("RunReport", "la lista del backup la indica più di una volta")};

    /// A line of a list that was read.
    struct Line {
        BackupEntry entry; ///< what could be read, if it is refused
        std::optional<Reason> refused = {};
    };

    /// Adds the file at \a path with its copy \a copy, which is read for the checksum. Returns
    /// false if that failed: then it is not in the list.
    [[nodiscard]] bool add(const QString &path, const QString &copy);
    /// The bytes that write() needs, about.
    qint64 size() const { return m_text.size(); }
    /// Writes the list into \a folder. Returns false, with nothing written, on failure.
    [[nodiscard]] bool write(const QString &folder) const;

    /// Reads the list of the backup in \a folder. Returns nothing if it is unreadable; lines that
    /// must not be followed are refused.
    static std::optional<QList<Line>> read(const QString &folder);
    /// The lines of a list with this content.
    static std::optional<QList<Line>> lines(const QByteArray &content);

private:
    QByteArray m_text; ///< the lines of the added files
    qsizetype m_count = 0;
};

} // namespace brisel
