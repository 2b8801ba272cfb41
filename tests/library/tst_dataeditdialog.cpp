#include "library/dialogs/dataeditdialog.h"

#include "library/dialogs/elidedlabel.h"
#include "library/songfilename.h"
#include "songfile/songinfo.h"
#include "tests/dialogscript.h"
#include "tests/testprogram.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

using namespace brisel;

class TestDataEditDialog : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void titleFromFileName_data();
    void titleFromFileName();

    void hasItsTexts();
    void showsARecord();
    void givesBackWhatItShows();
    void readsMinutesAndSeconds_data();
    void readsMinutesAndSeconds();
    void allowsOnlyTheDigitsOfItsRules_data();
    void allowsOnlyTheDigitsOfItsRules();
    void showsValuesBeyondTheRulesAndSavesThem();
    void findsTheKeyCaseSensitively_data();
    void findsTheKeyCaseSensitively();
    void leaksNothingOfTheLastSong();
    void refillsItsLists();
    void keepsTheCaseOfTypedArtists();
    void enterAddsNothingToTheLists();
    void usesTheFileName();
    void goesBackToTheTitleAsLoaded();
    void buttonsEndWithTheirResults();
    void enterSavesAndEscapeRejects();
    void longPathKeepsTheDialogNarrow();
    void showsMarkupAsItStands();

private:
    template <typename Widget>
    Widget *find(const char *name) const
    {
        return m_dialog->findChild<Widget *>(QString::fromLatin1(name));
    }
    SongInfo edited() const
    {
        SongInfo info;
        m_dialog->getInfo(info);
        return info;
    }

    std::unique_ptr<DataEditDialog> m_dialog;
    SongInfo m_info;
};

void TestDataEditDialog::init()
{
    m_dialog = std::make_unique<DataEditDialog>();
    m_dialog->setArtistsCombo({u"ARTIST A"_qs, u"ARTIST B"_qs});
    m_dialog->setGenresCombo({u"FOLK"_qs, u"OPERA"_qs});
    m_dialog->setKeysCombo({u"C"_qs, u"C-"_qs, u"Bb"_qs});
    m_info.clear();
    m_info.fileName = u"/songs/MY.SONG.mid"_qs;
    m_info.format = u"MIDI"_qs;
    m_info.title = u"Title"_qs;
    m_info.artist = u"Artist"_qs;
    m_info.genre = u"Genre"_qs;
    m_info.author = u"Author"_qs;
    m_info.length = 185;
    m_info.userBpm = 120;
    m_info.key = u"Bb"_qs;
    m_dialog->setOtherInfo(m_info);
}

void TestDataEditDialog::titleFromFileName_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("expected");
    QTest::newRow("plain") << u"/a/b/Song.mid"_qs << u"Song"_qs;
    QTest::newRow("two dots") << u"/a/My.Song.mid"_qs << u"My.Song"_qs;
    QTest::newRow("no dot") << u"/a/Song"_qs << u"Song"_qs;
    QTest::newRow("dot before the last slash") << u"/a.b/Song"_qs << u"Song"_qs;
    QTest::newRow("dot first") << u"/a/.mid"_qs << QString();
    QTest::newRow("no slash") << u"Song.mid"_qs << u"Song"_qs;
    QTest::newRow("neither") << u"Song"_qs << u"Song"_qs;
    QTest::newRow("empty") << QString() << QString();
}

void TestDataEditDialog::titleFromFileName()
{
    QFETCH(QString, path);
    QTEST(::titleFromFileName(path), "expected");
}

void TestDataEditDialog::hasItsTexts()
{
    QCOMPARE(m_dialog->windowTitle(), u"Modifica dati song"_qs);
    QStringList labels;
    for (const char *name :
         {"pathTextLabel", "formatTextLabel", "titleTextLabel", "artistTextLabel", "genreTextLabel",
          "authorTextLabel", "lengthTextLabel", "mmTextLabel", "ssTextLabel", "bpmTextLabel",
          "keyTextLabel"})
        labels.append(find<QLabel>(name)->text());
    QCOMPARE(labels, QStringList({u"Percorso file:"_qs, u"Formato:"_qs, u"Titolo Song:"_qs,
                                  u"Interprete:"_qs, u"Genere Musicale:"_qs, u"Autore:"_qs,
                                  u"Durata:"_qs, u"mm"_qs, u"ss"_qs, u"BPM:"_qs, u"Tonalità:"_qs}));
    QCOMPARE(find<QRadioButton>("radioButtonTitle1")->text(), u"Usa il titolo"_qs);
    QCOMPARE(find<QRadioButton>("radioButtonTitle2")->text(), u"Usa il filename"_qs);
    for (const char *name :
         {"checkBoxToAllTitle", "checkBoxToAllArtist", "checkBoxToAllGenre", "checkBoxToAllAuthor"})
        QCOMPARE(find<QCheckBox>(name)->text(), u"Applica a tutti"_qs);
    QCOMPARE(find<QPushButton>("savePushButton")->text(), u"Salva"_qs);
    QCOMPARE(find<QPushButton>("exitPushButton")->text(), u"Annulla"_qs);
}

