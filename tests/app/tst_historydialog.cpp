#include "library/dialogs/historydialog.h"
#include "tests/app/historytest.h"
#include "tests/history/keptsongs.h"
#include "tests/testprogram.h"

#include <QLineEdit>
#include <QMessageBox>
#include <QSpinBox>

using namespace brisel;

/// The history of changes through the real window.
class TestHistoryDialog : public HistoryTest
{
    Q_OBJECT

private slots:
    void init() { openEmpty(); }
    void cleanup() { closeWindow(); }
    void saysThatItIsEmpty();
    void listsRunsWithTheirSongsAndFields();
    void distinguishesSongsOfOneName();
    void showsTheStateOfEachSong();
    void opensTheReportOfYesterday();
    void clearsAfterAQuestion();
    void saysWhyItCannotBeRead();
    void keepsItsLimit();
    void deletesRunsBeyondANewLimit();
    void speaksEnglish();
    void opensNothingDuringARun();
    void showsTenThousandSongsAtOnce();
};

void TestHistoryDialog::saysThatItIsEmpty()
{
    openHistory([](QDialog *dialog, QTreeView *tree) {
        QCOMPARE(dialog->windowTitle(), u"Cronologia modifiche"_qs);
        QCOMPARE(tree->model()->rowCount(), 0);
        QCOMPARE(message(dialog),
                 u"La cronologia è vuota: il programma non ha ancora modificato song"_qs);
        for (const char *name : {"restorePushButton", "reportPushButton", "clearPushButton"})
            QVERIFY(!dialog->findChild<QPushButton *>(QString::fromLatin1(name))->isEnabled());
    });
    QVERIFY(!QFile::exists(History::defaultPath()));
}

void TestHistoryDialog::listsRunsWithTheirSongsAndFields()
{
    synchronise({u"one.mid"_qs, u"two.mid"_qs});
    expectEdit([](QWidget *widget) {
        widget->findChild<QLineEdit *>(u"titleLineEdit"_qs)->setText(u"Typed"_qs);
        DialogScript::click(widget, u"savePushButton"_qs);
    });
    doubleClick(0);
    openHistory([](QDialog *dialog, QTreeView *tree) {
        QCOMPARE(message(dialog), QString());
        const QStringList runs = texts(tree, {}, HistoryModel::What);
        QCOMPARE(runs.size(), 2);
        QVERIFY(runs.first().endsWith(u" - Modifica"_qs));
        QVERIFY(runs.last().endsWith(u" - Sincronizzazione"_qs));
        QCOMPARE(texts(tree, {}, HistoryModel::State), QStringList({u"1 song"_qs, u"2 song"_qs}));
        const QModelIndex run = tree->model()->index(1, 0);
        QCOMPARE(texts(tree, run, HistoryModel::What), QStringList({u"one.mid"_qs, u"two.mid"_qs}));
        const QModelIndex song = tree->model()->index(1, 0, run);
        QCOMPARE(texts(tree, song, HistoryModel::What).first(2),
                 QStringList({u"Titolo"_qs, u"Artista"_qs}));
        QCOMPARE(texts(tree, song, HistoryModel::Before).first(2),
                 QStringList({u"two"_qs, QString()}));
        QCOMPARE(texts(tree, song, HistoryModel::After).first(2),
                 QStringList({u"TWO SONGS"_qs, u"ARTIST ALT"_qs}));
        const QModelIndex field = tree->model()->index(0, HistoryModel::After, song);
        QCOMPARE(field.data(Qt::ToolTipRole).toString(), u"<p>TWO SONGS</p>"_qs);
    });
}

void TestHistoryDialog::distinguishesSongsOfOneName()
{
    synchronise({u"one.mid"_qs, u"deep/one.mid"_qs, u"two.mid"_qs});
    openHistory([this](QDialog *dialog, QTreeView *tree) {
        const QModelIndex run = tree->model()->index(0, 0);
        QCOMPARE(texts(tree, run, HistoryModel::What),
                 QStringList({u"one.mid - "_qs + m_folder->path(),
                              u"one.mid - "_qs + at(u"deep"_qs), u"two.mid"_qs}));
        // The newest operation is selected.
        QVERIFY(tree->selectionModel()->isSelected(run));
        QVERIFY(dialog->findChild<QPushButton *>(u"restorePushButton"_qs)->isEnabled());
    });
}

