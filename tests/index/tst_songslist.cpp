#include "index/dialogs/songslistdialog.h"
#include "index/index.h"
#include "tests/dialogscript.h"
#include "tests/index/samplememory.h"
#include "tests/scriptedindex.h"
#include "tests/testprogram.h"

#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QTranslator>

using namespace brisel;

using namespace Sample;

namespace
{

const QString listTitle = QStringLiteral("Salva lista song");
const QString saved = QStringLiteral("Operazione completata");
const QString creationError = QStringLiteral("Errore durante la creazione del file");

QByteArray fileContent(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

/// A translation of the list's headings and the window's label.
class EnglishTexts : public QTranslator
{
public:
    QString translate(const char *context, const char *source, const char *, int) const override
    {
        if (qstrcmp(context, "brisel::Index") == 0 && qstrcmp(source, "TITOLO") == 0)
            return QStringLiteral("TITLE");
        return qstrcmp(source, "Ordina per:") == 0 ? QStringLiteral("Sort by:") : QString();
    }
    bool isEmpty() const override { return false; }
};

} // namespace

/// The song list of a prepared memory, written by Index and through the dialog.
class TestSongsList : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void sortsByTitleArtistAndGenre_data();
    void sortsByTitleArtistAndGenre();
    void takesAnyOtherOrderAsTitle();
    void shiftsColumnsAtSemicolon();
    void writesUtf8();
    void translatesHeadings();
    void reportsItsProgress();
    void cutsOneSeparatorFromRoot();
    void refusesMemoryWithoutIndex();
    void keepsOldListWhenIndexIsBroken();
    void failsWhereNoFileCanStand();
    void replacesOldList();

    void showsDescribedControls();
    void savesThroughTheDialog();
    void savesIntoWorkingFolder();
    void savesInChosenOrder();
    void refusesMissingMemoryFolder();
    void refusesMissingDestinationFolder();
    void reportsUnpreparedMemory();
    void reportsListThatCannotBeWritten();
    void choosesMemoryFolder();
    void choosesDestination();
    void keepsBothWhenChoiceIsCancelled();
    void refusesToCloseWhileWorking();
    void keepsValuesOnLanguageChange();
    void closesWhenIdle();

private:
    template <typename Widget>
    Widget *child(const char *name) const
    {
        return m_dialog->findChild<Widget *>(QLatin1StringView(name));
    }
    void prepare() const
    {
        ScriptedIndex index;
        QVERIFY(index.createIndex(m_memory->root()));
    }
    int save(SORT_MODE mode) const
    {
        return ScriptedIndex().saveSongsList(m_memory->root(), m_list, mode);
    }
    void pressStart() const
    {
        QTest::mouseClick(child<QPushButton>("pushButtonStart"), Qt::LeftButton);
    }

    std::unique_ptr<SampleMemory> m_memory;
    std::unique_ptr<SongsListDialog> m_dialog;
    std::unique_ptr<DialogScript> m_script;
    QString m_list;
};

void TestSongsList::init()
{
    m_memory = std::make_unique<SampleMemory>();
    m_memory->write(QStringLiteral("BASI/A.MID"), midiSong("Zeta", "Anna", "Rock"));
    m_memory->write(QStringLiteral("BASI/B.MP3"), mp3Song("Alfa", "Bruno", "Pop"));
    m_memory->write(QStringLiteral("C.MID"), midiSong("Beta", "anna", "Pop"));
    m_list = QDir::current().filePath(QStringLiteral("list.csv"));
    QSettings(QStringLiteral("kordia"), QStringLiteral("brisel2pc")).clear();
    m_script = std::make_unique<DialogScript>();
    m_dialog = std::make_unique<SongsListDialog>();
    m_dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_dialog.get()));
    child<QLineEdit>("lineEditPath")->setText(m_memory->root());
    child<QLineEdit>("lineEditFile")->setText(m_list);
}

void TestSongsList::cleanup()
{
    QVERIFY2(m_script->isDone(), qPrintable(m_script->problems().join(u'\n')));
    m_dialog.reset();
    m_script.reset();
    m_memory.reset();
    QFile::remove(m_list);
    QFile::remove(QStringLiteral("SongsList.csv"));
}

