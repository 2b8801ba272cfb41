#pragma once

#include "library/syncplan.h"

#include <QDialog>

#include <memory>

namespace brisel
{

class CatalogueSearch;
class EmptyTableHint;
class PreviewModel;
class SyncPreview;

namespace Ui
{
class PreviewDialog;
}

/// Shows what a synchronisation would change, and lets the user choose songs and fields, and find
/// songs in the catalogue by hand. Writes nothing: accepted, it has a plan().
class PreviewDialog : public QDialog
{
    Q_OBJECT

public:
    /// Shows the songs of \a preview, which has run. See PreviewModel for \a ticksUnpublished.
    PreviewDialog(SyncPreview &preview, CatalogueSearch &search, bool ticksUnpublished,
                  QWidget *parent = nullptr);
    ~PreviewDialog() override;

    SyncPlan plan() const;

protected:
    void changeEvent(QEvent *event) override;

private slots:
    void on_filterComboBox_currentIndexChanged(int number);
    void on_selectAllPushButton_clicked();
    void on_selectNonePushButton_clicked();
    void on_searchPushButton_clicked();
    void on_previewTableView_doubleClicked(const QModelIndex &index);

private:
    void fitColumns();
    void showRow(int row);
    void showCounts();
    void showSearch();
    void findByHand(int number);

    SyncPreview &m_preview;
    CatalogueSearch &m_search;
    PreviewModel *m_model; ///< owned by the dialog
    std::unique_ptr<Ui::PreviewDialog> m_ui;
    EmptyTableHint *m_hint = nullptr; ///< owned by the table
};

} // namespace brisel
