#include "library/dialogs/dataeditdialog.h"

#include "songfile/songinfo.h"
#include "tests/dialogscript.h"
#include "tests/testprogram.h"

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

using namespace brisel;

/// The hints of the edit dialog on characters that 8-bit formats can't hold.
class TestDataEditHints : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void followsEachText_data();
    void followsEachText();
    void showsThemFor8BitFormats_data();
    void showsThemFor8BitFormats();
    void mp3HintsWhatIsSpread_data();
    void mp3HintsWhatIsSpread();
    void mp3TitleIsNeverSpread();
    void followsTheListAndTheFileName();
    void leavesNothingForTheNextSong();
    void listsCharactersSoThatTheyAreSeen_data();
    void listsCharactersSoThatTheyAreSeen();
    void hiddenHintsTakeNoRoom();
    void growsNoFurtherThanItMust();
    void shrinksWhenTheHintsGo();
    void readsThemToTheScreenReader();

private:
    template <typename Widget>
    Widget *find(const QString &name) const
    {
        return m_dialog->findChild<Widget *>(name);
    }
    QLineEdit *edit(const QString &datum) const
    {
        auto *combo = find<QComboBox>(datum + u"ComboBox"_qs);
        return combo != nullptr ? combo->lineEdit() : find<QLineEdit>(datum + u"LineEdit"_qs);
    }
    /// The hint under the text; empty while it is hidden.
    QString hint(const QString &datum) const
    {
        const auto *label = find<QLabel>(datum + u"HintLabel"_qs);
        return label->isVisibleTo(m_dialog.get()) ? label->text() : QString();
    }
    QStringList hints() const
    {
        QStringList all;
        for (const QString &datum : data)
            all.append(hint(datum));
        return all;
    }
    void load(const QString &format, const QString &text = {})
    {
        SongInfo info;
        info.format = format;
        info.fileName = u"/songs/Ω Ж.mid"_qs;
        info.title = info.artist = info.genre = info.author = text;
        m_dialog->setOtherInfo(info);
    }

    static inline const QStringList data{u"title"_qs, u"artist"_qs, u"genre"_qs, u"author"_qs};
    static inline const QStringList none{QString(), QString(), QString(), QString()};
    std::unique_ptr<DataEditDialog> m_dialog;
};

void TestDataEditHints::init()
{
    m_dialog = std::make_unique<DataEditDialog>();
    m_dialog->setArtistsCombo({u"DVOŘÁK"_qs, u"VERDI"_qs});
    load(u"MIDI"_qs);
}

void TestDataEditHints::followsEachText_data()
{
    QTest::addColumn<int>("field");
    for (int field = 0; field < data.size(); ++field)
        QTest::newRow(qPrintable(data.at(field))) << field;
}

void TestDataEditHints::followsEachText()
{
    QFETCH(int, field);
    m_dialog->show();
    QCOMPARE(hints(), none);
    QLineEdit *line = edit(data.at(field));
    QStringList expected = none;
    DialogScript::type(line, u"Città"_qs);
    QCOMPARE(hints(), none);
    DialogScript::type(line, u" ΩΩ"_qs);
    expected[field] = u"Nel file diventeranno \"?\": Ω"_qs;
    QCOMPARE(hints(), expected);
    DialogScript::type(line, u"Ж"_qs);
    expected[field] = u"Nel file diventeranno \"?\": Ω Ж"_qs;
    QCOMPARE(hints(), expected);
    QTest::keyClick(line, Qt::Key_Backspace);
    QTest::keyClick(line, Qt::Key_Backspace);
    expected[field] = u"Nel file diventeranno \"?\": Ω"_qs;
    QCOMPARE(hints(), expected);
    QTest::keyClick(line, Qt::Key_Backspace);
    QCOMPARE(hints(), none);
}

void TestDataEditHints::showsThemFor8BitFormats_data()
{
    QTest::addColumn<bool>("shown");
    for (const char *format : {"MIDI", "ZB3", "ZB4", "ZB5"})
        QTest::newRow(format) << true;
    for (const char *format : {"MP3", "UNKNOWN", ""})
        QTest::newRow(format) << false;
}

