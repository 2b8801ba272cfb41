#include "tests/memory/openpanel.h"
#include "tests/testprogram.h"

#include <QApplication>
#include <QMessageBox>

using namespace brisel;

using namespace Sample;

namespace
{

constexpr int playlists = 51;

QString songsOfNumber(int number)
{
    return u"playlist/play%1.dat"_qs.arg(number, 4, 10, QChar(u'0'));
}

/// Playlists that were changed. The last one is not in the same lot as the others, and has a folder
/// as its path file: a save writes all others, and its songs.
class PartlySaved : public OpenPanel
{
public:
    PartlySaved() : OpenPanel(volare)
    {
        QByteArray numbers;
        for (int number = 1; number <= playlists; ++number) {
            numbers += QByteArray(1, static_cast<char>(number)) + QByteArray(31, '\0');
            memory.write(songsOfNumber(number), volare);
        }
        memory.write(u"playlist/playlist.dat"_qs, numbers);
        memory.write(folder + u"/file"_qs, "x");
        panel.setContents(readContents(memory));
        for (int row = 0; row < playlists; ++row) {
            show(row);
            panel.addSongs({9});
        }
        script.expect("QMessageBox", [](QWidget *widget) {
            auto *box = qobject_cast<QMessageBox *>(widget);
            QVERIFY2(box->text().startsWith(u"Non tutte le playlist sono state salvate: "_qs),
                     qPrintable(box->text()));
            box->button(QMessageBox::Ok)->click();
        });
        isSaved = panel.save();
    }

    void show(int row) const { list()->setCurrentIndex(list()->model()->index(row, 0)); }

    static inline const QString folder = u"playlist/play0051.pts"_qs;
    DialogScript script;
    bool isSaved = true;
};

} // namespace

/// A save of the playlists that wrote only some of them.
class TestPartlySaved : public QObject
{
    Q_OBJECT

private slots:
    void isReportedAndLeavesTheRest();
    void staysWhenTheRestIsDiscarded();
};

void TestPartlySaved::isReportedAndLeavesTheRest()
{
    PartlySaved open;
    QVERIFY(!open.isSaved);
    QVERIFY(open.script.isDone());
    QCOMPARE(open.memory.read(songsOfNumber(1)), volare + nessuno);
    open.panel.updateContents(readContents(open.memory));
    QCOMPARE(open.nameOf(0), u"Playlist 1 (2)"_qs);
    QCOMPARE(open.nameOf(playlists - 1), u"Playlist 51 * (2)"_qs);
}

void TestPartlySaved::staysWhenTheRestIsDiscarded()
{
    PartlySaved open;
    open.script.expectMessage(u"Playlist"_qs,
                              u"Le playlist sono state modificate. Salvarle sulla memoria?"_qs,
                              QMessageBox::Discard);
    QVERIFY(open.panel.mayDiscard());
    QVERIFY(!open.panel.isModified());
    QVERIFY(QDir(open.memory.path(PartlySaved::folder)).removeRecursively());
    for (const int number : {1, playlists}) {
        open.show(number - 1);
        QCOMPARE(open.titles(), u"VOLARE NESSUNO"_qs);
        open.panel.addSongs({5});
    }
    QVERIFY(open.panel.save());
    for (const int number : {1, playlists})
        QCOMPARE(open.memory.read(songsOfNumber(number)), volare + nessuno + azzurro);
    QVERIFY(open.script.isDone());
}

BRISEL_TEST(QApplication, TestPartlySaved)

#include "tst_partlysaved.moc"
