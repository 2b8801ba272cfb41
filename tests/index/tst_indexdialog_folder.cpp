#include "tests/index/indexdialogtest.h"

using namespace brisel;

using namespace Sample;

/// The folder that the dialog uses as the memory.
class TestIndexDialogFolder : public IndexDialogTest
{
    Q_OBJECT

private slots:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void choosesFolder();
    void keepsFolderWhenChoiceIsCancelled();
    void findsRootOfMemory();
    void indexesWholeMemoryOfTypedFolder();
    void refusesFolderOutsideMemories();
    void indexesTypedFolderWithShift();
    void needsShiftAlone();
    void indexesTypedFolderWithShiftAndSpace();
    void refusesMissingAndEmptyPaths();
};

void TestIndexDialogFolder::choosesFolder()
{
    QString title;
    QString folder;
    m_script->expect("QFileDialog", [&](QWidget *widget) {
        auto *dialog = qobject_cast<QFileDialog *>(widget);
        title = dialog->windowTitle();
        folder = dialog->directory().path();
        QCOMPARE(dialog->fileMode(), QFileDialog::Directory);
        dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))
            ->setText(m_memory->path(QStringLiteral("BASI")));
        QTest::keyClick(dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit")),
                        Qt::Key_Return);
    });
    QTest::mouseClick(child<QPushButton>("pushButtonBrowse"), Qt::LeftButton);
    QCOMPARE(title, QStringLiteral("Scegli cartella"));
    QCOMPARE(folder, QStringLiteral("/home"));
    QCOMPARE(child<QLineEdit>("lineEditPath")->text(), m_memory->path(QStringLiteral("BASI")));
    QCOMPARE(QSettings(QStringLiteral("kordia"), QStringLiteral("brisel2pc"))
                 .value(QStringLiteral("mediaroot"))
                 .toString(),
             m_memory->path(QStringLiteral("BASI")));
}

void TestIndexDialogFolder::keepsFolderWhenChoiceIsCancelled()
{
    m_script->expectFilesCancelled();
    QTest::mouseClick(child<QPushButton>("pushButtonBrowse"), Qt::LeftButton);
    QCOMPARE(child<QLineEdit>("lineEditPath")->text(), m_memory->root());
    QVERIFY(!QSettings(QStringLiteral("kordia"), QStringLiteral("brisel2pc"))
                 .contains(QStringLiteral("mediaroot")));
}

void TestIndexDialogFolder::findsRootOfMemory()
{
    const auto root = [](const char *path) {
        return IndexDialog::getRootDrivePath(QLatin1StringView(path));
    };
    QCOMPARE(root("/Volumes/CARD/BASI"), QStringLiteral("/Volumes/CARD"));
    QCOMPARE(root("/Volumes/CARD"), QStringLiteral("/Volumes/CARD"));
    QCOMPARE(root("/volumes/C/x"), QStringLiteral("/volumes/C"));
    QCOMPARE(root("/Volumes/"), QString());
    QCOMPARE(root("/Users/anna/Music"), QString());
    QCOMPARE(root(""), QString());
    QCOMPARE(IndexDialog::getRootDrivePath(m_memory->path(QStringLiteral("BASI"))),
             m_memory->root());
}

void TestIndexDialogFolder::indexesWholeMemoryOfTypedFolder()
{
    m_memory->write(QStringLiteral("C.MID"), midiSong("Three", "Carla", "Pop"));
    typePath(m_memory->path(QStringLiteral("BASI")));
    m_script->expectMessage(boxTitle, success, QMessageBox::Ok);
    press();
    QCOMPARE(child<QLabel>("labelFileFound")->text(), QStringLiteral("3"));
    QVERIFY(m_memory->has(QStringLiteral("index.id2")));
    QVERIFY(!m_memory->has(QStringLiteral("BASI/index.id2")));
}

void TestIndexDialogFolder::refusesFolderOutsideMemories()
{
    qputenv("BRISEL_VOLUMES", "/nowhere");
    m_script->expectMessage(boxTitle, noPath, QMessageBox::Ok);
    press();
    QCOMPARE(report(), QString());
    QVERIFY(!m_memory->has(QStringLiteral("index.id2")));
}

void TestIndexDialogFolder::indexesTypedFolderWithShift()
{
    qputenv("BRISEL_VOLUMES", "/nowhere");
    typePath(m_memory->path(QStringLiteral("BASI/")));
    m_script->expectMessage(boxTitle, success, QMessageBox::Ok);
    press(Qt::ShiftModifier);
    QVERIFY(m_memory->has(QStringLiteral("BASI/index.id2")));
    QVERIFY(!m_memory->has(QStringLiteral("index.id2")));
    QCOMPARE(m_memory->read(QStringLiteral("BASI/index.id2")).mid(4, 7), QByteArray("/A.MID\0", 7));
}

void TestIndexDialogFolder::needsShiftAlone()
{
    typePath(m_memory->path(QStringLiteral("BASI")));
    m_script->expectMessage(boxTitle, success, QMessageBox::Ok);
    press(Qt::ShiftModifier | Qt::ControlModifier);
    QVERIFY(m_memory->has(QStringLiteral("index.id2")));
    QVERIFY(!m_memory->has(QStringLiteral("BASI/index.id2")));
}

void TestIndexDialogFolder::indexesTypedFolderWithShiftAndSpace()
{
    typePath(m_memory->path(QStringLiteral("BASI")));
    startButton()->setFocus();
    m_script->expectMessage(boxTitle, success, QMessageBox::Ok);
    QTest::keyClick(startButton(), Qt::Key_Space, Qt::ShiftModifier);
    QVERIFY(m_memory->has(QStringLiteral("BASI/index.id2")));
}

void TestIndexDialogFolder::refusesMissingAndEmptyPaths()
{
    for (const QString &path : {QString(), m_memory->root() + QStringLiteral("X/songs"),
                                m_memory->root() + QStringLiteral("/../CARD")}) {
        typePath(path);
        m_script->expectMessage(boxTitle, noPath, QMessageBox::Ok);
        press();
    }
    // An empty path would be the working folder.
    typePath(QString());
    m_script->expectMessage(boxTitle, noPath, QMessageBox::Ok);
    press(Qt::ShiftModifier);
    QVERIFY(!QFile::exists(QStringLiteral("index.id2")));
}

BRISEL_TEST(QApplication, TestIndexDialogFolder)
#include "tst_indexdialog_folder.moc"
