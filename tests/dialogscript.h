#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QTimer>

#include <functional>

class QFileDialog;
class QWidget;

/// Answers the modal dialogs of the real program in the order in which a test expects them, from
/// inside their own event loops, by the same clicks and keys as a user.
///
/// A modal dialog that no step expects, or one of another class, is noted in problems() and
/// rejected, so that no test hangs. Progress dialogs are left alone unless a step names them, and
/// so is the dialog that is open when the script is made: its step makes a script of its own for
/// what it opens in turn.
class DialogScript : public QObject
{
    Q_OBJECT

public:
    using Step = std::function<void(QWidget *dialog)>;

    explicit DialogScript(QObject *parent = nullptr);

    /// The next modal dialog must inherit \a className; \a step answers it (it must close it).
    void expect(const char *className, Step step);
    /// The next modal dialog is a message box with this title and text; \a button (a
    /// QMessageBox::StandardButton) is clicked.
    void expectMessage(const QString &title, const QString &text, int button);
    /// The next modal dialog is a file dialog: types \a paths (full paths) and accepts.
    void expectFiles(const QStringList &paths);
    /// The next modal dialog is a file dialog: it is cancelled.
    void expectFilesCancelled();

    /// True when every step was used and nothing unexpected came.
    bool isDone() const { return m_steps.isEmpty() && m_problems.isEmpty(); }
    const QStringList &problems() const { return m_problems; }
    qsizetype stepsLeft() const { return m_steps.size(); }

    /// Clicks the button of \a dialog with the object name \a name.
    static void click(QWidget *dialog, const QString &name);
    /// Types \a paths (full paths) into a file dialog and accepts.
    static void chooseFiles(QFileDialog *dialog, const QStringList &paths);

private:
    struct Expected {
        QByteArray className;
        Step step;
    };

    void look();
    void answer(QWidget *dialog);
    QTimer m_timer;
    QList<Expected> m_steps;
    QStringList m_problems;
    QPointer<QWidget> m_outer;
    QPointer<QWidget> m_answered;
};
