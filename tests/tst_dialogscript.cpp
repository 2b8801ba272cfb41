#include "tests/dialogscript.h"
#include "tests/testprogram.h"

#include <QApplication>
#include <QDialog>
#include <QMenu>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QTest>

using namespace brisel;

namespace
{

const char *const childMark = "BRISEL_FAILS_ON_PURPOSE";

/// Opens a dialog that only its button, or a reject, closes.
class Question : public QDialog
{
public:
    Question()
    {
        setWindowTitle(QStringLiteral("question"));
        m_button.setObjectName(QStringLiteral("yes"));
        connect(&m_button, &QPushButton::clicked, this, &QDialog::accept);
    }

private:
    QPushButton m_button{this};
};

void ask()
{
    Question question;
    question.exec();
}

void openMenu()
{
    QMenu menu;
    menu.addAction(QStringLiteral("entry"));
    menu.exec(QPoint(10, 10));
}

void failLater(QWidget *)
{
    QTimer::singleShot(20, qApp, [] { QVERIFY2(false, "in a timer"); });
}

/// The mistake of each row of the test, made in a separate process that must end because of it.
const QHash<QString, std::function<void(DialogScript &)>> mistakes{
    {QStringLiteral("check in a dialog's step"),
     [](DialogScript &script) {
         script.expect("QDialog", [](QWidget *) { QVERIFY2(false, "in the step"); });
         ask();
     }},
    {QStringLiteral("check in a menu's step"),
     [](DialogScript &script) {
         script.expectMenu([](QMenu *) { QVERIFY2(false, "in the step"); });
         openMenu();
     }},
    {QStringLiteral("check in an inner dialog's step"),
     [](DialogScript &script) {
         script.expect("QDialog", [](QWidget *) {
             DialogScript inner;
             inner.expect("QDialog", [](QWidget *) { QVERIFY2(false, "in the step"); });
             ask();
         });
         ask();
     }},
    {QStringLiteral("check in a timer over a dialog"),
     [](DialogScript &script) {
         script.expectClosedLater("QDialog", failLater);
         ask();
     }},
    {QStringLiteral("check in a timer over a menu of a step"),
     [](DialogScript &script) {
         script.expect("QDialog", [](QWidget *dialog) {
             failLater(dialog);
             openMenu();
         });
         ask();
     }},
    {QStringLiteral("dialogs after the failure"),
     [](DialogScript &script) {
         script.expect("QDialog", [](QWidget *) { QVERIFY2(false, "in the step"); });
         script.expect("QDialog", [](QWidget *) { qFatal("a step after the failure"); });
         ask();
         ask();
         openMenu();
     }},
    {QStringLiteral("dialog that its step left open"),
     [](DialogScript &script) {
         script.expect("QDialog", [](QWidget *) {});
         ask();
     }},
    {QStringLiteral("button that takes no click"),
     [](DialogScript &script) {
         script.expect("QDialog", [](QWidget *dialog) {
             dialog->findChild<QPushButton *>()->setEnabled(false);
             DialogScript::click(dialog, QStringLiteral("yes"));
         });
         ask();
     }},
    {QStringLiteral("another message"),
     [](DialogScript &script) {
         script.expectMessage(QStringLiteral("title"), QStringLiteral("other"), QMessageBox::Ok);
         QMessageBox::information(nullptr, QStringLiteral("title"), QStringLiteral("text"));
     }},
    {QStringLiteral("unexpected dialog"), [](DialogScript &) { ask(); }},
    {QStringLiteral("unexpected menu"), [](DialogScript &) { openMenu(); }},
};

} // namespace

/// The helper that answers dialogs and menus: no mistake of a test makes it wait forever.
class TestDialogScript : public QObject
{
    Q_OBJECT

private slots:
    void endsTheCase_data();
    void endsTheCase();
    void answersDialogsAndMenus();
    void closesAMenuThatIsOnlyRead();
};

