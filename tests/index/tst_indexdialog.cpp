#include "tests/index/indexdialogtest.h"

using namespace brisel;

using namespace Sample;

namespace
{

/// Counts the paint events of one widget.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget *widget) { widget->installEventFilter(this); }
    int count() const { return m_count; }

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            ++m_count;
        return false;
    }

private:
    int m_count = 0;
};

class EnglishTitle : public QTranslator
{
public:
    QString translate(const char *, const char *source, const char *, int) const override
    {
        return qstrcmp(source, "Dialog") == 0 ? QStringLiteral("Optimize memory") : QString();
    }
    bool isEmpty() const override { return false; }
};

} // namespace

/// The dialog's controls, and how a run starts and ends.
class TestIndexDialog : public IndexDialogTest
{
    Q_OBJECT

private slots:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void showsDescribedTexts();
    void startsWithTheMemoryChosenLast();
    void startsWhenMouseIsPressed();
    void ignoresOtherPresses();
    void startsByKeys_data();
    void startsByKeys();
    void keepsIdsInUpdateAndRenumbersInRebuild();
    void reportsRefusedFiles();
    void namesAThousandRefusedFiles();
    void asksBeforeItRenames();
    void listsNoticesAsNoErrors();
    void clearsErrorsOfTheRunBefore();
    void resetsProgressAfterFailure();
    void endsRunWithoutQuestionAtQuit();
    void refusesToCloseWhileWorking();
    void startsOnceAtATime();
    void keepsPaintingWhileWorking();
    void changesLabelsOnlyToPaintThem();
    void keepsValuesOnLanguageChange();
    void showsLongAndMarkedUpPathsInOneLine();
    void showsTheTimeLeftInItsBar();
    void notifiesTheDesktopAfterALongRun();
    void closesWhenIdle();
};

void TestIndexDialog::showsDescribedTexts()
{
    QCOMPARE(m_dialog->windowTitle(), QStringLiteral("Dialog"));
    QCOMPARE(child<QLabel>("labelInfoPath")->text(),
             QStringLiteral("Seleziona la cartella principale della Compact Flash o della Penna "
                            "USB che vuoi ottimizzare per Brisel:"));
    QCOMPARE(child<QLabel>("labelInfoPath_2")->text(),
             QStringLiteral("Seleziona l'azione che vuoi eseguire:"));
    QCOMPARE(child<QPushButton>("pushButtonBrowse")->text(), QStringLiteral("Sfoglia"));
    QCOMPARE(child<QRadioButton>("radioButtonUpdate")->text(),
             QStringLiteral("Ho inserito o eliminato alcune song, aggiorna database"));
    QVERIFY(child<QRadioButton>("radioButtonUpdate")->isChecked());
    QCOMPARE(child<QRadioButton>("radioButtonRebuild")->text(),
             QStringLiteral("Ho problemi con gli archivi, ricostruisci database"));
    QVERIFY(!child<QRadioButton>("radioButtonRebuild")->isChecked());
    QCOMPARE(child<QCheckBox>("checkBoxChkdsk")->text(),
             QStringLiteral("Controlla struttura memoria"));
    QVERIFY(!child<QCheckBox>("checkBoxChkdsk")->isChecked());
    QCOMPARE(child<QLabel>("labelFileFoundDescr")->text(), QStringLiteral("File found:"));
    QCOMPARE(child<QLabel>("labelFileFound")->text(), QStringLiteral("0"));
    QCOMPARE(child<QLabel>("labelCurrPath")->text(), QString());
    QCOMPARE(child<QProgressBar>("progressBar")->value(), 0);
    QCOMPARE(child<QLabel>("labelReport")->text(), QStringLiteral("Report:"));
    QCOMPARE(report(), QString());
    QCOMPARE(startButton()->text(), QStringLiteral("Inizia"));
    QCOMPARE(child<QPushButton>("pushButtonClose")->text(), QStringLiteral("Chiudi"));
}

