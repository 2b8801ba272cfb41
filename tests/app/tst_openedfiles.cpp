#include "app/openedfiles.h"
#include "base/runguard.h"
#include "tests/app/samplewindow.h"
#include "tests/testprogram.h"

#include <QFileOpenEvent>

using namespace brisel;

/// Songs that are opened from the desktop.
class TestOpenedFiles : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void importsFilesThatComeTogether_data();
    void importsFilesThatComeTogether();
    void waitsForTheEndOfARun();
    void leavesAnAddressWithoutAFile();

private:
    static void open(const QString &path)
    {
        QFileOpenEvent event(path);
        QCoreApplication::sendEvent(qApp, &event);
    }
    QString rows() const
    {
        QStringList names;
        for (int row = 0; row < m_sample->model->rowCount(); ++row)
            names.append(m_sample->model->shortName(row));
        return names.join(u' ');
    }

    std::unique_ptr<SampleWindow> m_sample;
    std::unique_ptr<OpenedFiles> m_files;
};

void TestOpenedFiles::init()
{
    m_sample = std::make_unique<SampleWindow>();
    for (const QString &name : {u"a.mid"_qs, u"b.mid"_qs})
        makeFile(m_sample->at(name), Sample::midi("T", true));
    m_files = std::make_unique<OpenedFiles>(nullptr);
    connect(m_files.get(), &OpenedFiles::opened, m_sample->window.get(), &MainWindow::openSongs);
}

void TestOpenedFiles::cleanup()
{
    const bool done = m_sample->script.isDone();
    m_files.reset();
    m_sample.reset();
    QVERIFY(done);
}

void TestOpenedFiles::importsFilesThatComeTogether_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("songs");
    QTest::addColumn<QString>("status");
    QTest::newRow("it") << u"it"_qs << u"2 song"_qs << u"importata"_qs;
    QTest::newRow("en") << u"en"_qs << u"2 songs"_qs << u"imported"_qs;
}

void TestOpenedFiles::importsFilesThatComeTogether()
{
    QFETCH(QString, language);
    QFETCH(QString, songs);
    QFETCH(QString, status);
    m_sample->changeLanguage(language);
    open(m_sample->at(u"a.mid"_qs));
    open(m_sample->at(u"b.mid"_qs));
    QCOMPARE(rows(), QString());
    QTRY_COMPARE(rows(), u"a.mid b.mid"_qs);
    QTRY_COMPARE(m_sample->window->findChild<QLabel *>(u"songsLabel"_qs)->text(), songs);
    QCOMPARE(m_sample->model->outcomeText(0), status);
}

void TestOpenedFiles::waitsForTheEndOfARun()
{
    {
        const RunGuard guard;
        open(m_sample->at(u"a.mid"_qs));
        QTest::qWait(50);
        QCOMPARE(rows(), QString());
    }
    QTRY_COMPARE(rows(), u"a.mid"_qs);
}

void TestOpenedFiles::leavesAnAddressWithoutAFile()
{
    open(QString()); // as of a web address
    QTest::qWait(20);
    QCOMPARE(rows(), QString());
}

BRISEL_TEST(QApplication, TestOpenedFiles)
#include "tst_openedfiles.moc"
