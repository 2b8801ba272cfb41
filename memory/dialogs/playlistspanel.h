#pragma once

#include "base/memoryidentity.h"
#include "memory/playlistdocument.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>

class QLabel;
class QListView;
class QPushButton;
class QTableView;

namespace brisel
{

class PlaylistEntriesModel;
class PlaylistsModel;
class SetList;

/// The playlists of a memory: they are shown, changed with undo, written and printed. The player's
/// list of playlists is never changed.
class PlaylistsPanel : public QWidget
{
    Q_OBJECT

public:
    /// Transfers files to the memory and returns their paths there: one for each file, empty for
    /// those that are not there; no paths at all if nothing was transferred.
    using Transfer = std::function<QStringList(const QStringList &files)>;

    explicit PlaylistsPanel(QWidget *parent = nullptr);
    ~PlaylistsPanel() override;

    /// Shows the playlists of \a contents, which may be null; changes that were not saved are lost.
    void setContents(std::shared_ptr<const MemoryContents> contents);
    /// The same after the memory was read again: unsaved changes stay as far as its songs and
    /// playlists do; those that are lost are shown.
    void updateContents(std::shared_ptr<const MemoryContents> contents);
    /// The songs whose files are missing, by their positions.
    void setMissing(const QSet<qsizetype> &positions) { m_document.setMissing(positions); }
    bool isModified() const { return m_document.isModified(); }
    /// Writes the changed playlists. Returns false if not all of them were written; the user knows
    /// then.
    bool save();
    /// Asks what becomes of changes, if there are any. Returns true if they are saved or may be
    /// lost.
    [[nodiscard]] bool mayDiscard();
    /// Nothing can be changed for \a reason, which is shown; an empty one ends that.
    void setReadOnly(const QString &reason);
    /// Adds the songs \a ids at the end of the current playlist.
    void addSongs(const QList<quint32> &ids);
    /// For files that are dropped and are not on the memory. Without it they are refused.
    void setTransfer(Transfer transfer) { m_transfer = std::move(transfer); }

signals:
    /// Playlists were written: the memory has to be read again.
    void saved();
    /// Nothing was written because the memory was changed meanwhile: it has to be read again.
    void outdated();
    void modifiedChanged(bool isModified);

protected:
    void changeEvent(QEvent *event) override;

private:
    void buildLists();
    void buildButtons();
    QPushButton *addButton(const char *name, void (PlaylistsPanel::*slot)());
    void connectDocument();
    void retranslate();
    void showFirst();
    void showPlaylist();
    void showModified();
    void updateButtons();
    void showChange(qsizetype changed, const QList<qsizetype> &entries);
    void selectEntries(const QList<qsizetype> &entries);
    QList<qsizetype> chosenEntries() const;
    qsizetype playlist() const;
    qsizetype modifiedCount() const;
    bool mayChange() const { return mayChange(playlist()); }
    bool mayChange(qsizetype playlist) const;

    void moveUp();
    void moveDown();
    void removeEntries();
    void repairEntry();
    void undo();
    void redo();
    void print();
    void savePdf();
    void saveClicked();

    void addFiles(const QStringList &files, qsizetype place);
    QStringList transferred(const QStringList &files, QString &failure);
    QList<quint32> idsOf(const QStringList &paths) const;
    void addAt(qsizetype playlist, qsizetype place, const QList<quint32> &ids, qsizetype wanted);
    QString whyUnchangeable(qsizetype playlist) const;
    void showRefused(qsizetype wanted, qsizetype added);
    void showLost(const QList<qint16> &playlists);
    [[nodiscard]] bool readSetList(SetList &list);
    void warn(const QString &text, const QString &details = {});

    PlaylistDocument m_document;
    MemoryIdentity m_identity;
    Transfer m_transfer;
    QString m_readOnly;
    bool m_wasModified = false;
    std::optional<qint16> m_number; ///< of the current playlist; kept while none is shown
    PlaylistsModel *m_playlists;
    PlaylistEntriesModel *m_entries;
    QListView *m_list;
    QTableView *m_table;
    QLabel *m_hint;
    QPushButton *m_up = nullptr;
    QPushButton *m_down = nullptr;
    QPushButton *m_remove = nullptr;
    QPushButton *m_repair = nullptr;
    QPushButton *m_undo = nullptr;
    QPushButton *m_redo = nullptr;
    QPushButton *m_print = nullptr;
    QPushButton *m_pdf = nullptr;
    QPushButton *m_save = nullptr;
};

} // namespace brisel
