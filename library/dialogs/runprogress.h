#pragma once

#include "library/progress.h"

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>

#include <memory>

class QLabel;
class QProgressBar;
class QProgressDialog;
class QWidget;

/// Owns the progress dialog of the run that is under way, and its "%1 di %2" label.
///
/// The window is blocked from the first moment. A press on "Interrompi" (Escape and the dialog's
/// close button count as one) closes the dialog for good and is remembered until the next begin().
class RunProgress : public QObject, public Progress
{
    Q_OBJECT

public:
    /// \a window is blocked while a dialog is open.
    explicit RunProgress(QWidget *window);
    ~RunProgress() override;

    /// Opens a dialog over 0 to \a maximum steps (0: a busy bar) in place of an open one, and
    /// forgets an earlier cancel.
    void begin(const QString &title, const QString &label, int maximum);
    /// Shows "%1 di %2" and moves the bar: the first steps and the last one each, the others some
    /// twenty times a second. Lets no click or key through.
    void setValue(int value) override;
    /// Moves the bar as setValue() does and leaves the label as it is.
    void setStep(int value);
    /// For work that moves no bar: paints the dialog if that was not done for a while. Lets no
    /// click or key through.
    void paintInTime();
    /// Changes the number of steps; 0 makes the bar a busy bar.
    void setMaximum(int maximum);
    bool isCanceled() const override;
    /// Lets pending events through: at each of a run's first breaths, then a hundred times a second
    /// at most.
    void breathe() override;
    /// Closes the dialog. A cancel stays remembered.
    void end();

private:
    void cancel();
    void paint();
    bool isStarting() const;
    bool isWorthShowing(int value) const;
    void moveBar();

    QWidget *m_window;
    std::unique_ptr<QProgressDialog> m_dialog;
    QPointer<QLabel> m_label;
    QPointer<QProgressBar> m_bar;
    QElapsedTimer m_sinceShown;
    QElapsedTimer m_sinceBreath;
    int m_value = 0;   ///< where the bar is to stand when it is painted next
    int m_steps = 0;   ///< of this run, shown or not
    int m_breaths = 0; ///< of this run, taken or not
    bool m_canceled = false;
};
