#include "tests/testprogram.h"
#include "tools/samplesongs.h"

#include <QFile>
#include <QMimeDatabase>
#include <QRegularExpression>
#include <QtTest>

using namespace brisel;

/// The song types that an installation declares to the desktop: XDG_DATA_DIRS names its folder.
class TestSongTypes : public QObject
{
    Q_OBJECT

private slots:
    void knowsContainersByNameAndByContent_data();
    void knowsContainersByNameAndByContent();
    void opensEverySampleSong();
    void namesOnlyKnownTypes();
};

namespace
{

QStringList openedTypes()
{
    QFile entry(QStringLiteral(BRISEL_DESKTOP_ENTRY));
    if (!entry.open(QIODevice::ReadOnly))
        return {};
    const QString text = QString::fromUtf8(entry.readAll());
    static const QRegularExpression line(u"^MimeType=(.*);$"_qs,
                                         QRegularExpression::MultilineOption);
    return line.match(text).captured(1).split(u';', Qt::SkipEmptyParts);
}

} // namespace

void TestSongTypes::knowsContainersByNameAndByContent_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("type");
    for (const char digit : {'3', '4', '5'}) {
        const QString type = u"application/x-brisel-zb%1"_qs.arg(QLatin1Char(digit));
        const QByteArray content = QByteArray("_ZB") + digit + QByteArray(508, '\0');
        const QString name = u"SONG.ZB%1"_qs.arg(QLatin1Char(digit));
        QTest::addRow("zb%c by name", digit) << name << QByteArray() << type;
        QTest::addRow("zb%c by content", digit) << u"song"_qs << content << type;
        QTest::addRow("zb%c by both", digit) << name.toLower() << content << type;
    }
    QTest::newRow("mark elsewhere")
        << u"song"_qs << QByteArray(4, '\0') + "_ZB3" << u"application/octet-stream"_qs;
}

void TestSongTypes::knowsContainersByNameAndByContent()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    QFETCH(QString, type);
    const QMimeDatabase database;
    const QMimeType found = content.isEmpty()
                                ? database.mimeTypeForFile(name, QMimeDatabase::MatchExtension)
                                : database.mimeTypeForFileNameAndData(name, content);
    QCOMPARE(found.name(), type);
}

void TestSongTypes::opensEverySampleSong()
{
    const QMimeDatabase database;
    const QStringList opened = openedTypes();
    int songs = 0;
    for (const SampleSongs::Sample &sample : SampleSongs::set()) {
        if (!sample.isSong)
            continue;
        const QMimeType type = database.mimeTypeForFileNameAndData(sample.fileName, sample.content);
        QVERIFY2(opened.contains(type.name()),
                 qPrintable(sample.fileName + u": "_qs + type.name()));
        ++songs;
    }
    QVERIFY(songs >= 6);
}

void TestSongTypes::namesOnlyKnownTypes()
{
    const QMimeDatabase database;
    const QStringList opened = openedTypes();
    QVERIFY(opened.contains(u"application/x-brisel-zb3"_qs));
    for (const QString &type : opened)
        QVERIFY2(database.mimeTypeForName(type).isValid(), qPrintable(type));
}

BRISEL_TEST(QCoreApplication, TestSongTypes)
#include "tst_songtypes.moc"
