#pragma once

#include "base/run.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

class QDateTime;

namespace brisel
{

/// The folder that a backup of the picked files goes to: "backup_kordia_2011_03_07_18-05-09".
QString backupFolderName(const QDateTime &time);

/// Makes the folder of a backup started at \a time inside the folder \a chosen. Returns its path;
/// empty if it can't be made or exists already.
[[nodiscard]] QString makeBackupFolder(const QString &chosen, const QDateTime &time);

/// Copies the picked files into a new folder before they are changed, with a list that says which
/// copy came from where: docs/formats/backup.md.
class Backup
{
    Q_DECLARE_TR_FUNCTIONS(Backup)

public:
    enum class Outcome {
        Done,
        NoFolder, ///< none was chosen, or none could be made there: nothing was copied
        Failed,   ///< not all files were copied, or their list could not be written
        Ended,    ///< by the end of the program
    };

    /// The backup's own folder is made in \a chosen.
    Backup(QStringList files, QString chosen);

    [[nodiscard]] Outcome run(Run &run);

private:
    bool copyTo(Run &run, const QString &folder);

    QStringList m_files; ///< each once
    const QString m_chosen;
};

} // namespace brisel
