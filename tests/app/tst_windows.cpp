#include "app/aboutdialog.h"
#include "app/helpdialog.h"
#include "app/mainwindow.h"
#include "app/startup.h"
#include "app/style.h"
#include "db/usersongsreltablemodel.h"
#include "index/indexdialog.h"
#include "index/songslistdialog.h"
#include "library/backupdialog.h"
#include "library/dataeditdialog.h"
#include "library/elidedlabel.h"
#include "library/nocopyrightdialog.h"
#include "library/proceeddialog.h"
#include "library/runprogress.h"
#include "songfile/metasong.h"
#include "songfile/songinfo.h"
#include "tests/logcapture.h"
#include "tests/testhome.h"
#include "tools/samplesongs.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QGroupBox>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QTableView>
#include <QTest>
#include <QTranslator>

/// Every window of the program in both languages, at the usual size of text and at a large one.
///
/// With the environment variable BRISEL_PICTURES each window is drawn into that folder, to be
/// looked at; QT_SCALE_FACTOR=1.5 does so for a dense screen.
class TestWindows : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void showsTextsWhole_data();
    void showsTextsWhole();
    void staysOnSmallScreens_data();
    void staysOnSmallScreens();
    void enterPressesTheFocusedButton_data();
    void enterPressesTheFocusedButton();
    void tabReachesEveryControl_data();
    void tabReachesEveryControl();

private:
    void useLanguage(const QString &code);

    QFont m_font;
    std::unique_ptr<QTranslator> m_programTexts;
    std::unique_ptr<QTranslator> m_qtTexts;
};