void TestSongsList::sortsByTitleArtistAndGenre_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QByteArray>("lines");
    QTest::newRow("title") << int(SortByTitle)
                           << QByteArray("ALFA;BRUNO;POP;/BASI/B.MP3;\nBETA;ANNA;POP;/C.MID;\n"
                                         "ZETA;ANNA;ROCK;/BASI/A.MID;\n");
    QTest::newRow("artist") << int(SortByArtist)
                            << QByteArray("BETA;ANNA;POP;/C.MID;\nZETA;ANNA;ROCK;/BASI/A.MID;\n"
                                          "ALFA;BRUNO;POP;/BASI/B.MP3;\n");
    QTest::newRow("genre") << int(SortByGenre)
                           << QByteArray("ALFA;BRUNO;POP;/BASI/B.MP3;\nBETA;ANNA;POP;/C.MID;\n"
                                         "ZETA;ANNA;ROCK;/BASI/A.MID;\n");
}

void TestSongsList::sortsByTitleArtistAndGenre()
{
    QFETCH(int, mode);
    QFETCH(QByteArray, lines);
    m_memory->write(QStringLiteral("C.MID"), midiSong("Beta", "anna", "Pop"));
    prepare();
    QCOMPARE(save(static_cast<SORT_MODE>(mode)), 1);
    QCOMPARE(fileContent(m_list), "TITOLO;ARTISTA;GENERE;FILE;\n" + lines);
}

void TestSongsList::takesAnyOtherOrderAsTitle()
{
    prepare();
    QCOMPARE(save(SortByTitle), 1);
    const QByteArray byTitle = fileContent(m_list);
    QCOMPARE(save(static_cast<SORT_MODE>(3)), 1);
    QCOMPARE(fileContent(m_list), byTitle);
}

void TestSongsList::shiftsColumnsAtSemicolon()
{
    m_memory->write(QStringLiteral("D.MID"), midiSong("Aha; ehe", "Duo", "Pop"));
    prepare();
    QCOMPARE(save(SortByTitle), 1);
    QVERIFY(fileContent(m_list).contains("\nAHA; EHE;DUO;POP;/D.MID;\n"));
}

void TestSongsList::writesUtf8()
{
    m_memory->write(QStringLiteral("D.MID"), midiSong("Perch\xE9", "Duo", "Pop"));
    prepare();
    QCOMPARE(save(SortByTitle), 1);
    QVERIFY(fileContent(m_list).contains("\nPERCH\xC3\x89;DUO;POP;/D.MID;\n"));
}

void TestSongsList::translatesHeadings()
{
    prepare();
    EnglishTexts english;
    QCoreApplication::installTranslator(&english);
    QCOMPARE(save(SortByTitle), 1);
    QCoreApplication::removeTranslator(&english);
    QCoreApplication::processEvents();
    QVERIFY(fileContent(m_list).startsWith("TITLE;ARTISTA;GENERE;FILE;\n"));
}

void TestSongsList::reportsItsProgress()
{
    prepare();
    ScriptedIndex index;
    const QSignalSpy maximum(&index, &Index::progressMaxSetup);
    const QSignalSpy values(&index, &Index::progressValueChanged);
    const QSignalSpy paths(&index, &Index::currentPathChanged);
    QCOMPARE(index.saveSongsList(m_memory->root(), m_list, SortByTitle), 1);
    QCOMPARE(maximum.count(), 1);
    QCOMPARE(maximum.at(0).at(0).toInt(), 3);
    QCOMPARE(values.count(), 3);
    for (int i = 0; i < values.count(); ++i)
        QCOMPARE(values.at(i).at(0).toInt(), i + 1);
    QCOMPARE(paths.count(), 3);
    QCOMPARE(paths.at(0).at(0).toString(), m_memory->path(QStringLiteral("BASI/B.MP3")));
}

void TestSongsList::cutsOneSeparatorFromRoot()
{
    prepare();
    for (const QChar separator : {QChar(u'/'), QChar(u'\\')}) {
        QCOMPARE(ScriptedIndex().saveSongsList(m_memory->root() + separator, m_list, SortByTitle),
                 1);
        QVERIFY(fileContent(m_list).contains(";/C.MID;\n"));
    }
}

void TestSongsList::refusesMemoryWithoutIndex()
{
    QCOMPARE(save(SortByTitle), -1);
    prepare();
    m_memory->remove(QStringLiteral("agenre3.id2"));
    QCOMPARE(save(SortByTitle), -1);
    QVERIFY(!QFile::exists(m_list));
}

void TestSongsList::keepsOldListWhenIndexIsBroken()
{
    prepare();
    QCOMPARE(save(SortByTitle), 1);
    const QByteArray old = fileContent(m_list);
    const QByteArray records = m_memory->read(QStringLiteral("index.id2"));
    m_memory->write(QStringLiteral("index.id2"), records.left(records.size() - 1));
    QCOMPARE(save(SortByTitle), 0);
    QCOMPARE(fileContent(m_list), old);
}

