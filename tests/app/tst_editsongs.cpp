#include "tests/app/reporttest.h"
#include "tests/testprogram.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>

using namespace brisel;

/// The edit dialog for several selected songs, through the real window.
class TestEditSongs : public ReportTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { closeWindow(); }

    void showsWhatTheSongsShare_data();
    void showsWhatTheSongsShare();
    void writesOnlyTouchedFields();
    void untouchedDialogWritesNothing();
    void emptiesATouchedField();
    void takesTitlesFromTheFileNames();
    void takesArtistsFromTheFileNames();
    void leavesHiddenRows();
    void isOneRunOfTheHistory();
    void reportsSongsThatCannotBeWritten();
    void stopsBetweenTwoSongs();
    void showsOneSongAsBeforeAfterwards();

private:
    void selectRows(int first, int last)
    {
        QTest::mouseClick(table()->viewport(), Qt::LeftButton, {}, cell(first));
        QTest::mouseClick(table()->viewport(), Qt::LeftButton, Qt::ShiftModifier, cell(last));
    }
    void activate()
    {
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window));
        table()->setFocus();
        QTRY_VERIFY(table()->hasFocus()); // a dialog may have been closed just now
    }
    void edit(const DialogScript::Step &step)
    {
        activate();
        expectEdit(step);
        QTest::keyClick(table(), Qt::Key_Return);
        verifyScript();
    }
    static QLineEdit *line(const QWidget *dialog, const QString &name)
    {
        auto *combo = dialog->findChild<QComboBox *>(name);
        return combo != nullptr ? combo->lineEdit() : dialog->findChild<QLineEdit *>(name);
    }
    static void save(QWidget *dialog) { DialogScript::click(dialog, u"savePushButton"_qs); }
    SongInfo info(const QString &name) const { return Sample::infoOf(at(name)); }
};

void TestEditSongs::init()
{
    openWindow();
    const QStringList names{u"01 - Anna - Mare.mid"_qs, u"Luna.mid"_qs, u"Sole.mid"_qs};
    makeSongs(names, false);
    import(names);
    activate();
}

void TestEditSongs::showsWhatTheSongsShare_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("it") << u"Italian"_qs
                        << QStringList{u"Modifica dati di 3 song"_qs, u"3 song selezionate"_qs,
                                       u"<diversi>"_qs};
    QTest::newRow("en") << u"English"_qs
                        << QStringList{u"Edit details of 3 songs"_qs, u"3 selected songs"_qs,
                                       u"<various>"_qs};
}

void TestEditSongs::showsWhatTheSongsShare()
{
    QFETCH(QString, language);
    QFETCH(QStringList, texts);
    m_window->findChild<QAction *>(u"action"_qs + language)->trigger();
    QCoreApplication::processEvents();
    table()->selectAll();
    edit([texts](QWidget *widget) {
        QCOMPARE(widget->windowTitle(), texts.at(0));
        QCOMPARE(widget->findChild<QLabel *>(u"pathLabel"_qs)->text(), texts.at(1));
        QCOMPARE(widget->findChild<QLabel *>(u"formatLabel"_qs)->text(), u"MIDI"_qs);
        QCOMPARE(line(widget, u"titleLineEdit"_qs)->text(), QString());
        QCOMPARE(line(widget, u"titleLineEdit"_qs)->placeholderText(), texts.at(2));
        QCOMPARE(line(widget, u"authorLineEdit"_qs)->placeholderText(), QString());
        QCOMPARE(line(widget, u"bpmLineEdit"_qs)->text(), u"0"_qs);
        for (const auto *box : widget->findChildren<QCheckBox *>())
            QVERIFY(!box->isVisible());
        DialogScript::click(widget, u"exitPushButton"_qs);
    });
    QCOMPARE(statuses(), u"000"_qs);
}

