#pragma once

#include "base/filecopying.h"
#include "base/runreport.h"

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

    /// Is told how many bytes are still to be copied into the folder \a destDir.
    using SpaceDisplay = std::function<void(const QString &destDir, qint64 bytes)>;

    FileCopier(Progress &progress, Question askOverwrite);

    /// Has \a display told before each file; without one the sizes are not even looked at.
    void setSpaceDisplay(SpaceDisplay display);

    /// Copies \a files into the folder \a destDir and counts in \a copied what is there afterwards.
    /// True when no file failed and the user did not cancel; after a cancel \a copied is 0. A
    /// source is never changed, and what was copied is flushed to the disk.
    bool copyFiles(const QStringList &files, const QString &destDir, int &copied);

    /// How many songs the last run has copied, and which were not, and why.
    const RunReport &report() const { return m_report; }

private:
    using Reason = RunReport::Reason;

    bool mayOverwrite(const QString &destination);
    bool copySong(const QString &source, const QString &destination);
    bool copyWithCompanion(const QString &source, const QString &destination);
    QString companionOf(const QString &song);
    void countBytes(const QStringList &files, const QString &destDir);
    void showSpace(const QString &destDir, int next);
    void noteFilesLeft(const QStringList &files, int first);
    void note(const QString &path, Reason reason);
    bool noteCopy(CopyResult result, const QString &source, const QString &destination);

    Progress &m_progress;
    Question m_askOverwrite;
    bool m_askEach = true;
    bool m_overwrite = false;
    QSet<QString> m_sources; ///< identities of the files being copied
    /// The graphics files of each folder met: lower-case path to the name on the disk.
    QHash<QString, QHash<QString, QString>> m_companions;
    RunReport m_report;
    SpaceDisplay m_showSpace;
    QList<qint64> m_bytes; ///< of each file, where they are shown
    qint64 m_bytesLeft = 0;
};
