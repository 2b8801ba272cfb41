#pragma once

#include <QString>

class QDateTime;

/// The folder that a backup of the picked files goes to: "backup_kordia_2011_03_07_18-05-09".
QString backupFolderName(const QDateTime &time);

/// Makes the folder of a backup started at \a time inside the folder \a chosen and gives its path;
/// empty when it can't be made or exists already.
QString makeBackupFolder(const QString &chosen, const QDateTime &time);
