#include "tests/app/listenertest.h"
#include "tests/testprogram.h"

#include <QMenu>
#include <QMessageBox>
#include <QPointer>

using namespace brisel;

/// What stops the song that plays: whatever removes it or may write it, and nothing else.
class TestListeningStops : public ListenerTest
{
    Q_OBJECT

private slots:
    void init() { openWindow(); }
    void cleanup() { closeWindow(); }
    void sortingKeepsPlaying();
    void removingTheSongStopsIt();
    void removingAnotherSongKeepsPlaying();
    void deletingTheSongStopsIt_data();
    void deletingTheSongStopsIt();
    void savingAnEditStopsFirst();
    void aCancelledEditKeepsPlaying();
    void aSynchronisationStopsFirst();
    void closingTheWindowStops();
};

void TestListeningStops::sortingKeepsPlaying()
{
    selectSong(u"ONE.mid"_qs);
    pressSpace();
    m_sample->table->sortByColumn(2, Qt::DescendingOrder);
    m_sample->table->sortByColumn(2, Qt::AscendingOrder);
    QVERIFY(isPlaying(u"ONE.mid"_qs));
}

void TestListeningStops::removingTheSongStopsIt()
{
    selectSong(u"ONE.mid"_qs);
    pressSpace();
    QTest::keyClick(m_sample->table, Qt::Key_Delete);
    QVERIFY(!m_played.isPlaying);
    QVERIFY(!m_listener->isPlaying());
}

void TestListeningStops::removingAnotherSongKeepsPlaying()
{
    selectSong(u"ONE.mid"_qs);
    pressSpace();
    selectSong(u"TWO.mid"_qs);
    QTest::keyClick(m_sample->table, Qt::Key_Delete);
    QVERIFY(isPlaying(u"ONE.mid"_qs));
}

void TestListeningStops::deletingTheSongStopsIt_data()
{
    QTest::addColumn<int>("answer");
    QTest::newRow("yes") << int(QMessageBox::Yes);
    QTest::newRow("no") << int(QMessageBox::No);
}

/// It stops first: some systems delete no file that is open.
void TestListeningStops::deletingTheSongStopsIt()
{
    QFETCH(int, answer);
    const bool isDeleted = answer == QMessageBox::Yes;
    selectSong(u"ONE.mid"_qs);
    pressSpace();
    QVERIFY(m_played.isPlaying);
    m_sample->script.expectMenu([this](QMenu *menu) {
        auto *entry = find<QAction>("actionDeleteFile");
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(entry).center());
    });
    m_sample->script.expectMessage(u"Attenzione"_qs, u"Sei sicuro di voler cancellare il file?"_qs,
                                   answer);
    const QRect cell = m_sample->table->visualRect(m_sample->table->currentIndex());
    emit m_sample->table->customContextMenuRequested(cell.center());
    QCOMPARE(QFile::exists(m_sample->at(u"ONE.mid"_qs)), !isDeleted);
    QCOMPARE(m_played.isPlaying, !isDeleted);
    QCOMPARE(m_played.hadFileAtStop, isDeleted);
}

void TestListeningStops::savingAnEditStopsFirst()
{
    selectSong(u"ONE.mid"_qs);
    pressSpace();
    m_sample->script.expect("DataEditDialog", [this](QWidget *dialog) {
        QVERIFY(m_played.isPlaying);
        DialogScript::click(dialog, u"savePushButton"_qs);
    });
    QTest::keyClick(m_sample->table, Qt::Key_Return);
    QVERIFY(!m_played.isPlaying);
}

void TestListeningStops::aCancelledEditKeepsPlaying()
{
    selectSong(u"ONE.mid"_qs);
    pressSpace();
    m_sample->script.expect("DataEditDialog", [](QWidget *dialog) {
        DialogScript::click(dialog, u"exitPushButton"_qs);
    });
    QTest::keyClick(m_sample->table, Qt::Key_Return);
    QVERIFY(m_played.isPlaying);
}

void TestListeningStops::aSynchronisationStopsFirst()
{
    selectSong(u"ONE.mid"_qs);
    pressSpace();
    QVERIFY(m_played.isPlaying);
    m_sample->script.expect("BackupDialog", [this](QWidget *dialog) {
        QVERIFY(m_played.isPlaying);
        DialogScript::click(dialog, u"exitPushButton"_qs);
    });
    m_sample->press("updateDataToolButton");
    QVERIFY(!m_played.isPlaying);
}

void TestListeningStops::closingTheWindowStops()
{
    selectSong(u"ONE.mid"_qs);
    pressSpace();
    const QPointer<SongPlayer> player = m_player;
    QVERIFY(player != nullptr);
    m_sample->window.reset();
    QVERIFY(player == nullptr);
}

BRISEL_TEST(QApplication, TestListeningStops)
#include "tst_listeningstops.moc"
