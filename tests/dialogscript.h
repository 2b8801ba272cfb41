#pragma once

#include "tests/failurewatch.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QTimer>

#include <functional>

class QFileDialog;
class QMenu;
class QWidget;

namespace brisel
{

/// Answers the modal dialogs and menus of the real program in the order in which a test expects
/// them, from inside their event loops, by the clicks and keys of a user.
/// No test hangs: an unexpected dialog or menu, a dialog of another class, and one that its step
/// leaves open are closed; each fails the test case and is added to problems(). Dialogs and menus
/// that are open when a check fails are closed, too (see FailureWatch), and no further step runs.
/// Progress dialogs are ignored unless a step names them, and so is the dialog that is open when
/// the script is made: a step whose dialog opens other dialogs makes an inner script for them.
class DialogScript : public QObject
{
    Q_OBJECT

public:
    using Step = std::function<void(QWidget *dialog)>;
    using MenuStep = std::function<void(QMenu *menu)>;

    explicit DialogScript(QObject *parent = nullptr);

    /// The next modal dialog must inherit \a className; \a step answers it and, except for a
    /// progress dialog, must close it.
    void expect(const char *className, Step step);
    /// The next modal dialog must inherit \a className; \a step arranges that it is closed later.
    void expectClosedLater(const char *className, Step step);
    /// The next modal dialog is a message box with this title and text; \a button (a
    /// QMessageBox::StandardButton) is clicked.
    void expectMessage(const QString &title, const QString &text, int button);
    /// The next modal dialog is a file dialog: types \a paths (full paths) and accepts.
    void expectFiles(const QStringList &paths);
    /// The next modal dialog is a file dialog: it is cancelled.
    void expectFilesCancelled();

    /// The next menu, at any point between the dialogs: \a step uses it; if \a step leaves it open,
    /// it is closed.
    void expectMenu(MenuStep step);

    /// True if every step was used and nothing unexpected was opened.
    bool isDone() const
    {
        return m_steps.isEmpty() && m_menuSteps.isEmpty() && m_problems.isEmpty();
    }
    const QStringList &problems() const { return m_problems; }
    qsizetype stepsLeft() const { return m_steps.size(); }

    /// Clicks the button of \a dialog with the object name \a name, which must be enabled.
    static void click(QWidget *dialog, const QString &name);
    /// Types \a text into \a widget, one key for each character; QTest::keyClicks supports only
    /// Latin-1.
    static void type(QWidget *widget, const QString &text);
    /// Types \a paths (full paths) into a file dialog and accepts.
    static void chooseFiles(QFileDialog *dialog, const QStringList &paths);

private:
    struct Expected {
        QByteArray className;
        Step step;
        bool closes;
    };

    void look();
    void answer(QWidget *dialog);
    void use(QMenu *menu);
    void complain(const QString &problem);

    FailureWatch m_watch;
    QTimer m_timer;
    QList<Expected> m_steps;
    QList<MenuStep> m_menuSteps;
    QStringList m_problems;
    QPointer<QWidget> m_outer;
    QPointer<QWidget> m_answered;
};

} // namespace brisel
