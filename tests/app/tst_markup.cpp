#include "songfile/metasong.h"
#include "tests/app/markupwatch.h"
#include "tests/app/workflowtest.h"
#include "tests/testprogram.h"

#include <QAction>
#include <QMessageBox>
#include <QToolTip>

using namespace brisel;

/// Song data, names of files and of folders that are markup, through every dialog of the window.
class TestMarkup : public WorkflowTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void noticesMarkup();
    void inTheTable();
    void inSummaryAndBackup();
    void inTheQuestionsOfASynchronisation();
    void inTheEditDialog();
    void inTheContextMenu();
    void inATransfer();
    void inTheIndexDialog();
    void inTheSongsListDialog();

private:
    /// A folder of the song files, a memory, a file of it: all are markup.
    QString folder() const { return at(MarkupWatch::text()); }
    QString card() const { return at(u"volumes/"_qs + MarkupWatch::text()); }
    QString song(int number) const
    {
        return folder() + u'/' + MarkupWatch::text() + QString::number(number) + u".mid"_qs;
    }
    void importSongs();
    /// Checks that everything was shown literally, and the data at least in \a places.
    void checkPlaces(const QStringList &places);
    void answerLater(DialogScript &script, const QString &button);

    std::unique_ptr<MarkupWatch> m_watch;
};

void TestMarkup::init()
{
    openWindow();
    QVERIFY(QDir().mkpath(card()));
    for (const int number : {1, 2}) {
        makeFile(song(number), Sample::midi("x", false));
        MetaSong file;
        QVERIFY(file.importFile(song(number)));
        SongInfo info;
        file.getSongInfo(info);
        info.title = info.artist = info.author = info.genre = MarkupWatch::text();
        file.setSongInfo(info, true);
        QVERIFY(file.saveToFile(song(number)));
    }
    m_watch = std::make_unique<MarkupWatch>();
}

void TestMarkup::cleanup()
{
    m_watch.reset();
    verifyScript();
    closeWindow();
}

void TestMarkup::importSongs()
{
    m_script->expectFiles({song(1), song(2)});
    m_sample->press("selectDirToolButton");
    verifyScript();
    QCOMPARE(statuses(), u"00"_qs);
}

void TestMarkup::checkPlaces(const QStringList &places)
{
    QVERIFY2(m_watch->problems().isEmpty(), qPrintable(m_watch->problems().join(u'\n')));
    for (const QString &place : places) {
        const QString seen = QStringList(m_watch->places().values()).join(u'\n');
        QVERIFY2(m_watch->places().contains(place), qPrintable(place + u" is not in\n"_qs + seen));
    }
}

/// Answers the next question after it was painted.
void TestMarkup::answerLater(DialogScript &script, const QString &button)
{
    script.expect("NoCopyrightDialog", [button](QWidget *widget) {
        widget->grab();
        DialogScript::click(widget, button);
    });
}

void TestMarkup::noticesMarkup()
{
    QLabel label(MarkupWatch::text());
    label.setObjectName(u"guesses"_qs);
    label.show();
    QTRY_COMPARE(m_watch->problems().size(), 1);
    QCOMPARE(m_watch->problems().first(), u"QLabel.guesses label: <b>zqx<img src=x.png>&amp;"_qs);
    label.setTextFormat(Qt::PlainText);
    label.setToolTip(MarkupWatch::text());
    label.grab();
    QCOMPARE(m_watch->problems().size(), 2);
    label.setToolTip(u"<p>"_qs + MarkupWatch::text().toHtmlEscaped() + u"</p>"_qs);
    label.grab();
    QCOMPARE(m_watch->problems().size(), 2);
    QCOMPARE(m_watch->places(), QSet<QString>{u"QLabel.guesses"_qs});
}

void TestMarkup::inTheTable()
{
    importSongs();
    table()->grab();
    QCOMPARE(model().index(0, model().fieldIndex(u"title"_qs)).data().toString(),
             MarkupWatch::text());
    QCOMPARE(model().index(0, model().fieldIndex(u"artist"_qs)).data().toString(),
             MarkupWatch::text());
    checkPlaces({u"MainWindow.userLibraryTableView"_qs});
    // The tip over a cell comes from the model and guesses its format.
    QHelpEvent help(QEvent::ToolTip, cell(0), table()->viewport()->mapToGlobal(cell(0)));
    QCoreApplication::sendEvent(table()->viewport(), &help);
    QCoreApplication::processEvents();
    QToolTip::hideText();
    checkPlaces({});
}

void TestMarkup::inSummaryAndBackup()
{
    m_window->enableCopyrightMessage(true);
    m_script->expectFiles({song(1), song(2)});
    m_script->expect("ProceedDialog", [](QWidget *widget) {
        widget->grab();
        DialogScript::click(widget, u"yesPushButton"_qs);
    });
    m_script->expect("BackupDialog", [this](QWidget *widget) {
        DialogScript inner;
        inner.expectFiles({card()});
        DialogScript::click(widget, u"browsePushButton"_qs);
        widget->grab();
        DialogScript::click(widget, u"doBackupPushButton"_qs);
    });
    m_script->expect("QMessageBox", [](QWidget *widget) {
        widget->grab();
        widget->close();
    });
    answerLater(*m_script, u"noAllPushButton"_qs);
    m_sample->press("selectDirToolButton");
    checkPlaces({u"BackupDialog.directoryLineEdit"_qs, u"NoCopyrightDialog.fileNameLabel"_qs});
}

