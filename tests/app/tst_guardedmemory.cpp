#include "index/index.h"
#include "tests/app/reporttest.h"
#include "tests/scriptedindex.h"
#include "tests/smalldisk.h"
#include "tests/testprogram.h"

#include <QAction>
#include <QLineEdit>
#include <QMessageBox>
#include <QRadioButton>

#include <optional>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

using namespace brisel;

/// Memories that can't be written, and memories that another program works on, through the window:
/// each run reports that, and changes nothing.
class TestGuardedMemory : public ReportTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void refusesToIndexWhatIsWriteProtected_data() { addRuns(); }
    void refusesToIndexWhatIsWriteProtected();
    void refusesToTransferToWhatIsWriteProtected_data();
    void refusesToTransferToWhatIsWriteProtected();
    void asksNothingWhereNothingCanBeReplaced();
    void refusesToSaveSongsThere();
    void refusesToSaveAListThere();
    void refusesToIndexWhatIsInUse_data() { addRuns(); }
    void refusesToIndexWhatIsInUse();
    void refusesToTransferToWhatIsInUse();
    void refusesToListWhatIsInUse();

private:
    void addRuns();
    QString card() const { return at(u"volumes/CARD"_qs); }
    bool mountCard();
    void lockCard();
    void runIndex(const QString &outcome);
    void saveList(const QString &fileName, const QString &outcome);
    /// The names of the memory's files, and the bytes of its path list.
    QStringList content() const;

    std::optional<SmallDisk> m_disk;
    int m_lock = -1;
    const QString m_inUse = u"Un altro programma sta lavorando su questa memoria.\n"
                            "Riprovare quando ha finito."_qs;
};

void TestGuardedMemory::init()
{
    openWindow();
}

void TestGuardedMemory::cleanup()
{
    closeWindow();
    m_disk.reset();
    if (m_lock >= 0)
        ::close(m_lock);
    m_lock = -1;
}

void TestGuardedMemory::addRuns()
{
    QTest::addColumn<bool>("isRebuild");
    QTest::newRow("update") << false;
    QTest::newRow("rebuild") << true;
}

bool TestGuardedMemory::mountCard()
{
    m_disk.emplace(card(), SmallDisk::memorySize);
    makeSongs({u"volumes/CARD/songs/one.mid"_qs}, true);
    return m_disk->isMounted() && ScriptedIndex().createIndex(card());
}

