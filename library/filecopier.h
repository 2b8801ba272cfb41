#pragma once

#include <QHash>
#include <QSet>
#include <QStringList>

#include <functional>

class Progress;

/// Copies picked song files flat into one folder, with the question before a file is replaced and
/// the karaoke graphics of MP3s. Serves the transfer to the memory and the backup.
class FileCopier
{
public:
    /// Asks whether \a destination may be replaced; gives a NoCopyrightDialog::Answer.
    using Question = std::function<int(const QString &destination)>;

    FileCopier(Progress &progress, Question askOverwrite);

    /// Copies \a files into the folder \a destDir and counts in \a copied what is there afterwards.
    /// True when no file failed and the user did not cancel; after a cancel \a copied is 0. A
    /// source is never changed, and what was copied is flushed to the disk.
    bool copyFiles(const QStringList &files, const QString &destDir, int &copied);

private:
    bool mayOverwrite(const QString &destination);
    bool copySong(const QString &source, const QString &destination);
    bool copyWithCompanion(const QString &source, const QString &destination);
    QString companionOf(const QString &song);

    Progress &m_progress;
    Question m_askOverwrite;
    bool m_askEach = true;
    bool m_overwrite = false;
    QSet<QString> m_sources; ///< identities of the files being copied
    /// The graphics files of each folder met: lower-case path to the name on the disk.
    QHash<QString, QHash<QString, QString>> m_companions;
};
