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

/// Makes the folder of a backup started at \a time inside the folder \a chosen and gives its path;
/// empty when it can't be made or exists already.
[[nodiscard]] QString makeBackupFolder(const QString &chosen, const QDateTime &time);

/// Copies the picked files into a new folder before they are changed.
class Backup
{
    Q_DECLARE_TR_FUNCTIONS(Backup)

public:
    enum class Outcome {
        Done,
        NoFolder, ///< none was chosen, or none could be made there: nothing was tried
        Failed,   ///< not all files were copied
        Ended,    ///< by the end of the program
    };

    /// \a chosen is the folder in which the backup's own folder is made.
    Backup(QStringList files, QString chosen);

    [[nodiscard]] Outcome run(Run &run);

private:
    const QStringList m_files;
    const QString m_chosen;
};

} // namespace brisel
