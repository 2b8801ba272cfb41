#include "app/mainwindow.h"
#include "base/settings.h"
#include "index/memoryspeeds.h"
#include "library/dialogs/transferplandialog.h"
#include "library/dialogs/transferplanmodel.h"
#include "tests/app/previewtest.h"
#include "tests/smalldisk.h"
#include "tests/testprogram.h"

#include <QElapsedTimer>
#include <QMessageBox>
#include <QPushButton>

using namespace brisel;

/// The plan of a transfer through the real window, by clicks and keys.
class TestPlannedTransfer : public PreviewTest
{
    Q_OBJECT

private slots:
    void init() { openWindow(); }
    void cleanup() { closeWindow(); }

    void isOffAndStored();
    void transfersAsBeforeWhileOff();
    void showsAndCopiesWhatIsTicked();
    void copiesNothingWhenCancelled();
    void showsSongsThatCannotBeCopied();
    void showsSongsOfOneName();
    void filtersRows();
    void ticksAllAndNone();
    void ticksByTheSpaceBar();
    void copiesNothingWithoutRoom();
    void refusesWhatTheTransferRefuses();
    void reportsAPulledMemory();
    void showsNothingWhenInterrupted();
    void showsHowLongItTakes_data();
    void showsHowLongItTakes();
    void remembersTheSpeed();
    void opensForAFolderThatWasChosenElsewhere();
    void followsTheLanguage();
    void opensManySongsFast();

private:
    QLabel *outcomeText() const { return m_window->findChild<QLabel *>(u"outcomeLabel"_qs); }

    using Check = std::function<void(QWidget *, QTableView *)>;

    QAction *choice() const { return m_window->findChild<QAction *>(u"actionTransferPlan"_qs); }
    QString card(const QString &name = {}) const { return at(u"volumes/CARD"_qs + name); }
    void importSongs(const QStringList &names)
    {
        makeSongs(names, false);
        import(names);
    }
    /// The next dialogs are the question for the folder and the plan.
    void expectPlan(const Check &check)
    {
        choice()->setChecked(true);
        m_script->expectFiles({card()});
        expectPlanOnly(check);
    }
    void expectPlanOnly(const Check &check)
    {
        m_script->expect("TransferPlanDialog", [check](QWidget *widget) {
            check(widget, widget->findChild<QTableView *>());
        });
    }
    void expectDone()
    {
        m_script->expectMessage(u"Trasferimento"_qs,
                                u"Tutti i file sono stati copiati correttamente"_qs,
                                QMessageBox::Ok);
    }
    static QString label(const QWidget *dialog, const QString &name)
    {
        return dialog->findChild<QLabel *>(name)->text();
    }
    static bool canCopy(const QWidget *dialog)
    {
        return dialog->findChild<QPushButton *>(u"copyPushButton"_qs)->isEnabled();
    }
    static void copy(QWidget *dialog) { DialogScript::click(dialog, u"copyPushButton"_qs); }
    static void cancel(QWidget *dialog) { DialogScript::click(dialog, u"cancelPushButton"_qs); }
};

void TestPlannedTransfer::isOffAndStored()
{
    QCOMPARE(choice()->text(), u"Mostra il piano prima del trasferimento"_qs);
    QVERIFY(choice()->isCheckable() && !choice()->isChecked());
    choice()->trigger();
    QVERIFY(Settings::transferPlan.in(openSettings()));
    QVERIFY(MainWindow().findChild<QAction *>(u"actionTransferPlan"_qs)->isChecked());
    choice()->trigger();
    QVERIFY(!Settings::transferPlan.in(openSettings()));
}

void TestPlannedTransfer::transfersAsBeforeWhileOff()
{
    importSongs({u"one.mid"_qs, u"a long name.mid"_qs});
    makeFile(card(u"/songs/one.mid"_qs), "another song");
    m_script->expectFiles({card()});
    expectQuestion(Run::Answer::Yes);
    expectQuestion(Run::Answer::Yes);
    expectDone();
    clickTransfer();
    verifyScript();
    QVERIFY(QFile::exists(card(u"/songs/alongn-1.mid"_qs)));
}