void TestIndexDialog::startsWithTheMemoryChosenLast()
{
    QSettings(QStringLiteral("kordia"), QStringLiteral("brisel2pc"))
        .setValue(QStringLiteral("mediaroot"), QStringLiteral("/Volumes/LAST"));
    const IndexDialog dialog;
    QCOMPARE(dialog.findChild<QLineEdit *>(QStringLiteral("lineEditPath"))->text(),
             QStringLiteral("/Volumes/LAST"));
}

void TestIndexDialog::startsWhenMouseIsPressed()
{
    m_script->expectMessage(boxTitle, success, QMessageBox::Ok);
    QTest::mousePress(startButton(), Qt::LeftButton);
    QVERIFY(m_script->isDone());
    QTest::mouseRelease(startButton(), Qt::LeftButton);
    QCOMPARE(report(), quietReport);
    QCOMPARE(child<QLabel>("labelFileFound")->text(), QStringLiteral("2"));
    QCOMPARE(child<QLabel>("labelCurrPath")->text(), QString());
    QCOMPARE(child<QProgressBar>("progressBar")->value(), 100);
    QVERIFY(m_memory->has(QStringLiteral("fsinfos.id2")));
    QVERIFY(startButton()->isEnabled());
    QVERIFY(child<QPushButton>("pushButtonClose")->isEnabled());
}

void TestIndexDialog::ignoresOtherPresses()
{
    QTest::mouseClick(startButton(), Qt::RightButton);
    QTest::mouseClick(startButton(), Qt::MiddleButton);
    startButton()->setEnabled(false);
    press();
    startButton()->setEnabled(true);
    QTest::mouseRelease(startButton(), Qt::LeftButton);
    QCOMPARE(report(), QString());
    QVERIFY(!m_memory->has(QStringLiteral("fsinfos.id2")));
}

void TestIndexDialog::startsByKeys_data()
{
    QTest::addColumn<QByteArray>("widget");
    QTest::addColumn<int>("key");
    QTest::newRow("space on the button") << QByteArray("pushButtonStart") << int(Qt::Key_Space);
    QTest::newRow("enter on the button") << QByteArray("pushButtonStart") << int(Qt::Key_Return);
    QTest::newRow("enter in the path") << QByteArray("lineEditPath") << int(Qt::Key_Return);
}

void TestIndexDialog::startsByKeys()
{
    QFETCH(QByteArray, widget);
    QFETCH(int, key);
    auto *target = child<QWidget>(widget.constData());
    target->setFocus();
    m_script->expectMessage(boxTitle, success, QMessageBox::Ok);
    QTest::keyClick(target, static_cast<Qt::Key>(key));
    QCOMPARE(report(), quietReport);
}

void TestIndexDialog::keepsIdsInUpdateAndRenumbersInRebuild()
{
    const auto run = [this] {
        m_script->expectMessage(boxTitle, success, QMessageBox::Ok);
        press();
    };
    run();
    m_memory->remove(QStringLiteral("BASI/A.MID"));
    run();
    QCOMPARE(firstId(), QByteArray::fromHex("00000001"));
    QTest::mouseClick(child<QRadioButton>("radioButtonRebuild"), Qt::LeftButton, {}, QPoint(8, 8));
    QVERIFY(child<QRadioButton>("radioButtonRebuild")->isChecked());
    run();
    QCOMPARE(firstId(), QByteArray::fromHex("00000000"));
}

void TestIndexDialog::reportsRefusedFiles()
{
    const QString longPath = QStringLiteral("FOLDER1/FOLDER2/FOLDER3/FOLDER4/FOLDER5/SONG.MID");
    m_memory->write(longPath, midiSong("Deep", "Dora", "Pop"));
    m_script->expectMessage(boxTitle, someErrors, QMessageBox::Ok);
    press();
    QCOMPARE(report(),
             QStringLiteral("Ottimizzazione memoria in corso...\n"
                            "File non importato, path troppo lungo: %1\nOperazione completata")
                 .arg(m_memory->path(longPath)));
    QVERIFY(m_memory->has(QStringLiteral("fsinfos.id2")));
}

