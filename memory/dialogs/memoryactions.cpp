#include "memory/dialogs/memoryactions.h"

#include "base/runguard.h"
#include "base/songsuffix.h"

#include <QAction>
#include <QEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QWidget>

#include <utility>

namespace brisel
{

MemoryActions::MemoryActions(QWidget *window)
    : QObject(window), m_window(window), m_contents(std::make_shared<MemoryContents>()),
      m_remove(new QAction(this)), m_rename(new QAction(this)), m_copy(new QAction(this)),
      m_update(new QAction(this)), m_rebuild(new QAction(this)), m_check(new QAction(this)),
      m_export(new QAction(this)), m_pullOut(new QAction(this))
{
    connect(m_remove, &QAction::triggered, this, &MemoryActions::removeSongs);
    connect(m_rename, &QAction::triggered, this, &MemoryActions::renameSong);
    connect(m_copy, &QAction::triggered, this, &MemoryActions::copySongs);
    connect(m_update, &QAction::triggered, this, [this] { runIndex(false); });
    connect(m_rebuild, &QAction::triggered, this, [this] { runIndex(true); });
    connect(m_check, &QAction::triggered, this, &MemoryActions::checkMemory);
    connect(m_export, &QAction::triggered, this, &MemoryActions::exportList);
    connect(m_pullOut, &QAction::triggered, this, &MemoryActions::pullOut);
    setUnmountService(UnmountService::ofDesktop());
    window->installEventFilter(this);
    retranslate();
}

MemoryActions::~MemoryActions()
{
    if (m_safeRemoval->isWorking())
        QGuiApplication::restoreOverrideCursor();
}

void MemoryActions::setUnmountService(std::unique_ptr<UnmountService> service)
{
    m_safeRemoval = std::make_unique<SafeRemoval>(std::move(service), nullptr);
    connect(m_safeRemoval.get(), &SafeRemoval::aboutToUnmount, this,
            &MemoryActions::aboutToUnmount);
    connect(m_safeRemoval.get(), &SafeRemoval::finished, this, &MemoryActions::showPulledOut);
}

void MemoryActions::setMemory(const QString &root)
{
    m_root = root;
    m_contents = std::make_shared<MemoryContents>();
    m_files.clear();
    updateActions();
}

void MemoryActions::setContents(std::shared_ptr<const MemoryContents> contents)
{
    if (contents == nullptr || contents->root().isEmpty()) {
        m_contents = std::make_shared<MemoryContents>();
    } else {
        m_contents = std::move(contents);
        m_root = m_contents->root();
    }
    m_files.clear();
    updateActions();
}

void MemoryActions::setSongs(const QList<qsizetype> &positions)
{
    m_files.clear();
    m_lastCopies = 0;
    for (const qsizetype position : positions)
        m_files.append(m_root + m_contents->path(position));
    updateActions();
}

void MemoryActions::setFiles(const QStringList &absolutePaths, int lastCopies)
{
    m_lastCopies = lastCopies;
    m_files = absolutePaths;
    updateActions();
}

void MemoryActions::setReadOnly(const QString &reason)
{
    m_readOnly = reason;
    updateActions();
}

QList<QAction *> MemoryActions::songActions() const
{
    return {m_remove, m_rename, m_copy};
}

QList<QAction *> MemoryActions::memoryActions() const
{
    return {m_update, m_rebuild, m_check, m_export, m_pullOut};
}

bool MemoryActions::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    if (event->type() == QEvent::Close && m_safeRemoval->isWorking()) {
        event->ignore(); // the user is waiting for the outcome, which comes in a bounded time
        return true;
    }
    return QObject::eventFilter(watched, event);
}

void MemoryActions::retranslate()
{
    m_remove->setText(tr("&Rimuovi dalla memoria..."));
    m_rename->setText(tr("Ri&nomina..."));
    m_copy->setText(tr("&Copia sul computer..."));
    m_update->setText(tr("A&ggiorna"));
    m_rebuild->setText(tr("Rig&enera"));
    m_check->setText(tr("Contro&lla"));
    m_export->setText(tr("E&sporta elenco..."));
    m_pullOut->setText(tr("Rimo&zione sicura"));
    for (QAction *action : songActions() + memoryActions())
        action->setIconText(action->text().remove(u'&')); // Qt's own would lose the dots
    showTips();
}

void MemoryActions::updateActions()
{
    const bool hasMemory = !m_root.isEmpty() && !m_safeRemoval->isWorking();
    const bool isWritable = hasMemory && m_readOnly.isEmpty();
    const bool isChosen = !m_files.isEmpty();
    m_remove->setEnabled(isWritable && isChosen);
    m_rename->setEnabled(isWritable && m_files.size() == 1 &&
                         isSongSuffix(QFileInfo(m_files.first()).suffix()));
    m_copy->setEnabled(hasMemory && isChosen);
    m_update->setEnabled(isWritable);
    m_rebuild->setEnabled(isWritable);
    m_check->setEnabled(hasMemory);
    m_export->setEnabled(hasMemory && m_contents->size() > 0);
    m_pullOut->setEnabled(hasMemory);
    showTips();
}

void MemoryActions::showTips()
{
    const std::pair<QAction *, QString> writing[] = {
        {m_remove, tr("Cancella dalla memoria le song scelte; l'indice e le playlist le seguono")},
        {m_rename, tr("Cambia il nome del file della song; l'indice e le playlist lo seguono")},
        {m_update, tr("Aggiorna l'indice con le song nuove, cambiate e cancellate")},
        {m_rebuild, tr("Scrive di nuovo tutto l'indice della memoria")}};
    for (const auto &[action, tip] : writing)
        action->setToolTip(m_readOnly.isEmpty() ? tip : m_readOnly.toHtmlEscaped());
    m_copy->setToolTip(tr("Copia le song scelte in una cartella del computer"));
    m_check->setToolTip(tr("Controlla se l'indice, le playlist e le song vanno d'accordo"));
    m_export->setToolTip(tr("Salva l'elenco delle song come CSV o come pagina da stampare"));
    m_pullOut->setToolTip(tr("Scrive tutti i dati e smonta la memoria, che poi si può togliere"));
}

/// No action starts while another part of the program works on files.
std::optional<MemoryActions::Task> MemoryActions::start() const
{
    if (m_root.isEmpty() || RunGuard::isActive() || m_safeRemoval->isWorking())
        return std::nullopt;
    Task task{m_root, m_files, m_lastCopies, MemoryIdentity(m_root)};
    task.files.removeDuplicates(); // a damaged index may have a path twice
    return task;
}

std::optional<MemoryActions::Task> MemoryActions::startWriting(const QString &title)
{
    std::optional<Task> task = start();
    if (task && m_mayWrite && (!m_mayWrite() || isExchanged(*task, title)))
        return std::nullopt;
    return task;
}

} // namespace brisel