namespace
{

const QString longPath =
    QStringLiteral("/home/anna/Musica/Basi musicali/Matrimoni/Anni Sessanta/Il cielo sopra il "
                   "mare e altre storie di una estate molto lunga.mid");

std::unique_ptr<QWidget> makeMainWindow(bool withSongs)
{
    const LogCapture quiet;
    auto window = std::make_unique<MainWindow>();
    if (withSongs) {
        const QString folder = QDir::current().filePath(QStringLiteral("songs"));
        if (!QDir::current().mkpath(folder) || !SampleSongs::writeSet(folder))
            return nullptr;
        int songs = 0;
        int publisherSongs = 0;
        int unknown = 0;
        window->scanDir(folder, songs, publisherSongs, unknown);
        auto *view = window->findChild<QTableView *>();
        view->resizeColumnsToContents();
        view->selectRow(2);
        auto *model = window->findChild<UserSongsRelTableModel *>();
        for (int row = 0; row < 4; ++row)
            model->setStatus(row, static_cast<Database::statusEnum>(row));
        for (const char *button : {"updateDataToolButton", "transferFilesToolButton"})
            window->findChild<QWidget *>(QString::fromLatin1(button))->setEnabled(true);
    }
    return window;
}

std::unique_ptr<QWidget> makeRevealedWindow()
{
    std::unique_ptr<QWidget> window = makeMainWindow(false);
    for (auto *group : window->findChildren<QGroupBox *>())
        group->show();
    return window;
}

std::unique_ptr<QWidget> makeProceedDialog()
{
    auto dialog = std::make_unique<ProceedDialog>();
    dialog->setFilesCount(12345, 6789, 321);
    return dialog;
}

std::unique_ptr<QWidget> makeQuestion(const QString &message, bool yesNoOnly)
{
    auto dialog = std::make_unique<NoCopyrightDialog>();
    dialog->setFilename(longPath);
    if (!message.isEmpty())
        dialog->setMessage(message);
    dialog->setYesNoOnly(yesNoOnly);
    return dialog;
}

std::unique_ptr<QWidget> makeRenameQuestion()
{
    return makeQuestion(
        QCoreApplication::translate("Index", "verrà rinominato: ") +
            QStringLiteral("/media/anna/BRISEL/Basi musicali/Ilciel-1.mid\n\n") +
            QCoreApplication::translate("Index", "Se il file non viene rinominato, è possibile che "
                                                 "non venga rilevato da Brisel."),
        false);
}

std::unique_ptr<QWidget> makeEditDialog()
{
    auto dialog = std::make_unique<DataEditDialog>();
    dialog->setArtistsCombo({QStringLiteral("Gli Amici del Porto")});
    dialog->setGenresCombo({QStringLiteral("Valzer lento")});
    dialog->setKeysCombo(MetaSong::getKeysList());
    SongInfo info;
    info.fileName = longPath;
    info.format = QStringLiteral("MIDI");
    info.title = QStringLiteral("Il cielo sopra il mare");
    info.artist = QStringLiteral("Gli Amici del Porto");
    info.genre = QStringLiteral("Valzer lento");
    info.author = QStringLiteral("Anna Bianchi");
    info.key = MetaSong::getKeysList().constFirst();
    info.length = 59 * 60 + 58;
    info.userBpm = 120;
    dialog->setOtherInfo(info);
    return dialog;
}

std::unique_ptr<QWidget> makeIndexDialog()
{
    auto dialog = std::make_unique<IndexDialog>();
    dialog->initProgress(100);
    dialog->setProgressValue(40);
    dialog->updateLabelNum(65535);
    dialog->updateLabelCurrPath(longPath);
    dialog->errorFromIndexReceived(
        QCoreApplication::translate("Index", "File non importato, path troppo lungo: ") + longPath);
    return dialog;
}

std::unique_ptr<QWidget> makeMessage()
{
    return std::make_unique<QMessageBox>(
        QMessageBox::Question, QCoreApplication::translate("DataEditDialog", "ATTENZIONE"),
        QCoreApplication::translate("DataEditDialog", "Il titolo di tutte le song della lista "
                                                      "verrà sovrascritto non il nome del file, "
                                                      "sei sicuro?"),
        QMessageBox::Yes | QMessageBox::No);
}

/// The window that a run blocks, and the progress dialog over it.
class WindowAtWork : public QWidget
{
public:
    WindowAtWork() : m_progress(this)
    {
        m_progress.begin(QCoreApplication::translate("MainWindow", "Aggiornamento file"),
                         QCoreApplication::translate("MainWindow", "Aggiorno la libreria..."),
                         65535);
        m_progress.setValue(40000);
    }

private:
    RunProgress m_progress;
};

std::unique_ptr<QWidget> makeWindow(const QString &name)
{
    const QHash<QString, std::function<std::unique_ptr<QWidget>()>> windows{
        {QStringLiteral("main"), [] { return makeMainWindow(true); }},
        {QStringLiteral("main-empty"), [] { return makeMainWindow(false); }},
        {QStringLiteral("main-revealed"), makeRevealedWindow},
        {QStringLiteral("proceed"), makeProceedDialog},
        {QStringLiteral("backup"), [] { return std::make_unique<BackupDialog>(); }},
        {QStringLiteral("question"), [] { return makeQuestion({}, false); }},
        {QStringLiteral("question-yes-no"), [] { return makeQuestion({}, true); }},
        {QStringLiteral("question-rename"), makeRenameQuestion},
        {QStringLiteral("edit"), makeEditDialog},
        {QStringLiteral("index"), makeIndexDialog},
        {QStringLiteral("list"), [] { return std::make_unique<SongsListDialog>(); }},
        {QStringLiteral("help"), [] { return std::make_unique<HelpDialog>(); }},
        {QStringLiteral("about"), [] { return std::make_unique<AboutDialog>(); }},
        {QStringLiteral("message"), makeMessage},
        {QStringLiteral("progress"), [] { return std::make_unique<WindowAtWork>(); }},
    };
    return windows.value(name)();
}

const char *const windowNames[] = {"main",
                                   "main-empty",
                                   "main-revealed",
                                   "proceed",
                                   "backup",
                                   "question",
                                   "question-yes-no",
                                   "question-rename",
                                   "edit",
                                   "index",
                                   "list",
                                   "help",
                                   "about",
                                   "message",
                                   "progress"};

QString described(const QWidget *widget, QSize needed)
{
    return QStringLiteral("%1 %2 has %3 x %4 and needs %5 x %6")
        .arg(QString::fromLatin1(widget->metaObject()->className()), widget->objectName())
        .arg(widget->width())
        .arg(widget->height())
        .arg(needed.width())
        .arg(needed.height());
}

/// The size in which \a widget shows its text whole; nothing for what shows none.
QSize neededSize(const QWidget *widget)
{
    if (qobject_cast<const ElidedLabel *>(widget) != nullptr)
        return {};
    if (const auto *label = qobject_cast<const QLabel *>(widget)) {
        if (label->text().isEmpty())
            return {};
        if (label->wordWrap())
            return {0, label->heightForWidth(label->width())};
        return label->sizeHint();
    }
    const bool showsText = qobject_cast<const QAbstractButton *>(widget) != nullptr ||
                           qobject_cast<const QGroupBox *>(widget) != nullptr ||
                           qobject_cast<const QComboBox *>(widget) != nullptr ||
                           qobject_cast<const QMenuBar *>(widget) != nullptr;
    return showsText ? widget->sizeHint() : QSize();
}

QStringList cutTexts(const QWidget *window)
{
    QStringList cut;
    for (const auto *widget : window->findChildren<QWidget *>()) {
        const QSize needed = neededSize(widget);
        const bool isWhole =
            widget->width() >= needed.width() && widget->height() >= needed.height();
        if (widget->isVisible() && !isWhole)
            cut.append(described(widget, needed));
    }
    return cut;
}

/// Shows the window of that name and gives what stands on top of it.
QWidget *shown(QWidget &window)
{
    window.show();
    if (auto *progress = window.findChild<QProgressDialog *>())
        return progress;
    return &window;
}

} // namespace

