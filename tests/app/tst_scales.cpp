#include "tests/testfiles.h"
#include "tests/testprogram.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QTest>

using namespace brisel;

/// Every window on screens of several sizes and scales. The scale is read when a program starts, so
/// another program opens the windows: see measurewindows.cpp.
///
/// 800x600 logical pixels are the smallest screen that the windows are made for: at scale 1.5 and 2
/// a screen of 1024x768 is smaller than that and not measured.
class TestScales : public QObject
{
    Q_OBJECT

private slots:
    void windowsFit_data();
    void windowsFit();
};

void TestScales::windowsFit_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QSize>("pixels");
    QTest::addColumn<QString>("scale");
    QTest::addColumn<QString>("screen");
    const auto add = [](const QString &language, QSize pixels, const char *scale,
                        const char *screen) {
        QTest::addRow("%s, %dx%d at %s", qPrintable(language), pixels.width(), pixels.height(),
                      scale)
            << language << pixels << QString::fromLatin1(scale) << QString::fromLatin1(screen);
    };
    for (const QString &language : {QStringLiteral("it"), QStringLiteral("en")}) {
        add(language, {1024, 768}, "1", "0,0 1024x768");
        add(language, {1024, 768}, "1.25", "0,0 819x614");
        add(language, {1366, 768}, "1.25", "0,0 1093x614");
        add(language, {1536, 1152}, "1.5", "0,0 1024x768");
        add(language, {1600, 1200}, "2", "0,0 800x600");
        add(language, {2048, 1536}, "2", "0,0 1024x768");
    }
}

void TestScales::windowsFit()
{
    QFETCH(QString, language);
    QFETCH(QSize, pixels);
    QFETCH(QString, scale);
    QFETCH(QString, screen);
    const QString file = QDir::current().absoluteFilePath(QStringLiteral("screen.json"));
    makeFile(file, QStringLiteral(R"({"screens":[{"name":"a","x":0,"y":0,"width":%1,"height":%2,)"
                                  R"("logicalDpi":96,"dpr":1}]})")
                       .arg(pixels.width())
                       .arg(pixels.height())
                       .toUtf8());
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"),
                       QStringLiteral("offscreen:configfile=") + file);
    environment.insert(QStringLiteral("QT_SCALE_FACTOR"), scale);
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(BRISEL_MEASUREWINDOWS), {language});
    QVERIFY(program.waitForFinished(60000));
    QCOMPARE(QString::fromUtf8(program.readAllStandardOutput()), screen + u'\n');
    QCOMPARE(program.exitCode(), 0);
}

BRISEL_TEST(QCoreApplication, TestScales)
#include "tst_scales.moc"
