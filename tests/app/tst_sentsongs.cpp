#include "tests/app/reporttest.h"
#include "tests/testprogram.h"

#include <QMessageBox>

using namespace brisel;

/// The songs that a transfer sends, through the real window.
class TestSentSongs : public ReportTest
{
    Q_OBJECT

private slots:
    void init() { openWindow(); }
    void cleanup() { closeWindow(); }

    void sendsNoSongTakenOutByTheMenu();
    void sendsNoSongTakenOutByTheKey();
    void sendsNoDeletedSong_data();
    void sendsNoDeletedSong();
    void backsUpNoSongTakenOut();
    void reportsASongThatIsGone();
    void asksNothingWhereAPickedSongLies();
    void reportsNewNames();
    void asksAboutTheSongThatHasAShortName();

private:
    void transfer(const QString &message, std::optional<Run::Answer> answer = {})
    {
        m_script->expectFiles({at(u"volumes/CARD"_qs)});
        if (answer.has_value())
            expectQuestion(*answer);
        m_script->expectMessage(u"Trasferimento"_qs, message, QMessageBox::Ok);
        clickTransfer();
        verifyScript();
    }
    QStringList sent() const
    {
        return QDir(at(u"volumes/CARD/songs"_qs)).entryList(QDir::Files, QDir::Name);
    }

    const QString m_done = u"Tutti i file sono stati copiati correttamente"_qs;
    const QString m_failed = u"Non è stato possibile copiare uno o più file"_qs;
};

void TestSentSongs::sendsNoSongTakenOutByTheMenu()
{
    importSongs({u"one.mid"_qs, u"two.mid"_qs, u"three.mid"_qs}, false);
    chooseFromMenu(0, cell(1));
    transfer(m_done);
    QCOMPARE(sent(), QStringList({u"one.mid"_qs, u"three.mid"_qs}));
    QVERIFY(QFile::exists(at(u"two.mid"_qs)));
    QCOMPARE(outcome(), u"Trasferimento: 2 copiate"_qs);
}

void TestSentSongs::sendsNoSongTakenOutByTheKey()
{
    importSongs({u"one.mid"_qs, u"two.mid"_qs}, false);
    m_window->activateWindow();
    table()->setFocus();
    QVERIFY(QTest::qWaitForWindowActive(m_window));
    table()->setCurrentIndex(model().index(0, 2));
    QTest::keyClick(m_window->windowHandle(), Qt::Key_Delete);
    QCOMPARE(model().goodRowCount(), 1);
    transfer(m_done);
    QCOMPARE(sent(), QStringList{u"two.mid"_qs});
}

void TestSentSongs::sendsNoDeletedSong_data()
{
    QTest::addColumn<bool>("canBeDeleted");
    QTest::newRow("file") << true;
    // Not even root can delete a folder as a file.
    QTest::newRow("folder in its place") << false;
}

void TestSentSongs::sendsNoDeletedSong()
{
    QFETCH(const bool, canBeDeleted);
    importSongs({u"one.mid"_qs, u"two.mid"_qs}, false);
    if (!canBeDeleted) {
        QVERIFY(QFile::remove(at(u"two.mid"_qs)));
        makeFile(at(u"two.mid/inside.mid"_qs), "kept");
    }
    m_script->expectMessage(u"Attenzione"_qs, u"Sei sicuro di voler cancellare il file?"_qs,
                            QMessageBox::Yes);
    chooseFromMenu(1, cell(1));
    transfer(m_done);
    QCOMPARE(sent(), QStringList{u"one.mid"_qs});
    QCOMPARE(outcome(), u"Trasferimento: 1 copiate"_qs);
}

void TestSentSongs::backsUpNoSongTakenOut()
{
    importSongs({u"one.mid"_qs, u"two.mid"_qs}, true);
    chooseFromMenu(0, cell(0));
    expectBackupToFolder();
    m_script->expectMessage(u"Backup"_qs, u"Backup eseguito correttamente"_qs, QMessageBox::Ok);
    clickSync();
    verifyScript();
    const QStringList backups =
        QDir(at(u"backups"_qs)).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    QCOMPARE(backups.size(), 1);
    QCOMPARE(QDir(at(u"backups/"_qs + backups.first())).entryList(QDir::Files),
             QStringList({u"contenuto.csv"_qs, u"two.mid"_qs}));
}