void TestIndexDialog::namesAThousandRefusedFiles()
{
    const QString deep = QStringLiteral("abcdefgh/ijklmnop/qrstuvwx/yzabcdef/ghijklmn/S%1.MID");
    const QString refused = QStringLiteral("File non importato, path troppo lungo: ");
    QStringList lines{QStringLiteral("Ottimizzazione memoria in corso...")};
    for (int number = 1001; number <= 2003; ++number) {
        m_memory->write(deep.arg(number), QByteArray());
        if (number <= 2000)
            lines.append(refused + m_memory->path(deep.arg(number)));
    }
    lines += {refused + QStringLiteral("e altri 3"), QStringLiteral("Operazione completata")};
    m_script->expectMessage(boxTitle, someErrors, QMessageBox::Ok);
    press();
    QCOMPARE(report().split(u'\n'), lines);
    QCOMPARE(m_dialog->report()->failed(), 1003);
    lines.removeFirst();
    lines.removeLast();
    QCOMPARE(m_dialog->report()->text().split(u'\n', Qt::SkipEmptyParts).mid(1), lines);
}

void TestIndexDialog::asksBeforeItRenames()
{
    m_memory->write(QStringLiteral("A long name.mid"), midiSong("One", "Anna", "Pop"));
    QString file;
    QString message;
    m_script->expect("NoCopyrightDialog", [&](QWidget *dialog) {
        file = dialog->findChild<QLabel *>(QStringLiteral("fileNameLabel"))->text();
        message = dialog->findChild<QLabel *>(QStringLiteral("messageLabel"))->text();
        DialogScript::click(dialog, QStringLiteral("yesPushButton"));
    });
    m_script->expectMessage(boxTitle, success, QMessageBox::Ok);
    press();
    QCOMPARE(file, m_memory->path(QStringLiteral("A long name.mid")));
    QCOMPARE(message, QStringLiteral("verrà rinominato: ") +
                          m_memory->path(QStringLiteral("Alongn-1.mid")) +
                          QStringLiteral("\n\nSe il file non viene rinominato, è possibile che non "
                                         "venga rilevato da Brisel."));
    QVERIFY(m_memory->has(QStringLiteral("Alongn-1.mid")));
}

void TestIndexDialog::listsNoticesAsNoErrors()
{
    const QString notice = QStringLiteral("Rinominato: /A.MID");
    connect(child<QPlainTextEdit>("plainTextReport"), &QPlainTextEdit::textChanged, m_dialog.get(),
            [&] {
                if (report().endsWith(QStringLiteral("in corso...")))
                    m_dialog->noticeFromIndexReceived(notice);
            });
    m_script->expectMessage(boxTitle, success, QMessageBox::Ok);
    press();
    QCOMPARE(report(), QString(quietReport).replace(u'\n', u'\n' + notice + u'\n'));
    QCOMPARE(m_dialog->report()->text(), u'\n' + notice + u'\n');
}

void TestIndexDialog::clearsErrorsOfTheRunBefore()
{
    reportsRefusedFiles();
    QDir(m_memory->path(QStringLiteral("FOLDER1"))).removeRecursively();
    m_script->expectMessage(boxTitle, success, QMessageBox::Ok);
    press();
    QCOMPARE(report(), quietReport);
}

void TestIndexDialog::resetsProgressAfterFailure()
{
    QDir(m_memory->path(QStringLiteral("BASI"))).removeRecursively();
    m_script->expectMessage(
        boxTitle,
        QStringLiteral(
            "Operazione non riuscita.\nAssicurarsi che il disco abbia sufficiente spazio "
            "libero e che non sia protetto da scrittura."),
        QMessageBox::Ok);
    press();
    QCOMPARE(child<QProgressBar>("progressBar")->minimum(), 0);
    QCOMPARE(child<QProgressBar>("progressBar")->maximum(), 100);
    QCOMPARE(child<QProgressBar>("progressBar")->value(), 0);
    QCOMPARE(report(), quietReport);
}

