#include "history/history.h"
#include "songfile/lzhuff.h"
#include "tests/app/markertest.h"
#include "tests/testprogram.h"

#include <QLineEdit>
#include <QMessageBox>

using namespace brisel;

namespace
{

constexpr int containerHeaderSize = 512;
constexpr int flagsField = 185; ///< of a container's header

QByteArray container(const QByteArray &music, char flags)
{
    QByteArray header = "_ZB3" + QByteArray(containerHeaderSize - 4, '\0');
    header[flagsField] = flags;
    QByteArray compressed;
    LzHuff().compress(music, compressed);
    return header + compressed;
}

/// The MIDI data in a container; empty if they can't be expanded.
QByteArray musicOf(const QByteArray &content)
{
    QByteArray music;
    const bool isExpanded = LzHuff().expand(content.mid(containerHeaderSize), music);
    return isExpanded ? music : QByteArray();
}

} // namespace

/// The markers of a song in the edit dialog, through the real window.
class TestEditMarkers : public MarkerTest
{
    Q_OBJECT

private slots:
    void init() { openWindow(); }
    void cleanup() { closeWindow(); }

    void countsTheMarkers_data();
    void countsTheMarkers();
    void isDisabledWhereThereAreNone_data();
    void isDisabledWhereThereAreNone();
    void writesWhatWasChanged();
    void writesMarkersOfContainers();
    void clearsTheFlagOfAContainerWithoutMarkers();
    void leavesTheFileWithoutAChange();
    void cancelledTableChangesNothing();
    void countsAsAChangeOnTheWay();
    void canBeTakenBack();
    void reportsASongThatBecomesTooLarge();
    void reportsATextThatWouldBeTheKey_data();
    void reportsATextThatWouldBeTheKey();
};

void TestEditMarkers::countsTheMarkers_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("it") << u"Italian"_qs
                        << QStringList{u"Marker (2)..."_qs, u"Marker della song"_qs, u"Battuta"_qs,
                                       u"Testo"_qs};
    QTest::newRow("en") << u"English"_qs
                        << QStringList{u"Markers (2)..."_qs, u"Markers of the song"_qs, u"Bar"_qs,
                                       u"Text"_qs};
}

void TestEditMarkers::countsTheMarkers()
{
    QFETCH(const QString, language);
    QFETCH(const QStringList, texts);
    importSong(song(m_two));
    choose(language);
    expectEdit([texts](QWidget *widget) {
        const auto *button = widget->findChild<QPushButton *>(u"markersPushButton"_qs);
        QCOMPARE(button->text(), texts.at(0));
        openMarkers(widget, [texts](QWidget *dialog) {
            QCOMPARE(dialog->windowTitle(), texts.at(1));
            const QAbstractItemModel *model = tableIn(dialog)->model();
            QCOMPARE(model->headerData(0, Qt::Horizontal).toString(), texts.at(2));
            QCOMPARE(model->headerData(1, Qt::Horizontal).toString(), texts.at(3));
            QCOMPARE(shownIn(dialog), (QStringList{u"9 Solo"_qs, u"300 Coda"_qs}));
            DialogScript::click(dialog, u"addPushButton"_qs);
            QCoreApplication::processEvents();
            ok(dialog);
        });
        QVERIFY(button->text().contains(u"(3)"_qs));
        DialogScript::click(widget, u"exitPushButton"_qs);
    });
    doubleClick(0);
    verifyScript();
    QCOMPARE(stored(), song(m_two));
}

void TestEditMarkers::isDisabledWhereThereAreNone_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<bool>("isSeveral");
    QTest::addColumn<QString>("reason");
    QTest::newRow("it MP3") << u"Italian"_qs << false
                            << u"Le song di questo formato non hanno marker"_qs;
    QTest::newRow("en MP3") << u"English"_qs << false << u"Songs of this format have no markers"_qs;
    QTest::newRow("it several") << u"Italian"_qs << true
                                << u"I marker si modificano in una song alla volta"_qs;
    QTest::newRow("en several") << u"English"_qs << true
                                << u"Markers are edited in one song at a time"_qs;
}

void TestEditMarkers::isDisabledWhereThereAreNone()
{
    QFETCH(const QString, language);
    QFETCH(const bool, isSeveral);
    QFETCH(const QString, reason);
    if (isSeveral)
        importSongs({u"one.mid"_qs, u"two.mid"_qs}, false);
    else
        importSong(QByteArray("\xFF\xFB\x90\x64", 4) + QByteArray(5000, 'a'), u"one.mp3"_qs);
    choose(language);
    expectEdit([reason](QWidget *widget) {
        const auto *button = widget->findChild<QPushButton *>(u"markersPushButton"_qs);
        QVERIFY(!button->isEnabled());
        QCOMPARE(button->toolTip(), reason);
        QVERIFY(!button->text().contains(u'('));
        DialogScript::click(widget, u"exitPushButton"_qs);
    });
    if (isSeveral) {
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window));
        table()->setFocus();
        table()->selectAll();
        QTest::keyClick(table(), Qt::Key_Return);
    } else {
        doubleClick(0);
    }
    verifyScript();
}

