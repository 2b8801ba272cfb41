#include "tests/app/workflowtest.h"

#include "base/runguard.h"

#include <QMenu>
#include <QMessageBox>

namespace brisel
{

void WorkflowTest::openWindow()
{
    m_sample = std::make_unique<SampleWindow>();
    m_window = m_sample->window.get();
    m_script = &m_sample->script;
    m_folder = &m_sample->folder;
}

void WorkflowTest::closeWindow()
{
    m_sample.reset();
    QVERIFY(!RunGuard::isActive());
}

void WorkflowTest::makeSongs(const QStringList &names, bool published)
{
    for (const QString &name : names)
        makeFile(at(name), Sample::midi(name.section(u'.', 0, 0).toLatin1(), published));
}

void WorkflowTest::import(const QStringList &names)
{
    QStringList paths;
    for (const QString &name : names)
        paths.append(at(name));
    m_script->expectFiles(paths);
    QTest::mouseClick(tool("selectDirToolButton"), Qt::LeftButton);
    verifyScript();
}

void WorkflowTest::expectMessageWithLog(const QString &text, const LogCapture &log,
                                        qsizetype &logged)
{
    m_script->expect("QMessageBox", [text, &log, &logged](QWidget *widget) {
        auto *box = qobject_cast<QMessageBox *>(widget);
        QCOMPARE(box->text(), text);
        logged = log.messages().size();
        QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
    });
}

void WorkflowTest::expectBackup(const QString &button)
{
    m_script->expect("BackupDialog",
                     [button](QWidget *widget) { DialogScript::click(widget, button); });
}

void WorkflowTest::expectBackupToFolder()
{
    QVERIFY(QDir(m_folder->path()).mkdir(u"backups"_qs));
    m_script->expect("BackupDialog", [this](QWidget *widget) {
        DialogScript inner;
        inner.expectFiles({at(u"backups"_qs)});
        DialogScript::click(widget, u"browsePushButton"_qs);
        DialogScript::click(widget, u"doBackupPushButton"_qs);
    });
}

void WorkflowTest::expectQuestion(Run::Answer answer)
{
    static const QStringList buttons{u"yesPushButton"_qs, u"yesAllPushButton"_qs,
                                     u"noPushButton"_qs, u"noAllPushButton"_qs};
    m_script->expect("NoCopyrightDialog", [answer](QWidget *widget) {
        DialogScript::click(widget, buttons.at(int(answer)));
    });
}

void WorkflowTest::expectYesThenInterrupt()
{
    m_script->expect("NoCopyrightDialog", [this](QWidget *widget) {
        QTimer::singleShot(0, m_window->findChild<QProgressDialog *>(), [this] {
            auto *dialog = m_window->findChild<QProgressDialog *>();
            QTest::mouseClick(dialog->findChild<QPushButton *>(), Qt::LeftButton);
        });
        DialogScript::click(widget, u"yesPushButton"_qs);
    });
}

void WorkflowTest::atProgress(const QString &title, const QString &label,
                              const std::function<void(QProgressDialog *)> &step)
{
    auto *timer = new QTimer(m_window);
    connect(timer, &QTimer::timeout, this, [timer, title, label, step] {
        auto *dialog = qobject_cast<QProgressDialog *>(QApplication::activeModalWidget());
        if (dialog == nullptr || dialog->windowTitle() != title ||
            dialog->findChild<QLabel *>()->text() != label)
            return;
        timer->stop();
        step(dialog);
    });
    timer->start(0);
}

void WorkflowTest::doubleClick(int row)
{
    QTest::mouseClick(table()->viewport(), Qt::LeftButton, {}, cell(row));
    QTest::mouseDClick(table()->viewport(), Qt::LeftButton, {}, cell(row));
}

void WorkflowTest::chooseFromMenu(int entry, const QPoint &pos)
{
    m_script->expectMenu([entry](QMenu *menu) {
        QCOMPARE(menu->actions().size(), 4);
        QCOMPARE(menu->actions().at(0)->text(), u"&Remove from list"_qs);
        QCOMPARE(menu->actions().at(1)->text(), u"&Delete file"_qs);
        QCOMPARE(menu->actions().at(2)->text(), u"R&ipristina"_qs);
        QCOMPARE(menu->actions().at(3)->text(), u"&Modifica..."_qs);
        if (entry >= 0)
            QTest::mouseClick(menu, Qt::LeftButton, {},
                              menu->actionGeometry(menu->actions().at(entry)).center());
    });
    emit table()->customContextMenuRequested(pos);
}

} // namespace brisel