void TestWindows::initTestCase()
{
    applyDarkStyle(*qApp);
    m_font = QApplication::font();
}

void TestWindows::init()
{
    m_programTexts = std::make_unique<QTranslator>();
    m_qtTexts = std::make_unique<QTranslator>();
}

void TestWindows::cleanup()
{
    QApplication::setFont(m_font);
    m_programTexts.reset();
    m_qtTexts.reset();
}

void TestWindows::useLanguage(const QString &code)
{
    QSettings(settingsOrganisation, settingsApplication).setValue(QStringLiteral("language"), code);
    loadTranslations(code, *m_programTexts, *m_qtTexts);
}

void TestWindows::showsTextsWhole_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("language");
    QTest::addColumn<int>("percent");
    for (const char *language : {"it", "en", "de"}) {
        for (const int percent : {100, 125, 150}) {
            for (const char *name : windowNames)
                QTest::addRow("%s-%s-%d", name, language, percent)
                    << QString::fromLatin1(name) << QString::fromLatin1(language) << percent;
        }
    }
}

void TestWindows::showsTextsWhole()
{
    QFETCH(QString, name);
    QFETCH(QString, language);
    QFETCH(int, percent);
    QFont font = m_font;
    font.setPointSizeF(font.pointSizeF() * percent / 100);
    QApplication::setFont(font);
    useLanguage(language);
    const std::unique_ptr<QWidget> window = makeWindow(name);
    QVERIFY(window != nullptr);
    QWidget *top = shown(*window);
    QTest::qWait(20);
    if (const QString folder = qEnvironmentVariable("BRISEL_PICTURES"); !folder.isEmpty())
        top->grab().save(
            QStringLiteral("%1/%2.png").arg(folder, QString::fromLatin1(QTest::currentDataTag())));
    const QStringList cut = cutTexts(top);
    QVERIFY2(cut.isEmpty(), qPrintable(cut.join(u'\n')));
}

void TestWindows::staysOnSmallScreens_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : windowNames)
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestWindows::staysOnSmallScreens()
{
    QFETCH(QString, name);
    useLanguage(QStringLiteral("it"));
    const std::unique_ptr<QWidget> window = makeWindow(name);
    QWidget *top = shown(*window);
    const QSize least = top->minimumSizeHint().expandedTo(top->minimumSize());
    QVERIFY2(least.width() <= 1024 && least.height() <= 720, qPrintable(described(top, least)));
}

void TestWindows::enterPressesTheFocusedButton_data()
{
    staysOnSmallScreens_data();
}

void TestWindows::enterPressesTheFocusedButton()
{
    QFETCH(QString, name);
    const std::unique_ptr<QWidget> window = makeWindow(name);
    QWidget *top = shown(*window);
    if (qobject_cast<QDialog *>(top) == nullptr)
        return;
    QVERIFY(QTest::qWaitForWindowActive(top));
    for (auto *button : top->findChildren<QPushButton *>()) {
        if (!button->isVisible())
            continue;
        button->setFocus();
        QVERIFY2(button->isDefault(), qPrintable(button->text()));
    }
}

void TestWindows::tabReachesEveryControl_data()
{
    QTest::addColumn<QString>("name");
    for (const QString &name :
         {QStringLiteral("main"), QStringLiteral("main-revealed"), QStringLiteral("proceed"),
          QStringLiteral("backup"), QStringLiteral("question"), QStringLiteral("edit"),
          QStringLiteral("index"), QStringLiteral("list")})
        QTest::newRow(qPrintable(name)) << name;
}

void TestWindows::tabReachesEveryControl()
{
    QFETCH(QString, name);
    const std::unique_ptr<QWidget> window = makeWindow(name);
    window->show();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    QSet<QWidget *> reachable;
    for (auto *widget : window->findChildren<QWidget *>()) {
        const bool takesTab = (widget->focusPolicy() & Qt::TabFocus) != 0;
        // Arrow keys lead to the other radio buttons of a group.
        const auto *radio = qobject_cast<QRadioButton *>(widget);
        const bool isPart = (radio != nullptr && !radio->isChecked()) ||
                            widget->focusProxy() != nullptr ||
                            qobject_cast<QComboBox *>(widget->parentWidget()) != nullptr;
        if (takesTab && widget->isVisible() && widget->isEnabled() && !isPart)
            reachable.insert(widget);
    }
    QVERIFY(reachable.size() > 1);
    QSet<QWidget *> reached;
    for (qsizetype step = 0; step < reachable.size(); ++step) {
        reached.insert(window->focusWidget());
        QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
    }
    for (const QWidget *widget : reachable - reached)
        qWarning("not reached: %s", qPrintable(widget->objectName()));
    QCOMPARE(reached, reachable);
}

BRISEL_TEST_MAIN(QApplication, TestWindows)
#include "tst_windows.moc"
