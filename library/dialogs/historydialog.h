#pragma once

#include "history/history.h"

#include <QDialog>
#include <QList>
#include <QModelIndex>

#include <memory>

namespace brisel
{

class HistoryModel;

namespace Ui
{
class HistoryDialog;
}

/// Shows what the program changed: runs, their songs, and the fields of each song before and after.
/// It is accepted when the user wants songs restored.
class HistoryDialog : public QDialog
{
    Q_OBJECT

public:
    /// \a history must outlive this object. \a limit: the setting of its size, in MiB.
    HistoryDialog(History &history, int limit, QWidget *parent = nullptr);
    ~HistoryDialog() override;

    /// What is to be restored, each song of a run once; empty unless the dialog was accepted.
    const QList<HistorySong> &chosen() const { return m_chosen; }
    /// The setting of the size as the user left it, in MiB.
    int limit() const;

protected:
    void changeEvent(QEvent *event) override;

private slots:
    void on_restorePushButton_clicked();
    void on_reportPushButton_clicked();
    void on_clearPushButton_clicked();

private:
    void showState();
    void updateButtons();
    QList<QModelIndex> selectedRows() const;

    History &m_history;
    std::unique_ptr<Ui::HistoryDialog> m_ui;
    HistoryModel *m_model;
    QList<HistorySong> m_chosen;
};

} // namespace brisel