void TestPlannedTransfer::showsAndCopiesWhatIsTicked()
{
    importSongs({u"a long name.mid"_qs, u"new.mid"_qs, u"other.mid"_qs, u"same.mid"_qs});
    makeFile(card(u"/songs/other.mid"_qs), "another song");
    QFile other(card(u"/songs/other.mid"_qs));
    const QDateTime noon({2024, 5, 4}, {12, 0});
    QVERIFY(other.open(QIODevice::ReadWrite) &&
            other.setFileTime(noon, QFileDevice::FileModificationTime));
    other.close();
    QVERIFY(QFile::copy(at(u"same.mid"_qs), card(u"/songs/same.mid"_qs)));
    const QString when = QLocale().toString(noon, QLocale::ShortFormat);
    expectPlan([this, when](QWidget *dialog, QTableView *view) {
        QCOMPARE(dialog->windowTitle(), u"Piano del trasferimento"_qs);
        QStringList texts = rows(view);
        for (QString &text : texts)
            text = text.section(u'|', 0, 2);
        QCOMPARE(texts.join(u'\n'),
                 u"[x]a long name.mid|nuova|songs/alongn-1.mid\n"
                 "[x]new.mid|nuova|songs/new.mid\n"
                 "[x]other.mid|sostituisce other.mid (12 bytes, %1)|songs/other.mid\n"
                 "same.mid|c'è già, uguale|songs/same.mid"_qs.arg(when));
        QCOMPARE(label(dialog, u"countLabel"_qs),
                 u"3 da copiare, 2 nuove, 1 uguali, 1 sostituiscono, 0 non ci stanno, "
                 "1 con un nome più corto"_qs);
        QVERIFY(label(dialog, u"roomLabel"_qs).startsWith(u"Spazio: servono "_qs));
        toggle(view, 1, TransferPlanModel::SongColumn);
        QVERIFY(rowText(view, 1).startsWith(u"[ ]new.mid|nuova||"_qs));
        QVERIFY(dialog->findChild<QPushButton *>(u"copyPushButton"_qs)->isDefault());
        QVERIFY(canCopy(dialog));
        QVERIFY(QDir(card()).entryList(QDir::Files).isEmpty());
        copy(dialog);
    });
    expectDone();
    clickTransfer();
    verifyScript();
    QVERIFY(QFile::exists(card(u"/songs/alongn-1.mid"_qs)));
    QVERIFY(!QFile::exists(card(u"/songs/new.mid"_qs)));
    QCOMPARE(fileContent(card(u"/songs/other.mid"_qs)), fileContent(at(u"other.mid"_qs)));
    QVERIFY(QFile::exists(card(u"/index.id2"_qs)));
    QCOMPARE(outcomeText()->text(), u"Trasferimento: 2 copiate"_qs);
}

void TestPlannedTransfer::copiesNothingWhenCancelled()
{
    importSongs({u"one.mid"_qs});
    const QString before = outcomeText()->text();
    expectPlan([](QWidget *dialog, QTableView *) { cancel(dialog); });
    clickTransfer();
    verifyScript();
    QVERIFY(!QFile::exists(card(u"/songs"_qs)));
    QCOMPARE(outcomeText()->text(), before);
    QVERIFY(tool("transferFilesToolButton")->isEnabled());
}

void TestPlannedTransfer::showsSongsThatCannotBeCopied()
{
    importSongs({u"gone.mid"_qs, u"one.mid"_qs});
    QVERIFY(QFile::remove(at(u"gone.mid"_qs)));
    expectPlan([](QWidget *dialog, QTableView *view) {
        QCOMPARE(rowText(view, 0), u"gone.mid|non si può copiare: il file non esiste||"_qs);
        QVERIFY(label(dialog, u"countLabel"_qs).endsWith(u", 1 non si possono copiare"_qs));
        toggle(view, 1, TransferPlanModel::SongColumn);
        QVERIFY(!canCopy(dialog));
        QCOMPARE(label(dialog, u"timeLabel"_qs), QString());
        cancel(dialog);
    });
    clickTransfer();
    verifyScript();
}

