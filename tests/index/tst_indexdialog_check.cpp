#include "base/runguard.h"
#include "tests/index/indexdialogtest.h"

#include <algorithm>

using namespace brisel;

using namespace Sample;

namespace
{

const QString failure =
    QStringLiteral("Operazione non riuscita.\nAssicurarsi che il disco abbia sufficiente spazio "
                   "libero e che non sia protetto da scrittura.");
const QString notDone = QStringLiteral("Controllo memoria non eseguito!");

} // namespace

/// The checkbox "Controlla struttura memoria" of the dialog, checked and unchecked.
class TestIndexDialogCheck : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void checksNothingWithoutTheTick();
    void reportsAFaultlessMemory();
    void listsFindingsAfterAnUpdate();
    void reportsARepair();
    void reportsDamageThatARebuildLeaves();
    void countsFindingsAmongTheErrors();
    void checksNothingAfterAFailure();
    void reportsAMemoryThatWasPulled();
    void endsWithoutABoxAtQuit();
    void showsItsProgress();

private:
    template <typename Widget>
    Widget *child(const char *name) const
    {
        return m_dialog->findChild<Widget *>(QLatin1StringView(name));
    }
    QStringList report() const
    {
        return child<QPlainTextEdit>("plainTextReport")->toPlainText().split(u'\n');
    }
    void tick() const { toggle<QCheckBox>("checkBoxChkdsk"); }
    void chooseRebuild() const { toggle<QRadioButton>("radioButtonRebuild"); }
    template <typename Button>
    void toggle(const char *name) const
    {
        QTest::mouseClick(child<Button>(name), Qt::LeftButton, {}, QPoint(8, 8));
        QVERIFY(child<Button>(name)->isChecked());
    }
    void start() const { QTest::mouseClick(child<QPushButton>("pushButtonStart"), Qt::LeftButton); }
    void indexWithoutCheck();
    /// Calls \a step as soon as the report shows that the check begins.
    void whenCheckBegins(const std::function<void()> &step) const;
    void damageTitles() const;

    std::unique_ptr<SampleMemory> m_memory;
    std::unique_ptr<IndexDialog> m_dialog;
    std::unique_ptr<DialogScript> m_script;
};

void TestIndexDialogCheck::init()
{
    m_memory = std::make_unique<SampleMemory>();
    qputenv("BRISEL_VOLUMES", QFile::encodeName(QFileInfo(m_memory->root()).path()));
    m_memory->write(QStringLiteral("BASI/A.MID"), midiSong("One", "Anna", "Pop"));
    m_memory->write(QStringLiteral("BASI/B.MP3"), mp3Song("Two", "Bruno", "Rock"));
    m_script = std::make_unique<DialogScript>();
    m_dialog = std::make_unique<IndexDialog>();
    m_dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_dialog.get()));
    child<QLineEdit>("lineEditPath")->setText(m_memory->root());
}

void TestIndexDialogCheck::cleanup()
{
    QVERIFY2(m_script->isDone(), qPrintable(m_script->problems().join(u'\n')));
    m_dialog.reset();
    m_script.reset();
    m_memory.reset();
}

void TestIndexDialogCheck::indexWithoutCheck()
{
    m_script->expectMessage(boxTitle, success, QMessageBox::Ok);
    start();
}

void TestIndexDialogCheck::whenCheckBegins(const std::function<void()> &step) const
{
    auto *text = child<QPlainTextEdit>("plainTextReport");
    connect(text, &QPlainTextEdit::textChanged, m_dialog.get(), [this, step] {
        if (report().last() == QStringLiteral("Controllo memoria"))
            step();
    });
}

/// The first title, of the song with the id 0, gets another id.
void TestIndexDialogCheck::damageTitles() const
{
    const QByteArray titles = m_memory->read(QStringLiteral("title.id2"));
    m_memory->write(QStringLiteral("title.id2"), hex("00000009") + titles.mid(4));
}

void TestIndexDialogCheck::checksNothingWithoutTheTick()
{
    indexWithoutCheck();
    // An update does not read this file.
    m_memory->write(QStringLiteral("playlist/playlist.dat"),
                    QByteArray("\7\0", 2) + QByteArray(30, '\0'));
    m_memory->write(QStringLiteral("playlist/play0007.dat"), QByteArray(63, 'x'));
    m_memory->write(QStringLiteral("playlist/play0007.pts"), QByteArray());
    indexWithoutCheck();
    QCOMPARE(report(), QStringList({QStringLiteral("Ottimizzazione memoria in corso..."),
                                    QStringLiteral("Operazione completata")}));
    QVERIFY(!IndexDialog::checkDisk(m_memory->root()));
}

void TestIndexDialogCheck::reportsAFaultlessMemory()
{
    tick();
    indexWithoutCheck();
    const QStringList lines{
        QStringLiteral("Ottimizzazione memoria in corso..."), QStringLiteral("Controllo memoria"),
        QStringLiteral("Nessun errore trovato"), QStringLiteral("Operazione completata")};
    QCOMPARE(report(), lines);
    QCOMPARE(child<QLabel>("labelFileFound")->text(), QStringLiteral("2"));
    QCOMPARE(child<QLabel>("labelCurrPath")->text(), QString());
    chooseRebuild();
    indexWithoutCheck();
    QCOMPARE(report(), lines);
}

