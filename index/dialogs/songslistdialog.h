#pragma once

#include "base/runreport.h"
#include "index/dialogs/rundialog.h"

#include <memory>
#include <optional>

namespace brisel
{

namespace Ui
{
class SongsListDialog;
}

/// Saves the list of the songs on a prepared memory as a ";"-separated text file.
class SongsListDialog : public RunDialog
{
    Q_OBJECT

public:
    explicit SongsListDialog(QWidget *parent = nullptr);
    ~SongsListDialog() override;

    /// The result of the last run; empty before the first.
    const std::optional<RunReport> &report() const override { return m_report; }

public slots:
    void browseDir();
    void browseFile();
    /// Saves the list and shows the outcome in a box. A file name without a folder is saved in the
    /// working folder.
    void start();
    void initProgress(int maximum);
    void setProgressValue(int value);

protected:
    void showState() override;
    void changeEvent(QEvent *event) override;

private slots:
    void on_pushButtonClose_clicked() { close(); }

private:
    enum class Outcome { Saved, Failed, InUse, NotPrepared, Ended };

    Outcome save();
    void showOutcome(Outcome outcome);
    void setControlsEnabled(bool enabled);

    std::unique_ptr<Ui::SongsListDialog> m_ui;
    int m_progress = 0;
    std::optional<RunReport> m_report;
};

} // namespace brisel
