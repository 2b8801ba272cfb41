#include "app/startup.h"
#include "app/statusline.h"
#include "app/style.h"
#include "library/dialogs/elidedlabel.h"
#include "library/synchroniser.h"
#include "tests/app/everywindow.h"
#include "tests/testprogram.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QGroupBox>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QTableView>
#include <QTest>
#include <QTranslator>

#include <algorithm>
#include <tuple>

using namespace brisel;

/// Every window of the program in each language, with texts of the usual size and larger ones.
class TestWindows : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void showsTextsWhole_data();
    void showsTextsWhole();
    void showsAFullStatusBarWhole_data();
    void showsAFullStatusBarWhole();
    void staysOnSmallScreens_data();
    void staysOnSmallScreens();
    void enterPressesTheFocusedButton_data();
    void enterPressesTheFocusedButton();
    void startsWhereTheWorkIs_data();
    void startsWhereTheWorkIs();
    void tabReachesEveryControl_data();
    void tabReachesEveryControl();
    void buttonsStandInTheirOrder_data();
    void buttonsStandInTheirOrder();
    void hasPicturesOfEveryWindow();

private:
    void useLanguage(const QString &code);
    void useTextSize(int percent);

    QFont m_font;
    std::unique_ptr<QTranslator> m_programTexts;
    std::unique_ptr<QTranslator> m_qtTexts;
};

namespace
{

QString described(const QWidget *widget, QSize needed)
{
    return QStringLiteral("%1 %2 has %3 x %4 and needs %5 x %6")
        .arg(QString::fromLatin1(widget->metaObject()->className()), widget->objectName())
        .arg(widget->width())
        .arg(widget->height())
        .arg(needed.width())
        .arg(needed.height());
}

/// The size that \a widget needs for its whole text; empty without text.
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
    for (const auto *header : window->findChildren<QHeaderView *>()) {
        if (header->orientation() != Qt::Horizontal || !header->isVisible())
            continue;
        for (int column = 0; column < header->count(); ++column) {
            if (!header->isSectionHidden(column) &&
                header->sectionSize(column) < header->sectionSizeHint(column))
                cut.append(QStringLiteral("the heading of column %1").arg(column));
        }
    }
    return cut;
}

/// The names of the visible buttons, row by row and from left to right.
QStringList buttonsAsRead(const QWidget *window)
{
    QList<std::tuple<int, int, QString>> places;
    for (const auto *button : window->findChildren<QPushButton *>()) {
        const QPoint place = button->mapTo(window, button->rect().center());
        if (button->isVisible())
            places.append({place.y(), place.x(), button->objectName()});
    }
    std::sort(places.begin(), places.end());
    QStringList names;
    for (const auto &place : places)
        names.append(std::get<QString>(place));
    return names;
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

void TestWindows::useTextSize(int percent)
{
    QFont font = m_font;
    font.setPointSizeF(font.pointSizeF() * percent / 100);
    QApplication::setFont(font);
}

void TestWindows::showsTextsWhole_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("language");
    QTest::addColumn<int>("percent");
    for (const char *language : {"it", "en", "de"}) {
        for (const int percent : {100, 125, 150}) {
            for (const QString &name : windowNames)
                QTest::addRow("%s-%s-%d", qPrintable(name), language, percent)
                    << name << QString::fromLatin1(language) << percent;
        }
    }
}

void TestWindows::showsTextsWhole()
{
    QFETCH(QString, name);
    QFETCH(QString, language);
    QFETCH(int, percent);
    useTextSize(percent);
    useLanguage(language);
    const std::unique_ptr<QWidget> window = makeWindow(name);
    QVERIFY(window != nullptr);
    QWidget *top = shown(*window);
    QTest::qWait(20);
    const QStringList cut = cutTexts(top);
    QVERIFY2(cut.isEmpty(), qPrintable(cut.join(u'\n')));
}