void TestIndexDialog::endsRunWithoutQuestionAtQuit()
{
    addSongs(20);
    m_memory->write(QStringLiteral("A very long name.mid"), midiSong("Long", "Luca", "Pop"));
    duringRun([] {
        QEvent quit(QEvent::Quit);
        QCoreApplication::sendEvent(qApp, &quit);
    });
    press();
    QVERIFY(m_memory->has(QStringLiteral("A very long name.mid")));
    QVERIFY(!m_memory->has(QStringLiteral("fsinfos.id2")));
    QVERIFY(startButton()->isEnabled());
    // The quit is repeated after the run; here it must not end the test program.
    QCoreApplication::removePostedEvents(qApp, QEvent::Quit);
}

void TestIndexDialog::refusesToCloseWhileWorking()
{
    bool seen = false;
    duringRun([&] {
        QVERIFY(!child<QPushButton>("pushButtonClose")->isEnabled());
        m_dialog->close();
        QTest::keyClick(m_dialog.get(), Qt::Key_Escape);
        QTest::mouseClick(child<QPushButton>("pushButtonClose"), Qt::LeftButton);
        seen = m_dialog->isVisible();
    });
    m_script->expectMessage(boxTitle, success, QMessageBox::Ok);
    press();
    QVERIFY(seen);
    QVERIFY(m_dialog->isVisible());
}

void TestIndexDialog::startsOnceAtATime()
{
    duringRun([&] {
        press();
        m_dialog->start(true);
        QTest::keyClick(child<QLineEdit>("lineEditPath"), Qt::Key_Return);
    });
    m_script->expectMessage(boxTitle, success, QMessageBox::Ok);
    press();
    QCOMPARE(report(), quietReport);
}

void TestIndexDialog::keepsPaintingWhileWorking()
{
    QStringList paths;
    int largest = 0;
    QTimer watch;
    watch.setInterval(5);
    connect(&watch, &QTimer::timeout, this, [&] {
        if (startButton()->isEnabled())
            return;
        paths.append(child<QLabel>("labelCurrPath")->text());
        largest = std::max(largest, child<QLabel>("labelFileFound")->text().toInt());
    });
    watch.start();
    const PaintCounter paintings(child<QLabel>("labelCurrPath"));
    // A fast machine finishes few songs before the bar is read twice; then the test adds more.
    for (int songs = 1500; songs <= 24000 && paths.size() <= 2; songs *= 4) {
        addSongs(songs);
        m_script->expectMessage(boxTitle, success, QMessageBox::Ok);
        press();
        paths.removeDuplicates();
    }
    QVERIFY2(paintings.count() > 2, qPrintable(QString::number(paintings.count())));
    QVERIFY(paths.size() > 2);
    QVERIFY(largest > 0);
}

void TestIndexDialog::changesLabelsOnlyToPaintThem()
{
    constexpr int songs = 1500;
    addSongs(songs);
    int looks = 0;
    int changes = 0;
    auto *bar = child<QProgressBar>("progressBar");
    QTimer watch;
    connect(&watch, &QTimer::timeout, this, [&] { looks += startButton()->isEnabled() ? 0 : 1; });
    connect(bar, &QProgressBar::valueChanged, this, [&] { ++changes; });
    watch.start(0);
    m_script->expectMessage(boxTitle, success, QMessageBox::Ok);
    press();
    // One reading for each processing of events. The bar starts again at each stage and at the end.
    constexpr int parts = 4;
    QVERIFY2(changes <= looks + 2 * parts, qPrintable(QString::number(changes)));
    QVERIFY(changes > 0);
    QCOMPARE(bar->value(), 100);
    QCOMPARE(child<QLabel>("labelFileFound")->text(), QString::number(songs + 2));
}

