#include "db/songnameforms.h"
#include "tests/testprogram.h"

#include <QtTest>

using namespace brisel;

namespace
{

SongInfo tagOf(const QString &title, const QString &artist)
{
    SongInfo info;
    info.title = title;
    info.artist = artist;
    return info;
}

/// "title / artist / any" of each form.
QStringList formsOf(const SongInfo &info, const QString &fileName)
{
    QStringList texts;
    const QList<SongNameForm> forms = songNameForms(info, fileName);
    for (const SongNameForm &form : forms)
        texts.append(form.title.join(u' ') + u'/' + form.artist.join(u' ') + u'/' +
                     form.any.join(u' '));
    return texts;
}

QStringList formsOfName(const char *fileName)
{
    return formsOf(SongInfo(), QString::fromUtf8(fileName));
}

} // namespace

class TestSongNameForms : public QObject
{
    Q_OBJECT

private slots:
    void splitsTextIntoWords();
    void keepsEachWordOnce();
    void keepsLettersOfAllScripts();
    void boundsWords();
    void readsTitleAndArtistOfTag();
    void readsBothOrdersOfFileName();
    void readsBothOrdersOfTitle();
    void dropsTrackNumberSuffixAndUnderscores();
    void keepsNumbersThatAreNames();
    void splitsAtFirstOfManyDashes();
    void hasNoFormWithoutWords();
    void takesLongNames();
};

void TestSongNameForms::splitsTextIntoWords()
{
    QCOMPARE(searchWords(QStringLiteral(" 'O sole\tmio (live) - 2.0")),
             QStringList({QStringLiteral("O"), QStringLiteral("sole"), QStringLiteral("mio"),
                          QStringLiteral("live"), QStringLiteral("2"), QStringLiteral("0")}));
    QCOMPARE(searchWords(QStringLiteral("\"a\"*b^c:d+e{f}g")).join(u','),
             QStringLiteral("a,b,c,d,e,f,g"));
    QCOMPARE(searchWords(QString()), QStringList());
    QCOMPARE(searchWords(QStringLiteral(" \"*-() ")), QStringList());
    const QString withNul = QStringLiteral("a") + QChar::Null + QStringLiteral("b");
    QCOMPARE(searchWords(withNul).join(u','), QStringLiteral("a,b"));
}

void TestSongNameForms::keepsEachWordOnce()
{
    QCOMPARE(searchWords(QStringLiteral("Volare VOLARE volare oh oh")).join(u','),
             QStringLiteral("Volare,oh"));
}

void TestSongNameForms::keepsLettersOfAllScripts()
{
    const QString word = QString::fromUtf8("caffe\u0300"); // with a combining accent
    QCOMPARE(searchWords(word), QStringList(word));
    const QString gothic = QString::fromUtf8("\U00010330\U00010331");
    QCOMPARE(searchWords(gothic), QStringList(gothic));
    QCOMPARE(searchWords(QString(QChar(0xD800))), QStringList()); // an unpaired surrogate
}

void TestSongNameForms::boundsWords()
{
    QString text;
    for (int i = 0; i < 100; ++i)
        text += QStringLiteral("w%1 ").arg(i);
    QCOMPARE(searchWords(text).size(), 12);
    QCOMPARE(searchWords(QString(500, u'x')), QStringList(QString(64, u'x')));
}

void TestSongNameForms::readsTitleAndArtistOfTag()
{
    QCOMPARE(formsOf(tagOf(QStringLiteral("Volare"), QStringLiteral("D. Modugno")),
                     QStringLiteral("SONG01.MID")),
             QStringList({QStringLiteral("Volare/D Modugno/"), QStringLiteral("//SONG01")}));
}

void TestSongNameForms::readsBothOrdersOfFileName()
{
    const QStringList expected{QStringLiteral("Volare/Modugno/"), QStringLiteral("Modugno/Volare/"),
                               QStringLiteral("//Modugno Volare")};
    QCOMPARE(formsOfName("Modugno - Volare.mid"), expected);
    QCOMPARE(formsOfName("Modugno \u2013 Volare.mp3"), expected);
    QCOMPARE(formsOfName("Modugno_-_Volare.KAR"), expected);
}

void TestSongNameForms::readsBothOrdersOfTitle()
{
    QCOMPARE(formsOf(tagOf(QStringLiteral("Modugno - Volare"), QString()), QString()),
             QStringList({QStringLiteral("Modugno Volare//"), QStringLiteral("Volare/Modugno/"),
                          QStringLiteral("Modugno/Volare/")}));
}

void TestSongNameForms::dropsTrackNumberSuffixAndUnderscores()
{
    for (const char *name : {"03_Volare_Oh.mid", "03 - Volare Oh.mid", "3. Volare Oh.mid",
                             "(03) Volare Oh.mid", "103-Volare Oh.mid", "03 Volare Oh.ZB4"})
        QCOMPARE(formsOfName(name), QStringList(QStringLiteral("//Volare Oh")));
    QCOMPARE(formsOfName("Mr. Volare"), QStringList(QStringLiteral("//Mr Volare")));
}

void TestSongNameForms::keepsNumbersThatAreNames()
{
    QCOMPARE(formsOfName("99 Luftballons.mid"), QStringList(QStringLiteral("//99 Luftballons")));
    QCOMPARE(formsOfName("1999.mid"), QStringList(QStringLiteral("//1999")));
    QCOMPARE(formsOfName("19-.mid"), QStringList(QStringLiteral("//19")));
}

void TestSongNameForms::splitsAtFirstOfManyDashes()
{
    QCOMPARE(formsOfName("A - B - C").first(), QStringLiteral("B C/A/"));
    QCOMPARE(formsOfName("A-ha - Take On Me.mid").first(), QStringLiteral("Take On Me/A ha/"));
    QCOMPARE(formsOfName(" - Volare"), QStringList(QStringLiteral("//Volare")));
}

void TestSongNameForms::hasNoFormWithoutWords()
{
    QCOMPARE(formsOfName(""), QStringList());
    QCOMPARE(formsOfName("--.mid"), QStringList());
}

void TestSongNameForms::takesLongNames()
{
    const QString longName = QStringLiteral("a - b ").repeated(2000) + QStringLiteral(".mid");
    QCOMPARE(formsOf(tagOf(longName, longName), longName).constLast(), QStringLiteral("//a b"));
    QCOMPARE(formsOf(SongInfo(), QString(10000, u'-')), QStringList());
    QCOMPARE(formsOf(SongInfo(), QString(10000, u' ')), QStringList());
}

BRISEL_TEST(QCoreApplication, TestSongNameForms)

#include "tst_songnameforms.moc"