void TestDataEditHints::showsThemFor8BitFormats()
{
    QFETCH(bool, shown);
    load(QString::fromLatin1(QTest::currentDataTag()), u"Ω"_qs);
    const QString text = shown ? u"Nel file diventeranno \"?\": Ω"_qs : QString();
    QCOMPARE(hints(), QStringList({text, text, text, text}));
}

void TestDataEditHints::mp3HintsWhatIsSpread_data()
{
    QTest::addColumn<int>("field");
    QTest::addColumn<QString>("box");
    QTest::newRow("artist") << 1 << u"checkBoxToAllArtist"_qs;
    QTest::newRow("genre") << 2 << u"checkBoxToAllGenre"_qs;
    QTest::newRow("author") << 3 << u"checkBoxToAllAuthor"_qs;
}

void TestDataEditHints::mp3HintsWhatIsSpread()
{
    QFETCH(int, field);
    QFETCH(QString, box);
    load(u"MP3"_qs, u"Ω"_qs);
    QCOMPARE(hints(), none);
    find<QCheckBox>(box)->setChecked(true);
    QStringList expected = none;
    expected[field] = u"Nei file che non sono MP3 diventeranno \"?\": Ω"_qs;
    QCOMPARE(hints(), expected);
    edit(data.at(field))->setText(u"O"_qs);
    QCOMPARE(hints(), none);
    edit(data.at(field))->setText(u"Ω"_qs);
    find<QCheckBox>(box)->setChecked(false);
    QCOMPARE(hints(), none);
}

/// Its checkbox gives every other song the name of its own file.
void TestDataEditHints::mp3TitleIsNeverSpread()
{
    load(u"MP3"_qs, u"Ω"_qs);
    find<QAbstractButton>(u"radioButtonTitle2"_qs)->click();
    find<QCheckBox>(u"checkBoxToAllTitle"_qs)->setChecked(true);
    QCOMPARE(hints(), none);
}

void TestDataEditHints::followsTheListAndTheFileName()
{
    auto *artists = find<QComboBox>(u"artistComboBox"_qs);
    artists->setCurrentIndex(1);
    QCOMPARE(hints(), none);
    QTest::keyClick(artists, Qt::Key_Up);
    QCOMPARE(hint(u"artist"_qs), u"Nel file diventeranno \"?\": Ř"_qs);
    QTest::keyClick(artists, Qt::Key_Down);
    QCOMPARE(hints(), none);
    find<QAbstractButton>(u"radioButtonTitle2"_qs)->click();
    QCOMPARE(hint(u"title"_qs), u"Nel file diventeranno \"?\": Ω Ж"_qs);
    find<QAbstractButton>(u"radioButtonTitle1"_qs)->click();
    QCOMPARE(hints(), none);
}

void TestDataEditHints::leavesNothingForTheNextSong()
{
    edit(u"author"_qs)->setText(u"Ω"_qs);
    load(u"MP3"_qs, u"Ω"_qs);
    QCOMPARE(hints(), none);
    load(u"MIDI"_qs, u"Ω"_qs);
    QCOMPARE(hints().count(QString()), 0);
    load(u"MIDI"_qs, u"Città"_qs);
    QCOMPARE(hints(), none);
}

void TestDataEditHints::listsCharactersSoThatTheyAreSeen_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("listed");
    QTest::newRow("surrogate pair") << u"a\U0001F3B5b\U0001F3B5"_qs << u"\U0001F3B5"_qs;
    QTest::newRow("markup") << u"<b>Ω</b> &amp; %1"_qs << u"Ω"_qs;
    QTest::newRow("accent of its own") << u"Citta\u0300"_qs << u"U+0300"_qs;
    QTest::newRow("other direction") << u"\u202eΩ"_qs << u"U+202E Ω"_qs;
    QTest::newRow("blank") << u"a\u2003b\u2028c"_qs << u"U+2003 U+2028"_qs;
    QTest::newRow("private") << u"\U0010FFFD"_qs << u"U+10FFFD"_qs;
    QString letters;
    for (char16_t letter = u'А'; letter < u'А' + 20; ++letter)
        letters += letter;
    const QString twenty = u"А Б В Г Д Е Ж З И Й К Л М Н О П Р С Т У"_qs;
    QTest::newRow("twenty") << letters << twenty;
    QTest::newRow("more than twenty") << letters + u"ФХ"_qs << twenty + u" ..."_qs;
}