void TestDataEditDialog::showsARecord()
{
    QCOMPARE(find<QLabel>("pathLabel")->text(), u"/songs/MY.SONG.mid"_qs);
    QCOMPARE(find<QLabel>("formatLabel")->text(), u"MIDI"_qs);
    QCOMPARE(find<QLineEdit>("titleLineEdit")->text(), u"Title"_qs);
    QCOMPARE(find<QLineEdit>("authorLineEdit")->text(), u"Author"_qs);
    QCOMPARE(find<QComboBox>("artistComboBox")->currentText(), u"Artist"_qs);
    QCOMPARE(find<QComboBox>("genreComboBox")->currentText(), u"Genre"_qs);
    QCOMPARE(find<QLineEdit>("mmLineEdit")->text(), u"3"_qs);
    QCOMPARE(find<QLineEdit>("ssLineEdit")->text(), u"5"_qs);
    QCOMPARE(find<QLineEdit>("bpmLineEdit")->text(), u"120"_qs);
    QCOMPARE(find<QComboBox>("keyComboBox")->currentText(), u"Bb"_qs);
    QVERIFY(find<QRadioButton>("radioButtonTitle1")->isChecked());
    QVERIFY(!find<QCheckBox>("checkBoxToAllTitle")->isEnabled());
    QVERIFY(find<QCheckBox>("checkBoxToAllAuthor")->isEnabled());
}

void TestDataEditDialog::givesBackWhatItShows()
{
    SongInfo info;
    info.fileName = u"kept"_qs;
    info.altArtist = u"kept too"_qs;
    info.isKordia = true;
    m_dialog->getInfo(info);
    QCOMPARE(info.title, m_info.title);
    QCOMPARE(info.artist, m_info.artist);
    QCOMPARE(info.genre, m_info.genre);
    QCOMPARE(info.author, m_info.author);
    QCOMPARE(info.length, 185);
    QCOMPARE(info.userBpm, 120);
    QCOMPARE(info.key, u"Bb"_qs);
    QCOMPARE(info.fileName, u"kept"_qs);
    QCOMPARE(info.altArtist, u"kept too"_qs);
    QVERIFY(info.isKordia);
}

void TestDataEditDialog::readsMinutesAndSeconds_data()
{
    QTest::addColumn<QString>("minutes");
    QTest::addColumn<QString>("seconds");
    QTest::addColumn<int>("length");
    QTest::newRow("7 and 5") << u"7"_qs << u"5"_qs << 425;
    QTest::newRow("empty minutes") << u""_qs << u"59"_qs << 59;
    QTest::newRow("empty seconds") << u"2"_qs << u""_qs << 120;
    QTest::newRow("both empty") << u""_qs << u""_qs << 0;
    QTest::newRow("most") << u"99"_qs << u"99"_qs << 6039;
    QTest::newRow("more digits are refused") << u"123"_qs << u"456"_qs << 765;
    QTest::newRow("letters are refused") << u"a1"_qs << u"b2"_qs << 62;
}

void TestDataEditDialog::readsMinutesAndSeconds()
{
    QFETCH(QString, minutes);
    QFETCH(QString, seconds);
    find<QLineEdit>("mmLineEdit")->clear();
    find<QLineEdit>("ssLineEdit")->clear();
    QTest::keyClicks(find<QLineEdit>("mmLineEdit"), minutes);
    QTest::keyClicks(find<QLineEdit>("ssLineEdit"), seconds);
    QTEST(edited().length, "length");
}

void TestDataEditDialog::allowsOnlyTheDigitsOfItsRules_data()
{
    QTest::addColumn<QByteArray>("edit");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("expected");
    QTest::newRow("mm") << QByteArray("mmLineEdit") << u"123"_qs << u"12"_qs;
    QTest::newRow("ss") << QByteArray("ssLineEdit") << u"-9x87"_qs << u"98"_qs;
    QTest::newRow("bpm") << QByteArray("bpmLineEdit") << u"12345"_qs << u"123"_qs;
    QTest::newRow("bpm sign") << QByteArray("bpmLineEdit") << u"-1.5"_qs << u"15"_qs;
}

