#include "library/filecopier.h"

#include "base/debugstream.h"
#include "base/filefailure.h"
#include "base/fileidentity.h"
#include "base/filewriting.h"
#include "base/runguard.h"
#include "library/nocopyrightdialog.h"
#include "library/progress.h"
#include "library/safecopy.h"

#include <QDir>
#include <QFileInfo>

#include <limits>

namespace
{

/// Every ".mp3" of the path gives way, the folders' too: that is what the players' cards hold.
QString companionPath(const QString &song)
{
    return QString(song).replace(QStringLiteral(".mp3"), QStringLiteral(".cdg"),
                                 Qt::CaseInsensitive);
}

QString destinationOf(const QString &source, const QString &destDir)
{
    return destDir + u'/' + source.mid(source.lastIndexOf(u'/') + 1);
}

bool isSamePath(const QString &source, const QString &destination)
{
    return source.compare(destination, Qt::CaseInsensitive) == 0 || isSameFile(source, destination);
}

RunReport::Reason whyNotCopied(CopyResult result, const QString &source, const QString &destination)
{
    const QFileInfo file(source);
    if (isRegularFile(source) && file.isReadable())
        return result == CopyResult::SourceFailed ? RunReport::Reason::CutShort
                                                  : whyUnwritable(destination, file.size());
    return whyUnreadable(source, std::numeric_limits<qint64>::max());
}

} // namespace

FileCopier::FileCopier(Progress &progress, Question askOverwrite)
    : m_progress(progress), m_askOverwrite(std::move(askOverwrite))
{
}

void FileCopier::setSpaceDisplay(SpaceDisplay display)
{
    m_showSpace = std::move(display);
}

bool FileCopier::copyFiles(const QStringList &files, const QString &destDir, int &copied)
{
    copied = 0;
    int errors = 0;
    int processed = 0;
    m_askEach = true;
    m_overwrite = false;
    m_companions.clear();
    m_report = RunReport();
    m_sources.clear();
    for (const QString &source : files)
        m_sources.insert(fileIdentity(source));
    countBytes(files, destDir);

    for (const QString &source : files) {
        if (m_progress.isCanceled()) {
            noteFilesLeft(files, processed);
            copied = 0;
            return false;
        }
        showSpace(destDir, processed);
        const QString destination = destinationOf(source, destDir);
        ++processed;
        if (isSamePath(source, destination)) {
            m_report.count(RunReport::Success::Copied);
            ++copied;
            continue;
        }
        debug() << "Copying file:" << source << "to:" << destination;
        if (fileKind(destination) != FileKind::Missing && !mayOverwrite(destination)) {
            note(source, RunGuard::endRequested() ? Reason::Interrupted : Reason::Kept);
            continue;
        }
        if (copyWithCompanion(source, destination)) {
            m_report.count(RunReport::Success::Copied);
            ++copied;
        } else {
            ++errors;
        }
        m_progress.setValue(processed);
        m_progress.breathe();
    }
    if (copied > 0 && !flushFolder(destDir)) {
        note(destDir, whyUnwritable(destinationOf(files.last(), destDir), 0));
        ++errors;
    }
    return errors == 0 && !m_progress.isCanceled();
}

/// Remembers what there is to copy, where that is shown: the sizes of the songs with their graphics
/// files.
void FileCopier::countBytes(const QStringList &files, const QString &destDir)
{
    m_bytes.clear();
    m_bytesLeft = 0;
    if (!m_showSpace)
        return;
    for (const QString &source : files) {
        qint64 bytes = 0;
        if (!isSamePath(source, destinationOf(source, destDir))) {
            bytes = QFileInfo(source).size();
            if (const QString companion = companionOf(source); !companion.isEmpty())
                bytes += QFileInfo(companion).size();
        }
        m_bytes.append(bytes);
        m_bytesLeft += bytes;
    }
}

/// Before the turn of the file \a next.
void FileCopier::showSpace(const QString &destDir, int next)
{
    if (!m_showSpace)
        return;
    m_showSpace(destDir, m_bytesLeft);
    m_bytesLeft -= m_bytes.at(next);
}

void FileCopier::noteFilesLeft(const QStringList &files, int first)
{
    for (const QString &source : files.mid(first))
        note(source, Reason::Interrupted);
}

void FileCopier::note(const QString &path, Reason reason)
{
    m_report.add(RunReport::Lack::Copied, path, reason);
}

/// True when there is a copy; notes why not otherwise.
bool FileCopier::noteCopy(CopyResult result, const QString &source, const QString &destination)
{
    if (result != CopyResult::Done)
        note(source, whyNotCopied(result, source, destination));
    return result == CopyResult::Done;
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
    const bool isNew = fileKind(destination) == FileKind::Missing;
    // The song at the destination may have been picked too, under the same name elsewhere.
    if (!isNew && m_sources.contains(fileIdentity(destination))) {
        note(source, Reason::PickedToo);
        return false;
    }
    return noteCopy(isNew ? copyToNewFile(source, destination) : copyOverFile(source, destination),
                    source, destination);
}

bool FileCopier::copyWithCompanion(const QString &source, const QString &destination)
{
    if (!copySong(source, destination))
        return false;
    const QString companion = companionOf(source);
    if (companion.isEmpty())
        return true;
    const QString place = companionPath(destination);
    if (fileKind(place) != FileKind::Missing) {
        note(companion, Reason::AlreadyThere);
        return false;
    }
    return noteCopy(copyToNewFile(companion, place), companion, place);
}

/// The graphics file of an MP3: the file as named, or else one whose name differs in case only:
/// cards made elsewhere hold "SONG.CDG" beside "song.mp3". Empty when there is none.
QString FileCopier::companionOf(const QString &song)
{
    if (!song.endsWith(QStringLiteral("MP3"), Qt::CaseInsensitive))
        return {};
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