void TestPlannedTransfer::showsSongsOfOneName()
{
    importSongs({u"a/one.mid"_qs, u"b/one.mid"_qs});
    expectPlan([this](QWidget *dialog, QTableView *view) {
        const QString shown = u"[x]one.mid|sostituisce un'altra song scelta: "_qs;
        QVERIFY2(rowText(view, 1).startsWith(shown + at(u"a/one.mid"_qs)),
                 qPrintable(rowText(view, 1)));
        toggle(view, 0, TransferPlanModel::SongColumn);
        QVERIFY(rowText(view, 1).startsWith(u"[x]one.mid|nuova|"_qs));
        cancel(dialog);
    });
    clickTransfer();
    verifyScript();
}

void TestPlannedTransfer::filtersRows()
{
    importSongs({u"new.mid"_qs, u"other.mid"_qs, u"same.mid"_qs});
    makeFile(card(u"/songs/other.mid"_qs), "another song");
    QVERIFY(QFile::copy(at(u"same.mid"_qs), card(u"/songs/same.mid"_qs)));
    expectPlan([](QWidget *dialog, QTableView *view) {
        auto *filter = dialog->findChild<QComboBox *>(u"filterComboBox"_qs);
        const QStringList shown{u"new.mid other.mid same.mid"_qs,
                                u"new.mid"_qs,
                                u"same.mid"_qs,
                                u"other.mid"_qs,
                                QString(),
                                QString()};
        QCOMPARE(filter->count(), shown.size());
        for (int number = 0; number < filter->count(); ++number) {
            filter->setCurrentIndex(number);
            QStringList names;
            for (int row = 0; row < view->model()->rowCount(); ++row)
                names.append(view->model()->index(row, 0).data().toString());
            QCOMPARE(names.join(u' '), shown.at(number));
        }
        QVERIFY(view->findChild<QLabel *>()->isVisible());
        QCOMPARE(view->findChild<QLabel *>()->text(), u"Nessuna song da mostrare"_qs);
        cancel(dialog);
    });
    clickTransfer();
    verifyScript();
}

void TestPlannedTransfer::ticksAllAndNone()
{
    importSongs({u"one.mid"_qs, u"two.mid"_qs});
    expectPlan([](QWidget *dialog, QTableView *) {
        DialogScript::click(dialog, u"selectNonePushButton"_qs);
        QVERIFY(label(dialog, u"countLabel"_qs).startsWith(u"0 da copiare, 2 nuove"_qs));
        QVERIFY(!canCopy(dialog));
        DialogScript::click(dialog, u"selectAllPushButton"_qs);
        QVERIFY(label(dialog, u"countLabel"_qs).startsWith(u"2 da copiare"_qs));
        cancel(dialog);
    });
    clickTransfer();
    verifyScript();
}

void TestPlannedTransfer::ticksByTheSpaceBar()
{
    importSongs({u"one.mid"_qs});
    expectPlan([](QWidget *dialog, QTableView *view) {
        QCOMPARE(view->currentIndex().row(), 0);
        for (int column = 0; column < TransferPlanModel::columns; ++column) {
            toggle(view, 0, column);
            QVERIFY(rowText(view, 0).startsWith(column % 2 == 0 ? u"[ ]"_qs : u"[x]"_qs));
        }
        cancel(dialog);
    });
    clickTransfer();
    verifyScript();
}

void TestPlannedTransfer::copiesNothingWithoutRoom()
{
    importSongs({u"one.mid"_qs});
    const SmallDisk disk(card(), 2 * SmallDisk::pageSize);
    if (!disk.isMounted())
        QSKIP("only root can mount a file system");
    expectPlan([](QWidget *dialog, QTableView *view) {
        QVERIFY(rowText(view, 0).startsWith(u"[x]one.mid|non ci sta|"_qs));
        QVERIFY(label(dialog, u"countLabel"_qs).contains(u", 1 non ci stanno"_qs));
        QVERIFY(label(dialog, u"roomLabel"_qs).startsWith(u"Spazio insufficiente: servono "_qs));
        QVERIFY(!canCopy(dialog));
        cancel(dialog);
    });
    clickTransfer();
    verifyScript();
}

