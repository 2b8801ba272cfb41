#include "base/runguard.h"
#include "tests/app/samplewindow.h"
#include "tests/testprogram.h"

#include <QDropEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QStatusBar>

using namespace brisel;

/// Files and folders that are dragged onto the window, by the events that the system sends.
class TestSongDrop : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void importsAsIfPicked();
    void looksThroughFolders();
    void takesDropsOnEveryPart_data();
    void takesDropsOnEveryPart();
    void asksAsEverAfterTheImport();
    void leavesTheFilesToTheirOwner();
    void saysThatThereIsNoSong();
    void refusesWhatIsNoLocalFile();
    void refusesWhileARunIsUnderWay();
    void dropsNothingIntoARunThatBeganAfterTheDrop();
    void cancelledSearchImportsNothing();
    void takesNothingWithoutALibrary();
    void addsWithTheCtrlKey();
    void saysWhatADropWillDo();

private:
    /// Drags \a urls over \a part of the window and drops them there if the drag is accepted.
    bool drop(const QList<QUrl> &urls, QWidget *part)
    {
        QMimeData data;
        data.setUrls(urls);
        const QPoint middle = part->rect().center();
        const Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;
        QDragEnterEvent enter(middle, actions, &data, Qt::LeftButton, m_modifiers);
        enter.ignore();
        QCoreApplication::sendEvent(part, &enter);
        if (!enter.isAccepted())
            return false;
        QDragMoveEvent move(middle, actions, &data, Qt::LeftButton, m_modifiers);
        move.ignore();
        QCoreApplication::sendEvent(part, &move);
        if (!move.isAccepted())
            return false;
        QDropEvent drop(middle, actions, &data, Qt::LeftButton, m_modifiers);
        drop.ignore();
        QCoreApplication::sendEvent(part, &drop);
        m_action = drop.dropAction();
        return drop.isAccepted();
    }
    bool drop(const QStringList &names)
    {
        QList<QUrl> urls;
        for (const QString &name : names)
            urls.append(QUrl::fromLocalFile(m_sample->at(name)));
        return drop(urls, m_sample->table->viewport());
    }
    void makeSong(const QString &name) const
    {
        makeFile(m_sample->at(name), Sample::midi("T", true));
    }
    QString rows() const
    {
        QStringList names;
        for (int row = 0; row < m_sample->model->rowCount(); ++row)
            names.append(m_sample->model->shortName(row));
        return names.join(u' ');
    }
    bool isEnabled(const char *button) const
    {
        return m_sample->window->findChild<QToolButton *>(QString::fromLatin1(button))->isEnabled();
    }

    std::unique_ptr<SampleWindow> m_sample;
    Qt::DropAction m_action = Qt::IgnoreAction;
    Qt::KeyboardModifiers m_modifiers = Qt::NoModifier; ///< of the drags
};

void TestSongDrop::init()
{
    m_sample = std::make_unique<SampleWindow>();
    m_action = Qt::IgnoreAction;
    m_modifiers = Qt::NoModifier;
}

void TestSongDrop::cleanup()
{
    closeVerified(m_sample);
}

void TestSongDrop::importsAsIfPicked()
{
    m_sample->import({u"old.mid"_qs});
    makeSong(u"b.mid"_qs);
    makeSong(u"a b%20.kar"_qs);
    makeFile(m_sample->at(u"broken.mp3"_qs), "no song");
    makeFile(m_sample->at(u"text.txt"_qs), "other kind");
    QVERIFY(drop({u"b.mid"_qs, u"text.txt"_qs, u"a b%20.kar"_qs, u"broken.mp3"_qs}));
    QCOMPARE(rows(), u"old.mid"_qs); // the source of the drag does not wait
    QTRY_COMPARE(rows(), u"b.mid a b%20.kar"_qs);
    QTRY_VERIFY(!RunGuard::isActive());
    QVERIFY(isEnabled("updateDataToolButton"));
    QVERIFY(isEnabled("transferFilesToolButton"));

    // They are now the picked files: the damaged one is copied, too.
    const QString memory = m_sample->at(u"volumes/CARD/songs"_qs);
    QVERIFY(QDir().mkpath(memory));
    int copied = 0;
    QVERIFY(m_sample->window->copyFiles(memory, copied));
    QCOMPARE(QDir(memory).entryList(QDir::Files).join(u' '), u"a b%20.kar b.mid broken.mp3"_qs);
}

