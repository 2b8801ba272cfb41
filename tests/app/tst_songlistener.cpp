#include "app/playerbar.h"
#include "app/startup.h"
#include "tests/app/listenertest.h"
#include "tests/testprogram.h"

#include <QLineEdit>
#include <QSlider>
#include <QTranslator>

using namespace brisel;

/// Listening in the real window, with a player that the test moves.
class TestSongListener : public ListenerTest
{
    Q_OBJECT

private slots:
    void init() { openWindow(); }
    void cleanup() { closeWindow(); }
    void isHiddenUntilFirstUse();
    void spacePlaysTheCurrentSongAndStopsIt();
    void anotherRowChangesNothing();
    void spaceOnAnotherRowPlaysThatSong();
    void playsNoRowThatTheSearchHides();
    void showsPositionAndTexts();
    void seeksByKeysAndMouse();
    void endResetsTheBar();
    void theButtonPlaysAndStops();
    void showsWhyASongCantBePlayed();
    void showsAnErrorOfThePlayer();
    void explainsAMissingLibrary();
    void followsTheTableInTheOrderOfTab();
    void speaksEnglish();
};

void TestSongListener::isHiddenUntilFirstUse()
{
    const auto *bar = find<PlayerBar>("playerBar");
    QVERIFY(bar->isHidden());
    m_sample->table->setCurrentIndex(QModelIndex());
    pressSpace();
    QVERIFY(bar->isHidden());
    selectSong(u"ONE.mid"_qs);
    pressSpace();
    QVERIFY(bar->isVisible());
    pressSpace();
    QVERIFY(bar->isVisible());
}

void TestSongListener::spacePlaysTheCurrentSongAndStopsIt()
{
    selectSong(u"TWO.mid"_qs);
    pressSpace();
    QVERIFY(isPlaying(u"TWO.mid"_qs));
    QVERIFY(m_played.song.isMidi());
    QCOMPARE(text("playedTitleLabel"), u"TWO"_qs);
    QCOMPARE(find<QPushButton>("playPushButton")->text(), u"Ferma"_qs);
    pressSpace();
    QVERIFY(!m_played.isPlaying);
    QCOMPARE(find<QPushButton>("playPushButton")->text(), u"Ascolta"_qs);
    QCOMPARE(m_sample->table->selectionModel()->selectedRows().size(), 1);
}

void TestSongListener::anotherRowChangesNothing()
{
    selectSong(u"ONE.mid"_qs);
    pressSpace();
    selectSong(u"TWO.mid"_qs);
    QVERIFY(isPlaying(u"ONE.mid"_qs));
    QCOMPARE(m_played.stops, 0);
}

void TestSongListener::spaceOnAnotherRowPlaysThatSong()
{
    selectSong(u"ONE.mid"_qs);
    pressSpace();
    selectSong(u"TWO.mid"_qs);
    pressSpace();
    QVERIFY(isPlaying(u"TWO.mid"_qs));
}

void TestSongListener::playsNoRowThatTheSearchHides()
{
    selectSong(u"ONE.mid"_qs);
    find<QLineEdit>("searchLineEdit")->setText(u"two"_qs);
    m_listener->toggle();
    QVERIFY(!m_listener->isPlaying());
}

void TestSongListener::showsPositionAndTexts()
{
    const QByteArray track = MidiBytes::metaEvent(3, "Title") +
                             MidiBytes::kordiaEvent(6, QByteArray("\x00\x02", 2) + "Solo") +
                             MidiBytes::metaEvent(5, "<b>Vo") + MidiBytes::metaEvent(5, "lare");
    makeFile(m_sample->at(u"sung.mid"_qs), MidiBytes::file({track + MidiBytes::endOfTrack()}));
    m_listener->listen(m_sample->at(u"sung.mid"_qs));
    QVERIFY(find<QWidget>("karaokeLabel")->isVisible());
    QCOMPARE(text("karaokeLabel"), u"<b>Volare"_qs);
    QCOMPARE(text("markerLabel"), QString());
    QCOMPARE(text("positionLabel"), u"0:00 / 1:00"_qs);
    m_player->moveTo(2500);
    QCOMPARE(text("markerLabel"), u"Solo"_qs);
    QCOMPARE(text("positionLabel"), u"0:02 / 1:00"_qs);
    QCOMPARE(find<QSlider>("positionSlider")->value(), 2500);
    QCOMPARE(m_played.sought, -1);

    selectSong(u"ONE.mid"_qs); // without texts
    m_sample->table->setFocus();
    pressSpace();
    QVERIFY(find<QWidget>("karaokeLabel")->isHidden() ||
            !find<QWidget>("karaokeLabel")->isVisible());
}