void TestDataEditDialog::allowsOnlyTheDigitsOfItsRules()
{
    QFETCH(QByteArray, edit);
    QFETCH(QString, typed);
    auto *line = find<QLineEdit>(edit.constData());
    line->clear();
    QTest::keyClicks(line, typed);
    QTEST(line->text(), "expected");
}

void TestDataEditDialog::showsValuesBeyondTheRulesAndSavesThem()
{
    m_info.length = 6065;
    m_info.userBpm = 1000;
    m_dialog->setOtherInfo(m_info);
    QCOMPARE(find<QLineEdit>("mmLineEdit")->text(), u"101"_qs);
    QCOMPARE(edited().length, 6065);
    QCOMPARE(edited().userBpm, 1000);
    m_info.length = -1;
    m_dialog->setOtherInfo(m_info);
    QCOMPARE(edited().length, -1);
    find<QLineEdit>("mmLineEdit")->setText(u"2000000000"_qs);
    find<QLineEdit>("bpmLineEdit")->setText(QString());
    QCOMPARE(edited().length, std::numeric_limits<int>::max());
    QCOMPARE(edited().userBpm, 0);
}

void TestDataEditDialog::findsTheKeyCaseSensitively_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("expected");
    QTest::newRow("in the list") << u"C-"_qs << u"C-"_qs;
    QTest::newRow("other case") << u"bb"_qs << QString();
    QTest::newRow("unknown") << u"H"_qs << QString();
    QTest::newRow("empty") << QString() << QString();
}

void TestDataEditDialog::findsTheKeyCaseSensitively()
{
    QFETCH(QString, key);
    m_info.key = key;
    m_dialog->setOtherInfo(m_info);
    QTEST(find<QComboBox>("keyComboBox")->currentText(), "expected");
    QTEST(edited().key, "expected");
}

void TestDataEditDialog::leaksNothingOfTheLastSong()
{
    DialogScript script;
    const QString warning = u"ATTENZIONE"_qs;
    m_dialog->show();
    QTest::mouseClick(find<QRadioButton>("radioButtonTitle2"), Qt::LeftButton);
    script.expect("QMessageBox", [](QWidget *widget) {
        QTest::mouseClick(qobject_cast<QMessageBox *>(widget)->button(QMessageBox::Yes),
                          Qt::LeftButton);
    });
    QTest::mouseClick(find<QCheckBox>("checkBoxToAllTitle"), Qt::LeftButton);
    QVERIFY(m_dialog->isApplyToAllFname());

    SongInfo empty;
    m_dialog->setOtherInfo(empty);
    const SongInfo info = edited();
    for (const QString &text : {info.title, info.artist, info.genre, info.author, info.key})
        QCOMPARE(text, QString());
    QCOMPARE(info.length, 0);
    QCOMPARE(info.userBpm, 0);
    QCOMPARE(find<QLabel>("pathLabel")->text(), QString());
    QCOMPARE(find<QLabel>("pathLabel")->toolTip(), QString());
    QCOMPARE(find<QLabel>("formatLabel")->text(), QString());
    QVERIFY(!m_dialog->isApplyToAllFname());
    QVERIFY(!find<QCheckBox>("checkBoxToAllTitle")->isEnabled());
    QVERIFY(find<QRadioButton>("radioButtonTitle1")->isChecked());
}

void TestDataEditDialog::refillsItsLists()
{
    m_dialog->setArtistsCombo({u"ONE"_qs, u"ONE"_qs});
    m_dialog->setGenresCombo({u"ONE"_qs});
    m_dialog->setKeysCombo({u"D"_qs});
    QCOMPARE(find<QComboBox>("artistComboBox")->count(), 2);
    QCOMPARE(find<QComboBox>("genreComboBox")->count(), 1);
    QCOMPARE(find<QComboBox>("keyComboBox")->count(), 1);
}

void TestDataEditDialog::keepsTheCaseOfTypedArtists()
{
    auto *combo = find<QComboBox>("artistComboBox");
    m_dialog->show();
    combo->lineEdit()->clear();
    QTest::keyClicks(combo->lineEdit(), u"artist a"_qs);
    QTest::keyClick(combo->lineEdit(), Qt::Key_Tab);
    QCOMPARE(edited().artist, u"artist a"_qs);
}