void TestEditMarkers::writesWhatWasChanged()
{
    const QByteArray author = MidiBytes::kordiaEvent(3, "Bea");
    const QByteArray before = song(m_two + author);
    importSong(before);
    editMarkers([](QWidget *dialog) {
        typeInto(dialog, 0, 1, u"Assolo è"_qs);
        typeInto(dialog, 1, 0, u"2"_qs); // moves to the first row
        QCOMPARE(shownIn(dialog), (QStringList{u"2 Coda"_qs, u"9 Assolo è"_qs}));
        QCOMPARE(tableIn(dialog)->currentIndex().row(), 0);
        DialogScript::click(dialog, u"addPushButton"_qs);
        DialogScript::type(tableIn(dialog)->viewport()->findChild<QLineEdit *>(), u" Fine "_qs);
        ok(dialog); // ends the edit
    });
    // The song's other events were written again at its head, as for any edit.
    const auto tracks = MidiReader::readTracks(stored());
    QVERIFY(tracks.has_value());
    QByteArrayList markers;
    QByteArrayList notes;
    for (const MidiReader::Event &event : tracks->constFirst().events) {
        if (MidiReader::isAtZero(event, markerKind))
            markers.append(event.data);
        else if (!event.data.isEmpty() && event.metaType < 0)
            notes.append(event.data);
    }
    QCOMPARE(markers, (QByteArrayList{QByteArray("\6\0\2Coda", 7), QByteArray("\6\0\3Fine", 7),
                                      QByteArray("\6\0\x09"
                                                 "Assolo \xE8",
                                                 11)}));
    QCOMPARE(notes, (QByteArrayList{"\x3c\x40", "\x3c\x40"}));
    QVERIFY(stored().contains(author));
    QCOMPARE(statuses(), u"2"_qs);
    QCOMPARE(model().index(0, model().fieldIndex(u"markers"_qs)).data().toInt(), 3);
    QVERIFY(reportLines().contains(
        u"    Marker: «9 Solo; 300 Coda» → «2 Coda; 3 Fine; 9 Assolo è»"_qs));
}

void TestEditMarkers::writesMarkersOfContainers()
{
    importSong(container(song({}), '\0'), u"one.zb3"_qs);
    editMarkers([](QWidget *dialog) {
        DialogScript::click(dialog, u"addPushButton"_qs);
        typeInto(dialog, 0, 1, u"Intro"_qs);
        ok(dialog);
    });
    const QByteArray content = fileContent(at(u"one.zb3"_qs));
    QCOMPARE(content.at(flagsField), '\1');
    QVERIFY(musicOf(content).contains(marker(1, "Intro")));
    QCOMPARE(model().index(0, model().fieldIndex(u"markers"_qs)).data().toInt(), 1);
}

void TestEditMarkers::clearsTheFlagOfAContainerWithoutMarkers()
{
    importSong(container(song(m_two), '\x41'), u"one.zb3"_qs);
    editMarkers([](QWidget *dialog) {
        tableIn(dialog)->selectAll();
        DialogScript::click(dialog, u"removePushButton"_qs);
        ok(dialog);
    });
    const QByteArray content = fileContent(at(u"one.zb3"_qs));
    QCOMPARE(content.at(flagsField), '\x40');
    const QByteArray music = musicOf(content);
    QVERIFY(!music.isEmpty());
    QVERIFY(!music.contains("Solo") && !music.contains("Coda"));
}

void TestEditMarkers::leavesTheFileWithoutAChange()
{
    // Not in the order of the bars, with bytes that are not read.
    const QByteArray odd = marker(300, "Coda") + marker(9, QByteArray(" Solo\0x", 7));
    importSong(song(odd));
    editMarkers([](QWidget *dialog) {
        typeInto(dialog, 0, 1, u"X"_qs);
        typeInto(dialog, 0, 1, u"Solo"_qs);
        typeInto(dialog, 0, 0, u"500"_qs);
        typeInto(dialog, 1, 0, u"9"_qs);
        QCOMPARE(shownIn(dialog), (QStringList{u"9 Solo"_qs, u"300 Coda"_qs}));
        ok(dialog);
    });
    QVERIFY(stored().contains(odd));
}

void TestEditMarkers::cancelledTableChangesNothing()
{
    importSong(song(m_two));
    editMarkers([](QWidget *dialog) {
        typeInto(dialog, 0, 1, u"X"_qs);
        DialogScript::click(dialog, u"cancelPushButton"_qs);
    });
    QVERIFY(stored().contains(m_two));
}

