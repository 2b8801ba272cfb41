#pragma once

#include "base/run.h"
#include "library/dialogs/paintpace.h"

#include <QDialog>

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
    /// The run of the dialog: it paints the dialog and asks over it. The dialog works for as long
    /// as this lives.
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

    /// True when neither this dialog nor anything else of the program works on files.
    bool canStart() const;
    /// Shows and paints a step of the work: at once when idle, at the pace of PaintPace while the
    /// dialog works. Clicks and keys wait.
    void showStep();
    /// The first steps from now on are shown each.
    void beginStage() { m_pace.restart(); }
    /// Puts the state of the work into the widgets: a label costs more than a step of the work.
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
