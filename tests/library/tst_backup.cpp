#include "library/backup.h"
#include "library/backuplist.h"
#include "library/dialogs/backupdialog.h"

#include "tests/dialogscript.h"
#include "tests/fulldisk.h"
#include "tests/logcapture.h"
#include "tests/scriptedrun.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"

#include <QApplication>
#include <QDateTime>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using namespace brisel;

class TestBackup : public QObject
{
    Q_OBJECT

private slots:
    void namesTheFolderByDateAndTime();
    void makesTheFolder();
    void refusesExistingFolder();
    void refusesMissingFolder();
    void copiesIntoAFolderOfItsOwn();
    void triesNothingWithoutAFolder();
    void keepsSongsOfOneName();
    void keepsTheGraphicsOfSongsOfOneName();
    void copiesAFileThatWasPickedTwiceOnce();
    void failsWithASongThatIsGone();
    void failsWithoutItsList();
    void endsWithTheProgram();

    void dialogHasItsTexts();
    void dialogResults_data();
    void dialogResults();
    void escapeAborts();
    void browseStoresTheFolder();
    void cancelledBrowseKeepsTheFolder();

private:
    /// Makes songs in a folder beside "backups", which it makes, too; gives their paths.
    static QStringList makeSongs(const QTemporaryDir &folder, const QStringList &names)
    {
        QStringList paths;
        for (const QString &name : names) {
            makeFile(folder.filePath(name), "song");
            paths.append(folder.filePath(name));
        }
        return QDir(folder.path()).mkdir(u"backups"_qs) ? paths : QStringList();
    }
    /// The names of the files in the one folder below "backups".
    static QStringList copies(const QTemporaryDir &folder)
    {
        const QDir backups(folder.filePath(u"backups"_qs));
        const QStringList made = backups.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
        return made.size() == 1 ? QDir(backups.filePath(made.first())).entryList(QDir::Files)
                                : made;
    }

    /// The lines of the list in that folder: "copy from path".
    static QStringList listed(const QTemporaryDir &folder)
    {
        const QDir backups(folder.filePath(u"backups"_qs));
        const QString made = backups.entryList(QDir::Dirs | QDir::NoDotAndDotDot).value(0);
        const auto lines = BackupList::read(backups.filePath(made));
        QStringList texts;
        for (const BackupList::Line &line : lines.value_or(QList<BackupList::Line>()))
            texts.append(line.entry.name + u" from "_qs + line.entry.path);
        return texts;
    }
    /// The content of a file in that folder.
    static QByteArray copy(const QTemporaryDir &folder, const QString &name)
    {
        const QDir backups(folder.filePath(u"backups"_qs));
        const QString made = backups.entryList(QDir::Dirs | QDir::NoDotAndDotDot).value(0);
        return fileContent(backups.filePath(made + u'/' + name));
    }

    const QDateTime m_time{QDate(2011, 3, 7), QTime(18, 5, 9)};
};

void TestBackup::namesTheFolderByDateAndTime()
{
    QCOMPARE(backupFolderName(m_time), u"backup_kordia_2011_03_07_18-05-09"_qs);
}

void TestBackup::makesTheFolder()
{
    const QTemporaryDir folder;
    const QString expected = folder.filePath(u"backup_kordia_2011_03_07_18-05-09"_qs);
    const LogCapture log;
    QCOMPARE(makeBackupFolder(folder.path(), m_time), expected);
    QVERIFY(QFileInfo(expected).isDir());
    QCOMPARE(log.messages(),
             QStringList({u"Making new root backup dir: \"%1\" "_qs.arg(expected)}));
}

void TestBackup::refusesExistingFolder()
{
    const QTemporaryDir folder;
    makeFile(folder.filePath(u"backup_kordia_2011_03_07_18-05-09"_qs), "in the way");
    const LogCapture log;
    QCOMPARE(makeBackupFolder(folder.path(), m_time), QString());
    QCOMPARE(log.messages().last(), u"Dest root dir creation failed "_qs);
}

void TestBackup::refusesMissingFolder()
{
    const QTemporaryDir folder;
    QCOMPARE(makeBackupFolder(folder.filePath(u"none"_qs), m_time), QString());
    QVERIFY(!QFile::exists(folder.filePath(u"none"_qs)));
}

void TestBackup::copiesIntoAFolderOfItsOwn()
{
    const QTemporaryDir folder;
    const QStringList songs = makeSongs(folder, {u"a.mid"_qs, u"b.mid"_qs});
    ScriptedRun run(RunReport::Operation::Synchronisation);
    QCOMPARE(Backup(songs, folder.filePath(u"backups"_qs)).run(run), Backup::Outcome::Done);
    QCOMPARE(copies(folder), QStringList({u"a.mid"_qs, u"b.mid"_qs, u"contenuto.csv"_qs}));
    QCOMPARE(run.stages, QStringList(u"Backup"_qs));
    QCOMPARE(run.report().summary(), u"Sincronizzazione, Backup: 2 copiate"_qs);
}

