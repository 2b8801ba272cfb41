#pragma once

#include "index/setfiles.h"
#include "index/songslistwriter.h"

#include <QDialog>

#include <memory>

namespace brisel
{

namespace Ui
{
class ExportListDialog;
}

/// Asks which list of the songs on a memory is saved: its order, its songs and its form.
class ExportListDialog : public QDialog
{
    Q_OBJECT

public:
    /// Proposes the list \a list.
    explicit ExportListDialog(SetFiles::ListIndex list, QWidget *parent = nullptr);
    ~ExportListDialog() override;

    SongsListKind kind() const;

protected:
    void changeEvent(QEvent *event) override;

private slots:
    void on_savePushButton_clicked() { accept(); }
    void on_cancelPushButton_clicked() { reject(); }

private:
    std::unique_ptr<Ui::ExportListDialog> m_ui;
};

} // namespace brisel
