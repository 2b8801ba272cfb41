#include "app/mainwindow.h"
#include "app/startup.h"
#include "db/usersongsreltablemodel.h"
#include "tests/dialogscript.h"
#include "tests/logcapture.h"
#include "tests/smallsongs.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QProgressDialog>
#include <QPushButton>
#include <QSettings>
#include <QSqlQuery>
#include <QTableView>
#include <QTest>
#include <QToolButton>

using namespace brisel;

/// The import as a user runs it: the button, the file dialog, the progress, the summary.
class TestImport : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void asksForSongFiles();
    void changesNothingWhenNoFileIsPicked();
    void fillsTheTableAndOffersToSynchronise();
    void summarisesUnreadableFiles();
    void skipsTheSummaryWhenAskingIsOff();
    void remembersThatNoMoreMessagesAreWanted_data();
    void remembersThatNoMoreMessagesAreWanted();
    void showsTheAdvance();
    void continuesAfterInterrompi();
    void replacesTheRowsOfTheLastImport();
    void fitsTheColumnsToTheRowsThatCame();
    void importsTheSameListAgain();
    void keepsOldRowsWhenTheyCannotBeCleared();
    void keepsRowsInPlaceDuringTheRun();
    void asksNothingAfterAQuit();
    void synchronisesAfterYes();
    void scansAFolder();

private:
    QToolButton *button(const char *name) const
    {
        return m_window->findChild<QToolButton *>(QString::fromLatin1(name));
    }
    UserSongsRelTableModel *model() const
    {
        return m_window->findChild<UserSongsRelTableModel *>();
    }
    void pick(const QStringList &paths)
    {
        m_script->expectFiles(paths);
        for (const auto &[className, step] : std::exchange(m_afterPicking, {}))
            m_script->expect(className, step);
        QTest::mouseClick(button("selectDirToolButton"), Qt::LeftButton);
    }
    /// Checks the summary and presses the button \a name; with \a tick, checks the checkbox first.
    void expectSummary(const QString &text, const char *name, bool tick = false)
    {
        m_afterPicking.append(
            {"ProceedDialog", [this, text, name, tick](QWidget *dialog) {
                 m_summary = dialog->findChild<QLabel *>(QStringLiteral("summaryLabel"))->text();
                 if (tick)
                     dialog->findChild<QCheckBox *>()->click();
                 DialogScript::click(dialog, QString::fromLatin1(name));
                 QCOMPARE(m_summary, text);
             }});
    }
    void expectBackupOffer(const char *name)
    {
        m_afterPicking.append({"BackupDialog", [name](QWidget *dialog) {
                                   DialogScript::click(dialog, QString::fromLatin1(name));
                               }});
    }
    void setAsking(bool on)
    {
        m_window
            ->findChild<QAction *>(on ? QStringLiteral("actionCopyrightYes")
                                      : QStringLiteral("actionCopyrightNo"))
            ->trigger();
    }
    QString path(const char *name) const
    {
        return QDir::current().filePath(QString::fromLatin1(name));
    }

    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<DialogScript> m_script;
    std::unique_ptr<LogCapture> m_log;
    QString m_summary;
    QList<std::pair<const char *, DialogScript::Step>> m_afterPicking;
};

/// Runs a step when a run processes events.
class DuringTheRun : public QObject
{
public:
    explicit DuringTheRun(std::function<void(QProgressDialog *)> step) : m_step(std::move(step))
    {
        connect(&m_timer, &QTimer::timeout, this, [this] {
            auto *dialog = qobject_cast<QProgressDialog *>(QApplication::activeModalWidget());
            if (dialog != nullptr && RunGuard::isActive()) {
                ++count;
                m_step(dialog);
            }
        });
        m_timer.start(0);
    }

    int count = 0;

private:
    std::function<void(QProgressDialog *)> m_step;
    QTimer m_timer;
};

void TestImport::init()
{
    QSettings(settingsOrganisation, settingsApplication).clear();
    makeFile(path("a/one.mid"), smallMidi("One"));
    makeFile(path("a/two.kar"), smallMidi("Two", true));
    makeFile(path("a/three.mid"), smallMidi("Three"));
    makeFile(path("a/bad.mid"), "no song");
    m_log = std::make_unique<LogCapture>();
    m_window = std::make_unique<MainWindow>();
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    m_script = std::make_unique<DialogScript>();
    m_summary.clear();
}

void TestImport::cleanup()
{
    const QString problems = m_script->problems().join(u'\n');
    const bool done = m_script->isDone();
    m_script.reset();
    m_window.reset();
    m_log.reset();
    QVERIFY2(done, qPrintable(problems));
}

void TestImport::asksForSongFiles()
{
    m_script->expect("QFileDialog", [](QWidget *widget) {
        auto *dialog = qobject_cast<QFileDialog *>(widget);
        const QString title = dialog->windowTitle();
        const QString folder = dialog->directory().path();
        const QStringList filters = dialog->nameFilters();
        const QFileDialog::FileMode mode = dialog->fileMode();
        dialog->reject();
        QCOMPARE(title, QStringLiteral("Seleziona i file da importare"));
        QCOMPARE(folder, QStringLiteral("/"));
        QCOMPARE(filters,
                 QStringList(QStringLiteral("Songs (*.mid *.kar *.mp3 *.zb3 *.zb4 *.zb5)")));
        QCOMPARE(mode, QFileDialog::ExistingFiles);
    });
    button("selectDirToolButton")->click();
}