void TestBackup::triesNothingWithoutAFolder()
{
    const QTemporaryDir folder;
    const QStringList songs = makeSongs(folder, {u"a.mid"_qs});
    ScriptedRun run(RunReport::Operation::Backup);
    QCOMPARE(Backup(songs, QString()).run(run), Backup::Outcome::NoFolder);
    QCOMPARE(Backup(songs, folder.filePath(u"none"_qs)).run(run), Backup::Outcome::NoFolder);
    QCOMPARE(run.stages, QStringList());
    QVERIFY(run.report().isUntouched());
}

void TestBackup::keepsSongsOfOneName()
{
    const QTemporaryDir folder;
    const QStringList songs =
        makeSongs(folder, {u"1/A.MID"_qs, u"2/a.mid"_qs, u"3/A.MID"_qs, u"4/a (2).mid"_qs});
    for (const QString &song : songs)
        makeFile(song, song.toUtf8());
    ScriptedRun run(RunReport::Operation::Backup);
    QCOMPARE(Backup(songs, folder.filePath(u"backups"_qs)).run(run), Backup::Outcome::Done);
    QCOMPARE(run.asked, QStringList());
    const QStringList names{u"A.MID"_qs, u"a (3).mid"_qs, u"A (4).MID"_qs, u"a (2).mid"_qs};
    QStringList lines;
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(copy(folder, names.at(i)), songs.at(i).toUtf8());
        lines.append(names.at(i) + u" from "_qs + songs.at(i));
    }
    QCOMPARE(listed(folder), lines);
    QCOMPARE(copies(folder).size(), 5);
    QCOMPARE(run.report().summary(), u"Backup: 4 copiate"_qs);
}

void TestBackup::keepsTheGraphicsOfSongsOfOneName()
{
    const QTemporaryDir folder;
    const QStringList songs = makeSongs(folder, {u"1/a.mp3"_qs, u"2/A.mp3"_qs});
    makeFile(folder.filePath(u"1/a.cdg"_qs), "first");
    makeFile(folder.filePath(u"2/A.CDG"_qs), "second");
    ScriptedRun run(RunReport::Operation::Backup);
    QCOMPARE(Backup(songs, folder.filePath(u"backups"_qs)).run(run), Backup::Outcome::Done);
    QCOMPARE(copy(folder, u"a.cdg"_qs), QByteArray("first"));
    QCOMPARE(copy(folder, u"A (2).cdg"_qs), QByteArray("second"));
    QCOMPARE(listed(folder), QStringList({u"a.mp3 from "_qs + songs.first(),
                                          u"a.cdg from "_qs + folder.filePath(u"1/a.cdg"_qs),
                                          u"A (2).mp3 from "_qs + songs.last(),
                                          u"A (2).cdg from "_qs + folder.filePath(u"2/A.CDG"_qs)}));
}

void TestBackup::copiesAFileThatWasPickedTwiceOnce()
{
    const QTemporaryDir folder;
    const QStringList songs = makeSongs(folder, {u"a.mid"_qs});
    ScriptedRun run(RunReport::Operation::Backup);
    QCOMPARE(Backup(songs + songs, folder.filePath(u"backups"_qs)).run(run), Backup::Outcome::Done);
    QCOMPARE(copies(folder), QStringList({u"a.mid"_qs, u"contenuto.csv"_qs}));
    QCOMPARE(run.asked, QStringList());
}

/// Only the list is too long for the disk.
void TestBackup::failsWithoutItsList()
{
    const QTemporaryDir folder;
    const QStringList songs = makeSongs(folder, {u"a.mid"_qs});
    ScriptedRun run(RunReport::Operation::Backup);
    {
        const FullDisk full(16);
        QCOMPARE(Backup(songs, folder.filePath(u"backups"_qs)).run(run), Backup::Outcome::Failed);
    }
    QCOMPARE(copies(folder), QStringList(u"a.mid"_qs));
    QCOMPARE(run.report().failed(), 1);
    QVERIFY(run.report().text().contains(u"/contenuto.csv\n"_qs));
}

void TestBackup::failsWithASongThatIsGone()
{
    const QTemporaryDir folder;
    const QStringList songs = makeSongs(folder, {u"a.mid"_qs, u"b.mid"_qs});
    QVERIFY(QFile::remove(songs.first()));
    ScriptedRun run(RunReport::Operation::Backup);
    QCOMPARE(Backup(songs, folder.filePath(u"backups"_qs)).run(run), Backup::Outcome::Failed);
    QCOMPARE(copies(folder), QStringList({u"b.mid"_qs, u"contenuto.csv"_qs}));
    QCOMPARE(listed(folder), QStringList(u"b.mid from "_qs + songs.last()));
    QCOMPARE(run.report().failed(), 1);
}

