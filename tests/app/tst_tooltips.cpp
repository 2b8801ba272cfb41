#include "app/songtooltip.h"
#include "app/startup.h"
#include "base/runguard.h"
#include "songfile/songinfo.h"
#include "tests/app/everywindow.h"
#include "tests/app/samplewindow.h"
#include "tests/testprogram.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProgressDialog>
#include <QSpinBox>
#include <QTabBar>
#include <QTextDocumentFragment>
#include <QToolTip>
#include <QTranslator>

using namespace brisel;

/// The texts of the tool tips and of the empty table; every control must have a tool tip.
class TestToolTips : public QObject
{
    Q_OBJECT

private slots:
    void everyControlHasOne_data();
    void everyControlHasOne();
    void everyMenuEntryHasOne();
    void everyHeadingHasOne();
    void changeWithTheLanguage();
    void emptyTableSaysWhatToDo();
    void rowDescribesPathStatusAndMarkers();
    void rowDescribesEveryStatus_data();
    void rowDescribesEveryStatus();
    void rowShowsSongTextsAsTheyAre();
    void rowCutsLongLists();
    void rowDescribesALostFile();
    void rowReadsNoFileDuringARun();
    void comesForTheRowUnderTheMouse();

private:
    static QString plain(const QString &html)
    {
        return QTextDocumentFragment::fromHtml(html).toPlainText();
    }
    static QString tipOf(const SampleWindow &sample, int row)
    {
        return sample.table->findChild<SongToolTip *>()->textFor(row);
    }
    /// Makes a song with these markers and appends its row.
    static void addSong(const SampleWindow &sample, const QString &name,
                        const QList<Marker> &markers)
    {
        makeFile(sample.at(name), Sample::midi("T", true));
        SongInfo info = Sample::infoOf(sample.at(name));
        info.markers = markers;
        MetaSong song;
        QVERIFY(song.importFile(sample.at(name)));
        song.setSongInfo(info, false);
        QVERIFY(song.saveToFile(sample.at(name)));
        info.fileName = sample.at(name);
        QVERIFY(sample.model->addSong(info));
    }
};

void TestToolTips::everyControlHasOne_data()
{
    QTest::addColumn<QString>("name");
    for (const QString &name : windowNames)
        QTest::newRow(qPrintable(name)) << name;
}

void TestToolTips::everyControlHasOne()
{
    QFETCH(QString, name);
    QTranslator program;
    QTranslator qt;
    QSettings(settingsOrganisation, settingsApplication).setValue(u"language"_qs, u"en"_qs);
    loadTranslations(u"en"_qs, program, qt);
    const std::unique_ptr<QWidget> window = makeWindow(name);
    QWidget *top = shown(*window);
    // The texts of their buttons are enough.
    if (qobject_cast<QMessageBox *>(top) != nullptr || qobject_cast<QProgressDialog *>(top))
        return;
    int controls = 0;
    for (const auto *widget : top->findChildren<QWidget *>()) {
        const bool isControl = qobject_cast<const QAbstractButton *>(widget) != nullptr ||
                               qobject_cast<const QLineEdit *>(widget) != nullptr ||
                               qobject_cast<const QComboBox *>(widget) != nullptr ||
                               qobject_cast<const QAbstractSpinBox *>(widget) != nullptr ||
                               qobject_cast<const QPlainTextEdit *>(widget) != nullptr;
        const QWidget *parent = widget->parentWidget();
        const bool isPart = widget->objectName().startsWith(u"qt_"_qs) ||
                            qobject_cast<const QDialogButtonBox *>(parent) != nullptr ||
                            qobject_cast<const QComboBox *>(parent) != nullptr ||
                            qobject_cast<const QTabBar *>(parent) != nullptr ||
                            qobject_cast<const QAbstractItemView *>(parent) != nullptr;
        if (!isControl || isPart)
            continue;
        ++controls;
        QVERIFY2(!widget->toolTip().isEmpty(), qPrintable(widget->objectName()));
    }
    QVERIFY(controls > 0 || name == u"help"_qs || name == u"about"_qs);
}

void TestToolTips::everyMenuEntryHasOne()
{
    const SampleWindow sample;
    int entries = 0;
    for (auto *menu : sample.window->findChildren<QMenu *>()) {
        if (menu->objectName().isEmpty())
            continue;
        QVERIFY2(menu->toolTipsVisible(), qPrintable(menu->objectName()));
        for (const QAction *action : menu->actions()) {
            if (action->menu() != nullptr || action->isSeparator())
                continue;
            ++entries;
            QVERIFY2(action->toolTip() != action->text() && !action->toolTip().isEmpty(),
                     qPrintable(action->objectName()));
        }
    }
    QCOMPARE(entries, 23 + 17); // those of the menu of the columns
}

void TestToolTips::everyHeadingHasOne()
{
    const SampleWindow sample;
    for (int column = 0; column < sample.model->columnCount(); ++column) {
        const QString tip =
            sample.model->headerData(column, Qt::Horizontal, Qt::ToolTipRole).toString();
        QCOMPARE(!tip.isEmpty(),
                 !sample.table->isColumnHidden(column) || column >= sample.model->colIdxOutcome());
    }
    QCOMPARE(sample.model->headerData(2, Qt::Horizontal, Qt::ToolTipRole).toString(),
             u"Titolo della song (un clic ordina le righe)"_qs);
}