void TestEditSongs::writesOnlyTouchedFields()
{
    selectRows(0, 1);
    edit([](QWidget *widget) {
        DialogScript::type(line(widget, u"genreComboBox"_qs), u"Valzer"_qs);
        save(widget);
    });
    QCOMPARE(statuses(), u"220"_qs);
    for (const QString &name : {u"01 - Anna - Mare.mid"_qs, u"Luna.mid"_qs}) {
        QCOMPARE(info(name).genre, u"Valzer"_qs);
        QCOMPARE(info(name).title, name.chopped(4));
        const QByteArray content = fileContent(at(name));
        // The publisher's events for artist and author were not added.
        QVERIFY(!content.contains(QByteArray("\xFF\x4B\x01\x02", 4)));
        QVERIFY(!content.contains(QByteArray("\xFF\x4B\x01\x03", 4)));
    }
    QCOMPARE(info(u"Sole.mid"_qs).genre, QString());
    QCOMPARE(outcome(), u"Modifica: 2 modificate"_qs);
}

void TestEditSongs::untouchedDialogWritesNothing()
{
    const QByteArray content = fileContent(at(u"Luna.mid"_qs));
    table()->selectAll();
    edit([](QWidget *widget) { save(widget); });
    QCOMPARE(statuses(), u"000"_qs);
    QCOMPARE(fileContent(at(u"Luna.mid"_qs)), content);
}

void TestEditSongs::emptiesATouchedField()
{
    table()->selectAll();
    edit([](QWidget *widget) {
        auto *title = line(widget, u"titleLineEdit"_qs);
        QTest::keyClick(title, Qt::Key_A);
        QTest::keyClick(title, Qt::Key_Backspace);
        QCOMPARE(title->placeholderText(), QString());
        QCOMPARE(widget->findChild<QLabel *>(u"titleHintLabel"_qs)->text(),
                 u"Verrà svuotato in tutte le song selezionate"_qs);
        save(widget);
    });
    QCOMPARE(info(u"Luna.mid"_qs).title, QString());
}

void TestEditSongs::takesTitlesFromTheFileNames()
{
    table()->selectAll();
    edit([](QWidget *widget) {
        DialogScript::type(line(widget, u"titleLineEdit"_qs), u"Same"_qs);
        save(widget);
    });
    QCOMPARE(info(u"Sole.mid"_qs).title, u"Same"_qs);
    edit([](QWidget *widget) {
        QTest::mouseClick(widget->findChild<QRadioButton *>(u"radioButtonTitle2"_qs),
                          Qt::LeftButton);
        QVERIFY(!line(widget, u"titleLineEdit"_qs)->isEnabled());
        QCOMPARE(line(widget, u"titleLineEdit"_qs)->placeholderText(), u"<dal nome del file>"_qs);
        save(widget);
    });
    QCOMPARE(info(u"Sole.mid"_qs).title, u"Sole"_qs);
    QCOMPARE(info(u"01 - Anna - Mare.mid"_qs).title, u"01 - Anna - Mare"_qs);
}

/// A song whose file name has no artist keeps its own.
void TestEditSongs::takesArtistsFromTheFileNames()
{
    expectEdit([](QWidget *widget) {
        line(widget, u"artistComboBox"_qs)->setText(u"Lia"_qs);
        save(widget);
    });
    doubleClick(1);
    QCOMPARE(info(u"Luna.mid"_qs).artist, u"Lia"_qs);
    table()->selectAll();
    edit([](QWidget *widget) {
        DialogScript::click(widget, u"fromNamePushButton"_qs);
        QTest::mouseClick(widget->findChild<QRadioButton *>(u"radioButtonTitle1"_qs),
                          Qt::LeftButton);
        QVERIFY(line(widget, u"artistComboBox"_qs)->isEnabled());
        DialogScript::type(line(widget, u"authorLineEdit"_qs), u"X"_qs);
        DialogScript::click(widget, u"fromNamePushButton"_qs);
        save(widget);
    });
    const SongInfo named = info(u"01 - Anna - Mare.mid"_qs);
    QCOMPARE(named.artist, u"Anna"_qs);
    QCOMPARE(named.title, u"Mare"_qs);
    QCOMPARE(named.author, u"X"_qs);
    QCOMPARE(info(u"Luna.mid"_qs).artist, u"Lia"_qs);
    QCOMPARE(info(u"Luna.mid"_qs).title, u"Luna"_qs);
}