void TestDataEditDialog::enterAddsNothingToTheLists()
{
    auto *combo = find<QComboBox>("genreComboBox");
    m_dialog->show();
    combo->lineEdit()->clear();
    QTest::keyClicks(combo->lineEdit(), u"polka"_qs);
    QTest::keyClick(combo->lineEdit(), Qt::Key_Return);
    QCOMPARE(combo->count(), 2);
    QCOMPARE(edited().genre, u"polka"_qs);
}

void TestDataEditDialog::usesTheFileName()
{
    QTest::mouseClick(find<QRadioButton>("radioButtonTitle2"), Qt::LeftButton);
    QCOMPARE(edited().title, u"MY.SONG"_qs);
    QVERIFY(find<QCheckBox>("checkBoxToAllTitle")->isEnabled());
    QVERIFY(!m_dialog->isApplyToAllFname());
}

void TestDataEditDialog::goesBackToTheTitleAsLoaded()
{
    m_dialog->show();
    find<QLineEdit>("titleLineEdit")->setText(u"typed"_qs);
    QTest::mouseClick(find<QRadioButton>("radioButtonTitle2"), Qt::LeftButton);
    DialogScript script;
    script.expect("QMessageBox", [](QWidget *widget) {
        QTest::mouseClick(qobject_cast<QMessageBox *>(widget)->button(QMessageBox::Yes),
                          Qt::LeftButton);
    });
    QTest::mouseClick(find<QCheckBox>("checkBoxToAllTitle"), Qt::LeftButton);
    QVERIFY(m_dialog->isApplyToAllFname());
    QTest::mouseClick(find<QRadioButton>("radioButtonTitle1"), Qt::LeftButton);
    QCOMPARE(edited().title, u"Title"_qs);
    QVERIFY(!m_dialog->isApplyToAllFname());
    QVERIFY(!find<QCheckBox>("checkBoxToAllTitle")->isEnabled());
    QVERIFY2(script.isDone(), qPrintable(script.problems().join(u'\n')));
}

void TestDataEditDialog::buttonsEndWithTheirResults()
{
    for (const auto &[button, result] :
         {std::pair(u"savePushButton"_qs, 1), std::pair(u"exitPushButton"_qs, 0)}) {
        DialogScript script;
        script.expect("DataEditDialog",
                      [name = button](QWidget *widget) { DialogScript::click(widget, name); });
        QCOMPARE(m_dialog->exec(), result);
        QVERIFY(script.isDone());
    }
}

void TestDataEditDialog::enterSavesAndEscapeRejects()
{
    DialogScript script;
    script.expect("DataEditDialog", [](QWidget *widget) {
        QTest::keyClick(widget->findChild<QLineEdit *>(u"ssLineEdit"_qs), Qt::Key_Return);
    });
    QCOMPARE(m_dialog->exec(), 1);
    script.expect("DataEditDialog", [](QWidget *widget) {
        QTest::keyClick(widget->findChild<QLineEdit *>(u"ssLineEdit"_qs), Qt::Key_Escape);
    });
    QCOMPARE(m_dialog->exec(), 0);
    QVERIFY2(script.isDone(), qPrintable(script.problems().join(u'\n')));
}

void TestDataEditDialog::longPathKeepsTheDialogNarrow()
{
    const int width = m_dialog->sizeHint().width();
    m_info.fileName = u'/' + QString(4000, u'x');
    m_info.artist = QString(500, u'y');
    m_dialog->setOtherInfo(m_info);
    QCOMPARE(m_dialog->sizeHint().width(), width);
    QCOMPARE(find<QLabel>("pathLabel")->text(), m_info.fileName);
}

void TestDataEditDialog::showsMarkupAsItStands()
{
    m_info.fileName = u"/songs/<b>bold</b> & <img src='x'>.mid"_qs;
    m_dialog->setOtherInfo(m_info);
    const auto *label = find<ElidedLabel>("pathLabel");
    QCOMPARE(label->textFormat(), Qt::PlainText);
    QCOMPARE(label->text(), m_info.fileName);
    QVERIFY(label->toolTip().contains(u"&lt;b&gt;bold&lt;/b&gt; &amp; &lt;img"_qs));
    QCOMPARE(find<QLabel>("formatLabel")->textFormat(), Qt::PlainText);
}

BRISEL_TEST(QApplication, TestDataEditDialog)
#include "tst_dataeditdialog.moc"
