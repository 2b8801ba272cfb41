#include "base/filefailure.h"
#include "base/lastfolder.h"
#include "base/run.h"
#include "base/runguard.h"
#include "base/songsuffix.h"
#include "index/memoryreasons.h"
#include "library/dialogs/plainmessage.h"
#include "library/dialogs/windowrun.h"
#include "memory/dialogs/playlistspanel.h"
#include "memory/dialogs/repairdialog.h"
#include "memory/playlistwriter.h"
#include "memory/setlist.h"
#include "memory/songpaths.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QTextDocument>

namespace brisel
{

static bool isSongFile(const QString &path)
{
    const QFileInfo file(path);
    return isSongSuffix(file.suffix()) && !file.isDir();
}

void PlaylistsPanel::warn(const QString &text, const QString &details)
{
    QMessageBox box(QMessageBox::Warning, tr("Playlist"), text, QMessageBox::Ok, this);
    setPlainTexts(box, details);
    box.exec();
}

qsizetype PlaylistsPanel::modifiedCount() const
{
    qsizetype count = 0;
    for (qsizetype playlist = 0; playlist < m_document.count(); ++playlist)
        count += m_document.isModified(playlist) ? 1 : 0;
    return count;
}

bool PlaylistsPanel::save()
{
    if (!isModified())
        return true;
    const QString nothingSaved = tr("Le playlist non sono state salvate: %1.");
    if (!m_readOnly.isEmpty()) {
        warn(nothingSaved.arg(m_readOnly));
        return false;
    }
    if (RunGuard::isActive()) {
        warn(nothingSaved.arg(tr("un'altra operazione è in corso")));
        return false;
    }
    const qsizetype modified = modifiedCount();
    bool isSaved = false;
    std::optional<Reason> failure;
    QString file;
    {
        Run run;
        PlaylistWriter writer(m_document, run);
        isSaved = writer.save(m_identity);
        failure = writer.failure();
        file = writer.failedFile();
    }
    if (isSaved) {
        emit saved();
        return true;
    }
    const QString reason = failure.has_value() ? failure->text() : QString();
    warn((modifiedCount() < modified ? tr("Non tutte le playlist sono state salvate: %1.")
                                     : nothingSaved)
             .arg(reason),
         QDir::toNativeSeparators(file));
    if (failure == PlaylistWriter::changedMeanwhile)
        emit outdated();
    return false;
}

bool PlaylistsPanel::mayDiscard()
{
    if (!isModified())
        return true;
    QMessageBox box(QMessageBox::Question, tr("Playlist"),
                    tr("Le playlist sono state modificate. Salvarle sulla memoria?"),
                    QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, this);
    box.button(QMessageBox::Save)->setEnabled(m_readOnly.isEmpty());
    box.setDefaultButton(m_readOnly.isEmpty() ? QMessageBox::Save : QMessageBox::Cancel);
    switch (box.exec()) {
    case QMessageBox::Save:
        return save();
    case QMessageBox::Discard:
        m_document.discardChanges();
        showFirst();
        return true;
    default:
        return false;
    }
}

void PlaylistsPanel::repairEntry()
{
    const QList<qsizetype> chosen = chosenEntries();
    if (chosen.size() != 1 || !mayChange())
        return;
    const qsizetype entry = chosen.first();
    const std::shared_ptr<const MemoryContents> contents = m_document.contents();
    RepairDialog dialog(*contents, m_document.title(playlist(), entry),
                        EntryGuess::of(m_document, playlist(), entry), this);
    if (dialog.exec() != QDialog::Accepted || !dialog.song().has_value() ||
        contents != m_document.contents() || !mayChange())
        return;
    m_document.repair(playlist(), entry, contents->id(*dialog.song()));
}

void PlaylistsPanel::addSongs(const QList<quint32> &ids)
{
    if (mayChange())
        addAt(playlist(), m_document.size(playlist()), ids, ids.size());
    else
        warn(tr("Scegli prima una playlist che si può modificare."), m_readOnly);
}

/// Adds those of \a wanted songs that have \a ids.
void PlaylistsPanel::addAt(qsizetype playlist, qsizetype place, const QList<quint32> &ids,
                           qsizetype wanted)
{
    if (const qsizetype added = m_document.add(playlist, place, ids); added < wanted)
        showRefused(wanted, added);
}

void PlaylistsPanel::showRefused(qsizetype wanted, qsizetype added)
{
    warn(tr("Song aggiunte alla playlist: %1 di %2.").arg(added).arg(wanted),
         tr("Una playlist ha al massimo %1 song, e solo quelle dell'indice della memoria.")
             .arg(PlaylistDocument::maxEntries));
}

/// Empty if \a playlist, which was there before, can be changed.
QString PlaylistsPanel::whyUnchangeable(qsizetype playlist) const
{
    if (!m_readOnly.isEmpty())
        return m_readOnly;
    if (playlist < 0)
        return tr("la playlist non è più sulla memoria");
    return m_document.isEditable(playlist) ? QString() : tr("la playlist non si può modificare");
}

void PlaylistsPanel::showLost(const QList<qint16> &playlists)
{
    QStringList numbers;
    for (const qint16 number : playlists)
        numbers.append(QString::number(number));
    warn(tr("La memoria è cambiata: delle modifiche non salvate non tutte si possono tenere."),
         tr("Playlist: %1").arg(numbers.join(QStringLiteral(", "))));
}

/// The ids of those \a paths, absolute, that are songs of the index.
QList<quint32> PlaylistsPanel::idsOf(const QStringList &paths) const
{
    const MemoryContents &contents = *m_document.contents();
    const SongPaths songs(contents, m_document.names());
    QList<quint32> ids;
    for (const QString &path : paths) {
        const qsizetype song = songs.find(QDir::cleanPath(path).mid(contents.root().size()));
        if (song >= 0)
            ids.append(contents.id(song));
    }
    return ids;
}

/// Adds songs before the entry \a place, in their order; those that are not on the memory are
/// transferred first. Other files are left out.
void PlaylistsPanel::addFiles(const QStringList &files, qsizetype place)
{
    if (!mayChange() || RunGuard::isActive())
        return;
    const qint16 number = m_document.number(playlist());
    const QString root = m_document.contents()->root() + u'/';
    const auto isOther = [&root](const QString &file) {
        return !QDir::cleanPath(file).startsWith(root);
    };
    QStringList paths;
    QStringList others;
    for (const QString &file : files) {
        if (!isSongFile(file))
            continue;
        paths.append(file);
        if (isOther(file))
            others.append(file);
    }
    const qsizetype wanted = paths.size();
    if (wanted == 0)
        return;
    QString failure;
    if (!others.isEmpty()) {
        const QStringList sent = transferred(others, failure);
        qsizetype next = 0;
        for (QString &path : paths)
            path = isOther(path) ? sent.value(next++) : path;
        paths.removeAll(QString());
    }
    const qsizetype target = m_document.playlistWith(number);
    if (failure.isEmpty())
        failure = whyUnchangeable(target);
    if (failure.isEmpty())
        addAt(target, place, idsOf(paths), wanted);
    else
        warn(tr("Le song non sono state aggiunte alla playlist: %1.").arg(failure));
}

/// The paths of \a files on the memory. Sets \a failure if the memory can't be read afterwards.
QStringList PlaylistsPanel::transferred(const QStringList &files, QString &failure)
{
    if (!m_transfer)
        return {};
    const std::shared_ptr<const MemoryContents> before = m_document.contents();
    const MemoryIdentity memory = m_identity;
    QStringList paths = m_transfer(files);
    bool isRead =
        m_document.contents() != nullptr && m_document.contents()->root() == before->root();
    if (m_document.contents() == before) {
        auto contents = std::make_shared<MemoryContents>();
        Run run;
        isRead = contents->read(before->root(), run) == MemoryContents::Outcome::Done;
        if (isRead)
            updateContents(contents);
    }
    if (!isRead)
        failure = memory.isThere() ? tr("la memoria non si legge") : MemoryReason::gone.text();
    return paths;
}

bool PlaylistsPanel::readSetList(SetList &list)
{
    if (playlist() < 0 || RunGuard::isActive())
        return false;
    WindowRun run(window(), RunReport::Operation::SongsList);
    return list.read(m_document, playlist(), run);
}

void PlaylistsPanel::print()
{
    SetList list;
    if (!readSetList(list))
        return;
    QPrinter printer;
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    QTextDocument page;
    page.setHtml(list.html());
    page.print(&printer);
    if (printer.printerState() == QPrinter::Error)
        warn(tr("La scaletta non è stata stampata."));
}

void PlaylistsPanel::savePdf()
{
    SetList list;
    if (!readSetList(list))
        return;
    QFileDialog dialog(this, tr("Salva la scaletta"),
                       startFolder(Settings::reportFolder, QDir::homePath()),
                       tr("File PDF (*.pdf)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("pdf"));
    dialog.selectFile(tr("Playlist %1").arg(m_document.number(playlist())) +
                      QStringLiteral(".pdf"));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return;
    const QString path = dialog.selectedFiles().constFirst();
    keepFolder(Settings::reportFolder, QFileInfo(path).absolutePath());
    if (!list.writePdf(path))
        warn(tr("La scaletta non è stata salvata: %1.").arg(whyUnwritable(path, 1).text()),
             QDir::toNativeSeparators(path));
}

} // namespace brisel
