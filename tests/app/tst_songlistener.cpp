#include "app/playerbar.h"
#include "app/songlistener.h"
#include "app/startup.h"
#include "player/songplayers.h"
#include "tests/app/samplewindow.h"
#include "tests/testprogram.h"

#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QSlider>
#include <QTranslator>

using namespace brisel;

/// Listening in the real window, with a player that the test moves.
class TestSongListener : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
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
    void sortingKeepsPlaying();
    void removingTheSongStopsIt();
    void removingAnotherSongKeepsPlaying();
    void deletingTheSongStopsIt_data();
    void deletingTheSongStopsIt();
    void savingAnEditStopsFirst();
    void aCancelledEditKeepsPlaying();
    void aSynchronisationStopsFirst();
    void closingTheWindowStops();
    void followsTheTableInTheOrderOfTab();
    void speaksEnglish();

private:
    class FakePlayer;
    struct Played {
        PlayableSong song;
        bool isPlaying = false;
        qint64 position = 0;
        qint64 sought = -1;
        int stops = 0;
        bool hadFileAtStop = false;
    };

    template <typename Kind>
    Kind *find(const char *name) const
    {
        return m_sample->window->findChild<Kind *>(QString::fromLatin1(name));
    }
    QString text(const char *label) const { return find<QLabel>(label)->text(); }
    void pressSpace() const { QTest::keyClick(m_sample->table, Qt::Key_Space); }
    void selectSong(const QString &name) const
    {
        for (int row = 0; row < m_sample->model->rowCount(); ++row) {
            if (m_sample->model->shortName(row) == name)
                m_sample->table->selectRow(row);
        }
    }
    bool isPlaying(const QString &name) const
    {
        return m_played.isPlaying && m_played.song.path.endsWith(u'/' + name);
    }

    std::unique_ptr<SampleWindow> m_sample;
    SongListener *m_listener = nullptr;
    Played m_played;
    FakePlayer *m_player = nullptr; ///< the last one
    QString m_loadTrouble;          ///< with which the next song fails
};

/// Records what the listener does, of a song of 60 seconds.
class TestSongListener::FakePlayer : public SongPlayer
{
public:
    explicit FakePlayer(TestSongListener &test) : m_test(test) {}

    bool load(const PlayableSong &song) override
    {
        m_test.m_played = {song};
        if (m_test.m_loadTrouble.isEmpty())
            return true;
        emit failed(m_test.m_loadTrouble);
        return false;
    }
    void play() override { m_test.m_played.isPlaying = true; }
    void stop() override
    {
        m_test.m_played.isPlaying = false;
        ++m_test.m_played.stops;
        m_test.m_played.hadFileAtStop = QFile::exists(m_test.m_played.song.path);
    }
    bool isPlaying() const override { return m_test.m_played.isPlaying; }
    qint64 position() const override { return m_test.m_played.position; }
    qint64 duration() const override { return 60000; }
    void seek(qint64 ms) override
    {
        m_test.m_played.sought = ms;
        moveTo(ms);
    }
    void moveTo(qint64 ms)
    {
        m_test.m_played.position = ms;
        emit positionChanged(ms);
    }

private:
    TestSongListener &m_test;
};

void TestSongListener::init()
{
    m_sample = std::make_unique<SampleWindow>();
    m_sample->import({u"ONE.mid"_qs, u"TWO.mid"_qs, u"other.mid"_qs});
    m_listener = m_sample->window->findChild<SongListener *>();
    QVERIFY(m_listener != nullptr);
    m_listener->setMaker([this](const PlayableSong &, QString &) {
        auto player = std::make_unique<FakePlayer>(*this);
        m_player = player.get();
        return player;
    });
    m_played = {};
    m_loadTrouble.clear();
    m_sample->window->activateWindow();
    m_sample->table->setFocus();
    QVERIFY(QTest::qWaitForWindowActive(m_sample->window.get()));
}

void TestSongListener::cleanup()
{
    const QString problems = m_sample->script.problems().join(u'\n');
    const bool done = m_sample->script.isDone();
    m_sample.reset();
    QVERIFY2(done, qPrintable(problems));
}

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

void TestSongListener::sortingKeepsPlaying()
{
    selectSong(u"ONE.mid"_qs);
    pressSpace();
    m_sample->table->sortByColumn(2, Qt::DescendingOrder);
    m_sample->table->sortByColumn(2, Qt::AscendingOrder);
    QVERIFY(isPlaying(u"ONE.mid"_qs));
}

void TestSongListener::removingTheSongStopsIt()
{
    selectSong(u"ONE.mid"_qs);
    pressSpace();
    QTest::keyClick(m_sample->table, Qt::Key_Delete);
    QVERIFY(!m_played.isPlaying);
    QVERIFY(!m_listener->isPlaying());
}

void TestSongListener::removingAnotherSongKeepsPlaying()
{
    selectSong(u"ONE.mid"_qs);
    pressSpace();
    selectSong(u"TWO.mid"_qs);
    QTest::keyClick(m_sample->table, Qt::Key_Delete);
    QVERIFY(isPlaying(u"ONE.mid"_qs));
}

void TestSongListener::deletingTheSongStopsIt_data()
{
    QTest::addColumn<int>("answer");
    QTest::newRow("yes") << int(QMessageBox::Yes);
    QTest::newRow("no") << int(QMessageBox::No);
}

/// It stops first: some systems delete no file that is open.
void TestSongListener::deletingTheSongStopsIt()
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

void TestSongListener::savingAnEditStopsFirst()
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

void TestSongListener::aCancelledEditKeepsPlaying()
{
    selectSong(u"ONE.mid"_qs);
    pressSpace();
    m_sample->script.expect("DataEditDialog", [](QWidget *dialog) {
        DialogScript::click(dialog, u"exitPushButton"_qs);
    });
    QTest::keyClick(m_sample->table, Qt::Key_Return);
    QVERIFY(m_played.isPlaying);
}

void TestSongListener::aSynchronisationStopsFirst()
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

void TestSongListener::closingTheWindowStops()
{
    selectSong(u"ONE.mid"_qs);
    pressSpace();
    const QPointer<SongPlayer> player = m_player;
    QVERIFY(player != nullptr);
    m_sample->window.reset();
    QVERIFY(player == nullptr);
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
