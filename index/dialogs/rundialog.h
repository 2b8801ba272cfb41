#pragma once

#include <QDialog>
#include <QElapsedTimer>

/// A dialog that works on a memory while it stands open: it can't be closed before the work is
/// done, keeps painting while it lasts, and works once at a time.
class RunDialog : public QDialog
{
    Q_OBJECT

public:
    using QDialog::QDialog;

    /// Closes the dialog, by Escape or "Chiudi", unless it works.
    void reject() override;

    /// What a message says when another program works on the memory.
    static QString inUseText();

protected:
    /// Marks the work as under way for as long as it lives.
    class Work
    {
    public:
        explicit Work(RunDialog &dialog);
        ~Work();
        Work(const Work &) = delete;
        Work &operator=(const Work &) = delete;

    private:
        RunDialog &m_dialog;
    };

    /// True when neither this dialog nor anything else of the program works on files.
    bool canStart() const;
    /// Shows and paints what has changed: at once when idle, some twenty times a second once a run
    /// has got going, less often where painting is slow. Clicks and keys wait.
    void breathe();
    /// Puts the state of the work into the widgets: a label costs more than a step of the work.
    virtual void showState() = 0;
    /// The memory folder that was chosen last.
    static QString mediaRoot();
    static void setMediaRoot(const QString &folder);

    void closeEvent(QCloseEvent *event) override;

private:
    bool m_working = false;
    int m_breaths = 0; ///< of this run, as long as they are counted
    QElapsedTimer m_sincePainted;
    qint64 m_pause = 0; ///< milliseconds from one painting of this run to the next
};