void TestSongDrop::looksThroughFolders()
{
    makeSong(u"drop/z.mid"_qs);
    makeSong(u"drop/in/a.mid"_qs);
    makeFile(m_sample->at(u"drop/in/readme.txt"_qs), "other kind");
    QVERIFY(QFile::link(m_sample->at(u"drop"_qs), m_sample->at(u"drop/in/up"_qs)));
    makeSong(u"alone.mid"_qs);
    QVERIFY(drop({u"alone.mid"_qs, u"drop"_qs}));
    QTRY_COMPARE(rows(), u"alone.mid a.mid z.mid"_qs);
}

void TestSongDrop::takesDropsOnEveryPart_data()
{
    QTest::addColumn<QString>("part");
    for (const char *part : {"userLibraryTableView", "searchLineEdit", "selectDirToolButton",
                             "updateDataToolButton", "logoBriselLabel", "menuBar", "statusBar"})
        QTest::newRow(part) << QString::fromLatin1(part);
}

void TestSongDrop::takesDropsOnEveryPart()
{
    QFETCH(QString, part);
    makeSong(u"a.mid"_qs);
    QVERIFY(drop({QUrl::fromLocalFile(m_sample->at(u"a.mid"_qs))},
                 m_sample->window->findChild<QWidget *>(part)));
    QTRY_COMPARE(rows(), u"a.mid"_qs);
    QVERIFY(m_sample->window->findChild<QLineEdit *>(u"searchLineEdit"_qs)->text().isEmpty());
}

void TestSongDrop::asksAsEverAfterTheImport()
{
    m_sample->window->enableCopyrightMessage(true);
    makeSong(u"a.mid"_qs);
    m_sample->script.expect(
        "ProceedDialog", [](QWidget *dialog) { DialogScript::click(dialog, u"noPushButton"_qs); });
    QVERIFY(drop({u"a.mid"_qs}));
    QTRY_VERIFY(m_sample->script.isDone());
    QTRY_VERIFY(isEnabled("updateDataToolButton"));
}

void TestSongDrop::leavesTheFilesToTheirOwner()
{
    makeSong(u"a.mid"_qs);
    QVERIFY(drop({u"a.mid"_qs}));
    QCOMPARE(m_action, Qt::CopyAction);
    QTRY_COMPARE(rows(), u"a.mid"_qs);
    QVERIFY(QFile::exists(m_sample->at(u"a.mid"_qs)));
}

void TestSongDrop::saysThatThereIsNoSong()
{
    m_sample->import({u"old.mid"_qs});
    makeFile(m_sample->at(u"empty/text.txt"_qs), "other kind");
    m_sample->script.expectMessage(u"Lettura file"_qs, u"Non è stato trovato nessun brano"_qs,
                                   QMessageBox::Ok);
    QVERIFY(drop({u"empty"_qs, u"missing.mid"_qs}));
    QTRY_VERIFY(m_sample->script.isDone());
    QCOMPARE(rows(), u"old.mid"_qs);
    QVERIFY(isEnabled("updateDataToolButton"));
}

void TestSongDrop::refusesWhatIsNoLocalFile()
{
    QVERIFY(!drop({}, m_sample->table->viewport()));
    QVERIFY(!drop({QUrl(u"https://example.com/a.mid"_qs), QUrl(u"mailto:anna@example.com"_qs)},
                  m_sample->table->viewport()));
    makeSong(u"a.mid"_qs);
    makeSong(u"b.mid"_qs);
    QVERIFY(drop({QUrl(u"https://example.com"_qs + m_sample->at(u"b.mid"_qs)),
                  QUrl::fromLocalFile(m_sample->at(u"a.mid"_qs))},
                 m_sample->table->viewport()));
    QTRY_COMPARE(rows(), u"a.mid"_qs);
}

