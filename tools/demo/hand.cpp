#include "tools/demo/hand.h"

#include "tools/demo/narrator.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QTest>

namespace brisel
{

namespace
{

constexpr int longestWait = 60'000; ///< milliseconds to wait for a dialog to be closed

} // namespace

Hand::Hand(QMainWindow &window, Narrator &narrator, bool english)
    : m_window(window), m_narrator(narrator), m_english(english)
{
    rest();
}

void Hand::rest()
{
    m_script = std::make_unique<DialogScript>();
}

bool Hand::checkAnswered()
{
    for (const QString &problem : m_script->problems())
        m_narrator.print(problem);
    return m_narrator.check(m_script->isDone(),
                            QStringLiteral("every expected dialog was opened, and no other"));
}

void Hand::expectDialog(const char *className, const QString &picture, const Action &action)
{
    m_script->expectClosedLater(className, [this, picture, action](QWidget *dialog) {
        if (!picture.isEmpty())
            m_narrator.takePicture(dialog, picture);
        watch(dialog);
        // From the event loop, not from the script's own timer, which does not fire while one of
        // its steps has a dialog open.
        QTimer::singleShot(0, dialog, [action, dialog] { action(dialog); });
    });
}

void Hand::expectMessage(const ShownText &text, int button, const QString &picture)
{
    expectDialog("QMessageBox", picture, [this, text, button](QWidget *dialog) {
        auto *box = static_cast<QMessageBox *>(dialog);
        const bool isRight =
            shown(text).isEmpty() ? box->text() != text.italian : box->text() == shown(text);
        m_narrator.check(isRight, QStringLiteral("message \"%1\"").arg(box->text()));
        QAbstractButton *wanted = box->button(static_cast<QMessageBox::StandardButton>(button));
        if (m_narrator.check(wanted != nullptr, QStringLiteral("with the button to answer it")))
            QTest::mouseClick(wanted, Qt::LeftButton);
        else
            box->reject();
    });
}

void Hand::expectFiles(const QStringList &paths, const QString &picture)
{
    expectDialog("QFileDialog", picture, [paths](QWidget *dialog) {
        DialogScript::chooseFiles(qobject_cast<QFileDialog *>(dialog), paths);
    });
}

void Hand::watch(QWidget *dialog)
{
    QTimer::singleShot(longestWait, dialog, [this, dialog] {
        if (!dialog->isVisible())
            return;
        m_narrator.check(false, QStringLiteral("\"%1\" was closed").arg(dialog->windowTitle()));
        if (auto *plain = qobject_cast<QDialog *>(dialog))
            plain->reject();
    });
}

void Hand::clickWindow(const QString &button)
{
    auto *found = m_window.findChild<QAbstractButton *>(button);
    if (m_narrator.check(found != nullptr && found->isEnabled(),
                         QStringLiteral("\"%1\" clicked").arg(found ? found->text() : button)))
        QTest::mouseClick(found, Qt::LeftButton);
}

void Hand::chooseMenu(const QString &name, const QString &picture)
{
    for (QAction *top : m_window.menuBar()->actions()) {
        QMenu *menu = top->menu();
        for (QAction *action : menu->actions()) {
            if (action->objectName() != name)
                continue;
            QTest::mouseClick(m_window.menuBar(), Qt::LeftButton, {},
                              m_window.menuBar()->actionGeometry(top).center());
            m_narrator.check(menu->isVisible(),
                             QStringLiteral("menu \"%1\", \"%2\"")
                                 .arg(top->text().remove(u'&'), action->text().remove(u'&')));
            if (!picture.isEmpty())
                m_narrator.takePicture(menu, picture);
            QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
            return;
        }
    }
    m_narrator.check(false, QStringLiteral("the menus have %1").arg(name));
}

void Hand::click(QWidget *dialog, const QString &button)
{
    if (auto *found = dialog->findChild<QAbstractButton *>(button))
        QTest::mouseClick(found, Qt::LeftButton, {}, QPoint(8, found->height() / 2));
}

void Hand::type(QWidget *dialog, const QString &edit, const QString &text)
{
    auto *widget = dialog->findChild<QWidget *>(edit);
    if (auto *box = qobject_cast<QComboBox *>(widget))
        widget = box->lineEdit();
    if (auto *line = qobject_cast<QLineEdit *>(widget)) {
        line->selectAll();
        QTest::keyClick(line, Qt::Key_Backspace);
        QTest::keyClicks(line, text);
    }
}

void Hand::choose(QWidget *dialog, const QString &comboBox, int item)
{
    auto *box = dialog->findChild<QComboBox *>(comboBox);
    if (box == nullptr)
        return;
    QTest::keyClick(box, Qt::Key_Home);
    for (int i = 0; i < item; ++i)
        QTest::keyClick(box, Qt::Key_Down);
}

} // namespace brisel