void TestWindows::showsAFullStatusBarWhole_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<int>("percent");
    for (const QString &language : {u"it"_qs, u"en"_qs}) {
        for (const int percent : {100, 125, 150})
            QTest::addRow("%s-%d", qPrintable(language), percent) << language << percent;
    }
}

/// The window with its minimum width, after a transfer for which there is not enough room.
void TestWindows::showsAFullStatusBarWhole()
{
    QFETCH(QString, language);
    QFETCH(int, percent);
    useTextSize(percent);
    useLanguage(language);
    const std::unique_ptr<QWidget> window = makeWindow(QStringLiteral("main"));
    QVERIFY(window != nullptr);
    auto *line = window->findChild<StatusLine *>();
    RunReport report(RunReport::Operation::Synchronisation);
    for (int song = 0; song < 1000; ++song) {
        report.count(RunReport::Success::Updated);
        report.add(RunReport::Step::Find, QStringLiteral("/a.mid"), Synchroniser::notInCatalogue);
    }
    line->setReport(report);
    window->show();
    line->showSpace(QDir::currentPath(), 999LL << 50);
    QTest::qWait(20);
    window->resize(window->minimumSizeHint());
    QTest::qWait(20);
    QVERIFY(window->findChild<QLabel *>(QStringLiteral("spaceLabel"))->isVisible());
    const QStringList cut = cutTexts(line);
    QVERIFY2(cut.isEmpty(), qPrintable(cut.join(u'\n')));
    QVERIFY2(window->width() <= 1000, qPrintable(described(window.get(), window->size())));
}

void TestWindows::staysOnSmallScreens_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("language");
    QTest::addColumn<int>("percent");
    for (const char *language : {"it", "en"}) {
        for (const int percent : {100, 125, 150}) {
            for (const QString &name : windowNames)
                QTest::addRow("%s-%s-%d", qPrintable(name), language, percent)
                    << name << QString::fromLatin1(language) << percent;
        }
    }
}

void TestWindows::staysOnSmallScreens()
{
    QFETCH(QString, name);
    QFETCH(QString, language);
    QFETCH(int, percent);
    useTextSize(percent);
    useLanguage(language);
    const std::unique_ptr<QWidget> window = makeWindow(name);
    QWidget *top = shown(*window);
    top->resize(800, 600);
    // The options for diagnosis are hidden from users.
    const QSize room(800, name == QStringLiteral("main-revealed") ? 640 : 600);
    const auto least = [top] { return top->minimumSizeHint().expandedTo(top->minimumSize()); };
    const auto fits = [&] { return least().boundedTo(room) == least(); };
    QVERIFY2(QTest::qWaitFor(fits, 500), qPrintable(described(top, least())));
}

void TestWindows::enterPressesTheFocusedButton_data()
{
    QTest::addColumn<QString>("name");
    for (const QString &name : windowNames)
        QTest::newRow(qPrintable(name)) << name;
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
        if (!button->isVisible() || !button->isEnabled())
            continue;
        button->setFocus();
        QVERIFY2(button->isDefault(), qPrintable(button->text()));
    }
}

void TestWindows::startsWhereTheWorkIs_data()
{
    QTest::addColumn<QString>("focused");
    QTest::newRow("preview") << QStringLiteral("previewTableView");
    QTest::newRow("preview-search") << QStringLiteral("searchLineEdit");
    QTest::newRow("question-restore") << QStringLiteral("noPushButton");
    QTest::newRow("history") << QStringLiteral("historyTreeView");
    QTest::newRow("markers") << QStringLiteral("markersTableView");
    QTest::newRow("restore-backup") << QStringLiteral("songsTreeView");
}

void TestWindows::startsWhereTheWorkIs()
{
    const std::unique_ptr<QWidget> window =
        makeWindow(QString::fromLatin1(QTest::currentDataTag()));
    QWidget *top = shown(*window);
    QVERIFY(QTest::qWaitForWindowActive(top));
    QVERIFY(top->focusWidget() != nullptr);
    QTEST(top->focusWidget()->objectName(), "focused");
}