void TestPlannedTransfer::refusesWhatTheTransferRefuses()
{
    importSongs({u"one.mid"_qs});
    choice()->setChecked(true);
    m_script->expectFiles({at(QString())});
    m_script->expectMessage(u"Trasferimento"_qs,
                            u"Non è possibile copiare i file sul disco di sistema"_qs,
                            QMessageBox::Ok);
    clickTransfer();
    verifyScript();
}

void TestPlannedTransfer::reportsAPulledMemory()
{
    importSongs({u"one.mid"_qs, u"two.mid"_qs});
    choice()->setChecked(true);
    m_script->expectFiles({card()});
    atProgress(u"Piano del trasferimento"_qs, u"Confronto con la memoria..."_qs,
               [this](QProgressDialog *) { QVERIFY(QDir().rename(card(), at(u"pulled"_qs))); });
    m_script->expectMessage(u"Trasferimento"_qs, u"La memoria non è più presente"_qs,
                            QMessageBox::Ok);
    clickTransfer();
    verifyScript();
    QVERIFY(!QFile::exists(card()));
    QVERIFY(QDir().rename(at(u"pulled"_qs), card()));
}

void TestPlannedTransfer::showsNothingWhenInterrupted()
{
    importSongs({u"one.mid"_qs, u"two.mid"_qs, u"three.mid"_qs});
    choice()->setChecked(true);
    m_script->expectFiles({card()});
    atProgress(u"Piano del trasferimento"_qs, u"1 di 3"_qs, [](QProgressDialog *dialog) {
        QTest::mouseClick(dialog->findChild<QPushButton *>(), Qt::LeftButton);
    });
    clickTransfer();
    verifyScript();
    QVERIFY(tool("transferFilesToolButton")->isEnabled());
}

void TestPlannedTransfer::showsHowLongItTakes_data()
{
    QTest::addColumn<int>("minutes");
    QTest::addColumn<QString>("text");
    QTest::newRow("unknown") << -1 << u"Durata: si saprà dopo le prime song"_qs;
    QTest::newRow("short") << 0 << u"Durata: meno di un minuto"_qs;
    QTest::newRow("minutes") << 12 << u"Durata: circa 12 min"_qs;
}

void TestPlannedTransfer::showsHowLongItTakes()
{
    QFETCH(int, minutes);
    QFETCH(QString, text);
    importSongs({u"one.mid"_qs});
    makeFile(at(u"one.mid"_qs), fileContent(at(u"one.mid"_qs)) + QByteArray(1 << 20, 'x'));
    const qint64 bytes = QFileInfo(at(u"one.mid"_qs)).size();
    if (minutes >= 0)
        keepMemorySpeed(card(), minutes > 0 ? bytes / (minutes * 60) : bytes);
    expectPlan([text](QWidget *dialog, QTableView *) {
        QCOMPARE(label(dialog, u"timeLabel"_qs), text);
        cancel(dialog);
    });
    clickTransfer();
    verifyScript();
}

void TestPlannedTransfer::remembersTheSpeed()
{
    importSongs({u"one.mid"_qs});
    makeFile(at(u"one.mid"_qs), fileContent(at(u"one.mid"_qs)) + QByteArray(1 << 20, 'x'));
    m_script->expectFiles({card()});
    expectDone();
    clickTransfer();
    verifyScript();
    QVERIFY(memorySpeed(card()) > 0);
}

