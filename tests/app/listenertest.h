#pragma once

#include "app/songlistener.h"
#include "player/songplayers.h"
#include "tests/app/samplewindow.h"

namespace brisel
{

/// Common functions for tests of listening in the real window, with a player that the test moves.
class ListenerTest : public QObject
{
protected:
    void openWindow();
    void closeWindow() { closeVerified(m_sample); }
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
class ListenerTest::FakePlayer : public SongPlayer
{
public:
    explicit FakePlayer(ListenerTest &test) : m_test(test) {}

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
    ListenerTest &m_test;
};

inline void ListenerTest::openWindow()
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

} // namespace brisel
