#include "library/filecopier.h"

#include "base/debugstream.h"
#include "base/fileidentity.h"
#include "base/filewriting.h"
#include "base/runguard.h"
#include "library/nocopyrightdialog.h"
#include "library/progress.h"
#include "library/safecopy.h"

#include <QDir>
#include <QFileInfo>

namespace
{

/// Every ".mp3" of the path gives way, the folders' too: that is what the players' cards hold.
QString companionPath(const QString &song)
{
    return QString(song).replace(QStringLiteral(".mp3"), QStringLiteral(".cdg"),
                                 Qt::CaseInsensitive);
}

bool isSamePath(const QString &source, const QString &destination)
{
    return source.compare(destination, Qt::CaseInsensitive) == 0 || isSameFile(source, destination);
}

} // namespace

FileCopier::FileCopier(Progress &progress, Question askOverwrite)
    : m_progress(progress), m_askOverwrite(std::move(askOverwrite))
{
}

bool FileCopier::copyFiles(const QStringList &files, const QString &destDir, int &copied)
{
    copied = 0;
    int errors = 0;
    int processed = 0;
    m_askEach = true;
    m_overwrite = false;
    m_companions.clear();
    m_sources.clear();
    for (const QString &source : files)
        m_sources.insert(fileIdentity(source));

    for (const QString &source : files) {
        if (m_progress.isCanceled()) {
            copied = 0;
            return false;
        }
        const QString destination = destDir + u'/' + source.mid(source.lastIndexOf(u'/') + 1);
        ++processed;
        if (isSamePath(source, destination)) {
            ++copied;
            continue;
        }
        debug() << "Copying file:" << source << "to:" << destination;
        if (fileKind(destination) != FileKind::Missing && !mayOverwrite(destination))
            continue;
        if (copyWithCompanion(source, destination))
            ++copied;
        else
            ++errors;
        m_progress.setValue(processed);
        m_progress.breathe();
    }
    if (copied > 0 && !flushFolder(destDir))
        ++errors;
    return errors == 0 && !m_progress.isCanceled();
}

bool FileCopier::mayOverwrite(const QString &destination)
{
    if (m_askEach) {
        const int answer = m_askOverwrite(destination);
        // When the program is being ended nobody may have seen the question.
        if (RunGuard::endRequested())
            return false;
        m_overwrite = answer == NoCopyrightDialog::Yes || answer == NoCopyrightDialog::YesToAll;
        m_askEach = answer != NoCopyrightDialog::YesToAll && answer != NoCopyrightDialog::NoToAll;
    }
    return m_overwrite;
}

bool FileCopier::copySong(const QString &source, const QString &destination)
{
    if (fileKind(destination) == FileKind::Missing)
        return copyToNewFile(source, destination);
    // The song at the destination may have been picked too, under the same name elsewhere.
    return !m_sources.contains(fileIdentity(destination)) && copyOverFile(source, destination);
}

bool FileCopier::copyWithCompanion(const QString &source, const QString &destination)
{
    if (!copySong(source, destination))
        return false;
    if (!source.endsWith(QStringLiteral("MP3"), Qt::CaseInsensitive))
        return true;
    const QString companion = companionOf(source);
    return companion.isEmpty() || copyToNewFile(companion, companionPath(destination));
}

/// The file as named, or else one whose name differs in case only: cards made elsewhere hold
/// "SONG.CDG" beside "song.mp3". Empty when there is none.
QString FileCopier::companionOf(const QString &song)
{
    QString wanted = companionPath(song);
    if (isRegularFile(wanted))
        return wanted;
    const QString folder = QFileInfo(wanted).path();
    auto known = m_companions.constFind(folder);
    if (known == m_companions.constEnd()) {
        QHash<QString, QString> names;
        const QStringList found =
            QDir(folder).entryList({QStringLiteral("*.cdg")}, QDir::Files, QDir::Name);
        for (const QString &name : found)
            names.insert(name.toLower(), folder + u'/' + name);
        known = m_companions.insert(folder, names);
    }
    return known->value(QFileInfo(wanted).fileName().toLower());
}