void TestHistoryDialog::showsTheStateOfEachSong()
{
    const QStringList names{u"one.mid"_qs, u"two.mid"_qs, u"three.mid"_qs};
    synchronise(names);
    QVERIFY(QFile::remove(at(u"two.mid"_qs)));
    makeFile(at(u"three.mid"_qs), Sample::midi("other", true));
    const auto states = [](QTreeView *tree, int run) {
        return texts(tree, tree->model()->index(run, 0), HistoryModel::State);
    };
    openHistory([&states](QDialog *, QTreeView *tree) {
        QCOMPARE(states(tree, 0), QStringList({u"come scritta allora"_qs, u"il file non c'è più"_qs,
                                               u"cambiata in seguito da un altro programma"_qs}));
    });
    expectEdit([](QWidget *widget) {
        widget->findChild<QLineEdit *>(u"titleLineEdit"_qs)->setText(u"Typed"_qs);
        DialogScript::click(widget, u"savePushButton"_qs);
    });
    doubleClick(0);
    openHistory([&states](QDialog *, QTreeView *tree) {
        QCOMPARE(states(tree, 1).first(), u"modificata di nuovo in seguito"_qs);
        QCOMPARE(states(tree, 0), QStringList(u"come scritta allora"_qs));
    });
    restoreNewestRun();
    openHistory([&states](QDialog *, QTreeView *tree) {
        QCOMPARE(states(tree, 1), QStringList(u"come prima della modifica"_qs));
    });
}

void TestHistoryDialog::opensTheReportOfYesterday()
{
    synchronise({u"one.mid"_qs});
    const QStringList told = reportLines();
    closeWindow();
    openWindow();
    openHistory([&told](QDialog *dialog, QTreeView *tree) {
        QString text;
        DialogScript inner;
        inner.expect("ReportDialog", [&text](QWidget *widget) {
            text = widget->findChild<QPlainTextEdit *>()->toPlainText();
            DialogScript::click(widget, u"closePushButton"_qs);
        });
        tree->setCurrentIndex(tree->model()->index(0, 0));
        DialogScript::click(dialog, u"reportPushButton"_qs);
        QCOMPARE(text.split(u'\n', Qt::SkipEmptyParts), told);
    });
}

void TestHistoryDialog::clearsAfterAQuestion()
{
    synchronise({u"one.mid"_qs});
    for (const auto answer : {QMessageBox::No, QMessageBox::Yes}) {
        openHistory([answer](QDialog *dialog, QTreeView *tree) {
            DialogScript inner;
            inner.expectMessage(u"Cronologia modifiche"_qs,
                                u"Vuotare la cronologia? Le modifiche fatte finora non si "
                                "potranno più annullare."_qs,
                                answer);
            DialogScript::click(dialog, u"clearPushButton"_qs);
            QCOMPARE(tree->model()->rowCount(), answer == QMessageBox::Yes ? 0 : 1);
        });
    }
    QCOMPARE(title(u"one.mid"_qs), u"ONE LOVE"_qs);
}

/// A damaged history can be cleared.
void TestHistoryDialog::saysWhyItCannotBeRead()
{
    synchronise({u"one.mid"_qs});
    closeWindow();
    makeFile(History::defaultPath(), QByteArray(8192, 'x'));
    openWindow();
    openHistory([](QDialog *dialog, QTreeView *tree) {
        QCOMPARE(tree->model()->rowCount(), 0);
        QCOMPARE(message(dialog),
                 u"La cronologia non si può leggere: la cronologia è danneggiata"_qs);
        DialogScript inner;
        inner.expect("QMessageBox", [](QWidget *box) {
            QTest::mouseClick(qobject_cast<QMessageBox *>(box)->button(QMessageBox::Yes),
                              Qt::LeftButton);
        });
        DialogScript::click(dialog, u"clearPushButton"_qs);
        QVERIFY(message(dialog).startsWith(u"La cronologia è vuota"_qs));
    });
}