void TestMarkup::inTheQuestionsOfASynchronisation()
{
    importSongs();
    m_window->enableCopyrightMessage(true);
    expectBackup(u"exitPushButton"_qs);
    answerLater(*m_script, u"yesPushButton"_qs);
    answerLater(*m_script, u"noPushButton"_qs);
    clickSync();
    checkPlaces({u"NoCopyrightDialog.fileNameLabel"_qs});
}

void TestMarkup::inTheEditDialog()
{
    importSongs();
    expectEdit([](QWidget *widget) {
        widget->grab();
        DialogScript inner;
        inner.expect("QMessageBox", [](QWidget *box) {
            box->grab();
            QTest::mouseClick(qobject_cast<QMessageBox *>(box)->button(QMessageBox::Yes),
                              Qt::LeftButton);
        });
        DialogScript::click(widget, u"checkBoxToAllArtist"_qs);
        DialogScript::click(widget, u"savePushButton"_qs);
    });
    doubleClick(0);
    table()->grab();
    checkPlaces({u"DataEditDialog.titleLineEdit"_qs, u"DataEditDialog.authorLineEdit"_qs});
}

void TestMarkup::inTheContextMenu()
{
    importSongs();
    m_script->expect("QMessageBox", [](QWidget *box) {
        box->grab();
        QTest::mouseClick(qobject_cast<QMessageBox *>(box)->button(QMessageBox::No),
                          Qt::LeftButton);
    });
    chooseFromMenu(1, cell(0));
    checkPlaces({});
}

void TestMarkup::inATransfer()
{
    importSongs();
    makeFile(card() + u"/songs/"_qs + MarkupWatch::text() + u"1.mid"_qs, "old");
    m_script->expectFiles({card()});
    answerLater(*m_script, u"yesPushButton"_qs);
    // Its index: the names are too long for the player.
    answerLater(*m_script, u"yesPushButton"_qs);
    answerLater(*m_script, u"noAllPushButton"_qs);
    m_script->expect("QMessageBox", [](QWidget *box) {
        box->grab();
        box->close();
    });
    clickTransfer();
    checkPlaces({u"NoCopyrightDialog.fileNameLabel"_qs, u"NoCopyrightDialog.messageLabel"_qs});
}

void TestMarkup::inTheIndexDialog()
{
    makeFile(card() + u'/' + MarkupWatch::text() + u".mid"_qs, Sample::midi("x", false));
    makeFile(card() + u'/' + QString(3, u'd').repeated(20) + u'/' + MarkupWatch::text() +
                 u".mid"_qs,
             Sample::midi("x", false));
    m_script->expect("IndexDialog", [this](QWidget *widget) {
        widget->findChild<QLineEdit *>(u"lineEditPath"_qs)->setText(card());
        DialogScript inner;
        inner.expect("NoCopyrightDialog", [widget](QWidget *question) {
            widget->grab();
            question->grab();
            DialogScript::click(question, u"noAllPushButton"_qs);
        });
        inner.expect("QMessageBox", [widget](QWidget *box) {
            box->grab();
            widget->grab();
            box->close();
        });
        DialogScript::click(widget, u"pushButtonStart"_qs);
        QVERIFY2(inner.isDone(), qPrintable(inner.problems().join(u'\n')));
        DialogScript::click(widget, u"pushButtonClose"_qs);
    });
    m_window->findChild<QAction *>(u"optimizeMemory"_qs)->trigger();
    checkPlaces({u"IndexDialog.lineEditPath"_qs, u"IndexDialog.labelCurrPath"_qs,
                 u"IndexDialog.plainTextReport"_qs, u"NoCopyrightDialog.fileNameLabel"_qs});
}

void TestMarkup::inTheSongsListDialog()
{
    m_script->expect("SongsListDialog", [this](QWidget *widget) {
        widget->findChild<QLineEdit *>(u"lineEditPath"_qs)->setText(card());
        widget->findChild<QLineEdit *>(u"lineEditFile"_qs)->setText(folder() + u"/<b>zqx.csv"_qs);
        widget->grab();
        DialogScript inner;
        inner.expect("QMessageBox", [](QWidget *box) {
            box->grab();
            box->close();
        });
        DialogScript::click(widget, u"pushButtonStart"_qs);
        DialogScript::click(widget, u"pushButtonClose"_qs);
    });
    m_window->findChild<QAction *>(u"actionSongsList"_qs)->trigger();
    checkPlaces({u"SongsListDialog.lineEditPath"_qs, u"SongsListDialog.lineEditFile"_qs});
}

BRISEL_TEST(QApplication, TestMarkup)
#include "tst_markup.moc"
