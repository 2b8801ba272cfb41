#pragma once

#include "base/runreport.h"

#include <QDialog>

#include <memory>

namespace brisel
{

namespace Ui
{
class ReportDialog;
}

/// Shows the report of a run, file by file, which can be copied or saved as text.
class ReportDialog : public QDialog
{
    Q_OBJECT

public:
    explicit ReportDialog(RunReport report, QWidget *parent = nullptr);
    ~ReportDialog() override;

protected:
    void changeEvent(QEvent *event) override;

private slots:
    void on_copyPushButton_clicked();
    void on_savePushButton_clicked();

private:
    RunReport m_report;
    std::unique_ptr<Ui::ReportDialog> m_ui;
};

} // namespace brisel
