#pragma once

#include "base/memoryidentity.h"
#include "memory/memorycontents.h"
#include "memory/saferemoval.h"

#include <QList>
#include <QObject>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>

class QAction;
class QWidget;

namespace brisel
{

class MemoryClaim;
class Reason;
class Run;
class SongEntries;

/// What the user can do with a memory and the songs on it, as actions for menus and buttons: they
/// ask, work with a progress dialog, and show what went wrong.
class MemoryActions : public QObject
{
    Q_OBJECT

public:
    /// Dialogs are shown over \a window.
    explicit MemoryActions(QWidget *window);
    ~MemoryActions() override;

    /// The actions are about the memory \a root from now on, which may have no index; empty for
    /// none. Nothing is chosen then.
    void setMemory(const QString &root);
    /// The same for the memory of \a contents, unless these are null or empty.
    void setContents(std::shared_ptr<const MemoryContents> contents);
    /// What the user has chosen: songs of the contents, or any songs and graphics files. Each
    /// replaces the other. \a lastCopies is the number of songs of which all copies are among the
    /// files.
    void setSongs(const QList<qsizetype> &positions);
    void setFiles(const QStringList &absolutePaths, int lastCopies = 0);
    /// The list that is shown, which the export proposes.
    void setList(SetFiles::ListIndex list) { m_list = list; }
    /// If \a reason is not empty, the actions that write to the memory are disabled, with the
    /// reason in their tool tips.
    void setReadOnly(const QString &reason);
    /// \a mayWrite is asked before each action that changes the memory or unmounts it.
    void setMayWrite(std::function<bool()> mayWrite) { m_mayWrite = std::move(mayWrite); }

    /// Remove, rename and copy the chosen songs.
    QList<QAction *> songActions() const;
    /// Update, rebuild, check, export and safe removal.
    QList<QAction *> memoryActions() const;

    /// Returns true until the outcome of a safe removal is known: nothing may be opened on the
    /// memory.
    [[nodiscard]] bool isPullingOut() const { return m_safeRemoval->isWorking(); }
    /// For tests: replaces the desktop's service. Null for none.
    void setUnmountService(std::unique_ptr<UnmountService> service);

signals:
    /// The memory may have been changed: its contents must be read again.
    void changed();
    /// Everything that is open on the memory must be closed.
    void aboutToUnmount();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// What an action works on, as it was when the action started: while a question is open, the
    /// choice and the memory may change.
    struct Task {
        QString root;
        QStringList files; ///< absolute paths
        int lastCopies = 0;
        MemoryIdentity memory;
    };

    void makeActions();
    void retranslate();
    void updateActions();
    void showTips();
    [[nodiscard]] std::optional<Task> start() const;
    [[nodiscard]] std::optional<Task> startWriting(const QString &title);
    [[nodiscard]] bool isExchanged(const Task &task, const QString &title);
    [[nodiscard]] bool refuses(const MemoryClaim &claim, const QString &title);
    void showRefusal(const QString &title, const Reason &reason);
    [[nodiscard]] bool isRemovalWanted(const Task &task, const QString &playlists);
    static QString playlistsText(const MemoryContents &contents, const SongEntries &entries);
    void showRecovery(const MemoryClaim &claim);

    void removeSongs();
    void renameSong();
    void copySongs();
    void runIndex(bool isRebuild);
    void checkMemory();
    void exportList();
    void pullOut();

    void showFailure(const QString &title, const Run &run);
    void showReport(const Run &run);
    void showPulledOut(SafeRemoval::Outcome outcome, const QString &detail);

    QWidget *m_window;
    QString m_root;
    std::shared_ptr<const MemoryContents> m_contents; ///< never null
    QStringList m_files;                              ///< chosen; absolute paths
    int m_lastCopies = 0;                             ///< of the files
    SetFiles::ListIndex m_list = SetFiles::Titles;
    QString m_readOnly;
    std::function<bool()> m_mayWrite;
    std::unique_ptr<SafeRemoval> m_safeRemoval;

    QAction *m_remove;
    QAction *m_rename;
    QAction *m_copy;
    QAction *m_update;
    QAction *m_rebuild;
    QAction *m_check;
    QAction *m_export;
    QAction *m_pullOut;
};

} // namespace brisel