void TestHistoryDialog::keepsItsLimit()
{
    openHistory([](QDialog *dialog, QTreeView *) {
        auto *limit = dialog->findChild<QSpinBox *>();
        QCOMPARE(limit->value(), 1024);
        QCOMPARE(limit->suffix(), u" MiB"_qs);
        limit->setValue(12);
    });
    openHistory([](QDialog *dialog, QTreeView *) {
        QCOMPARE(dialog->findChild<QSpinBox *>()->value(), 12);
        QVERIFY(dialog->findChild<QLabel *>(u"sizeLabel"_qs)->text().contains(u"12"_qs));
    });
}

/// A smaller limit deletes the oldest runs, after a question.
void TestHistoryDialog::deletesRunsBeyondANewLimit()
{
    History history;
    qint64 run = 0;
    QList<qint64> ids;
    const QByteArray old = noise(2 * 1024 * 1024, 1);
    QVERIFY(history.add(run, RunKind::Edit, {keptSong(u"/a.mid"_qs, old, "new")}, ids));
    QVERIFY(history.finish(run, {}, u"report"_qs));
    for (const QMessageBox::StandardButton answer : {QMessageBox::No, QMessageBox::Yes}) {
        expectHistory([](QDialog *dialog, QTreeView *) {
            auto *limit = dialog->findChild<QSpinBox *>();
            QCOMPARE(limit->value(), 1024);
            limit->setValue(1);
        });
        m_script->expect("QMessageBox", [answer](QWidget *widget) {
            auto *box = qobject_cast<QMessageBox *>(widget);
            QCOMPARE(box->defaultButton(), box->button(QMessageBox::No));
            QVERIFY(box->text().startsWith(u"Con 1 MiB le operazioni più vecchie"_qs));
            QTest::mouseClick(box->button(answer), Qt::LeftButton);
        });
        triggerHistory();
        QCOMPARE(history.runs().size(), answer == QMessageBox::No ? 1 : 0);
    }
    openHistory([](QDialog *dialog, QTreeView *) {
        QCOMPARE(dialog->findChild<QSpinBox *>()->value(), 1);
    });
}

void TestHistoryDialog::speaksEnglish()
{
    synchronise({u"one.mid"_qs});
    const auto choose = [this](const QString &language) {
        m_window->findChild<QAction *>(language)->trigger();
        QCoreApplication::processEvents();
    };
    choose(u"actionEnglish"_qs);
    QCOMPARE(m_window->findChild<QAction *>(u"actionHistory"_qs)->text(),
             u"History of changes..."_qs);
    openHistory([](QDialog *dialog, QTreeView *tree) {
        QCOMPARE(dialog->windowTitle(), u"History of changes"_qs);
        QVERIFY(texts(tree, {}, HistoryModel::What).first().endsWith(u" - Synchronization"_qs));
        QCOMPARE(texts(tree, {}, HistoryModel::State).first(), u"1 song"_qs);
        QCOMPARE(texts(tree, tree->model()->index(0, 0), HistoryModel::State),
                 QStringList(u"still as written"_qs));
    });
    choose(u"actionItalian"_qs);
}

void TestHistoryDialog::opensNothingDuringARun()
{
    const RunGuard guard;
    m_window->findChild<QAction *>(u"actionHistory"_qs)->trigger();
    verifyScript();
}

/// Songs are read when their run is opened, and their files only when they are shown.
void TestHistoryDialog::showsTenThousandSongsAtOnce()
{
    constexpr int count = 10000;
    History history;
    QList<PackedSong> songs;
    for (int i = 0; i < count; ++i)
        songs.append(keptSong(u"/none/%1.mid"_qs.arg(i), "old", "new"));
    qint64 run = 0;
    QList<qint64> ids;
    QVERIFY(history.add(run, RunKind::Edit, songs, ids));
    QVERIFY(history.finish(run, {}, u"report"_qs));
    openHistory([](QDialog *, QTreeView *tree) {
        const QModelIndex first = tree->model()->index(0, 0);
        QCOMPARE(text(first, HistoryModel::State), u"10000 song"_qs);
        QCOMPARE(tree->model()->rowCount(first), 0);
        tree->expand(first);
        QCOMPARE(tree->model()->rowCount(first), count);
        tree->scrollToBottom();
        tree->grab();
        const QModelIndex last = tree->model()->index(count - 1, 0, first);
        QVERIFY(tree->viewport()->rect().intersects(tree->visualRect(last)));
    });
}

BRISEL_TEST(QApplication, TestHistoryDialog)
#include "tst_historydialog.moc"
