#pragma once

#include "base/runreport.h"
#include "index/dialogs/rundialog.h"

#include <memory>
#include <optional>

namespace brisel
{

class Index;

namespace Ui
{
class SongsListDialog;
}

/// Saves the list of the songs on a prepared memory as a ";"-separated text file.
class SongsListDialog : public RunDialog
{
    Q_OBJECT

public:
    enum class Outcome { Saved, Failed, InUse, NotPrepared, Ended };

    explicit SongsListDialog(QWidget *parent = nullptr);
    ~SongsListDialog() override;

    /// The outcome of \a index, whose saveSongsList() has returned \a result. A failure is added to
    /// \a report, with the \a memory or the \a file.
    static Outcome outcomeOf(const Index &index, int result, const QString &memory,
                             const QString &file, RunReport &report);
    /// Shows the outcome in a box over \a parent.
    static void showOutcome(QWidget *parent, Outcome outcome);

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
    Outcome save();
    void setControlsEnabled(bool enabled);

    std::unique_ptr<Ui::SongsListDialog> m_ui;
    int m_progress = 0;
    std::optional<RunReport> m_report;
};

} // namespace brisel