void TestSongListener::seeksByKeysAndMouse()
{
    selectSong(u"ONE.mid"_qs);
    pressSpace();
    auto *slider = find<QSlider>("positionSlider");
    QTest::keyClick(slider, Qt::Key_Right);
    QCOMPARE(m_played.sought, 5000);
    QTest::keyClick(slider, Qt::Key_PageUp);
    QCOMPARE(m_played.sought, 20000);
    QTest::keyClick(slider, Qt::Key_Left);
    QCOMPARE(m_played.sought, 15000);
    slider->setSliderDown(true);
    slider->setSliderPosition(40000);
    m_player->moveTo(16000); // the song goes on during the drag
    QCOMPARE(slider->sliderPosition(), 40000);
    QCOMPARE(m_played.sought, 15000);
    slider->setSliderDown(false);
    QCOMPARE(m_played.sought, 40000);
}

void TestSongListener::endResetsTheBar()
{
    selectSong(u"ONE.mid"_qs);
    pressSpace();
    m_player->moveTo(59000);
    emit m_player->finished();
    QVERIFY(!m_listener->isPlaying());
    QCOMPARE(text("positionLabel"), u"0:00 / 0:00"_qs);
    QCOMPARE(find<QSlider>("positionSlider")->value(), 0);
    QVERIFY(!find<QSlider>("positionSlider")->isEnabled());
    QCOMPARE(find<QPushButton>("playPushButton")->text(), u"Ascolta"_qs);
}

void TestSongListener::theButtonPlaysAndStops()
{
    selectSong(u"ONE.mid"_qs);
    pressSpace();
    selectSong(u"TWO.mid"_qs);
    auto *button = find<QPushButton>("playPushButton");
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(!m_played.isPlaying);
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(isPlaying(u"TWO.mid"_qs));
}

/// Beside the name of its file, as its title is unknown.
void TestSongListener::showsWhyASongCantBePlayed()
{
    selectSong(u"TWO.mid"_qs);
    pressSpace();
    selectSong(u"ONE.mid"_qs);
    QFile::remove(m_sample->at(u"ONE.mid"_qs));
    pressSpace();
    QVERIFY(!m_listener->isPlaying());
    QVERIFY(find<QLabel>("playerTroubleLabel")->isVisible());
    QCOMPARE(text("playerTroubleLabel"),
             u"Ascolto non riuscito. Il brano non si può leggere: il file non esiste"_qs);
    QCOMPARE(text("playedTitleLabel"), u"ONE.mid"_qs);
    selectSong(u"TWO.mid"_qs);
    pressSpace();
    QCOMPARE(text("playedTitleLabel"), u"TWO"_qs);
    QVERIFY(!find<QLabel>("playerTroubleLabel")->isVisible());
}

void TestSongListener::showsAnErrorOfThePlayer()
{
    m_loadTrouble = u"Nessun dispositivo audio è disponibile."_qs;
    selectSong(u"ONE.mid"_qs);
    pressSpace();
    QVERIFY(!m_listener->isPlaying());
    QVERIFY(text("playerTroubleLabel").endsWith(m_loadTrouble));
    m_loadTrouble.clear();
    pressSpace();
    emit m_player->failed(u"Later."_qs);
    QVERIFY(!m_listener->isPlaying());
    QVERIFY(text("playerTroubleLabel").endsWith(u"Later."_qs));
}

void TestSongListener::explainsAMissingLibrary()
{
    selectSong(u"TWO.mid"_qs);
    pressSpace();
    m_listener->setMaker([](const PlayableSong &song, QString &trouble) {
        return SongPlayers({}, {false, false}).make(song, trouble);
    });
    selectSong(u"ONE.mid"_qs);
    pressSpace();
    QVERIFY(text("playerTroubleLabel").contains(u"senza FluidSynth"_qs));
    QCOMPARE(text("playedTitleLabel"), u"ONE"_qs);
}

void TestSongListener::followsTheTableInTheOrderOfTab()
{
    selectSong(u"ONE.mid"_qs);
    pressSpace();
    for (const char *name : {"playPushButton", "positionSlider", "updateDataToolButton"}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget()->objectName(), QString::fromLatin1(name));
    }
}

void TestSongListener::speaksEnglish()
{
    selectSong(u"ONE.mid"_qs);
    pressSpace();
    QTranslator program;
    QTranslator qt;
    loadTranslations(u"en"_qs, program, qt);
    QCoreApplication::processEvents();
    QCOMPARE(find<QPushButton>("playPushButton")->text(), u"Stop"_qs);
    QCOMPARE(find<QSlider>("positionSlider")->accessibleName(), u"Position in the song"_qs);
    QCOMPARE(find<QAction>("actionSoundFont")->text(), u"&Sound font for MIDI..."_qs);
}

BRISEL_TEST(QApplication, TestSongListener)
#include "tst_songlistener.moc"
