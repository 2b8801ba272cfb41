#include "tests/dialogscript.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QProgressDialog>
#include <QTest>

namespace brisel
{

DialogScript::DialogScript(QObject *parent)
    : QObject(parent), m_outer(QApplication::activeModalWidget())
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    connect(&m_timer, &QTimer::timeout, this, &DialogScript::look);
    m_timer.start(5);
}

void DialogScript::expect(const char *className, Step step)
{
    m_steps.append({className, std::move(step), true});
}

void DialogScript::expectClosedLater(const char *className, Step step)
{
    m_steps.append({className, std::move(step), false});
}

void DialogScript::expectMessage(const QString &title, const QString &text, int button)
{
    expect("QMessageBox", [this, title, text, button](QWidget *widget) {
        auto *box = qobject_cast<QMessageBox *>(widget);
        if (box->windowTitle() != title || box->text() != text)
            complain(QStringLiteral("message box \"%1\" / \"%2\" instead of \"%3\" / \"%4\"")
                         .arg(box->windowTitle(), box->text(), title, text));
        if (QAbstractButton *wanted = box->button(static_cast<QMessageBox::StandardButton>(button)))
            QTest::mouseClick(wanted, Qt::LeftButton);
        else
            complain(QStringLiteral("no such button in \"%1\"").arg(box->text()));
    });
}

void DialogScript::expectFiles(const QStringList &paths)
{
    expect("QFileDialog",
           [paths](QWidget *widget) { chooseFiles(qobject_cast<QFileDialog *>(widget), paths); });
}

void DialogScript::expectFilesCancelled()
{
    expect("QFileDialog", [](QWidget *widget) { qobject_cast<QDialog *>(widget)->reject(); });
}

/// True when \a dialog is of the class \a className, of Qt or of the program.
static bool isA(const QWidget *dialog, const QByteArray &className)
{
    return dialog->inherits(className.constData()) ||
           dialog->inherits(("brisel::" + className).constData());
}

void DialogScript::expectMenu(MenuStep step)
{
    m_menuSteps.append(std::move(step));
}

void DialogScript::click(QWidget *dialog, const QString &name)
{
    auto *button = dialog->findChild<QAbstractButton *>(name);
    QVERIFY2(button != nullptr, qPrintable(name));
    QVERIFY2(button->isEnabled() && !button->isHidden(), qPrintable(name));
    QTest::mouseClick(button, Qt::LeftButton);
}

void DialogScript::type(QWidget *widget, const QString &text)
{
    for (const QChar character : text)
        QTest::sendKeyEvent(QTest::Click, widget, Qt::Key_unknown, QString(character), {});
}

void DialogScript::look()
{
    if (QTest::currentTestFailed())
        return;
    if (auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget())) {
        use(menu);
        return;
    }
    QWidget *dialog = QApplication::activeModalWidget();
    if (dialog == nullptr || !dialog->isVisible() || dialog == m_outer || dialog == m_answered)
        return;
    const bool isProgress = qobject_cast<QProgressDialog *>(dialog) != nullptr;
    if (isProgress && (m_steps.isEmpty() || m_steps.first().className != "QProgressDialog"))
        return;
    answer(dialog);
}

void DialogScript::answer(QWidget *dialog)
{
    m_answered = dialog;
    if (m_steps.isEmpty() || !isA(dialog, m_steps.first().className)) {
        auto *box = qobject_cast<QMessageBox *>(dialog);
        complain(QStringLiteral("unexpected %1 \"%2\" %3")
                     .arg(QLatin1StringView(dialog->metaObject()->className()),
                          dialog->windowTitle(), box != nullptr ? box->text() : QString()));
        if (auto *plain = qobject_cast<QDialog *>(dialog))
            plain->reject();
        else
            dialog->close();
    } else {
        const Expected expected = m_steps.takeFirst();
        expected.step(dialog);
        const bool isOpen = m_answered != nullptr && m_answered->isVisible();
        if (isOpen && expected.closes && !QTest::currentTestFailed() &&
            qobject_cast<QProgressDialog *>(dialog) == nullptr)
            complain(QStringLiteral("its step left \"%1\" open").arg(dialog->windowTitle()));
    }
    // A dialog that is a member can be shown again at the same address.
    if (m_answered != nullptr && !m_answered->isVisible())
        m_answered = nullptr;
}

void DialogScript::use(QMenu *menu)
{
    const QPointer<QMenu> open(menu);
    if (m_menuSteps.isEmpty())
        complain(QStringLiteral("unexpected menu"));
    else
        m_menuSteps.takeFirst()(menu);
    if (open != nullptr)
        open->close();
}

/// Programs that are not tests check problems() themselves.
void DialogScript::complain(const QString &problem)
{
    m_problems.append(problem);
    if (QTest::currentTestFunction() != nullptr)
        QFAIL(qPrintable(problem));
}

void DialogScript::chooseFiles(QFileDialog *dialog, const QStringList &paths)
{
    auto *edit = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
    QString text = paths.value(0);
    if (paths.size() > 1)
        text = u'"' + paths.join(QStringLiteral("\" \"")) + u'"';
    edit->setText(text);
    auto *buttons = dialog->findChild<QDialogButtonBox *>(QStringLiteral("buttonBox"));
    for (QAbstractButton *button : buttons->buttons()) {
        if (buttons->buttonRole(button) == QDialogButtonBox::AcceptRole)
            QTest::mouseClick(button, Qt::LeftButton);
    }
}

} // namespace brisel