void TestDialogScript::endsTheCase_data()
{
    QTest::addColumn<QString>("message");
    const auto row = [](const char *name, const char *message) {
        QTest::newRow(name) << QString::fromLatin1(message);
    };
    row("check in a dialog's step", "'false' returned FALSE. (in the step)");
    row("check in a menu's step", "'false' returned FALSE. (in the step)");
    row("check in an inner dialog's step", "'false' returned FALSE. (in the step)");
    row("check in a timer over a dialog", "'false' returned FALSE. (in a timer)");
    row("check in a timer over a menu of a step", "'false' returned FALSE. (in a timer)");
    row("dialogs after the failure", "'false' returned FALSE. (in the step)");
    row("dialog that its step left open", "its step left \"question\" open");
    row("button that takes no click",
        "'button->isEnabled() && !button->isHidden()' returned FALSE. (yes)");
    row("another message", "message box \"title\" / \"text\" instead of \"title\" / \"other\"");
    row("unexpected dialog", "unexpected QDialog \"question\" ");
    row("unexpected menu", "unexpected menu");
}

void TestDialogScript::endsTheCase()
{
    QFETCH(QString, message);
    const QString name = QString::fromLatin1(QTest::currentDataTag());
    if (qEnvironmentVariableIsSet(childMark)) {
        DialogScript script;
        mistakes.value(name)(script);
        return;
    }
    QProcess child;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QString::fromLatin1(childMark), QStringLiteral("1"));
    // Qt kills the process then, which is not a normal end.
    environment.insert(QStringLiteral("QTEST_FUNCTION_TIMEOUT"), QStringLiteral("60000"));
    child.setProcessEnvironment(environment);
    child.setProcessChannelMode(QProcess::MergedChannels);
    child.start(QCoreApplication::applicationFilePath(),
                {QStringLiteral("tst_dialogscript"), QStringLiteral("endsTheCase:") + name});
    QVERIFY(child.waitForFinished(-1));
    const QString output = QString::fromUtf8(child.readAll());
    QVERIFY2(child.exitStatus() == QProcess::NormalExit, qPrintable(output));
    QCOMPARE(child.exitCode(), 1);
    const QString told =
        QStringLiteral("FAIL!  : TestDialogScript::endsTheCase(%1) %2\n").arg(name, message);
    QVERIFY2(output.contains(told), qPrintable(output));
}

void TestDialogScript::answersDialogsAndMenus()
{
    DialogScript script;
    QStringList answered;
    script.expect("QDialog", [&](QWidget *dialog) {
        DialogScript inner;
        inner.expectMenu([&](QMenu *menu) {
            answered.append(menu->actions().constFirst()->text());
            QTest::keyClick(menu, Qt::Key_Escape);
        });
        openMenu();
        DialogScript::click(dialog, QStringLiteral("yes"));
    });
    script.expectClosedLater("QDialog", [](QWidget *dialog) {
        QTimer::singleShot(20, dialog,
                           [dialog] { DialogScript::click(dialog, QStringLiteral("yes")); });
    });
    script.expectMessage(QStringLiteral("title"), QStringLiteral("text"), QMessageBox::Ok);
    Question question;
    QCOMPARE(question.exec(), int(QDialog::Accepted));
    QCOMPARE(question.exec(), int(QDialog::Accepted));
    QVERIFY(!script.isDone());
    QMessageBox::information(nullptr, QStringLiteral("title"), QStringLiteral("text"));
    QVERIFY(script.isDone());
    QCOMPARE(answered, QStringList(QStringLiteral("entry")));
}

void TestDialogScript::closesAMenuThatIsOnlyRead()
{
    DialogScript script;
    script.expectMenu([](QMenu *) {});
    QVERIFY(!script.isDone());
    openMenu();
    QVERIFY(script.isDone());
}

BRISEL_TEST(QApplication, TestDialogScript)
#include "tst_dialogscript.moc"