void TestPlannedTransfer::opensForAFolderThatWasChosenElsewhere()
{
    QVERIFY(!m_window->transferByPlan(card()));
    importSongs({u"one.mid"_qs});
    const QString lastFolder = Settings::transferFolder.in(openSettings());
    expectPlanOnly([](QWidget *dialog, QTableView *) { cancel(dialog); });
    QVERIFY(!m_window->transferByPlan(card()));
    QVERIFY(tool("updateDataToolButton")->isEnabled());
    expectPlanOnly([](QWidget *dialog, QTableView *) { copy(dialog); });
    expectDone();
    QVERIFY(m_window->transferByPlan(card()));
    verifyScript();
    QVERIFY(QFile::exists(card(u"/songs/one.mid"_qs)));
    QVERIFY(!tool("updateDataToolButton")->isEnabled());
    QCOMPARE(Settings::transferFolder.in(openSettings()), lastFolder);
}

void TestPlannedTransfer::followsTheLanguage()
{
    importSongs({u"a long name.mid"_qs, u"gone.mid"_qs, u"same.mid"_qs});
    QVERIFY(QFile::remove(at(u"gone.mid"_qs)));
    QVERIFY(QDir().mkpath(card(u"/songs"_qs)));
    QVERIFY(QFile::copy(at(u"same.mid"_qs), card(u"/songs/same.mid"_qs)));
    expectPlan([this](QWidget *dialog, QTableView *view) {
        m_window->findChild<QAction *>(u"actionEnglish"_qs)->trigger();
        QCoreApplication::processEvents();
        QCOMPARE(dialog->windowTitle(), u"Transfer plan"_qs);
        QStringList headings;
        for (int column = 0; column < TransferPlanModel::columns; ++column)
            headings.append(view->model()->headerData(column, Qt::Horizontal).toString());
        QCOMPARE(headings.join(u'|'), u"Song|What happens|Name on the memory|Size"_qs);
        QVERIFY(rowText(view, 0).startsWith(u"[x]a long name.mid|new|songs/alongn-1.mid|"_qs));
        QCOMPARE(rowText(view, 1), u"gone.mid|can't be copied: the file does not exist||"_qs);
        QVERIFY(rowText(view, 2).startsWith(u"same.mid|is there already, the same|"_qs));
        QCOMPARE(label(dialog, u"countLabel"_qs),
                 u"1 to copy, 1 new, 1 the same, 0 replace, 0 do not fit, 1 can't be copied, "
                 "1 with a shorter name"_qs);
        QVERIFY(label(dialog, u"roomLabel"_qs).startsWith(u"Space: "_qs));
        QCOMPARE(label(dialog, u"timeLabel"_qs),
                 u"Duration: will be known after the first songs"_qs);
        m_window->findChild<QAction *>(u"actionItalian"_qs)->trigger();
        QCoreApplication::processEvents();
        QCOMPARE(label(dialog, u"timeLabel"_qs), u"Durata: si saprà dopo le prime song"_qs);
        QVERIFY(label(dialog, u"countLabel"_qs).contains(u"1 nuova, 1 uguale, 0 sostituiscono"_qs));
        cancel(dialog);
    });
    clickTransfer();
    verifyScript();
}

/// As many as a memory takes: the window opens, and a tick answers, at once.
void TestPlannedTransfer::opensManySongsFast()
{
    constexpr int songs = 65535;
    constexpr qint64 slowest = 3000; // ms
    QStringList files;
    for (int number = 0; number < songs; ++number)
        files.append(at(u"a very long name %1.mid"_qs.arg(number)));
    for (const QString &file : files.first(300))
        makeFile(file, "song");
    TransferPlan plan(files, card());
    Run run;
    QCOMPARE(plan.run(run), Transfer::Outcome::Done);
    QElapsedTimer time;
    time.start();
    TransferPlanDialog dialog(plan, 1000);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    auto *view = dialog.findChild<QTableView *>();
    QCOMPARE(view->model()->rowCount(), songs);
    toggle(view, 0, TransferPlanModel::SongColumn);
    QVERIFY2(time.elapsed() < slowest, qPrintable(QString::number(time.elapsed())));
    QVERIFY(rowText(view, 0).startsWith(u"[ ]a very long name 0.mid|nuova"_qs));
}

BRISEL_TEST(QApplication, TestPlannedTransfer)
#include "tst_plannedtransfer.moc"
