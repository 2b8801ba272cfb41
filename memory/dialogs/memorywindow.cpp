#include "memory/dialogs/memorywindow.h"

#include "base/filefailure.h"
#include "base/freespace.h"
#include "base/run.h"
#include "base/settings.h"
#include "index/dialogs/rundialog.h"
#include "index/indexset.h"
#include "index/playlists.h"
#include "index/recentmemories.h"
#include "index/volumes.h"
#include "library/dialogs/windowplace.h"
#include "memory/dialogs/foldersview.h"
#include "memory/dialogs/memoryactions.h"
#include "memory/dialogs/playerview.h"
#include "memory/dialogs/playlistspanel.h"
#include "ui_memorywindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDateTime>
#include <QLocale>

namespace brisel
{

namespace
{

using Outcome = MemoryContents::Outcome;

/// The states of the files of the index and of the playlists of \a contents.
QList<FileState> fileStates(const QString &root, const MemoryContents &contents)
{
    QStringList names = IndexSet::names();
    names.append(QStringLiteral("playlist/playlist.dat"));
    for (const MemoryContents::Playlist &playlist : contents.playlists())
        names.append(Playlists::songsFileName(playlist.number));
    QList<FileState> states;
    states.reserve(names.size());
    for (const QString &name : std::as_const(names))
        states.append(fileState(root + u'/' + name));
    return states;
}

} // namespace

MemoryWindow::MemoryWindow(QWidget *parent)
    : QWidget(parent, Qt::Window), m_ui(std::make_unique<Ui::MemoryWindow>()),
      m_player(new PlayerView), m_folders(new FoldersView), m_actions(new MemoryActions(this)),
      m_playlists(new PlaylistsPanel)
{
    constexpr int lists = 3; // the shares of the window's width
    constexpr int playlists = 2;
    constexpr int pause = 1000; // milliseconds between two attempts to read the memory
    m_ui->setupUi(this);
    m_ui->playerLayout->addWidget(m_player);
    m_ui->foldersLayout->addWidget(m_folders);
    m_ui->splitter->setStretchFactor(0, lists);
    m_ui->splitter->setStretchFactor(1, playlists);
    joinParts();
    m_retry.setInterval(pause);
    m_later.setInterval(pause);
    m_later.setSingleShot(true);
    connect(&m_later, &QTimer::timeout, this, &MemoryWindow::followMemories);
    connect(&m_retry, &QTimer::timeout, this, &MemoryWindow::readAgain);
    connect(&m_looking, &QTimer::timeout, this, &MemoryWindow::look);
    connect(&m_memories, &MountedMemories::changed, this, &MemoryWindow::followMemories);
    connect(m_ui->closePushButton, &QPushButton::clicked, this, &QWidget::close);
    restorePlace(*this, openSettings(), Settings::memoryPlace);
    chooseFirst();
}

// The lists are children, outlive the members, and are laid out once more when they are hidden.
MemoryWindow::~MemoryWindow()
{
    endLook();
}

void MemoryWindow::noteWriteProtection()
{
    const QString reason =
        m_isThere && isWriteProtected(m_root) ? FileReason::writeProtected.text() : QString();
    if (reason == m_readOnlyReason)
        return;
    m_readOnlyReason = reason;
    passReadOnly();
}

/// The memory that was worked on last, or the first one.
void MemoryWindow::chooseFirst()
{
    const QStringList &roots = m_memories.roots();
    QStringList wanted{getRootDrivePath(Settings::mediaRoot.in(openSettings()))};
    wanted += recentMemories();
    wanted += roots;
    for (const QString &root : std::as_const(wanted)) {
        if (roots.contains(root)) {
            choose(root);
            return;
        }
    }
    showMemories();
    showState();
}

void MemoryWindow::followMemories()
{
    if (RunGuard::isActive()) { // the run works with what is shown
        m_later.start();
        return;
    }
    const bool wasThere = m_isThere;
    if (m_root.isEmpty()) {
        chooseFirst();
        return;
    }
    m_isThere = m_memories.roots().contains(m_root);
    showMemories();
    if (wasThere && !m_isThere)
        clear();
    else if (m_isThere && (!wasThere || !m_identity.isThere()))
        readAgain();
    showState();
}

void MemoryWindow::showMemories()
{
    QComboBox &box = *m_ui->memoryComboBox;
    QStringList roots = m_memories.roots();
    if (!m_root.isEmpty() && !roots.contains(m_root))
        roots.append(m_root);
    box.clear();
    for (const QString &root : std::as_const(roots)) {
        box.addItem(root.section(u'/', -1), root);
        box.setItemData(box.count() - 1, QStringLiteral("<p>%1</p>").arg(root.toHtmlEscaped()),
                        Qt::ToolTipRole);
    }
    box.setCurrentIndex(static_cast<int>(roots.indexOf(m_root)));
    box.setEnabled(!roots.isEmpty());
}

void MemoryWindow::on_memoryComboBox_activated(int number)
{
    const QString root = m_ui->memoryComboBox->itemData(number).toString();
    if (root == m_root)
        return;
    if (m_playlists->mayDiscard()) {
        QSettings settings = openSettings();
        Settings::mediaRoot.store(settings, root);
        keepMemory(root);
        choose(root);
    } else {
        showMemories();
    }
}

void MemoryWindow::choose(const QString &root)
{
    m_root = root;
    m_isThere = m_memories.roots().contains(root);
    showMemories();
    if (m_isThere)
        readAgain();
    else
        clear();
    showState();
}

void MemoryWindow::endLook()
{
    m_looking.stop();
    m_retry.stop();
    m_folders->setLook(m_root, nullptr);
    m_player->setLook(nullptr);
    m_look.reset();
}

/// Nothing is known of the memory.
void MemoryWindow::clear()
{
    endLook();
    m_outcome = Outcome::Gone;
    m_contents = std::make_shared<MemoryContents>();
    m_player->setContents(m_contents);
    passContents();
}

void MemoryWindow::readAgain()
{
    if (!m_isThere || m_actions->isPullingOut())
        return;
    if (RunGuard::isActive()) { // another part of the program may be writing there
        m_retry.start();
        return;
    }
    endLook();
    auto contents = std::make_shared<MemoryContents>();
    {
        Run run;
        m_identity = MemoryIdentity(m_root);
        m_outcome = contents->read(m_root, run);
        m_states = fileStates(m_root, *contents);
    }
    if (m_outcome == Outcome::InUse)
        m_retry.start();
    m_contents = std::move(contents);
    m_player->setContents(m_contents);
    passContents();
    if (m_outcome == Outcome::Done || m_outcome == Outcome::NotPrepared) {
        m_look = std::make_unique<MemoryLook>(m_root, m_contents);
        m_looking.start();
    }
    showState();
}

/// A portion of the look leaves time for the user. During a run the look pauses.
void MemoryWindow::look()
{
    constexpr int portion = 10; // milliseconds
    if (RunGuard::isActive() || m_look->work(portion))
        return;
    m_looking.stop();
    m_memories.look(); // what was found means nothing if the memory was pulled
    if (m_look == nullptr || !m_look->isDone())
        return;
    if (m_outcome == Outcome::Done)
        m_player->setLook(m_look.get());
    m_folders->setLook(m_root, m_look.get());
    passMissing();
    showState();
}

void MemoryWindow::showState()
{
    noteWriteProtection();
    m_ui->stateLabel->setText(stateText());
    const bool isDone = m_isThere && m_outcome == Outcome::Done;
    const QDateTime date = QDateTime::fromSecsSinceEpoch(m_contents->modified());
    m_ui->songsLabel->setText(
        isDone ? tr("%n song, indice del %1", "", static_cast<int>(m_contents->size()))
                     .arg(QLocale().toString(date, QLocale::ShortFormat))
               : QString());
    const bool mayUse = m_isThere && !m_actions->isPullingOut();
    m_ui->splitter->setEnabled(mayUse);
    m_ui->transferPushButton->setEnabled(mayUse && m_readOnlyReason.isEmpty());
    showSpace();
}

void MemoryWindow::showSpace()
{
    const qint64 total = m_isThere ? totalSpace(m_root) : -1;
    const qint64 free = m_isThere ? freeSpace(m_root) : -1;
    QProgressBar &bar = *m_ui->spaceProgressBar;
    bar.setEnabled(total > 0);
    if (total <= 0 || free < 0) {
        bar.setFormat(QString());
        bar.setValue(0);
        return;
    }
    const auto text = [](qint64 bytes) {
        return QLocale().formattedDataSize(bytes, 1, QLocale::DataSizeTraditionalFormat);
    };
    bar.setFormat(tr("%1 liberi di %2").arg(text(free), text(total)));
    bar.setValue(static_cast<int>(static_cast<double>(total - free) * bar.maximum() /
                                  static_cast<double>(total)));
}

QString MemoryWindow::stateText() const
{
    if (m_root.isEmpty())
        return tr("Nessuna memoria è collegata al computer");
    if (!m_isThere)
        return tr("La memoria non è più presente");
    if (m_actions->isPullingOut())
        return tr("Preparo la rimozione della memoria...");
    QStringList texts;
    switch (m_outcome) {
    case Outcome::NotPrepared:
        texts.append(tr("La memoria non è preparata per Brisel"));
        break;
    case Outcome::Unreadable:
        texts.append(tr("L'indice della memoria non si può leggere"));
        break;
    case Outcome::InUse:
        texts.append(RunDialog::inUseText().replace(u'\n', u' '));
        break;
    case Outcome::Gone:
        texts.append(tr("La memoria non si può leggere"));
        break;
    case Outcome::Done:
        if (!m_contents->isComplete())
            texts.append(tr("L'indice è incompleto"));
        texts.append(differenceText());
    }
    if (!m_readOnlyReason.isEmpty())
        texts.append(tr("Non si può modificare: %1").arg(m_readOnlyReason));
    return texts.join(QStringLiteral(". "));
}

QString MemoryWindow::differenceText() const
{
    if (m_look == nullptr || !m_look->isDone())
        return tr("Confronto dell'indice con le song...");
    const MemoryLook::Difference &difference = m_look->difference();
    QStringList parts;
    if (difference.added > 0)
        parts.append(tr("%n nuove", "", static_cast<int>(difference.added)));
    if (difference.missing > 0)
        parts.append(tr("%n mancanti", "", static_cast<int>(difference.missing)));
    if (difference.changed > 0)
        parts.append(tr("%n cambiate", "", static_cast<int>(difference.changed)));
    return parts.isEmpty() ? tr("Indice e song concordano")
                           : tr("Da aggiornare: %1").arg(parts.join(QStringLiteral(", ")));
}

void MemoryWindow::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        m_ui->retranslateUi(this);
        showState();
    } else if (event->type() == QEvent::ActivationChange && isActiveWindow() && m_isThere &&
               m_states != fileStates(m_root, *m_contents)) {
        readAgain(); // another program has written there
    }
}

void MemoryWindow::closeEvent(QCloseEvent *event)
{
    // A dialog of this window would be deleted with it.
    const QWidget *dialog = QApplication::activeModalWidget();
    if ((dialog != nullptr && isAncestorOf(dialog)) || !m_playlists->mayDiscard()) {
        event->ignore();
        return;
    }
    QSettings settings = openSettings();
    storePlace(*this, settings, Settings::memoryPlace);
    QWidget::closeEvent(event);
}

} // namespace brisel