/// Another program begins to work on the memory.
void TestGuardedMemory::lockCard()
{
    m_lock = ::open(QFile::encodeName(card()).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    QCOMPARE(::flock(m_lock, LOCK_EX | LOCK_NB), 0);
}

QStringList TestGuardedMemory::content() const
{
    QStringList names;
    for (const QString &folder : {card(), card() + u"/songs"_qs})
        names += QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    return names << QString::fromLatin1(fileContent(card() + u"/index.id2"_qs).toHex());
}

void TestGuardedMemory::runIndex(const QString &outcome)
{
    QFETCH(bool, isRebuild);
    m_script->expect("IndexDialog", [this, isRebuild, outcome](QWidget *widget) {
        widget->findChild<QLineEdit *>(u"lineEditPath"_qs)->setText(card());
        const QString button = isRebuild ? u"radioButtonRebuild"_qs : u"radioButtonUpdate"_qs;
        widget->findChild<QRadioButton *>(button)->setChecked(true);
        DialogScript inner;
        inner.expectMessage(u"Ottimizza memoria"_qs, outcome, QMessageBox::Ok);
        DialogScript::click(widget, u"pushButtonStart"_qs);
        QVERIFY2(inner.isDone(), qPrintable(inner.problems().join(u'\n')));
        DialogScript::click(widget, u"pushButtonClose"_qs);
    });
    m_window->findChild<QAction *>(u"optimizeMemory"_qs)->trigger();
    verifyScript();
}

void TestGuardedMemory::saveList(const QString &fileName, const QString &outcome)
{
    m_script->expect("SongsListDialog", [this, fileName, outcome](QWidget *widget) {
        widget->findChild<QLineEdit *>(u"lineEditPath"_qs)->setText(card());
        widget->findChild<QLineEdit *>(u"lineEditFile"_qs)->setText(fileName);
        DialogScript inner;
        inner.expectMessage(u"Salva lista song"_qs, outcome, QMessageBox::Ok);
        DialogScript::click(widget, u"pushButtonStart"_qs);
        QVERIFY2(inner.isDone(), qPrintable(inner.problems().join(u'\n')));
        DialogScript::click(widget, u"pushButtonClose"_qs);
    });
    m_window->findChild<QAction *>(u"actionSongsList"_qs)->trigger();
    verifyScript();
}

void TestGuardedMemory::refusesToIndexWhatIsWriteProtected()
{
    if (!mountCard())
        QSKIP("only root can mount a small disk");
    makeSongs({u"volumes/CARD/songs/two.mid"_qs}, true);
    const QStringList before = content();
    QVERIFY(m_disk->setReadOnly(true));
    runIndex(u"Operazione non riuscita.\nAssicurarsi che il disco abbia sufficiente spazio libero "
             "e che non sia protetto da scrittura."_qs);
    QCOMPARE(reportLines(), QStringList({u"Ottimizzazione memoria: 1 non riuscite"_qs,
                                         line(u"Non indicizzata"_qs, u"volumes/CARD"_qs,
                                              u"la memoria è protetta da scrittura"_qs)}));
    QCOMPARE(content(), before);
}

void TestGuardedMemory::refusesToTransferToWhatIsWriteProtected_data()
{
    QTest::addColumn<bool>("hasFolder");
    QTest::newRow("with the folder") << true;
    QTest::newRow("without") << false;
}

void TestGuardedMemory::refusesToTransferToWhatIsWriteProtected()
{
    QFETCH(bool, hasFolder);
    if (!mountCard())
        QSKIP("only root can mount a small disk");
    if (!hasFolder)
        QVERIFY(QDir(card() + u"/songs"_qs).removeRecursively());
    const QStringList before = content();
    QVERIFY(m_disk->setReadOnly(true));
    importSongs({u"two.mid"_qs}, true);
    m_script->expectFiles({card()});
    m_script->expectMessage(u"Trasferimento"_qs,
                            hasFolder ? u"Non è stato possibile copiare uno o più file"_qs
                                      : u"Non è possibile copiare i file sulla cartella principale,"
                                        " creare o selezionare una sottocartella"_qs,
                            QMessageBox::Ok);
    clickTransfer();
    verifyScript();
    QCOMPARE(reportLines(), QStringList({u"Trasferimento: 1 non riuscite"_qs,
                                         line(u"Non copiata"_qs,
                                              hasFolder ? u"two.mid"_qs : u"volumes/CARD/songs"_qs,
                                              u"la memoria è protetta da scrittura"_qs)}));
    QCOMPARE(content(), before);
}

void TestGuardedMemory::asksNothingWhereNothingCanBeReplaced()
{
    if (!mountCard())
        QSKIP("only root can mount a small disk");
    const QStringList before = content();
    QVERIFY(m_disk->setReadOnly(true));
    importSongs({u"one.mid"_qs}, true);
    m_script->expectFiles({card()});
    m_script->expectMessage(u"Trasferimento"_qs, u"Non è stato possibile copiare uno o più file"_qs,
                            QMessageBox::Ok);
    clickTransfer();
    verifyScript();
    QCOMPARE(reportLines(), QStringList({u"Trasferimento: 1 non riuscite"_qs,
                                         line(u"Non copiata"_qs, u"one.mid"_qs,
                                              u"la memoria è protetta da scrittura"_qs)}));
    QCOMPARE(content(), before);
}

void TestGuardedMemory::refusesToSaveSongsThere()
{
    if (!mountCard())
        QSKIP("only root can mount a small disk");
    import({u"volumes/CARD/songs/one.mid"_qs});
    const QByteArray song = fileContent(card() + u"/songs/one.mid"_qs);
    QVERIFY(m_disk->setReadOnly(true));
    expectBackup(u"exitPushButton"_qs);
    clickSync();
    verifyScript();
    const QString lineOfSong = line(u"Non salvata"_qs, u"volumes/CARD/songs/one.mid"_qs,
                                    u"la memoria è protetta da scrittura"_qs);
    QCOMPARE(reportLines(), QStringList({u"Sincronizzazione: 1 non riuscite"_qs, lineOfSong}));
    expectEdit([](QWidget *widget) {
        widget->findChild<QLineEdit *>(u"titleLineEdit"_qs)->setText(u"Other"_qs);
        DialogScript::click(widget, u"savePushButton"_qs);
    });
    m_script->expectMessage(u"Modifica dati song"_qs,
                            u"La song non è stata salvata: la memoria è protetta da scrittura"_qs,
                            QMessageBox::Ok);
    expectEdit([](QWidget *widget) { DialogScript::click(widget, u"exitPushButton"_qs); });
    doubleClick(0);
    verifyScript();
    QCOMPARE(reportLines().last(), lineOfSong);
    QCOMPARE(fileContent(card() + u"/songs/one.mid"_qs), song);
}

void TestGuardedMemory::refusesToSaveAListThere()
{
    if (!mountCard())
        QSKIP("only root can mount a small disk");
    QVERIFY(m_disk->setReadOnly(true));
    saveList(card() + u"/list.csv"_qs, u"Errore durante la creazione del file"_qs);
    QCOMPARE(reportLines().last(), line(u"Non salvata"_qs, u"volumes/CARD/list.csv"_qs,
                                        u"la memoria è protetta da scrittura"_qs));
    saveList(at(u"list.csv"_qs), u"Operazione completata"_qs);
    QVERIFY(QFile::exists(at(u"list.csv"_qs)));
}

void TestGuardedMemory::refusesToIndexWhatIsInUse()
{
    makeSongs({u"volumes/CARD/songs/one.mid"_qs}, true);
    const QStringList before = content();
    lockCard();
    runIndex(m_inUse);
    QCOMPARE(reportLines(), QStringList({u"Ottimizzazione memoria: 1 non riuscite"_qs,
                                         line(u"Non indicizzata"_qs, u"volumes/CARD"_qs,
                                              u"un altro programma sta lavorando su questa "
                                              "memoria"_qs)}));
    QCOMPARE(content(), before);
}

void TestGuardedMemory::refusesToTransferToWhatIsInUse()
{
    importSongs({u"one.mid"_qs}, true);
    QDir(card()).removeRecursively();
    QVERIFY(QDir().mkpath(card()));
    const QStringList before = content();
    lockCard();
    m_script->expectFiles({card()});
    m_script->expectMessage(u"Trasferimento"_qs, m_inUse, QMessageBox::Ok);
    clickTransfer();
    verifyScript();
    QCOMPARE(reportLines(),
             QStringList({u"Trasferimento: 1 non riuscite"_qs,
                          line(u"Non copiata"_qs, u"volumes/CARD"_qs,
                               u"un altro programma sta lavorando su questa memoria"_qs)}));
    QCOMPARE(content(), before);
}

void TestGuardedMemory::refusesToListWhatIsInUse()
{
    makeSongs({u"volumes/CARD/songs/one.mid"_qs}, true);
    QVERIFY(ScriptedIndex().createIndex(card()));
    lockCard();
    saveList(at(u"list.csv"_qs), m_inUse);
    QCOMPARE(reportLines().last(), line(u"Non salvata"_qs, u"volumes/CARD"_qs,
                                        u"un altro programma sta lavorando su questa memoria"_qs));
    QVERIFY(!QFile::exists(at(u"list.csv"_qs)));
}

BRISEL_TEST(QApplication, TestGuardedMemory)
#include "tst_guardedmemory.moc"