void TestSongsList::failsWhereNoFileCanStand()
{
    prepare();
    for (const QString &name : {QString(), QDir::currentPath(), m_list + QStringLiteral("/x.csv")})
        QCOMPARE(ScriptedIndex().saveSongsList(m_memory->root(), name, SortByTitle), 0);
}

void TestSongsList::replacesOldList()
{
    prepare();
    QFile file(m_list);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(5000, 'x'));
    file.close();
    QCOMPARE(save(SortByTitle), 1);
    QCOMPARE(fileContent(m_list).count('\n'), 4);
    QVERIFY(!fileContent(m_list).contains('x'));
}

void TestSongsList::showsDescribedControls()
{
    QSettings(QStringLiteral("kordia"), QStringLiteral("brisel2pc"))
        .setValue(QStringLiteral("mediaroot"), QStringLiteral("/Volumes/LAST"));
    m_dialog = std::make_unique<SongsListDialog>();
    QCOMPARE(child<QLineEdit>("lineEditPath")->text(), QStringLiteral("/Volumes/LAST"));
    QCOMPARE(child<QLineEdit>("lineEditFile")->text(), QStringLiteral("SongsList.csv"));
    QCOMPARE(child<QLabel>("labelSort")->text(), QStringLiteral("Ordina per:"));
    auto *order = child<QComboBox>("comboBoxSort");
    QCOMPARE(order->count(), 3);
    QCOMPARE(order->itemText(0), QStringLiteral("Titolo"));
    QCOMPARE(order->itemText(1), QStringLiteral("Artista"));
    QCOMPARE(order->itemText(2), QStringLiteral("Genere"));
    QCOMPARE(order->currentIndex(), 0);
    QCOMPARE(child<QProgressBar>("progressBar")->value(), 0);
    QCOMPARE(child<QPushButton>("pushButtonStart")->text(), QStringLiteral("Inizia"));
    QCOMPARE(child<QPushButton>("pushButtonClose")->text(), QStringLiteral("Chiudi"));
}

void TestSongsList::savesThroughTheDialog()
{
    prepare();
    m_script->expectMessage(listTitle, saved, QMessageBox::Ok);
    pressStart();
    QCOMPARE(fileContent(m_list).count('\n'), 4);
    QCOMPARE(child<QProgressBar>("progressBar")->maximum(), 3);
    QCOMPARE(child<QProgressBar>("progressBar")->value(), 3);
    for (const char *name : {"lineEditPath", "lineEditFile", "comboBoxSort", "pushButtonStart",
                             "pushButtonClose", "pushButtonBrowseDir", "pushButtonBrowseFile"})
        QVERIFY2(child<QWidget>(name)->isEnabled(), name);
}

void TestSongsList::savesIntoWorkingFolder()
{
    prepare();
    child<QLineEdit>("lineEditFile")->setText(QStringLiteral("SongsList.csv"));
    m_script->expectMessage(listTitle, saved, QMessageBox::Ok);
    QTest::keyClick(child<QLineEdit>("lineEditFile"), Qt::Key_Return);
    QVERIFY(QFile::exists(QDir::current().filePath(QStringLiteral("SongsList.csv"))));
    QVERIFY(!m_memory->has(QStringLiteral("SongsList.csv")));
}

void TestSongsList::savesInChosenOrder()
{
    prepare();
    for (const auto &[key, firstTitle] :
         {std::pair{Qt::Key_Down, "BETA"}, std::pair{Qt::Key_Down, "ALFA"},
          std::pair{Qt::Key_Home, "ALFA"}}) {
        QTest::keyClick(child<QComboBox>("comboBoxSort"), key);
        m_script->expectMessage(listTitle, saved, QMessageBox::Ok);
        pressStart();
        QVERIFY(fileContent(m_list).contains("FILE;\n" + QByteArray(firstTitle) + ';'));
    }
    QCOMPARE(child<QComboBox>("comboBoxSort")->currentIndex(), 0);
}

void TestSongsList::refusesMissingMemoryFolder()
{
    prepare();
    for (const QString &folder :
         {QString(), m_memory->root() + u'X', m_memory->path(QStringLiteral("index.id2"))}) {
        child<QLineEdit>("lineEditPath")->setText(folder);
        m_script->expectMessage(listTitle, QStringLiteral("Il percorso selezionato non esiste"),
                                QMessageBox::Ok);
        pressStart();
    }
    QVERIFY(!QFile::exists(m_list));
}

void TestSongsList::refusesMissingDestinationFolder()
{
    prepare();
    for (const char *name : {"/nowhere/list.csv", "nowhere/list.csv"}) {
        child<QLineEdit>("lineEditFile")->setText(QLatin1StringView(name));
        m_script->expectMessage(listTitle, QStringLiteral("Il percorso di destinazione non esiste"),
                                QMessageBox::Ok);
        pressStart();
    }
}

