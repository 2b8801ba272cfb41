#include "tests/app/reporttest.h"
#include "tests/testprogram.h"

#include <QAction>
#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QMessageBox>

using namespace brisel;

/// Going from song to song inside the edit dialog, through the real window.
class TestEditWalk : public ReportTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { closeWindow(); }

    void goesThroughTheShownRows();
    void endsAtTheFirstAndLastRow();
    void asksBeforeAChangedSongIsLeft_data();
    void asksBeforeAChangedSongIsLeft();
    void cancelStaysAtTheSong();
    void controlReturnSavesAndGoesOn();
    void keepsTheFieldAndTheRow();
    void passesOverASongThatDoesNotOpen();
    void keepsTheOrderOfASortedTable();
    void staysAtASongThatIsNotSaved_data();
    void staysAtASongThatIsNotSaved();
    void showsWhatBecameOfASongThatIsNotSaved();
    void leavesAnUnsavedSongWithoutSaving();

private:
    /// The next dialog shows the song \a title; \a keys are then pressed in it.
    void expectSong(const QString &title, const QKeySequence &keys,
                    const QString &author = QString())
    {
        expectEdit([this, title, keys, author](QWidget *widget) {
            m_seen.append(lineOf(widget, u"titleLineEdit"_qs)->text());
            QCOMPARE(m_seen.constLast(), title);
            if (!author.isEmpty())
                DialogScript::type(lineOf(widget, u"authorLineEdit"_qs), author);
            QVERIFY(QTest::qWaitForWindowActive(widget));
            QTest::keySequence(widget, keys);
        });
    }
    static QLineEdit *lineOf(const QWidget *dialog, const QString &name)
    {
        return dialog->findChild<QLineEdit *>(name);
    }
    /// The message about a song that was not saved.
    void expectUnsaved()
    {
        m_script->expect("QMessageBox", [](QWidget *box) {
            auto *message = qobject_cast<QMessageBox *>(box);
            QVERIFY(message->text().startsWith(u"La song non è stata salvata: "_qs));
            QTest::mouseClick(message->button(QMessageBox::Ok), Qt::LeftButton);
        });
    }
    void move(const QString &from, const QString &to) const
    {
        QVERIFY(QFile::rename(at(from), at(to)));
    }
    QString author(const QString &name) const { return Sample::infoOf(at(name)).author; }

    const QKeySequence m_next{Qt::CTRL | Qt::Key_PageDown};
    const QKeySequence m_previous{Qt::CTRL | Qt::Key_PageUp};
    const QKeySequence m_save{Qt::CTRL | Qt::Key_Return};
    const QKeySequence m_leave{Qt::Key_Escape};
    QStringList m_seen;
};

void TestEditWalk::init()
{
    m_seen.clear();
    openWindow();
    const QStringList names{u"ann.mid"_qs, u"bob.mid"_qs, u"cin.mid"_qs, u"dan.mid"_qs};
    makeSongs(names, false);
    import(names);
}

void TestEditWalk::goesThroughTheShownRows()
{
    m_window->findChild<QLineEdit *>(u"searchLineEdit"_qs)->setText(u"file:n"_qs);
    expectSong(u"ann"_qs, m_next);
    expectSong(u"cin"_qs, QKeySequence(Qt::ALT | Qt::Key_Right));
    expectSong(u"dan"_qs, m_previous);
    expectSong(u"cin"_qs, QKeySequence(Qt::ALT | Qt::Key_Left));
    expectSong(u"ann"_qs, m_leave);
    doubleClick(0);
    verifyScript();
    QCOMPARE(statuses(), u"0000"_qs);
}

void TestEditWalk::endsAtTheFirstAndLastRow()
{
    expectEdit([](QWidget *widget) {
        QVERIFY(!widget->findChild<QPushButton *>(u"previousPushButton"_qs)->isEnabled());
        DialogScript::click(widget, u"nextPushButton"_qs);
    });
    expectSong(u"bob"_qs, m_next);
    expectSong(u"cin"_qs, m_next);
    expectEdit([](QWidget *widget) {
        QVERIFY(!widget->findChild<QPushButton *>(u"nextPushButton"_qs)->isEnabled());
        DialogScript::click(widget, u"exitPushButton"_qs);
    });
    doubleClick(0);
    verifyScript();
}

