#pragma once

#include "base/run.h"
#include "tests/app/samplewindow.h"
#include "tests/logcapture.h"

#include <QToolButton>

namespace brisel
{

/// Common functions for tests of the window's workflows: the sample window, a new one for each
/// case, and the usual clicks.
class WorkflowTest : public QObject
{
protected:
    void openWindow();
    void closeWindow();

    QString at(const QString &name) const { return m_sample->at(name); }
    QToolButton *tool(const char *name) const
    {
        return m_window->findChild<QToolButton *>(QString::fromLatin1(name));
    }
    QTableView *table() const { return m_sample->table; }
    UserSongsRelTableModel &model() const { return *m_sample->model; }
    QString statuses() const
    {
        QString digits;
        for (int row = 0; row < model().goodRowCount(); ++row)
            digits += QString::number(model().status(row));
        return digits;
    }
    QString title(const QString &name) const { return Sample::infoOf(at(name)).title; }
    QPoint cell(int row) const
    {
        return table()->visualRect(model().index(row, model().fieldIndex(u"title"_qs))).center();
    }

    /// Makes songs titled as their files.
    void makeSongs(const QStringList &names, bool published);
    /// Picks these files by the import button.
    void import(const QStringList &names);
    void clickSync() { m_sample->press("updateDataToolButton"); }
    void clickTransfer() { m_sample->press("transferFilesToolButton"); }
    /// The next dialog is a message box with this text, which is accepted; \a logged is then the
    /// number of messages in \a log while it was open.
    void expectMessageWithLog(const QString &text, const LogCapture &log, qsizetype &logged);
    /// The next dialog offers the backup: presses \a button.
    void expectBackup(const QString &button);
    /// The next dialog offers the backup: it goes to the folder "backups".
    void expectBackupToFolder();
    /// The next dialog is the four-way question: presses the button of \a answer.
    void expectQuestion(Run::Answer answer);
    /// The next dialog is the four-way question: answers "Si", and presses "Interrompi" as soon as
    /// that file is done.
    void expectYesThenInterrupt();
    /// Runs \a step once, when the progress dialog shows \a label under \a title.
    void atProgress(const QString &title, const QString &label,
                    const std::function<void(QProgressDialog *)> &step);
    void expectEdit(const DialogScript::Step &edit) { m_script->expect("DataEditDialog", edit); }
    void doubleClick(int row);
    /// Opens the context menu at \a pos and clicks the entry; -1 closes the menu.
    void chooseFromMenu(int entry, const QPoint &pos);
    void verifyScript()
    {
        QVERIFY2(m_script->isDone(), qPrintable(m_script->problems().join(u'\n')));
    }

    std::unique_ptr<SampleWindow> m_sample;
    MainWindow *m_window = nullptr;    ///< of the sample
    DialogScript *m_script = nullptr;  ///< of the sample
    QTemporaryDir *m_folder = nullptr; ///< of the sample
};

} // namespace brisel