void TestToolTips::changeWithTheLanguage()
{
    const SampleWindow sample;
    const auto *quit = sample.window->findChild<QAction *>(u"actionQuit"_qs);
    const auto *search = sample.window->findChild<QLineEdit *>(u"searchLineEdit"_qs);
    QCOMPARE(quit->toolTip(), u"Chiude il programma"_qs);
    sample.window->findChild<QAction *>(u"actionEnglish"_qs)->trigger();
    QCoreApplication::processEvents();
    QCOMPARE(quit->toolTip(), u"Closes the program"_qs);
    QCOMPARE(search->toolTip(),
             u"Shows only the songs that contain these words (Ctrl+F; Esc shows all)"_qs);
    QCOMPARE(sample.model->headerData(6, Qt::Horizontal, Qt::ToolTipRole).toString(),
             u"Length in minutes and seconds (click to sort the rows)"_qs);
}

void TestToolTips::emptyTableSaysWhatToDo()
{
    SampleWindow sample;
    auto *hint = sample.table->findChild<QLabel *>(u"emptyTableHint"_qs);
    QVERIFY(hint->isVisible());
    QVERIFY(hint->text().contains(u"trascina qui"_qs));
    sample.window->findChild<QAction *>(u"actionEnglish"_qs)->trigger();
    QCoreApplication::processEvents();
    QVERIFY(hint->text().contains(u"drag files or folders here"_qs));
    sample.import({u"a.mid"_qs});
    QVERIFY(!hint->isVisible());
    sample.model->removeRows(0, 1);
    QVERIFY(hint->isVisible());
    sample.window->findChild<QLineEdit *>(u"searchLineEdit"_qs)->setText(u"x"_qs);
    QVERIFY(hint->text().contains(u"drag files or folders here"_qs));
}

void TestToolTips::rowDescribesPathStatusAndMarkers()
{
    SampleWindow sample;
    sample.import({u"plain.mid"_qs});
    QCOMPARE(plain(tipOf(sample, 0)),
             sample.at(u"plain.mid"_qs) + u"\nStato: importata\nNessun marker"_qs);
    addSong(sample, u"marked.mid"_qs, {{u"Intro"_qs, 2}, {u"Strofa"_qs, 9}});
    QCOMPARE(plain(tipOf(sample, 1)),
             sample.at(u"marked.mid"_qs) + u"\nStato: importata\nMarker:\n2: Intro\n9: Strofa"_qs);
}

void TestToolTips::rowDescribesEveryStatus_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("words");
    QTest::newRow("imported") << 0 << u"importata"_qs;
    QTest::newRow("updated") << 1 << u"sincronizzata con il database"_qs;
    QTest::newRow("edited") << 2 << u"modificata a mano"_qs;
    QTest::newRow("failed") << 3 << u"non trovata nel database"_qs;
}

void TestToolTips::rowDescribesEveryStatus()
{
    QFETCH(int, status);
    QFETCH(QString, words);
    SampleWindow sample;
    sample.import({u"a.mid"_qs});
    sample.model->setStatus(0, Database::statusEnum(status));
    QCOMPARE(plain(tipOf(sample, 0)).section(u'\n', 1, 1), u"Stato: "_qs + words);
}

void TestToolTips::rowShowsSongTextsAsTheyAre()
{
    const SampleWindow sample;
    const QString name = u"<b>x & y<img src='a.png'>\n%1.mid"_qs;
    addSong(sample, name, {{u"<i>one</i>"_qs, 1}});
    const QString tip = tipOf(sample, 0);
    QVERIFY(Qt::mightBeRichText(tip));
    QCOMPARE(plain(tip), sample.at(u"<b>x & y<img src='a.png'> %1.mid"_qs) +
                             u"\nStato: importata\nMarker:\n1: <i>one</i>"_qs);
}

void TestToolTips::rowCutsLongLists()
{
    const SampleWindow sample;
    QList<Marker> markers;
    for (int bar = 1; bar <= 25; ++bar)
        markers.append({u"m%1"_qs.arg(bar), bar});
    addSong(sample, u"long.mid"_qs, markers);
    const QStringList lines = plain(tipOf(sample, 0)).split(u'\n');
    QCOMPARE(lines.size(), 3 + 20 + 1);
    QCOMPARE(lines.at(22), u"20: m20"_qs);
    QCOMPARE(lines.last(), u"..."_qs);
}

void TestToolTips::rowDescribesALostFile()
{
    SampleWindow sample;
    sample.import({u"a.mid"_qs});
    QVERIFY(QFile::remove(sample.at(u"a.mid"_qs)));
    QVERIFY(plain(tipOf(sample, 0)).endsWith(u"\nIl file non è più leggibile"_qs));
}

void TestToolTips::rowReadsNoFileDuringARun()
{
    SampleWindow sample;
    sample.import({u"a.mid"_qs});
    const RunGuard guard;
    QCOMPARE(plain(tipOf(sample, 0)), sample.at(u"a.mid"_qs) + u"\nStato: importata"_qs);
}

void TestToolTips::comesForTheRowUnderTheMouse()
{
    SampleWindow sample;
    sample.import({u"aa.mid"_qs, u"bb.mid"_qs, u"cc.mid"_qs});
    sample.window->findChild<QLineEdit *>(u"searchLineEdit"_qs)->setText(u"cc."_qs);
    QWidget *viewport = sample.table->viewport();
    const auto ask = [viewport](const QPoint &pos) {
        QHelpEvent event(QEvent::ToolTip, pos, viewport->mapToGlobal(pos));
        QCoreApplication::sendEvent(viewport, &event);
    };
    ask({20, 5});
    QVERIFY(QToolTip::isVisible());
    QVERIFY(plain(QToolTip::text()).startsWith(sample.at(u"cc.mid"_qs)));
    ask({20, viewport->height() - 5});
    QTRY_VERIFY(!QToolTip::isVisible());
}

BRISEL_TEST(QApplication, TestToolTips)
#include "tst_tooltips.moc"
