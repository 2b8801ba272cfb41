#pragma once

#include "base/run.h"
#include "base/runguard.h"
#include "library/dialogs/paintpace.h"

#include <QDialog>

namespace brisel
{

/// A dialog that works on a memory while it is open: during the work it can't be closed, is
/// painted, and starts no other work.
class RunDialog : public QDialog
{
    Q_OBJECT

public:
    using QDialog::QDialog;

    /// Closes the dialog, by Escape or "Chiudi", unless it is working.
    void reject() override;

    /// The text of messages when another program works on the memory.
    static QString inUseText();

protected:
    /// The run of the dialog: it paints the dialog and asks over it. The dialog is working during
    /// the lifetime of this.
    class Work : public Run
    {
    public:
        explicit Work(RunDialog &dialog);
        ~Work() override;
        void pulse() override;

    protected:
        Answer answerOf(Question question, const QString &path, const QString &message) override;

    private:
        RunDialog &m_dialog;
    };

    /// Returns true if neither this dialog nor another part of the program is working on files.
    bool canStart() const { return !m_working && !RunGuard::isActive(); }
    /// Shows and paints a step of the work: at once when idle, at the pace of PaintPace during
    /// work. Does not process clicks and keys.
    void showStep();
    /// From now on each of the first steps is shown.
    void beginStage() { m_pace.restart(); }
    /// Copies the state of the work to the widgets. Not done for each step, because setting a label
    /// takes longer than a step.
    virtual void showState() = 0;
    /// The memory folder that was chosen last.
    static QString mediaRoot();
    static void setMediaRoot(const QString &folder);

    void closeEvent(QCloseEvent *event) override;

private:
    void paint();

    bool m_working = false;
    PaintPace m_pace;
};

} // namespace brisel