void TestSongsList::reportsUnpreparedMemory()
{
    m_script->expectMessage(
        listTitle, QStringLiteral("Impossibile proseguire, la memoria non è preparata per Brisel"),
        QMessageBox::Ok);
    pressStart();
    QVERIFY(!QFile::exists(m_list));
}

void TestSongsList::reportsListThatCannotBeWritten()
{
    prepare();
    child<QLineEdit>("lineEditFile")->setText(QDir::currentPath());
    m_script->expectMessage(listTitle, creationError, QMessageBox::Ok);
    pressStart();
    child<QLineEdit>("lineEditFile")->clear();
    m_script->expectMessage(listTitle, creationError, QMessageBox::Ok);
    pressStart();
}

void TestSongsList::choosesMemoryFolder()
{
    qputenv("BRISEL_VOLUMES", QFile::encodeName(QFileInfo(m_memory->root()).path()));
    m_script->expectFiles({m_memory->root()});
    child<QLineEdit>("lineEditPath")->clear();
    QTest::mouseClick(child<QPushButton>("pushButtonBrowseDir"), Qt::LeftButton);
    QCOMPARE(child<QLineEdit>("lineEditPath")->text(), m_memory->root());
    QCOMPARE(QSettings(QStringLiteral("kordia"), QStringLiteral("brisel2pc"))
                 .value(QStringLiteral("mediaroot"))
                 .toString(),
             m_memory->root());
}

void TestSongsList::choosesDestination()
{
    QString title;
    QStringList filters;
    const QString chosen = QDir::current().filePath(QStringLiteral("other.csv"));
    m_script->expect("QFileDialog", [&](QWidget *widget) {
        auto *dialog = qobject_cast<QFileDialog *>(widget);
        title = dialog->windowTitle();
        filters = dialog->nameFilters();
        auto *edit = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        edit->setText(chosen);
        QTest::keyClick(edit, Qt::Key_Return);
    });
    QTest::mouseClick(child<QPushButton>("pushButtonBrowseFile"), Qt::LeftButton);
    QCOMPARE(title, QStringLiteral("Scegli nome del file"));
    QCOMPARE(filters, QStringList{QStringLiteral("File (*.csv)")});
    QCOMPARE(child<QLineEdit>("lineEditFile")->text(), chosen);
}

void TestSongsList::keepsBothWhenChoiceIsCancelled()
{
    for (const char *button : {"pushButtonBrowseDir", "pushButtonBrowseFile"}) {
        m_script->expectFilesCancelled();
        QTest::mouseClick(child<QPushButton>(button), Qt::LeftButton);
    }
    QCOMPARE(child<QLineEdit>("lineEditPath")->text(), m_memory->root());
    QCOMPARE(child<QLineEdit>("lineEditFile")->text(), m_list);
}

void TestSongsList::refusesToCloseWhileWorking()
{
    prepare();
    bool seen = false;
    QTimer timer;
    timer.setInterval(0);
    connect(&timer, &QTimer::timeout, this, [&] {
        if (child<QPushButton>("pushButtonStart")->isEnabled())
            return;
        timer.stop();
        m_dialog->close();
        QTest::keyClick(m_dialog.get(), Qt::Key_Escape);
        m_dialog->start();
        seen = m_dialog->isVisible();
    });
    timer.start();
    m_script->expectMessage(listTitle, saved, QMessageBox::Ok);
    pressStart();
    QVERIFY(seen);
    QVERIFY(m_dialog->isVisible());
}

void TestSongsList::keepsValuesOnLanguageChange()
{
    child<QComboBox>("comboBoxSort")->setCurrentIndex(2);
    EnglishTexts english;
    QCoreApplication::installTranslator(&english);
    QCoreApplication::processEvents();
    QCOMPARE(child<QLabel>("labelSort")->text(), QStringLiteral("Sort by:"));
    QCOMPARE(child<QComboBox>("comboBoxSort")->currentIndex(), 2);
    QCOMPARE(child<QLineEdit>("lineEditFile")->text(), m_list);
    QCoreApplication::removeTranslator(&english);
    QCoreApplication::processEvents();
}

void TestSongsList::closesWhenIdle()
{
    QTest::mouseClick(child<QPushButton>("pushButtonClose"), Qt::LeftButton);
    QVERIFY(!m_dialog->isVisible());
    m_dialog->show();
    QTest::keyClick(m_dialog.get(), Qt::Key_Escape);
    QVERIFY(!m_dialog->isVisible());
}

BRISEL_TEST(QApplication, TestSongsList)
#include "tst_songslist.moc"