void TestSentSongs::reportsASongThatIsGone()
{
    importSongs({u"volumes/CARD/songs/one.mid"_qs, u"two.mid"_qs}, false);
    QVERIFY(QFile::remove(at(u"volumes/CARD/songs/one.mid"_qs)));
    transfer(m_failed);
    QCOMPARE(reportLines(), QStringList({u"Trasferimento: 1 copiate, 1 non riuscite"_qs,
                                         line(u"Non trovata"_qs, u"volumes/CARD/songs/one.mid"_qs,
                                              u"il file non esiste"_qs)}));
    QCOMPARE(sent(), QStringList{u"two.mid"_qs});
}

void TestSentSongs::asksNothingWhereAPickedSongLies()
{
    importSongs({u"one.mid"_qs, u"volumes/CARD/songs/one.mid"_qs}, false);
    const QByteArray there = fileContent(at(u"volumes/CARD/songs/one.mid"_qs)) + "there";
    makeFile(at(u"volumes/CARD/songs/one.mid"_qs), there);
    transfer(m_failed);
    QCOMPARE(fileContent(at(u"volumes/CARD/songs/one.mid"_qs)), there);
    QCOMPARE(reportLines(),
             QStringList({u"Trasferimento: 1 copiate, 1 non riuscite"_qs,
                          line(u"Non copiata"_qs, u"one.mid"_qs,
                               u"al suo posto si trova un'altra delle song scelte"_qs)}));
}

void TestSentSongs::reportsNewNames()
{
    importSongs({u"A long name.mid"_qs, u"two.mid"_qs}, false);
    transfer(m_done, Run::Answer::YesToAll);
    const QString songs = at(u"volumes/CARD/songs/"_qs);
    const QString names = songs + u"A long name.mid -> "_qs + songs + u"Alongn-1.mid"_qs;
    QCOMPARE(reportLines(),
             QStringList({u"Trasferimento: 2 copiate"_qs, u"Rinominato: "_qs + names}));
    m_window->findChild<QAction *>(u"actionEnglish"_qs)->trigger();
    QCoreApplication::processEvents();
    importSongs({u"A longer name.mid"_qs}, false);
    m_script->expectFiles({at(u"volumes/CARD"_qs)});
    expectQuestion(Run::Answer::YesToAll);
    m_script->expectMessage(u"Transfer"_qs, u"All the files have been copied successfully"_qs,
                            QMessageBox::Ok);
    clickTransfer();
    QCOMPARE(reportLines(), QStringList({u"Transfer: 1 copied"_qs,
                                         u"Renamed: "_qs + songs + u"A longer name.mid -> "_qs +
                                             songs + u"Alonge-1.mid"_qs}));
}

void TestSentSongs::asksAboutTheSongThatHasAShortName()
{
    importSongs({u"A long name.mid"_qs, u"two.mid"_qs}, false);
    transfer(m_done, Run::Answer::YesToAll);
    const QByteArray index = fileContent(at(u"volumes/CARD/index.id2"_qs));
    importSongs({u"A long name.mid"_qs}, true);
    m_script->expectFiles({at(u"volumes/CARD"_qs)});
    m_script->expect("NoCopyrightDialog", [this](QWidget *widget) {
        QCOMPARE(widget->findChild<QLabel *>(u"fileNameLabel"_qs)->text(),
                 at(u"volumes/CARD/songs/Alongn-1.mid"_qs));
        QCOMPARE(widget->findChild<QLabel *>(u"messageLabel"_qs)->text(),
                 u"esiste già, vuoi sostituirlo?"_qs);
        DialogScript::click(widget, u"yesPushButton"_qs);
    });
    m_script->expectMessage(u"Trasferimento"_qs, m_done, QMessageBox::Ok);
    clickTransfer();
    verifyScript();
    QCOMPARE(sent(), QStringList({u"Alongn-1.mid"_qs, u"two.mid"_qs}));
    QCOMPARE(fileContent(at(u"volumes/CARD/songs/Alongn-1.mid"_qs)),
             fileContent(at(u"A long name.mid"_qs)));
    // All except the dates of the songs.
    constexpr int dated = 50;
    for (int record = 0; record < 128; record += 64)
        QCOMPARE(fileContent(at(u"volumes/CARD/index.id2"_qs)).mid(record, dated),
                 index.mid(record, dated));
    QVERIFY(!details()->isEnabled());
}

BRISEL_TEST(QApplication, TestSentSongs)
#include "tst_sentsongs.moc"