void TestEditMarkers::countsAsAChangeOnTheWay()
{
    makeFile(at(u"ann.mid"_qs), song(m_two));
    makeFile(at(u"bob.mid"_qs), song(m_two));
    import({u"ann.mid"_qs, u"bob.mid"_qs});
    const auto change = [](QWidget *widget) {
        openMarkers(widget, [](QWidget *dialog) {
            typeInto(dialog, 0, 0, u"10"_qs);
            ok(dialog);
        });
    };
    expectEdit([change](QWidget *widget) {
        change(widget);
        DialogScript inner;
        inner.expect("QMessageBox", [](QWidget *box) {
            auto *message = qobject_cast<QMessageBox *>(box);
            QCOMPARE(message->text(), u"Salvare le modifiche?"_qs);
            QTest::mouseClick(message->button(QMessageBox::No), Qt::LeftButton);
        });
        DialogScript::click(widget, u"nextPushButton"_qs);
    });
    expectEdit([change](QWidget *widget) {
        change(widget);
        widget->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(widget));
        QTest::keySequence(widget, QKeySequence(Qt::CTRL | Qt::Key_Return));
    });
    doubleClick(0);
    verifyScript();
    QCOMPARE(statuses(), u"02"_qs);
    QVERIFY(fileContent(at(u"bob.mid"_qs)).contains(marker(10, "Solo") + marker(300, "Coda")));
    QCOMPARE(fileContent(at(u"ann.mid"_qs)), song(m_two));
}

void TestEditMarkers::canBeTakenBack()
{
    const QByteArray before = song(m_two);
    importSong(before);
    editMarkers([](QWidget *dialog) {
        typeInto(dialog, 0, 1, u"Other"_qs);
        ok(dialog);
    });
    QVERIFY(stored() != before);
    QCOMPARE(History().songs(History().runs().constFirst().id).size(), 1);
    chooseFromMenu(2, cell(0));
    verifyScript();
    QCOMPARE(stored(), before);
    QCOMPARE(model().index(0, model().fieldIndex(u"markers"_qs)).data().toInt(), 2);
}

void TestEditMarkers::reportsASongThatBecomesTooLarge()
{
    const QByteArray head = song({});
    const QByteArray full =
        head + QByteArray(MetaSong::maxSongSize - head.size() - 8, '\0'); // after the track
    importSong(full);
    expectEdit([](QWidget *widget) {
        openMarkers(widget, [](QWidget *dialog) {
            DialogScript::click(dialog, u"addPushButton"_qs);
            typeInto(dialog, 0, 1, u"Too much"_qs);
            ok(dialog);
        });
        DialogScript::click(widget, u"savePushButton"_qs);
    });
    m_script->expect("QMessageBox", [](QWidget *box) {
        QCOMPARE(qobject_cast<QMessageBox *>(box)->text(),
                 u"La song non è stata salvata: con i nuovi dati il file sarebbe troppo grande"_qs);
        QTest::keyClick(box, Qt::Key_Escape);
    });
    expectEdit([](QWidget *widget) {
        QCOMPARE(widget->findChild<QPushButton *>(u"markersPushButton"_qs)->text(),
                 u"Marker (1)..."_qs);
        DialogScript::click(widget, u"exitPushButton"_qs);
    });
    doubleClick(0);
    verifyScript();
    QVERIFY(stored() == full);
}

void TestEditMarkers::reportsATextThatWouldBeTheKey_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("text");
    QTest::newRow("it") << u"Italian"_qs
                        << u"La song non è stata salvata: un marker verrebbe letto come un altro "
                           "dato della song"_qs;
    QTest::newRow("en") << u"English"_qs
                        << u"The song was not saved: a marker would be read as another field of "
                           "the song"_qs;
}

void TestEditMarkers::reportsATextThatWouldBeTheKey()
{
    QFETCH(const QString, language);
    QFETCH(const QString, text);
    importSong(song(m_two));
    choose(language);
    const auto typeText = [](const QString &typed) {
        return [typed](QWidget *widget) {
            openMarkers(widget, [typed](QWidget *dialog) {
                typeInto(dialog, 0, 1, typed);
                ok(dialog);
            });
            DialogScript::click(widget, u"savePushButton"_qs);
        };
    };
    expectEdit(typeText(u"ÿYes"_qs));
    m_script->expect("QMessageBox", [this, text](QWidget *box) {
        QCOMPARE(qobject_cast<QMessageBox *>(box)->text(), text);
        QVERIFY(stored() == song(m_two));
        QTest::keyClick(box, Qt::Key_Escape);
    });
    expectEdit(typeText(u"Yes"_qs));
    doubleClick(0);
    verifyScript();
    QVERIFY(stored().contains(marker(9, "Yes") + marker(300, "Coda")));
}

BRISEL_TEST(QApplication, TestEditMarkers)
#include "tst_editmarkers.moc"
