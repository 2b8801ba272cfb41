/// Draws every window of the program in both languages. Usage: drawwindows <percent> <folder>
/// [<help>]: with text of that size each picture becomes <folder>/<window>_<language>.png, and
/// those of the help, at most as wide as its page, <help>/<name>_<language>.png. The folders must
/// exist.

#include "app/startup.h"
#include "app/style.h"
#include "tests/app/everywindow.h"
#include "tests/testhome.h"

#include <QApplication>
#include <QDir>
#include <QFont>
#include <QHash>
#include <QImage>
#include <QPixmap>
#include <QSettings>
#include <QTest>
#include <QTextStream>
#include <QTranslator>

#include <algorithm>

using namespace brisel;

namespace
{

constexpr int helpWidth = 720;

/// The names of the pictures of the help, by window.
const QHash<QString, QString> helpPictures{
    {QStringLiteral("main"), QStringLiteral("mainwindow")},
    {QStringLiteral("edit-several"), QStringLiteral("edit-several")},
    {QStringLiteral("markers"), QStringLiteral("markers")},
    {QStringLiteral("preview"), QStringLiteral("preview")},
    {QStringLiteral("history"), QStringLiteral("history")},
    {QStringLiteral("memory"), QStringLiteral("memory")},
    {QStringLiteral("restore-backup"), QStringLiteral("restore-backup")}};

int fail(int code, const QString &message)
{
    QTextStream(stderr) << message << Qt::endl;
    return code;
}

/// Draws the window of that name into \a folder, and into \a helpFolder if it is not empty.
bool draw(const QString &name, const QString &language, const QString &folder,
          const QString &helpFolder)
{
    const std::unique_ptr<QWidget> window = makeWindow(name);
    if (window == nullptr)
        return false;
    QWidget *top = shown(*window);
    const QImage image = QTest::qWaitForWindowActive(top) ? top->grab().toImage() : QImage();
    bool isSaved = image.save(QStringLiteral("%1/%2_%3.png").arg(folder, name, language));
    if (const QString picture = helpPictures.value(name);
        !helpFolder.isEmpty() && !picture.isEmpty())
        isSaved = image.scaledToWidth(std::min(image.width(), helpWidth), Qt::SmoothTransformation)
                      .save(QStringLiteral("%1/%2_%3.png").arg(helpFolder, picture, language)) &&
                  isSaved;
    return isSaved;
}

bool drawAll(const QString &language, const QString &folder, const QString &helpFolder)
{
    QTranslator programTexts;
    QTranslator qtTexts;
    QSettings(settingsOrganisation, settingsApplication)
        .setValue(QStringLiteral("language"), language);
    loadTranslations(language, programTexts, qtTexts);
    for (const QString &name : windowNames) {
        if (!draw(name, language, folder, helpFolder))
            return false;
    }
    return true;
}

} // namespace

int main(int argc, char **argv)
{
    const int percent = argc < 3 ? 0 : QByteArray(argv[1]).toInt();
    if (argc > 4 || percent <= 0)
        return fail(2, QStringLiteral("usage: drawwindows <percent> <folder> [<help>]"));
    // The home changes the working folder.
    const QString folder = QDir::current().absoluteFilePath(QString::fromLocal8Bit(argv[2]));
    const QString helpFolder =
        argc == 4 ? QDir::current().absoluteFilePath(QString::fromLocal8Bit(argv[3])) : QString();
    // The log of the windows is not needed here.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    const TestHome home;
    QApplication application(argc, argv);
    QApplication::setCursorFlashTime(0); // the caret is visible in every picture
    applyDarkStyle(application);
    QFont font = QApplication::font();
    font.setPointSizeF(font.pointSizeF() * percent / 100);
    QApplication::setFont(font);
    for (const QString &language : {QStringLiteral("it"), QStringLiteral("en")}) {
        if (!drawAll(language, folder, helpFolder))
            return fail(1, QStringLiteral("drawwindows: could not draw into ") + folder);
    }
    return 0;
}
