#include "tests/testprogram.h"

#include <QColor>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QtTest>

#include <cmath>

using namespace brisel;

/// The program's images, drawn as the build draws them.
class TestArtwork : public QObject
{
    Q_OBJECT

private slots:
    void drawsBothScales_data();
    void drawsBothScales();
    void isReadableOnTheDarkStyle_data();
    void isReadableOnTheDarkStyle();
    void outcomesStandOutOnEveryGround_data();
    void outcomesStandOutOnEveryGround();
    void doubleSizeIsDrawnAndNotScaled();
    void drawsAWidthInProportion();
    void refusesWhatItCannotDraw_data();
    void refusesWhatItCannotDraw();
};

namespace
{

int render(const QStringList &arguments)
{
    QProcess process;
    process.start(QStringLiteral(BRISEL_RENDERSVG), arguments);
    return process.waitForFinished() ? process.exitCode() : -1;
}

QImage drawn(const QString &name, int scale)
{
    const QString source = QStringLiteral(BRISEL_IMAGES "/") + name + u".svg"_qs;
    const QString target = u"drawn.png"_qs;
    return render({source, target, QString::number(scale)}) == 0 ? QImage(target) : QImage();
}

double luminance(int red, int green, int blue)
{
    const auto linear = [](int value) { return std::pow(value / 255.0, 2.2); };
    return 0.2126 * linear(red) + 0.7152 * linear(green) + 0.0722 * linear(blue);
}

/// The fraction of the drawn pixels that contrast with a ground: the window's dark grey, or
/// another.
double readablePart(const QImage &image, const QColor &colour = {66, 66, 66})
{
    const double ground = luminance(colour.red(), colour.green(), colour.blue());
    int opaque = 0;
    int readable = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb dot = image.pixel(x, y);
            if (qAlpha(dot) < 128)
                continue;
            const double light = luminance(qRed(dot), qGreen(dot), qBlue(dot));
            ++opaque;
            const double contrast = (light + 0.05) / (ground + 0.05);
            readable += contrast >= 3 || contrast <= 1.0 / 3 ? 1 : 0;
        }
    }
    return opaque == 0 ? 0 : double(readable) / opaque;
}

void addImages()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("logo-brisel2") << QSize(240, 72);
    QTest::newRow("logo-kordia") << QSize(180, 72);
    QTest::newRow("logo-kordia_512") << QSize(512, 512);
    QTest::newRow("icon-folder") << QSize(64, 64);
    QTest::newRow("icon-sync") << QSize(64, 64);
    QTest::newRow("icon-media") << QSize(64, 64);
    QTest::newRow("brisel2pc") << QSize(256, 256);
}

} // namespace

void TestArtwork::drawsBothScales_data()
{
    addImages();
}

void TestArtwork::drawsBothScales()
{
    QFETCH(QSize, size);
    const QString name = QString::fromLatin1(QTest::currentDataTag());
    for (const int scale : {1, 2}) {
        const QImage image = drawn(name, scale);
        QCOMPARE(image.size(), size * scale);
        QVERIFY(image.hasAlphaChannel());
        QCOMPARE(qAlpha(image.pixel(0, 0)), 0); // the background is transparent
    }
}

void TestArtwork::isReadableOnTheDarkStyle_data()
{
    addImages();
}

void TestArtwork::isReadableOnTheDarkStyle()
{
    // Dark parts are details inside light ones.
    QVERIFY(readablePart(drawn(QString::fromLatin1(QTest::currentDataTag()), 1)) > 0.6);
}

void TestArtwork::outcomesStandOutOnEveryGround_data()
{
    QTest::addColumn<QString>("name");
    for (const char *outcome : {"imported", "updated", "edited", "restored", "not-found",
                                "declined", "not-written", "not-readable"})
        QTest::newRow(outcome) << u"outcome-"_qs + QString::fromLatin1(outcome);
}

/// The rows of the table, the selected row, the status bar and a pressed button.
void TestArtwork::outcomesStandOutOnEveryGround()
{
    QFETCH(QString, name);
    const QImage image = drawn(name, 1);
    QCOMPARE(image.size(), QSize(16, 16));
    QCOMPARE(qAlpha(image.pixel(0, 0)), 0);
    for (const QColor &ground :
         {QColor(200, 200, 200), QColor(230, 230, 230), QColor(66, 66, 66), QColor(20, 90, 150)})
        QVERIFY2(readablePart(image, ground) > 0.3,
                 qPrintable(ground.name() + u' ' + QString::number(readablePart(image, ground))));
}

void TestArtwork::doubleSizeIsDrawnAndNotScaled()
{
    const QImage once = drawn(u"logo-brisel2"_qs, 1);
    const QImage twice = drawn(u"logo-brisel2"_qs, 2);
    QVERIFY(once.scaled(twice.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation) != twice);
    QVERIFY(once.scaled(twice.size(), Qt::IgnoreAspectRatio, Qt::FastTransformation) != twice);
}

void TestArtwork::drawsAWidthInProportion()
{
    const QString source = QStringLiteral(BRISEL_IMAGES "/logo-brisel2.svg"); // 240 by 72
    const QString target = u"wide.png"_qs;
    QCOMPARE(render({source, target, u"80px"_qs}), 0);
    QCOMPARE(QImage(target).size(), QSize(80, 24));
    QCOMPARE(render({source, target, u"1px"_qs}), 0);
    QCOMPARE(QImage(target).size(), QSize(1, 1));
}

void TestArtwork::refusesWhatItCannotDraw_data()
{
    const QString good = QStringLiteral(BRISEL_IMAGES "/icon-sync.svg");
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("code");
    QTest::newRow("no arguments") << QStringList() << 2;
    QTest::newRow("scale 0") << QStringList{good, u"a.png"_qs, u"0"_qs} << 2;
    QTest::newRow("scale 3") << QStringList{good, u"a.png"_qs, u"3"_qs} << 2;
    QTest::newRow("width 0") << QStringList{good, u"a.png"_qs, u"0px"_qs} << 2;
    QTest::newRow("too wide") << QStringList{good, u"a.png"_qs, u"4097px"_qs} << 2;
    QTest::newRow("no number") << QStringList{good, u"a.png"_qs, u"px"_qs} << 2;
    QTest::newRow("no file") << QStringList{u"none.svg"_qs, u"a.png"_qs, u"1"_qs} << 1;
    QTest::newRow("no drawing") << QStringList{u"text.svg"_qs, u"a.png"_qs, u"1"_qs} << 1;
    QTest::newRow("no folder") << QStringList{good, u"none/a.png"_qs, u"1"_qs} << 1;
}

void TestArtwork::refusesWhatItCannotDraw()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, code);
    QFile text(u"text.svg"_qs);
    QVERIFY(text.open(QIODevice::WriteOnly));
    QCOMPARE(text.write("no drawing"), 10);
    text.close();
    QCOMPARE(render(arguments), code);
    QVERIFY(!QFile::exists(u"a.png"_qs));
}

BRISEL_TEST(QCoreApplication, TestArtwork)
#include "tst_artwork.moc"
