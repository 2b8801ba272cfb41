#pragma once

#include "base/runreport.h"
#include "index/dialogs/rundialog.h"

#include <memory>
#include <optional>

namespace brisel
{

namespace Ui
{
class IndexDialog;
}

/// Prepares a memory for the player: rebuilds its index or brings it up to date, checks the result
/// when that was asked for, and lists the files that were refused and what was found.
class IndexDialog : public RunDialog
{
    Q_OBJECT

public:
    enum class Outcome { Done, Failed, InUse, Ended };

    explicit IndexDialog(QWidget *parent = nullptr);
    ~IndexDialog() override;

    /// The root of the memory that contains \a path; empty if it is not on a memory.
    static QString getRootDrivePath(const QString &path);
    /// Reserved. Always false: the checkbox runs MemoryCheck instead.
    static bool checkDisk(const QString &path);

    /// Shows the outcome of a run of the index in a box over \a parent; \a errors are those that
    /// its report has.
    static void showOutcome(QWidget *parent, Outcome outcome, int errors);

    /// The result of the last run; empty before the first.
    const std::optional<RunReport> &report() const override { return m_report; }

public slots:
    void browseDir();
    /// Indexes the memory that contains the typed folder, or the typed folder itself if
    /// \a toDriveRoot is false, and shows the outcome in a box.
    void start(bool toDriveRoot);

    void updateLabelNum(int count);
    void updateLabelCurrPath(const QString &path);
    /// Sets the progress to 0 of \a maximum; a maximum of 0 shows a busy indicator.
    void initProgress(int maximum);
    void setProgressValue(int value);
    /// Appends \a message to the report, unless it has 1,000 of its kind, and counts one error.
    void errorFromIndexReceived(const QString &message);
    /// Appends \a message to the report, unless it has 1,000 of its kind. Not counted as an error.
    void noticeFromIndexReceived(const QString &message);
    /// Clears the report and the count of errors.
    void clearIndexErrors();

protected:
    void showState() override;
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private slots:
    void on_pushButtonClose_clicked() { close(); }

private:
    Outcome runIndex(const QString &folder);
    void checkMemory(const QString &folder, Run &run);
    void showCurrentPath();

    std::unique_ptr<Ui::IndexDialog> m_ui;
    QString m_currentPath;
    int m_found = 0;
    int m_progress = 0;
    qint32 m_errors = 0;
    bool m_uncorrectable = false; ///< the index that was just rebuilt is damaged
    std::optional<RunReport> m_report;
};

} // namespace brisel