void TestEditSongs::leavesHiddenRows()
{
    table()->selectAll();
    m_window->findChild<QLineEdit *>(u"searchLineEdit"_qs)->setText(u"file:n"_qs);
    table()->setFocus();
    edit([](QWidget *widget) {
        QCOMPARE(widget->windowTitle(), u"Modifica dati di 2 song"_qs);
        DialogScript::type(line(widget, u"authorLineEdit"_qs), u"X"_qs);
        save(widget);
    });
    QCOMPARE(info(u"Luna.mid"_qs).author, u"X"_qs);
    QCOMPARE(info(u"Sole.mid"_qs).author, QString());
}

void TestEditSongs::isOneRunOfTheHistory()
{
    const QByteArray content = fileContent(at(u"Luna.mid"_qs));
    table()->selectAll();
    edit([](QWidget *widget) {
        DialogScript::type(line(widget, u"authorLineEdit"_qs), u"X"_qs);
        save(widget);
    });
    History history;
    const QList<HistoryRun> runs = history.runs();
    QVERIFY(!runs.isEmpty());
    QCOMPARE(runs.constFirst().songs, 3);
    QCOMPARE(int(runs.constFirst().kind), int(RunKind::Edit));
    const HistorySong song = history.songs(runs.constFirst().id).at(1);
    QCOMPARE(song.path, at(u"Luna.mid"_qs));
    QCOMPARE(history.oldBytes(song.id), std::optional(content));
}

void TestEditSongs::reportsSongsThatCannotBeWritten()
{
    table()->selectAll();
    QVERIFY(QFile::remove(at(u"Luna.mid"_qs)));
    expectEdit([](QWidget *widget) {
        DialogScript::type(line(widget, u"authorLineEdit"_qs), u"X"_qs);
        save(widget);
    });
    QString text;
    m_script->expect("ReportDialog", [&text](QWidget *widget) {
        text = widget->findChild<QPlainTextEdit *>()->toPlainText();
        DialogScript::click(widget, u"closePushButton"_qs);
    });
    QTest::keyClick(table(), Qt::Key_Return);
    verifyScript();
    QVERIFY(
        text.contains(ReportTest::line(u"Non letta"_qs, u"Luna.mid"_qs, u"il file non esiste"_qs)));
    QCOMPARE(info(u"Sole.mid"_qs).author, u"X"_qs);
}

void TestEditSongs::stopsBetweenTwoSongs()
{
    table()->selectAll();
    atProgress(u"Aggiornamento file"_qs, u"1 di 3"_qs, [](QProgressDialog *dialog) {
        QTest::mouseClick(dialog->findChild<QPushButton *>(), Qt::LeftButton);
    });
    edit([](QWidget *widget) {
        DialogScript::type(line(widget, u"authorLineEdit"_qs), u"X"_qs);
        save(widget);
    });
    QCOMPARE(statuses(), u"200"_qs);
    QCOMPARE(info(u"Sole.mid"_qs).author, QString());
}

void TestEditSongs::showsOneSongAsBeforeAfterwards()
{
    table()->selectAll();
    edit([](QWidget *widget) {
        DialogScript::click(widget, u"fromNamePushButton"_qs);
        DialogScript::click(widget, u"exitPushButton"_qs);
    });
    expectEdit([](QWidget *widget) {
        QCOMPARE(widget->windowTitle(), u"Modifica dati song"_qs);
        QCOMPARE(line(widget, u"titleLineEdit"_qs)->text(), u"Luna"_qs);
        QVERIFY(line(widget, u"titleLineEdit"_qs)->isEnabled());
        QVERIFY(line(widget, u"artistComboBox"_qs)->isEnabled());
        QCOMPARE(line(widget, u"mmLineEdit"_qs)->maximumWidth(), 60);
        QVERIFY(widget->findChild<QCheckBox *>(u"checkBoxToAllAuthor"_qs)->isVisible());
        DialogScript::click(widget, u"exitPushButton"_qs);
    });
    doubleClick(1);
    verifyScript();
}

BRISEL_TEST(QApplication, TestEditSongs)
#include "tst_editsongs.moc"
