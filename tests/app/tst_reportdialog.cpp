#include "library/dialogs/reportdialog.h"

#include "base/filefailure.h"
#include "tests/dialogscript.h"
#include "tests/fulldisk.h"
#include "tests/smalldisk.h"
#include "tests/testfiles.h"
#include "tests/testprogram.h"

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTextBlock>
#include <QTranslator>

using namespace brisel;

class TestReportDialog : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void showsTheReportAsPlainText();
    void isReadByKeyboard();
    void copiesTheReport();
    void savesTheReport();
    void saysThatAFullDiskTookNoReport();
    void saysWhyAReportWasNotSaved();
    void leavesWithoutSaving();
    void showsThousandsOfFilesAtOnce();
    void showsThousandsOfChangedSongsAtOnce();
    void changesItsLanguage();

private:
    QString at(const QString &name) const { return m_folder->filePath(name); }
    template <typename Kind>
    Kind *find(const char *name) const
    {
        return m_dialog->findChild<Kind *>(QString::fromLatin1(name));
    }
    /// The number of lines of the text that were laid out.
    int laidOut() const
    {
        int lines = 0;
        const QTextDocument *text = find<QPlainTextEdit>("reportText")->document();
        for (QTextBlock block = text->begin(); block.isValid(); block = block.next())
            lines += block.layout()->lineCount() > 0 ? 1 : 0;
        return lines;
    }
    void save() { QTest::mouseClick(find<QPushButton>("savePushButton"), Qt::LeftButton); }
    void verifyScript()
    {
        QVERIFY2(m_script->isDone(), qPrintable(m_script->problems().join(u'\n')));
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<DialogScript> m_script;
    std::unique_ptr<ReportDialog> m_dialog;
};

const QString shownText = QStringLiteral("Importazione: 1 non riuscite\n"
                                         "Non letta (il file è vuoto): /<b>è</b>.mid\n");

static RunReport sampleReport()
{
    RunReport report(RunReport::Operation::Import);
    report.add(RunReport::Step::Read, QStringLiteral("/<b>è</b>.mid"), FileReason::empty);
    return report;
}

void TestReportDialog::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_script = std::make_unique<DialogScript>();
    m_dialog = std::make_unique<ReportDialog>(sampleReport());
    m_dialog->show();
}

void TestReportDialog::cleanup()
{
    m_dialog.reset();
    m_script.reset();
}

void TestReportDialog::showsTheReportAsPlainText()
{
    QCOMPARE(m_dialog->windowTitle(), u"Resoconto"_qs);
    const auto *text = find<QPlainTextEdit>("reportText");
    QVERIFY(text->isReadOnly());
    QCOMPARE(text->toPlainText(), shownText);
    QCOMPARE(find<QPushButton>("copyPushButton")->text(), u"&Copia"_qs);
    QCOMPARE(find<QPushButton>("savePushButton")->text(), u"&Salva..."_qs);
}

void TestReportDialog::isReadByKeyboard()
{
    QApplication::setActiveWindow(m_dialog.get());
    QStringList reached;
    for (int i = 0; i < 4; ++i) {
        QTest::keyClick(m_dialog->focusWidget(), Qt::Key_Tab);
        reached.append(m_dialog->focusWidget()->objectName());
    }
    reached.sort();
    QCOMPARE(reached, QStringList({u"closePushButton"_qs, u"copyPushButton"_qs, u"reportText"_qs,
                                   u"savePushButton"_qs}));
    QTest::keyClick(m_dialog.get(), Qt::Key_Escape);
    QVERIFY(!m_dialog->isVisible());
}

void TestReportDialog::copiesTheReport()
{
    QGuiApplication::clipboard()->setText(u"old"_qs);
    QTest::mouseClick(find<QPushButton>("copyPushButton"), Qt::LeftButton);
    QCOMPARE(QGuiApplication::clipboard()->text(), shownText);
}

void TestReportDialog::savesTheReport()
{
    m_script->expect("QFileDialog", [this](QWidget *widget) {
        auto *dialog = qobject_cast<QFileDialog *>(widget);
        QCOMPARE(dialog->windowTitle(), u"Salva resoconto"_qs);
        QCOMPARE(QFileInfo(dialog->selectedFiles().value(0)).fileName(), u"resoconto.txt"_qs);
        DialogScript::chooseFiles(dialog, {at(u"report.txt"_qs)});
    });
    save();
    verifyScript();
    QCOMPARE(fileContent(at(u"report.txt"_qs)), shownText.toUtf8());
}