void TestImport::changesNothingWhenNoFileIsPicked()
{
    setAsking(false);
    pick({path("a/one.mid")});
    button("updateDataToolButton")->setEnabled(false);
    m_script->expectFilesCancelled();
    button("selectDirToolButton")->click();
    QCOMPARE(model()->goodRowCount(), 1);
    QVERIFY(!button("updateDataToolButton")->isEnabled());
    QVERIFY(button("transferFilesToolButton")->isEnabled());
    m_window->importUserLibrary();
    QCOMPARE(model()->goodRowCount(), 1);
}

void TestImport::fillsTheTableAndOffersToSynchronise()
{
    expectSummary(
        QStringLiteral("Sono stati esaminti 3 files, trovate 2 songs di cui 1 di (c)Kordia"),
        "noPushButton");
    pick({path("a/one.mid"), path("a/two.kar"), path("a/bad.mid")});
    QCOMPARE(model()->goodRowCount(), 2);
    QVERIFY(button("updateDataToolButton")->isEnabled());
    QVERIFY(button("transferFilesToolButton")->isEnabled());
    QVERIFY(m_log->contains(QStringLiteral("          IMPORT USER LIBRARY ")));
    QVERIFY(!m_summary.isEmpty());
    QCOMPARE(QSettings(settingsOrganisation, settingsApplication)
                 .value(QStringLiteral("copyrightAsk"))
                 .toBool(),
             true);
}

void TestImport::summarisesUnreadableFiles()
{
    makeFile(path("a/worse.mid"), {});
    expectSummary(
        QStringLiteral("Sono stati esaminti 2 files, trovate 0 songs di cui 0 di (c)Kordia"),
        "noPushButton");
    pick({path("a/bad.mid"), path("a/worse.mid")});
    QCOMPARE(model()->goodRowCount(), 0);
    QVERIFY(button("updateDataToolButton")->isEnabled());
}

void TestImport::skipsTheSummaryWhenAskingIsOff()
{
    setAsking(false);
    pick({path("a/one.mid")});
    QCOMPARE(model()->goodRowCount(), 1);
    QVERIFY(button("updateDataToolButton")->isEnabled());
    QVERIFY(button("transferFilesToolButton")->isEnabled());
}

void TestImport::remembersThatNoMoreMessagesAreWanted_data()
{
    QTest::addColumn<QByteArray>("button");
    QTest::newRow("No") << QByteArray("noPushButton");
    QTest::newRow("Yes") << QByteArray("yesPushButton");
}

void TestImport::remembersThatNoMoreMessagesAreWanted()
{
    QFETCH(QByteArray, button);
    expectSummary(
        QStringLiteral("Sono stati esaminti 1 files, trovate 1 songs di cui 0 di (c)Kordia"),
        button.constData(), true);
    if (button == "yesPushButton")
        expectBackupOffer(
            "exitPushButton"); // and no question: the checkbox also applies to this run
    pick({path("a/one.mid")});
    QCOMPARE(QSettings(settingsOrganisation, settingsApplication)
                 .value(QStringLiteral("copyrightAsk"))
                 .toBool(),
             false);
    QVERIFY(m_window->findChild<QAction *>(QStringLiteral("actionCopyrightNo"))->isChecked());
    pick({path("a/two.kar")});
    QCOMPARE(model()->goodRowCount(), 1);
}

void TestImport::showsTheAdvance()
{
    setAsking(false);
    QStringList labels;
    QString title;
    int maximum = 0;
    DuringTheRun watch([&](QProgressDialog *dialog) {
        labels.append(dialog->findChild<QLabel *>()->text());
        title = dialog->windowTitle();
        maximum = dialog->maximum();
    });
    pick({path("a/one.mid"), path("a/bad.mid"), path("a/three.mid")});
    labels.removeDuplicates();
    QCOMPARE(labels.join(u'|'), QStringLiteral("Importo la libreria...|1 di 3|2 di 3|3 di 3"));
    QCOMPARE(title, QStringLiteral("Lettura file"));
    QCOMPARE(maximum, 3);
    QVERIFY(m_window->findChild<QProgressDialog *>() == nullptr);
}

void TestImport::continuesAfterInterrompi()
{
    setAsking(false);
    DuringTheRun press([](QProgressDialog *dialog) {
        auto *stop = dialog->findChild<QPushButton *>();
        QCOMPARE(stop->text(), QStringLiteral("Interrompi"));
        QTest::mouseClick(stop, Qt::LeftButton);
        QVERIFY(!dialog->isVisible());
    });
    pick({path("a/one.mid"), path("a/two.kar"), path("a/three.mid")});
    QCOMPARE(press.count, 1);
    QCOMPARE(model()->goodRowCount(), 3);
}

