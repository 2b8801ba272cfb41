#include "tools/demo/listeningtour.h"

#include "app/songlistener.h"
#include "db/usersongsreltablemodel.h"
#include "player/songplayers.h"

#include <QLabel>
#include <QSlider>
#include <QTableView>
#include <QTest>

namespace brisel
{

static void selectKaraoke(QMainWindow &window)
{
    window.activateWindow();
    static_cast<void>(QTest::qWaitForWindowActive(&window));
    auto *table = window.findChild<QTableView *>();
    auto *model = window.findChild<UserSongsRelTableModel *>();
    for (int row = 0; row < model->rowCount(); ++row) {
        if (model->fileName(row).endsWith(QStringLiteral(".kar"), Qt::CaseInsensitive))
            table->selectRow(row);
    }
    table->setFocus();
}

void listenToASong(Stage &stage)
{
    Narrator &narrator = stage.narrator;
    narrator.step(QStringLiteral("Listen to a song"));
    stage.hand.rest();
    auto *listener = stage.window.findChild<SongListener *>();
    listener->setMaker([](const PlayableSong &song, QString &trouble) {
        return SongPlayers({}, SongPlayers::built, SongPlayer::Output::None).make(song, trouble);
    });
    selectKaraoke(stage.window);
    auto *table = stage.window.findChild<QTableView *>();
    QTest::keyClick(table, Qt::Key_Space);
    const auto *trouble = stage.window.findChild<QLabel *>(QStringLiteral("playerTroubleLabel"));
    if (!listener->isPlaying()) {
        narrator.check(trouble->isVisible(), QStringLiteral("not played: ") + trouble->text());
        return;
    }
    auto *slider = stage.window.findChild<QSlider *>(QStringLiteral("positionSlider"));
    for (int i = 0; i < 2; ++i)
        QTest::keyClick(slider, Qt::Key_PageUp);
    const auto *line = stage.window.findChild<QLabel *>(QStringLiteral("karaokeLabel"));
    narrator.check(!line->text().isEmpty(),
                   QStringLiteral("after 30 seconds it sings \"%1\"").arg(line->text()));
    narrator.takePicture(&stage.window, QStringLiteral("listening"));
    table->setFocus();
    QTest::keyClick(table, Qt::Key_Space);
    narrator.check(!listener->isPlaying(), QStringLiteral("the space bar stops it"));
}

} // namespace brisel