void TestEditWalk::asksBeforeAChangedSongIsLeft_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<int>("answer");
    QTest::addColumn<QString>("author");
    const int yes = QMessageBox::Yes;
    const int no = QMessageBox::No;
    QTest::newRow("it yes") << u"Italian"_qs << yes << u"X"_qs;
    QTest::newRow("it no") << u"Italian"_qs << no << QString();
    QTest::newRow("en yes") << u"English"_qs << yes << u"X"_qs;
}

void TestEditWalk::asksBeforeAChangedSongIsLeft()
{
    QFETCH(QString, language);
    QFETCH(int, answer);
    m_window->findChild<QAction *>(u"action"_qs + language)->trigger();
    QCoreApplication::processEvents();
    const QString question =
        language == u"Italian"_qs ? u"Salvare le modifiche?"_qs : u"Save the changes?"_qs;
    expectEdit([answer, question](QWidget *widget) {
        DialogScript::type(lineOf(widget, u"authorLineEdit"_qs), u"X"_qs);
        DialogScript inner;
        inner.expect("QMessageBox", [answer, question](QWidget *box) {
            auto *message = qobject_cast<QMessageBox *>(box);
            QCOMPARE(message->text(), question);
            QTest::mouseClick(message->button(QMessageBox::StandardButton(answer)), Qt::LeftButton);
        });
        DialogScript::click(widget, u"nextPushButton"_qs);
    });
    expectSong(u"bob"_qs, m_leave);
    doubleClick(0);
    verifyScript();
    QTEST(author(u"ann.mid"_qs), "author");
    QCOMPARE(author(u"bob.mid"_qs), QString());
}

void TestEditWalk::cancelStaysAtTheSong()
{
    expectEdit([](QWidget *widget) {
        DialogScript::type(lineOf(widget, u"authorLineEdit"_qs), u"X"_qs);
        DialogScript inner;
        inner.expect("QMessageBox", [](QWidget *box) { QTest::keyClick(box, Qt::Key_Escape); });
        DialogScript::click(widget, u"nextPushButton"_qs);
        QVERIFY(widget->isVisible());
        QCOMPARE(lineOf(widget, u"authorLineEdit"_qs)->text(), u"X"_qs);
        DialogScript::click(widget, u"exitPushButton"_qs);
    });
    doubleClick(0);
    verifyScript();
    QCOMPARE(author(u"ann.mid"_qs), QString());
}

void TestEditWalk::controlReturnSavesAndGoesOn()
{
    expectSong(u"bob"_qs, m_save, u"X"_qs);
    expectSong(u"cin"_qs, m_save); // nothing to be saved
    expectSong(u"dan"_qs, m_save, u"Z"_qs);
    doubleClick(1);
    verifyScript();
    QCOMPARE(author(u"bob.mid"_qs), u"X"_qs);
    QCOMPARE(author(u"dan.mid"_qs), u"Z"_qs);
    QCOMPARE(statuses(), u"0202"_qs);
}

void TestEditWalk::keepsTheFieldAndTheRow()
{
    QPoint place;
    expectEdit([&place, this](QWidget *widget) {
        QVERIFY(QTest::qWaitForWindowActive(widget));
        lineOf(widget, u"authorLineEdit"_qs)->setFocus();
        widget->move(123, 45);
        place = widget->pos();
        QTest::keySequence(widget, m_next);
    });
    expectEdit([&place, this](QWidget *widget) {
        QCOMPARE(widget->focusWidget()->objectName(), u"authorLineEdit"_qs);
        QCOMPARE(widget->pos(), place);
        QCOMPARE(table()->currentIndex().row(), 1);
        DialogScript::click(widget, u"exitPushButton"_qs);
    });
    doubleClick(0);
    verifyScript();
}

void TestEditWalk::passesOverASongThatDoesNotOpen()
{
    QVERIFY(QFile::remove(at(u"bob.mid"_qs)));
    expectSong(u"ann"_qs, m_next);
    expectSong(u"cin"_qs, m_leave);
    doubleClick(0);
    verifyScript();
}

void TestEditWalk::keepsTheOrderOfASortedTable()
{
    table()->sortByColumn(model().fieldIndex(u"author"_qs), Qt::DescendingOrder);
    const QString first = model().shortName(0);
    const QString second = model().shortName(1).chopped(4);
    const QString third = model().shortName(2).chopped(4);
    expectSong(first.chopped(4), m_save, u"X"_qs);
    expectSong(second, m_save, u"Y"_qs);
    expectSong(third, m_leave);
    doubleClick(0);
    verifyScript();
    QCOMPARE(author(first), u"X"_qs);
    QCOMPARE(author(second + u".mid"_qs), u"Y"_qs);
}