void TestReportDialog::saysThatAFullDiskTookNoReport()
{
    const SmallDisk disk(m_folder->path(), SmallDisk::pageSize);
    if (!disk.isMounted())
        QSKIP("only root can mount a small disk");
    makeFile(at(u"filler"_qs), QByteArray(SmallDisk::pageSize, 'x'));
    m_script->expectFiles({at(u"report.txt"_qs)});
    m_script->expectMessage(u"Salva resoconto"_qs,
                            u"Il resoconto non è stato salvato: spazio insufficiente sul disco"_qs,
                            QMessageBox::Ok);
    save();
    verifyScript();
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden),
             QStringList({u"filler"_qs}));
}

void TestReportDialog::saysWhyAReportWasNotSaved()
{
    makeFile(at(u"report.txt"_qs), "old");
    m_script->expect("QFileDialog", [this](QWidget *widget) {
        DialogScript inner;
        inner.expect("QMessageBox", [](QWidget *box) {
            QTest::mouseClick(qobject_cast<QMessageBox *>(box)->button(QMessageBox::Yes),
                              Qt::LeftButton);
        });
        DialogScript::chooseFiles(qobject_cast<QFileDialog *>(widget), {at(u"report.txt"_qs)});
    });
    m_script->expectMessage(
        u"Salva resoconto"_qs,
        u"Il resoconto non è stato salvato: non è stato possibile scrivere il file"_qs,
        QMessageBox::Ok);
    {
        const FullDisk full(8);
        save();
    }
    verifyScript();
    QCOMPARE(fileContent(at(u"report.txt"_qs)), QByteArray("old"));
}

void TestReportDialog::leavesWithoutSaving()
{
    m_script->expectFilesCancelled();
    save();
    verifyScript();
    QVERIFY(QDir(m_folder->path()).isEmpty());
}

/// The most files that a report lists, of two kinds, and the count of the others. No line is
/// wrapped or laid out before it is visible.
void TestReportDialog::showsThousandsOfFilesAtOnce()
{
    constexpr int count = 5000;
    constexpr int named = 1000;
    RunReport report(RunReport::Operation::Import);
    for (int i = 0; i < count; ++i) {
        const QString path = u"/%1"_qs.arg(i) + QString(300, u'a');
        report.add(RunReport::Step::Read, path, FileReason::empty);
        report.add(RunReport::Step::Read, path, FileReason::missing);
    }
    m_dialog = std::make_unique<ReportDialog>(report);
    m_dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_dialog.get()));
    const auto *text = find<QPlainTextEdit>("reportText");
    // The summary, and after the files of each kind the number of the others.
    QCOMPARE(text->blockCount(), 1 + 2 * named + 2 + 1);
    QCOMPARE(text->lineWrapMode(), QPlainTextEdit::NoWrap);
    QVERIFY(laidOut() > 0);
    QVERIFY2(laidOut() < 200, qPrintable(QString::number(laidOut())));
}

/// 50,000 lines.
void TestReportDialog::showsThousandsOfChangedSongsAtOnce()
{
    constexpr int count = 10000;
    const QString text(300, u'a');
    RunReport report(RunReport::Operation::Synchronisation);
    for (int i = 0; i < count; ++i)
        report.addChanges(u"/%1.mid"_qs.arg(i), {{"Titolo", text, {}},
                                                 {"Artista", {}, text},
                                                 {"Genere", {}, text},
                                                 {"Autore", {}, text}});
    m_dialog = std::make_unique<ReportDialog>(report);
    m_dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_dialog.get()));
    QCOMPARE(find<QPlainTextEdit>("reportText")->blockCount(), 1 + 5 * count + 1);
    QVERIFY2(laidOut() < 200, qPrintable(QString::number(laidOut())));
}

void TestReportDialog::changesItsLanguage()
{
    QTranslator english;
    QVERIFY(english.load(u":/trans/brisel2pc_en"_qs));
    QVERIFY(QCoreApplication::installTranslator(&english));
    QCoreApplication::processEvents();
    QCOMPARE(m_dialog->windowTitle(), u"Report"_qs);
    QCOMPARE(find<QPushButton>("savePushButton")->text(), u"&Save..."_qs);
    QCOMPARE(find<QPlainTextEdit>("reportText")->toPlainText(),
             u"Import: 1 failed\nNot read (the file is empty): /<b>è</b>.mid\n"_qs);
}

BRISEL_TEST(QApplication, TestReportDialog)
#include "tst_reportdialog.moc"
