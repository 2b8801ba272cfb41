#pragma once

#include "base/runreport.h"

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>

class QLabel;
class QPushButton;

namespace brisel
{

class ElidedLabel;
class OutcomeButtons;
class UserSongsRelTableModel;

/// The main window's status bar: the number of songs in the table, in all and of each outcome, the
/// outcome of the last run, and the free space on the disk during copying. A button opens the run's
/// report.
class StatusLine : public QWidget
{
    Q_OBJECT

public:
    explicit StatusLine(QWidget *parent = nullptr);

    /// Shows from now on how many rows \a songs has. During an import they are counted a few times
    /// a second.
    void setModel(UserSongsRelTableModel *songs);
    /// The buttons with the number of songs of each outcome.
    OutcomeButtons &outcomes() { return *m_outcomes; }

    /// Shows \a report instead of the last one.
    void setReport(const RunReport &report);
    const RunReport &report() const { return m_report; }

    /// Shows that \a bytes remain to be copied to \a folder, and the free space there, which is
    /// read a few times a second at most.
    void showSpace(const QString &folder, qint64 bytes);
    void hideSpace();

protected:
    void changeEvent(QEvent *event) override;

private:
    void showSongs();
    void showOutcome();
    void showDetails();

    UserSongsRelTableModel *m_songs = nullptr; ///< null without a library
    RunReport m_report;
    QTimer m_recount;
    QElapsedTimer m_sinceSpace;
    QLabel *m_songsLabel;
    OutcomeButtons *m_outcomes;
    ElidedLabel *m_outcomeLabel;
    QLabel *m_spaceLabel;
    QPushButton *m_detailsButton;
};

} // namespace brisel