void TestEditWalk::staysAtASongThatIsNotSaved_data()
{
    QTest::addColumn<QKeySequence>("keys");
    QTest::addColumn<bool>("isAsked");
    QTest::newRow("next") << m_next << true;
    QTest::newRow("previous") << m_previous << true;
    QTest::newRow("save and next") << m_save << false;
    QTest::newRow("save") << QKeySequence(Qt::Key_Return) << false;
}

void TestEditWalk::staysAtASongThatIsNotSaved()
{
    QFETCH(const QKeySequence, keys);
    QFETCH(const bool, isAsked);
    expectEdit([=, this](QWidget *widget) {
        move(u"bob.mid"_qs, u"away"_qs);
        for (const QString &name :
             {u"titleLineEdit"_qs, u"authorLineEdit"_qs, u"ssLineEdit"_qs, u"bpmLineEdit"_qs})
            lineOf(widget, name)->setText(u"77"_qs);
        widget->findChild<QComboBox *>(u"artistComboBox"_qs)->setEditText(u"77"_qs);
        widget->findChild<QComboBox *>(u"keyComboBox"_qs)->setCurrentText(u"A-"_qs);
        QVERIFY(QTest::qWaitForWindowActive(widget));
        DialogScript inner;
        if (isAsked)
            inner.expect("QMessageBox", [](QWidget *box) { QTest::keyClick(box, Qt::Key_Return); });
        QTest::keySequence(widget, keys);
        QVERIFY2(inner.isDone(), qPrintable(inner.problems().join(u'\n')));
    });
    expectUnsaved();
    expectEdit([this](QWidget *widget) {
        move(u"away"_qs, u"bob.mid"_qs);
        QCOMPARE(lineOf(widget, u"titleLineEdit"_qs)->text(), u"77"_qs);
        DialogScript::click(widget, u"savePushButton"_qs);
    });
    doubleClick(1);
    verifyScript();
    const SongInfo saved = Sample::infoOf(at(u"bob.mid"_qs));
    QCOMPARE((QStringList{saved.title, saved.artist, saved.author, saved.key}),
             (QStringList{u"77"_qs, u"77"_qs, u"77"_qs, u"A-"_qs}));
    QCOMPARE(saved.length % 60, 17);
    QCOMPARE(saved.userBpm, 77);
    QCOMPARE(statuses(), u"0200"_qs);
    QCOMPARE(reportLines().constFirst(), u"Modifica: 1 modificate"_qs);
}

void TestEditWalk::showsWhatBecameOfASongThatIsNotSaved()
{
    QByteArray other = Sample::midi("Another song", false);
    other.replace(QByteArray::fromHex("3c40"), QByteArray::fromHex("4540"));
    expectEdit([this, other](QWidget *widget) {
        makeFile(at(u"ann.mid"_qs), other);
        DialogScript::type(lineOf(widget, u"authorLineEdit"_qs), u"X"_qs);
        QVERIFY(QTest::qWaitForWindowActive(widget));
        QTest::keySequence(widget, m_save);
    });
    expectUnsaved();
    expectEdit([this](QWidget *widget) {
        QCOMPARE(lineOf(widget, u"titleLineEdit"_qs)->text(), u"Another song"_qs);
        QCOMPARE(lineOf(widget, u"authorLineEdit"_qs)->text(), u"X"_qs);
        QVERIFY(QTest::qWaitForWindowActive(widget));
        QTest::keySequence(widget, m_save);
    });
    expectSong(u"bob"_qs, m_leave);
    doubleClick(0);
    verifyScript();
    const SongInfo saved = Sample::infoOf(at(u"ann.mid"_qs));
    QCOMPARE(saved.title, u"Another song"_qs);
    QCOMPARE(saved.author, u"X"_qs);
}

void TestEditWalk::leavesAnUnsavedSongWithoutSaving()
{
    expectEdit([this](QWidget *widget) {
        move(u"ann.mid"_qs, u"away"_qs);
        DialogScript::type(lineOf(widget, u"authorLineEdit"_qs), u"X"_qs);
        QVERIFY(QTest::qWaitForWindowActive(widget));
        QTest::keySequence(widget, m_save);
    });
    expectUnsaved();
    expectSong(u"ann"_qs, m_leave);
    doubleClick(0);
    verifyScript();
    QVERIFY(!QFile::exists(at(u"ann.mid"_qs)));
}

BRISEL_TEST(QApplication, TestEditWalk)
#include "tst_editwalk.moc"