void TestDataEditHints::listsCharactersSoThatTheyAreSeen()
{
    QFETCH(QString, text);
    QFETCH(QString, listed);
    edit(u"title"_qs)->setText(text);
    QCOMPARE(hint(u"title"_qs), u"Nel file diventeranno \"?\": "_qs + listed);
    QCOMPARE(find<QLabel>(u"titleHintLabel"_qs)->textFormat(), Qt::PlainText);
}

void TestDataEditHints::hiddenHintsTakeNoRoom()
{
    const auto sizeWith = [this](const QString &title) {
        edit(u"title"_qs)->setText(title);
        m_dialog->layout()->activate();
        return m_dialog->sizeHint();
    };
    const QSize without = sizeWith(u"O"_qs);
    QVERIFY(sizeWith(u"Ω"_qs).height() > without.height());
    QCOMPARE(sizeWith(u"O"_qs), without);
    const auto top = [this](const QString &name) { return find<QWidget>(name)->y(); };
    m_dialog->show();
    const int between = top(u"authorLineEdit"_qs) - top(u"genreComboBox"_qs);
    auto *grid = find<QGridLayout>(u"gridLayout"_qs);
    for (const QString &datum : data)
        grid->removeWidget(find<QLabel>(datum + u"HintLabel"_qs));
    m_dialog->layout()->activate();
    QCOMPARE(top(u"authorLineEdit"_qs) - top(u"genreComboBox"_qs), between);
}

void TestDataEditHints::growsNoFurtherThanItMust()
{
    m_dialog->show();
    const QSize before = m_dialog->size();
    QString hostile;
    for (char32_t character = 0x10F000; character < 0x10F000 + 5000; ++character)
        hostile += QString::fromUcs4(&character, 1);
    for (const QString &datum : data)
        edit(datum)->setText(hostile);
    QCOMPARE(m_dialog->width(), before.width());
    int room = 0;
    for (const QString &datum : data) {
        const auto *label = find<QLabel>(datum + u"HintLabel"_qs);
        QVERIFY(label->height() >= label->heightForWidth(label->width()));
        room += label->height();
    }
    QVERIFY(room <= 4 * 6 * m_dialog->fontMetrics().lineSpacing());
    QVERIFY(m_dialog->height() > before.height());
    QVERIFY(m_dialog->height() <= before.height() + 2 * room);
}

void TestDataEditHints::shrinksWhenTheHintsGo()
{
    m_dialog->show();
    m_dialog->resize(m_dialog->width() + 40, m_dialog->minimumHeight() + 5);
    const QSize before = m_dialog->size();
    const auto typeIntoAll = [this](const QString &text) {
        for (const QString &datum : data)
            edit(datum)->setText(text);
    };
    typeIntoAll(u"Ω"_qs);
    QVERIFY(m_dialog->height() > before.height());
    typeIntoAll(u"O"_qs);
    QCOMPARE(m_dialog->size(), before);
    typeIntoAll(u"Ω"_qs);
    m_dialog->hide();
    load(u"MIDI"_qs);
    m_dialog->show();
    QCOMPARE(m_dialog->size(), before);
}

void TestDataEditHints::readsThemToTheScreenReader()
{
    const auto described = [this](const QString &name) {
        return QAccessible::queryAccessibleInterface(find<QWidget>(name))
            ->text(QAccessible::Description);
    };
    QCOMPARE(described(u"titleLineEdit"_qs), u"Titolo della song"_qs);
    const QString tip = u"Interprete: dall'elenco oppure scritto a mano"_qs;
    QCOMPARE(described(u"artistComboBox"_qs), tip);
    edit(u"title"_qs)->setText(u"Ω"_qs);
    edit(u"artist"_qs)->setText(u"Ж"_qs);
    QCOMPARE(described(u"titleLineEdit"_qs),
             u"Titolo della song. Nel file diventeranno \"?\": Ω"_qs);
    QCOMPARE(described(u"artistComboBox"_qs), tip + u". Nel file diventeranno \"?\": Ж"_qs);
    edit(u"title"_qs)->clear();
    QCOMPARE(described(u"titleLineEdit"_qs), u"Titolo della song"_qs);
}

BRISEL_TEST(QApplication, TestDataEditHints)
#include "tst_dataedithints.moc"
