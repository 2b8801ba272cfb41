#include "tests/app/markertest.h"
#include "tests/testprogram.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QPointer>

using namespace brisel;

/// The table of the markers, through the real window.
class TestMarkerTable : public MarkerTest
{
    Q_OBJECT

private slots:
    void init() { openWindow(); }
    void cleanup() { closeWindow(); }

    void removesTheSelectedMarkers();
    void refusesWhatASongCannotHold_data();
    void refusesWhatASongCannotHold();
    void stopsAtThe124thCharacter();
    void forgetsARefusedTextThatWasCorrected_data();
    void forgetsARefusedTextThatWasCorrected();
    void forgetsARefusedTextThatWasLeft();
    void showsHostileMarkers();
    void onlyShowsWhatItCannotRewrite_data();
    void onlyShowsWhatItCannotRewrite();

private:
    /// The editor of a marker with an invalid text, which stays invalid after a change.
    static QWidget *startRefused(const QWidget *dialog, int row = 0)
    {
        QWidget *editor = editorOf(dialog, row, 1);
        if (editor == nullptr)
            return nullptr;
        QTest::keyClick(editor, Qt::Key_End);
        DialogScript::type(editor, u"B"_qs);
        return editor;
    }

    const QByteArray m_unwritable = marker(5, "A\nB");
};

void TestMarkerTable::removesTheSelectedMarkers()
{
    importSong(song(marker(1, "A") + marker(2, "B") + marker(3, "C") + marker(4, "D")));
    editMarkers([](QWidget *dialog) {
        QTableView *table = tableIn(dialog);
        table->selectRow(1);
        QTest::keyClick(table, Qt::Key_Down, Qt::ShiftModifier);
        QVERIFY(QTest::qWaitForWindowActive(dialog));
        QTest::keyClick(table, Qt::Key_Delete);
        QCOMPARE(shownIn(dialog), (QStringList{u"1 A"_qs, u"4 D"_qs}));
        QCOMPARE(table->currentIndex().row(), 1);
        DialogScript::click(dialog, u"removePushButton"_qs);
        DialogScript::click(dialog, u"removePushButton"_qs);
        QCOMPARE(shownIn(dialog), QStringList());
        QVERIFY(!dialog->findChild<QWidget *>(u"removePushButton"_qs)->isEnabled());
        ok(dialog);
    });
    QVERIFY(!stored().contains(QByteArray("\xFF\x4B\x04\x06", 4)));
    QCOMPARE(model().index(0, model().fieldIndex(u"markers"_qs)).data().toInt(), 0);
}

void TestMarkerTable::refusesWhatASongCannotHold_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("hint");
    const QString text = u"Il testo di un marker ha al massimo 124 caratteri, solo dell'alfabeto "
                         "dell'Europa occidentale."_qs;
    const QString bar = u"La battuta di un marker va da 0 a 65535."_qs;
    QTest::newRow("letter") << u"Italian"_qs << 1 << u"AЖ"_qs << u"9 A"_qs << text;
    QTest::newRow("en letter") << u"English"_qs << 1 << u"€B"_qs << u"9 B"_qs
                               << u"The text of a marker has at most 124 characters, only of the "
                                  "Western European alphabet."_qs;
    QTest::newRow("bar") << u"Italian"_qs << 0 << u"65536"_qs << u"6553 Solo"_qs << bar;
    QTest::newRow("negative bar") << u"Italian"_qs << 0 << u"-7"_qs << u"7 Solo"_qs << bar;
    QTest::newRow("en bar") << u"English"_qs << 0 << u"7x"_qs << u"7 Solo"_qs
                            << u"The bar of a marker is a number from 0 to 65535."_qs;
}

void TestMarkerTable::refusesWhatASongCannotHold()
{
    QFETCH(const QString, language);
    QFETCH(const int, column);
    QFETCH(const QString, typed);
    QFETCH(const QString, shown);
    QFETCH(const QString, hint);
    importSong(song(marker(9, "Solo")));
    choose(language);
    editMarkers([=](QWidget *dialog) {
        QCOMPARE(hintIn(dialog), QString());
        typeInto(dialog, 0, column, typed);
        QCOMPARE(hintIn(dialog), hint);
        QCOMPARE(shownIn(dialog), QStringList{shown});
        typeInto(dialog, 0, 1, u"Next"_qs);
        QCOMPARE(hintIn(dialog), QString());
        DialogScript::click(dialog, u"cancelPushButton"_qs);
    });
}

void TestMarkerTable::stopsAtThe124thCharacter()
{
    const QString longest(124, u'x');
    importSong(song(marker(9, "Solo")));
    editMarkers([longest](QWidget *dialog) {
        typeInto(dialog, 0, 1, longest + u"y"_qs);
        QVERIFY(!hintIn(dialog).isEmpty());
        auto *editor = qobject_cast<QLineEdit *>(editorOf(dialog, 0, 1));
        QVERIFY(editor != nullptr);
        editor->selectAll();
        QApplication::clipboard()->setText(QString(125, u'p'));
        editor->paste(); // as a whole or not at all
        QCOMPARE(editor->text(), longest);
        QVERIFY(!hintIn(dialog).isEmpty());
        QTest::keyClick(editor, Qt::Key_Escape);
        ok(dialog);
    });
    QCOMPARE(Sample::infoOf(at(u"one.mid"_qs)).markers, (QList<Marker>{{longest, 9}}));
}

