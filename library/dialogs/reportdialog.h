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
    /// For the \a text of a report that was kept; its language does not change.
    explicit ReportDialog(const QString &text, QWidget *parent = nullptr);
    ~ReportDialog() override;

protected:
    void changeEvent(QEvent *event) override;

private slots:
    void on_copyPushButton_clicked();
    void on_savePushButton_clicked();

private:
    QString text() const { return m_text.isEmpty() ? m_report.text() : m_text; }

    RunReport m_report;
    QString m_text; ///< replaces the report, if it is not empty
    std::unique_ptr<Ui::ReportDialog> m_ui;
};

} // namespace brisel