void TestSongDrop::refusesWhileARunIsUnderWay()
{
    makeSong(u"a.mid"_qs);
    auto *status = m_sample->window->findChild<QStatusBar *>();
    {
        const RunGuard guard;
        QVERIFY(!drop({u"a.mid"_qs}));
        QCOMPARE(status->currentMessage(), u"Attendere la fine dell'operazione in corso"_qs);
        m_sample->window->openSongs({m_sample->at(u"a.mid"_qs)});
    }
    QCoreApplication::processEvents();
    QCOMPARE(rows(), QString());
    QVERIFY(drop({u"a.mid"_qs}));
    QTRY_COMPARE(rows(), u"a.mid"_qs);
}

void TestSongDrop::dropsNothingIntoARunThatBeganAfterTheDrop()
{
    makeSong(u"a.mid"_qs);
    QVERIFY(drop({u"a.mid"_qs}));
    const RunGuard guard;
    QCoreApplication::processEvents();
    QCOMPARE(rows(), QString());
}

void TestSongDrop::cancelledSearchImportsNothing()
{
    m_sample->import({u"old.mid"_qs});
    for (int i = 0; i < 50; ++i)
        makeSong(u"many/%1.mid"_qs.arg(i));
    QTimer atEachRound; // the script looks every few milliseconds: the search may be over then
    int clicks = 0;
    connect(&atEachRound, &QTimer::timeout, this, [&] {
        auto *dialog = qobject_cast<QProgressDialog *>(QApplication::activeModalWidget());
        if (dialog != nullptr && clicks++ == 0)
            dialog->findChild<QPushButton *>()->click();
    });
    atEachRound.start(0);
    QVERIFY(drop({u"many"_qs}));
    QTRY_COMPARE(clicks, 1);
    QTRY_VERIFY(!RunGuard::isActive());
    QCOMPARE(rows(), u"old.mid"_qs);
    QVERIFY(isEnabled("updateDataToolButton"));
}

void TestSongDrop::takesNothingWithoutALibrary()
{
    m_sample->window.reset();
    QVERIFY(QFile::remove(u"songsdb_debug"_qs));
    QVERIFY(QDir().mkdir(u"songsdb_debug"_qs));
    const MainWindow window;
    QVERIFY(!window.acceptDrops());
}

void TestSongDrop::addsWithTheCtrlKey()
{
    m_sample->import({u"old.mid"_qs});
    makeSong(u"new/a.mid"_qs);
    m_modifiers = Qt::ControlModifier;
    QVERIFY(drop({u"new"_qs, u"old.mid"_qs}));
    QCOMPARE(m_action, Qt::CopyAction);
    QCOMPARE(rows(), u"old.mid"_qs); // the source of the drag does not wait
    QTRY_COMPARE(rows(), u"old.mid a.mid"_qs);
    QVERIFY(isEnabled("updateDataToolButton"));
}

void TestSongDrop::saysWhatADropWillDo()
{
    auto *status = m_sample->window->findChild<QStatusBar *>();
    makeSong(u"a.mid"_qs);
    QString said;
    connect(status, &QStatusBar::messageChanged, this, [&said](const QString &message) {
        if (!message.isEmpty())
            said = message;
    });
    QVERIFY(drop({u"a.mid"_qs}));
    QTRY_COMPARE(rows(), u"a.mid"_qs);
    QCOMPARE(said, QString()); // an empty list: nothing is replaced
    makeSong(u"b.mid"_qs);
    QVERIFY(drop({u"b.mid"_qs}));
    QCOMPARE(said, u"Rilascia per sostituire la lista; con Ctrl aggiungi"_qs);
    QCOMPARE(status->currentMessage(), QString()); // the drag is over
    QTRY_COMPARE(rows(), u"b.mid"_qs);
    m_modifiers = Qt::ControlModifier;
    m_sample->script.expectMessage(u"Lettura file"_qs, u"I brani scelti sono già nella lista"_qs,
                                   QMessageBox::Ok);
    QVERIFY(drop({u"b.mid"_qs}));
    QCOMPARE(said, u"Rilascia per aggiungere alla lista"_qs);
    QTRY_VERIFY(m_sample->script.isDone());
    QCOMPARE(rows(), u"b.mid"_qs);
}

BRISEL_TEST(QApplication, TestSongDrop)
#include "tst_songdrop.moc"