void TestIndexDialog::keepsValuesOnLanguageChange()
{
    m_dialog->updateLabelNum(12);
    m_dialog->updateLabelCurrPath(QStringLiteral("/a/b.mid"));
    m_dialog->errorFromIndexReceived(QStringLiteral("refused"));
    EnglishTitle english;
    QCoreApplication::installTranslator(&english);
    QCoreApplication::processEvents();
    QCOMPARE(m_dialog->windowTitle(), QStringLiteral("Optimize memory"));
    QCOMPARE(child<QLabel>("labelFileFound")->text(), QStringLiteral("12"));
    QCOMPARE(child<QLabel>("labelCurrPath")->text(), QStringLiteral("/a/b.mid"));
    QCOMPARE(report(), QStringLiteral("refused"));
    QCOMPARE(child<QLineEdit>("lineEditPath")->text(), m_memory->root());
    QCoreApplication::removeTranslator(&english);
    QCoreApplication::processEvents();
}

void TestIndexDialog::showsLongAndMarkedUpPathsInOneLine()
{
    const int width = m_dialog->width();
    auto *label = child<QLabel>("labelCurrPath");
    m_dialog->updateLabelCurrPath(QStringLiteral("/<b>x</b>\n<img src=y>.mid"));
    QCOMPARE(label->textFormat(), Qt::PlainText);
    QCOMPARE(label->text(), QStringLiteral("/<b>x</b> <img src=y>.mid"));
    m_dialog->updateLabelCurrPath(u'/' + QString(4000, u'w') + QStringLiteral("/end.mid"));
    QVERIFY(label->text().contains(u'\u2026'));
    QVERIFY(label->text().endsWith(QStringLiteral("end.mid")));
    QCoreApplication::processEvents();
    QCOMPARE(m_dialog->width(), width);
    const QString elided = label->text();
    m_dialog->resize(width + 200, m_dialog->height());
    QCoreApplication::processEvents();
    QVERIFY(label->text().size() > elided.size());
}

void TestIndexDialog::showsTheTimeLeftInItsBar()
{
    qint64 now = 0;
    m_dialog->setClock([&now] { return now; });
    m_dialog->initProgress(100);
    m_dialog->setProgressValue(10);
    const auto *bar = child<QProgressBar>("progressBar");
    QCOMPARE(bar->text(), QStringLiteral("10%"));
    now += 60000;
    m_dialog->setProgressValue(50);
    QCOMPARE(bar->text(), QStringLiteral("50% - ancora circa 60 secondi"));
    m_dialog->setProgressValue(100);
    QCOMPARE(bar->text(), QStringLiteral("100%"));
}

void TestIndexDialog::notifiesTheDesktopAfterALongRun()
{
    qint64 now = 0;
    int sent = 0;
    m_dialog->setDesktop({[&sent](const DesktopNotice &) { ++sent; }, [] { return false; }});
    for (const int step : {1, 1000000}) { // milliseconds between two looks at the clock
        m_dialog->setClock([&now, step] { return now += step; });
        m_script->expectMessage(boxTitle, success, QMessageBox::Ok);
        press();
        QCOMPARE(sent, step == 1 ? 0 : 1);
    }
}

void TestIndexDialog::closesWhenIdle()
{
    QTest::mouseClick(child<QPushButton>("pushButtonClose"), Qt::LeftButton);
    QVERIFY(!m_dialog->isVisible());
    m_dialog->show();
    QTest::keyClick(m_dialog.get(), Qt::Key_Escape);
    QVERIFY(!m_dialog->isVisible());
    m_dialog->show();
    m_dialog->close();
    QVERIFY(!m_dialog->isVisible());
}

BRISEL_TEST(QApplication, TestIndexDialog)
#include "tst_indexdialog.moc"