void TestImport::replacesTheRowsOfTheLastImport()
{
    setAsking(false);
    pick({path("a/one.mid"), path("a/two.kar")});
    pick({path("a/three.mid")});
    QCOMPARE(model()->goodRowCount(), 1);
    QCOMPARE(model()->fileName(0), path("a/three.mid"));
}

void TestImport::fitsTheColumnsToTheRowsThatCame()
{
    setAsking(false);
    auto *view = m_window->findChild<QTableView *>();
    m_window->resize(3000, 700); // so that no column must be narrower
    const int emptyWidth = view->columnWidth(2);
    makeFile(path("a/a song of a long file name.mid"), smallMidi(QByteArray(60, 'W')));
    pick({path("a/one.mid"), path("a/a song of a long file name.mid")});
    const int fullWidth = view->columnWidth(2);
    QVERIFY(fullWidth > emptyWidth);
    for (const int column : {1, 2, 3, 4, 5, 6, 7, 8, 10}) {
        const int width = view->columnWidth(column);
        view->resizeColumnToContents(column);
        QCOMPARE(width, view->columnWidth(column));
    }
    pick({path("a/one.mid")});
    QVERIFY(view->columnWidth(2) < fullWidth);
}

void TestImport::importsTheSameListAgain()
{
    setAsking(false);
    pick({path("a/one.mid")});
    makeFile(path("a/one.mid"), smallMidi("Changed"));
    m_window->findChild<QPushButton *>(QStringLiteral("dbgImportPushButton"))->click();
    QCOMPARE(model()->goodRowCount(), 1);
    QCOMPARE(model()->index(0, 2).data().toString(), QStringLiteral("Changed"));
}

void TestImport::keepsOldRowsWhenTheyCannotBeCleared()
{
    setAsking(false);
    pick({path("a/one.mid")});
    QVERIFY(QSqlQuery(model()->database())
                .exec(QStringLiteral("create trigger keep before delete on usersongs begin "
                                     "select raise(abort, 'kept'); end")));
    setAsking(true);
    pick({path("a/two.kar")});
    QCOMPARE(model()->goodRowCount(), 1);
    QCOMPARE(model()->fileName(0), path("a/one.mid"));
    QVERIFY(!button("updateDataToolButton")->isEnabled());
    QVERIFY(button("transferFilesToolButton")->isEnabled());
}

void TestImport::keepsRowsInPlaceDuringTheRun()
{
    setAsking(false);
    auto *view = m_window->findChild<QTableView *>();
    DuringTheRun sort([view](QProgressDialog *) { view->sortByColumn(2, Qt::DescendingOrder); });
    QStringList atTheLastStep;
    DuringTheRun watch([&](QProgressDialog *) {
        atTheLastStep.clear();
        for (int row = 0; row < model()->goodRowCount(); ++row)
            atTheLastStep.append(model()->shortName(row));
    });
    pick({path("a/two.kar"), path("a/one.mid"), path("a/three.mid")});
    QVERIFY(sort.count > 0);
    QCOMPARE(atTheLastStep.join(u'|'), QStringLiteral("two.kar|one.mid|three.mid"));
}

void TestImport::asksNothingAfterAQuit()
{
    DuringTheRun quit(
        [](QProgressDialog *) { QCoreApplication::postEvent(qApp, new QEvent(QEvent::Quit)); });
    pick({path("a/one.mid"), path("a/two.kar"), path("a/three.mid")});
    QCoreApplication::removePostedEvents(qApp, QEvent::Quit);
    QVERIFY(model()->goodRowCount() < 3);
    QVERIFY(m_summary.isEmpty());
}

void TestImport::synchronisesAfterYes()
{
    expectSummary(
        QStringLiteral("Sono stati esaminti 1 files, trovate 1 songs di cui 1 di (c)Kordia"),
        "yesPushButton");
    expectBackupOffer("exitPushButton");
    pick({path("a/two.kar")});
    QVERIFY2(!button("updateDataToolButton")->isEnabled(), "until the next import");
    QVERIFY(button("transferFilesToolButton")->isEnabled());

    expectSummary(
        QStringLiteral("Sono stati esaminti 1 files, trovate 1 songs di cui 1 di (c)Kordia"),
        "yesPushButton");
    expectBackupOffer("abortPushButton");
    pick({path("a/two.kar")});
    QVERIFY(button("updateDataToolButton")->isEnabled());
}

void TestImport::scansAFolder()
{
    makeFile(path("b/c/one.mid"), smallMidi("One"));
    makeFile(path("b/two.mid"), smallMidi("Two", true));
    makeFile(path("b/c/bad.mid"), "no song");
    int count = 0;
    m_window->filesCount(path("b"), count);
    QCOMPARE(count, 3);
    int songs = 0;
    int publisherSongs = 0;
    int unknown = 0;
    m_window->scanDir(path("b"), songs, publisherSongs, unknown);
    QCOMPARE(songs, 2);
    QCOMPARE(publisherSongs, 1);
    QCOMPARE(unknown, 1);
    QCOMPARE(model()->goodRowCount(), 2);
}

BRISEL_TEST(QApplication, TestImport)
#include "tst_import.moc"