void TestIndexDialogCheck::listsFindingsAfterAnUpdate()
{
    indexWithoutCheck();
    const QByteArray counts = m_memory->read(QStringLiteral("fsinfos.id2"));
    tick();
    whenCheckBegins([this, counts] {
        m_memory->write(QStringLiteral("fsinfos.id2"), QByteArray(counts).replace(0, 1, "\x07"));
        m_memory->write(QStringLiteral("atitle3.id2"), QByteArray(256, '\xFF'));
    });
    m_script->expectMessage(boxTitle, someErrors, QMessageBox::Ok);
    start();
    QCOMPARE(report(),
             QStringList({QStringLiteral("Ottimizzazione memoria in corso..."),
                          QStringLiteral("Controllo memoria"),
                          QStringLiteral("atitle3.id2: la lettera \"T\" porta al posto sbagliato"),
                          QStringLiteral("fsinfos.id2: il conto di title.id2 è 2, non 7"),
                          QStringLiteral("Operazione completata")}));
}

/// A repair is not an error, but it is reported.
void TestIndexDialogCheck::reportsARepair()
{
    indexWithoutCheck();
    const QByteArray counts = m_memory->read(QStringLiteral("fsinfos.id2"));
    m_memory->write(QStringLiteral("fsinfos.id2"), QByteArray(counts).replace(0, 1, "\x07"));
    tick();
    indexWithoutCheck();
    QCOMPARE(report(), QStringList({QStringLiteral("Ottimizzazione memoria in corso..."),
                                    QStringLiteral("L'indice era danneggiato ed è stato riparato"),
                                    QStringLiteral("Controllo memoria"),
                                    QStringLiteral("Nessun errore trovato"),
                                    QStringLiteral("Operazione completata")}));
    QCOMPARE(m_memory->read(QStringLiteral("fsinfos.id2")), counts);
}

void TestIndexDialogCheck::reportsDamageThatARebuildLeaves()
{
    tick();
    chooseRebuild();
    whenCheckBegins([this] { damageTitles(); });
    m_script->expectMessage(boxTitle, someErrors, QMessageBox::Ok);
    m_script->expectMessage(
        QStringLiteral("ATTENZIONE"),
        QStringLiteral(
            "Non è stato possibile correggere gli errori, è necesario formattare la memoria"),
        QMessageBox::Ok);
    start();
    QCOMPARE(report().mid(2),
             QStringList({QStringLiteral("title.id2, record 0: nessuna song ha l'id 9"),
                          QStringLiteral("title.id2: manca la song /BASI/A.MID"),
                          QStringLiteral("Operazione completata")}));
}

void TestIndexDialogCheck::countsFindingsAmongTheErrors()
{
    const QString longPath = QStringLiteral("FOLDER1/FOLDER2/FOLDER3/FOLDER4/FOLDER5/SONG.MID");
    m_memory->write(longPath, midiSong("Deep", "Dora", "Pop"));
    m_memory->write(QStringLiteral("playlist/playlist.dat"), field("\x01", 32));
    m_memory->write(QStringLiteral("playlist/play0001.dat"),
                    songRecord("00000063", "GONE", "7800"));
    tick();
    chooseRebuild();
    // A damaged playlist is no reason to format a memory.
    m_script->expectMessage(boxTitle, someErrors, QMessageBox::Ok);
    start();
    QCOMPARE(
        report().mid(1, 3),
        QStringList(
            {QStringLiteral("File non importato, path troppo lungo: ") + m_memory->path(longPath),
             QStringLiteral("Controllo memoria"),
             QStringLiteral("playlist/play0001.dat, posto 0: la song non è nell'indice")}));
}

void TestIndexDialogCheck::checksNothingAfterAFailure()
{
    QDir(m_memory->path(QStringLiteral("BASI"))).removeRecursively();
    tick();
    m_script->expectMessage(boxTitle, failure, QMessageBox::Ok);
    start();
    QCOMPARE(report(), QStringList({QStringLiteral("Ottimizzazione memoria in corso..."), notDone,
                                    QStringLiteral("Operazione completata")}));
}

void TestIndexDialogCheck::reportsAMemoryThatWasPulled()
{
    tick();
    whenCheckBegins([this] { QDir(m_memory->root()).removeRecursively(); });
    m_script->expectMessage(boxTitle, someErrors, QMessageBox::Ok);
    start();
    QCOMPARE(report().mid(2), QStringList({notDone, QStringLiteral("Operazione completata")}));
}

void TestIndexDialogCheck::endsWithoutABoxAtQuit()
{
    tick();
    whenCheckBegins([this] {
        damageTitles();
        RunGuard::requestEnd();
    });
    start();
    QCOMPARE(report().mid(1), QStringList({QStringLiteral("Controllo memoria"),
                                           QStringLiteral("Operazione completata")}));
    QVERIFY(child<QPushButton>("pushButtonStart")->isEnabled());
    // The quit is repeated after the run; here it must not end the test program.
    QCoreApplication::removePostedEvents(qApp, QEvent::Quit);
}

void TestIndexDialogCheck::showsItsProgress()
{
    tick();
    QList<int> values;
    bool checking = false;
    whenCheckBegins([&checking] { checking = true; });
    connect(child<QProgressBar>("progressBar"), &QProgressBar::valueChanged, m_dialog.get(),
            [&](int value) {
                if (checking)
                    values.append(value);
            });
    indexWithoutCheck();
    QCOMPARE(values.last(), child<QProgressBar>("progressBar")->maximum());
    QVERIFY(values.size() > 10);
    QVERIFY(std::is_sorted(values.cbegin() + 1, values.cend()));
}

BRISEL_TEST(QApplication, TestIndexDialogCheck)
#include "tst_indexdialog_check.moc"