void TestBackup::endsWithTheProgram()
{
    const QTemporaryDir folder;
    const QStringList songs = makeSongs(folder, {u"a.mid"_qs, u"b.mid"_qs});
    {
        ScriptedRun run(RunReport::Operation::Backup);
        run.onStep = [](int) { RunGuard::requestEnd(); };
        QCOMPARE(Backup(songs, folder.filePath(u"backups"_qs)).run(run), Backup::Outcome::Ended);
    }
    QCoreApplication::removePostedEvents(QCoreApplication::instance(), QEvent::Quit);
    QCOMPARE(copies(folder), QStringList({u"a.mid"_qs, u"contenuto.csv"_qs}));
    QCOMPARE(listed(folder), QStringList(u"a.mid from "_qs + songs.first()));
}

void TestBackup::dialogHasItsTexts()
{
    const BackupDialog dialog;
    QCOMPARE(dialog.windowTitle(), u"Backup"_qs);
    QCOMPARE(dialog.findChild<QLabel *>(u"messageLabel"_qs)->text(),
             u"Si consiglia di effettuare un backup della libreria prima di procedere con "
             "l'aggiornamento.\nSelezionare una cartella di destinazione per il backup oppure "
             "premere 'Prosegui senza backup'."_qs);
    const auto text = [&dialog](const QString &button) {
        return dialog.findChild<QPushButton *>(button)->text();
    };
    QCOMPARE(text(u"browsePushButton"_qs), u"Sfoglia..."_qs);
    QCOMPARE(text(u"abortPushButton"_qs), u"Annulla"_qs);
    QCOMPARE(text(u"doBackupPushButton"_qs), u"Esegui backup"_qs);
    QCOMPARE(text(u"exitPushButton"_qs), u"Prosegui senza backup"_qs);
    QCOMPARE(dialog.directory(), QString());
}

void TestBackup::dialogResults_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("result");
    QTest::newRow("abort") << u"abortPushButton"_qs << 0;
    QTest::newRow("backup") << u"doBackupPushButton"_qs << 1;
    QTest::newRow("no backup") << u"exitPushButton"_qs << 2;
}

void TestBackup::dialogResults()
{
    QFETCH(QString, button);
    BackupDialog dialog;
    DialogScript script;
    script.expect("BackupDialog",
                  [&button](QWidget *widget) { DialogScript::click(widget, button); });
    QTEST(dialog.exec(), "result");
    QVERIFY2(script.isDone(), qPrintable(script.problems().join(u'\n')));
}

void TestBackup::escapeAborts()
{
    BackupDialog dialog;
    DialogScript script;
    script.expect("BackupDialog", [](QWidget *widget) { QTest::keyClick(widget, Qt::Key_Escape); });
    QCOMPARE(dialog.exec(), int(BackupDialog::Abort));
}

void TestBackup::browseStoresTheFolder()
{
    const QTemporaryDir folder;
    BackupDialog dialog;
    DialogScript script;
    script.expectFiles({folder.path()});
    DialogScript::click(&dialog, u"browsePushButton"_qs);
    QVERIFY2(script.isDone(), qPrintable(script.problems().join(u'\n')));
    QCOMPARE(dialog.directory(), folder.path());
    QCOMPARE(dialog.findChild<QLineEdit *>(u"directoryLineEdit"_qs)->text(), folder.path());

    script.expectFilesCancelled();
    DialogScript::click(&dialog, u"browsePushButton"_qs);
    QVERIFY2(script.isDone(), qPrintable(script.problems().join(u'\n')));
    QCOMPARE(dialog.directory(), folder.path());
}

void TestBackup::cancelledBrowseKeepsTheFolder()
{
    BackupDialog dialog;
    DialogScript script;
    script.expect("QFileDialog", [](QWidget *widget) {
        auto *chooser = qobject_cast<QFileDialog *>(widget);
        const QString title = chooser->windowTitle();
        const QString start = chooser->directory().path();
        chooser->reject();
        QCOMPARE(title, u"Scegli cartella"_qs);
        QCOMPARE(start, u"/home"_qs);
    });
    DialogScript::click(&dialog, u"browsePushButton"_qs);
    QVERIFY2(script.isDone(), qPrintable(script.problems().join(u'\n')));
    QCOMPARE(dialog.directory(), QString());
}

BRISEL_TEST(QApplication, TestBackup)
#include "tst_backup.moc"