void TestMarkerTable::forgetsARefusedTextThatWasCorrected_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("shown");
    QTest::newRow("Return") << int(Qt::Key_Return) << u"5 Fine"_qs;
    QTest::newRow("Tab") << int(Qt::Key_Tab) << u"5 Fine"_qs;
    QTest::newRow("Escape") << int(Qt::Key_Escape) << u"5 A B"_qs;
    QTest::newRow("leaving it") << 0 << u"5 Fine"_qs;
}

void TestMarkerTable::forgetsARefusedTextThatWasCorrected()
{
    QFETCH(const int, key);
    QFETCH(const QString, shown);
    importSong(song(m_unwritable));
    editMarkers([=](QWidget *dialog) {
        QPointer<QWidget> editor = startRefused(dialog);
        QTest::keyClick(editor, Qt::Key_Return);
        QVERIFY(!hintIn(dialog).isEmpty());
        QTest::keySequence(editor, QKeySequence::SelectAll);
        DialogScript::type(editor, u"Fine"_qs);
        if (key == 0)
            tableIn(dialog)->setFocus();
        else
            QTest::keyClick(editor, Qt::Key(key));
        QCoreApplication::processEvents();
        QCOMPARE(hintIn(dialog), QString());
        QCOMPARE(shownIn(dialog), QStringList{shown});
        ok(dialog);
        QVERIFY(!dialog->isVisible());
    });
}

void TestMarkerTable::forgetsARefusedTextThatWasLeft()
{
    importSong(song(m_unwritable));
    editMarkers([](QWidget *dialog) {
        QVERIFY(startRefused(dialog) != nullptr);
        tableIn(dialog)->setFocus();
        QVERIFY(!hintIn(dialog).isEmpty()); // the text was dropped
        ok(dialog);
        QVERIFY(!dialog->isVisible());
    });
    QVERIFY(stored().contains(m_unwritable));
}

void TestMarkerTable::showsHostileMarkers()
{
    const QByteArray odd = marker(5, "<b>A</b>\n\x01") + marker(5, {}) + marker(65535, "Z") +
                           marker(0, QByteArray(124, '\xFF'));
    importSong(song(odd));
    editMarkers([](QWidget *dialog) {
        QCOMPARE(shownIn(dialog).mid(1),
                 (QStringList{u"5 <b>A</b> \u0001"_qs, u"5 "_qs, u"65535 Z"_qs}));
        typeInto(dialog, 3, 1, u"Last"_qs);
        // Text with characters that can't be typed: a part of it is refused on the way out.
        QVERIFY(startRefused(dialog, 1) != nullptr);
        ok(dialog);
        QVERIFY(dialog->isVisible());
        QVERIFY(!hintIn(dialog).isEmpty());
        ok(dialog);
        QVERIFY(!dialog->isVisible());
    });
    const QByteArray content = stored();
    QVERIFY(content.contains(marker(0, QByteArray(124, '\xFF')) + marker(5, "<b>A</b>\n\x01") +
                             marker(5, {}) + marker(65535, "Last")));
}

void TestMarkerTable::onlyShowsWhatItCannotRewrite_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("hint");
    QTest::newRow("it") << u"Italian"_qs
                        << u"In questa song i marker stanno dove il programma non può riscriverli: "
                           "si possono solo guardare."_qs;
    QTest::newRow("en") << u"English"_qs
                        << u"The markers of this song are where the program can't rewrite them: "
                           "they can only be viewed."_qs;
}

void TestMarkerTable::onlyShowsWhatItCannotRewrite()
{
    QFETCH(const QString, language);
    QFETCH(const QString, hint);
    importSong(song(MidiBytes::metaEvent(1, marker(4, "Inside"))));
    choose(language);
    editMarkers([hint](QWidget *dialog) {
        QCOMPARE(hintIn(dialog), hint);
        QCOMPARE(shownIn(dialog), QStringList{u"4 Inside"_qs});
        for (const QString &name :
             {u"addPushButton"_qs, u"removePushButton"_qs, u"okPushButton"_qs})
            QVERIFY(!dialog->findChild<QWidget *>(name)->isEnabled());
        QTableView *table = tableIn(dialog);
        QTest::keyClick(table, Qt::Key_F2);
        QCOMPARE(QApplication::focusWidget(), table);
        DialogScript::click(dialog, u"cancelPushButton"_qs);
    });
    QVERIFY(stored().contains(marker(4, "Inside")));
}

BRISEL_TEST(QApplication, TestMarkerTable)
#include "tst_markertable.moc"