void TestWindows::tabReachesEveryControl_data()
{
    QTest::addColumn<QString>("name");
    for (const QString &name :
         {QStringLiteral("main"), QStringLiteral("main-revealed"), QStringLiteral("proceed"),
          QStringLiteral("backup"), QStringLiteral("preview"), QStringLiteral("preview-search"),
          QStringLiteral("question"), QStringLiteral("question-restore"), QStringLiteral("edit"),
          QStringLiteral("edit-hints"), QStringLiteral("edit-several"), QStringLiteral("markers"),
          QStringLiteral("index"), QStringLiteral("list"), QStringLiteral("report"),
          QStringLiteral("history"), QStringLiteral("history-empty"),
          QStringLiteral("restore-backup")})
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

void TestWindows::buttonsStandInTheirOrder_data()
{
    QTest::addColumn<QStringList>("buttons");
    const QString yes = QStringLiteral("yesPushButton");
    const QString no = QStringLiteral("noPushButton");
    const QString exit = QStringLiteral("exitPushButton");
    QTest::newRow("question") << QStringList{yes, QStringLiteral("yesAllPushButton"), no,
                                             QStringLiteral("noAllPushButton")};
    QTest::newRow("question-yes-no") << QStringList{yes, no};
    QTest::newRow("proceed") << QStringList{yes, no};
    QTest::newRow("backup") << QStringList{QStringLiteral("browsePushButton"),
                                           QStringLiteral("abortPushButton"),
                                           QStringLiteral("doBackupPushButton"), exit};
    QTest::newRow("edit") << QStringList{
        QStringLiteral("markersPushButton"),  QStringLiteral("fromNamePushButton"),
        QStringLiteral("previousPushButton"), QStringLiteral("nextPushButton"),
        QStringLiteral("savePushButton"),     exit};
    QTest::newRow("markers") << QStringList{
        QStringLiteral("addPushButton"), QStringLiteral("removePushButton"),
        QStringLiteral("okPushButton"), QStringLiteral("cancelPushButton")};
    const QString all = QStringLiteral("selectAllPushButton");
    const QString none = QStringLiteral("selectNonePushButton");
    const QString restore = QStringLiteral("restorePushButton");
    QTest::newRow("preview") << QStringList{QStringLiteral("searchPushButton"), all, none,
                                            QStringLiteral("writePushButton"),
                                            QStringLiteral("cancelPushButton")};
    QTest::newRow("question-restore") << QStringList{yes, QStringLiteral("yesAllPushButton"), no,
                                                     QStringLiteral("noAllPushButton")};
    QTest::newRow("history") << QStringList{QStringLiteral("clearPushButton"), restore,
                                            QStringLiteral("reportPushButton"),
                                            QStringLiteral("closePushButton")};
    QTest::newRow("restore-backup")
        << QStringList{all, none, restore, QStringLiteral("abortPushButton")};
}

void TestWindows::buttonsStandInTheirOrder()
{
    const std::unique_ptr<QWidget> window =
        makeWindow(QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(window);
    QVERIFY(QTest::qWaitForWindowExposed(shown(*window)));
    QTEST(buttonsAsRead(window.get()), "buttons");
}

void TestWindows::hasPicturesOfEveryWindow()
{
    QStringList expected;
    for (const QString &name : windowNames)
        expected << name + QStringLiteral("_en.png") << name + QStringLiteral("_it.png");
    expected.sort();
    const QDir images(QString::fromUtf8(BRISEL_TREE "/docs/images"));
    const QStringList pictures = images.entryList(QDir::Files, QDir::Name);
    QCOMPARE(pictures, expected); // made by scripts/makepictures
    for (const QString &picture : pictures)
        QVERIFY2(!QImage(images.filePath(picture)).isNull(), qPrintable(picture));
}

BRISEL_TEST(QApplication, TestWindows)
#include "tst_windows.moc"
