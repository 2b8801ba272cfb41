#include "tests/app/workflowtest.h"
#include "tests/testprogram.h"

#include <QFileDialog>
#include <QListView>
#include <QMessageBox>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace brisel;

namespace
{

/// The maximum memory of the process so far, in KiB.
long peakMemory()
{
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

void cutTo(const QString &path, off_t size)
{
    if (::truncate(QFile::encodeName(path).constData(), size) != 0)
        qFatal("can't cut %s", qPrintable(path));
}

} // namespace

/// Files that are not valid songs, imported, synchronised, edited and transferred by the window.
class TestHostileSongs : public WorkflowTest
{
    Q_OBJECT

private slots:
    void init() { openWindow(); }
    void cleanup() { closeWindow(); }

    void namesOfAllKinds();
    void namesThatAreNoText();
    void hugeAndEmptyFiles();
    void filesThatAreNone();
    void filesThatShrink();

private:
    QString card() const { return at(u"volumes/CARD"_qs); }
    /// Picks all songs of \a folder. Not by typing: names with quotes can't be typed there.
    void pickAll(const QString &folder, int count);
    void synchronise();
    void transfer(const QString &outcome);
};

void TestHostileSongs::pickAll(const QString &folder, int count)
{
    m_script->expect("QFileDialog", [folder, count](QWidget *widget) {
        auto *dialog = qobject_cast<QFileDialog *>(widget);
        dialog->setDirectory(folder);
        auto *list = dialog->findChild<QListView *>(u"listView"_qs);
        QTRY_COMPARE(list->model()->rowCount(list->rootIndex()), count);
        list->selectAll();
        static_cast<QDialog *>(dialog)->done(QDialog::Accepted);
    });
    m_sample->press("selectDirToolButton");
    verifyScript();
}

void TestHostileSongs::synchronise()
{
    expectBackup(u"exitPushButton"_qs);
    clickSync();
    verifyScript();
}

void TestHostileSongs::transfer(const QString &outcome)
{
    m_script->expectFiles({card()});
    m_script->expectMessage(u"Trasferimento"_qs, outcome, QMessageBox::Ok);
    clickTransfer();
    verifyScript();
}

void TestHostileSongs::namesOfAllKinds()
{
    const QStringList names{u"\"x\" or \"1.mid"_qs,
                            u"%1 %2 %n.mid"_qs,
                            u"a\nb\r.mid"_qs,
                            u"'; drop table usersongs; --.mid"_qs,
                            u"<b>bold<img src=x>.mid"_qs,
                            QString(251, u'n') + u".mid"_qs,
                            u" .mid"_qs};
    for (const QString &name : names)
        makeFile(at(u"odd/"_qs + name), Sample::midi("one love", false));
    const QString songs = at(u"odd"_qs);
    pickAll(songs, int(names.size()));
    QCOMPARE(model().goodRowCount(), names.size());
    synchronise();
    QCOMPARE(statuses(), QString(names.size(), u'1'));
    for (const QString &name : names)
        QCOMPARE(Sample::infoOf(songs + u'/' + name).author, u"AUTHOR"_qs);
    QCOMPARE(QDir(songs).entryList(QDir::Files | QDir::Hidden).size(), names.size());

    expectEdit([](QWidget *widget) { DialogScript::click(widget, u"savePushButton"_qs); });
    doubleClick(0);
    m_script->expectFiles({card()});
    expectQuestion(Run::Answer::YesToAll);
    m_script->expectMessage(u"Trasferimento"_qs,
                            u"Tutti i file sono stati copiati correttamente"_qs, QMessageBox::Ok);
    clickTransfer();
    verifyScript();
    const QDir sent(card() + u"/songs"_qs);
    QCOMPARE(sent.entryList(QDir::Files | QDir::Hidden).size(), names.size());
    constexpr int recordSize = 64;
    QCOMPARE(fileContent(card() + u"/index.id2"_qs).size(), names.size() * recordSize);
}

void TestHostileSongs::namesThatAreNoText()
{
    makeSongs({u"good.mid"_qs, u"volumes/CARD/odd.mid"_qs}, false);
    const QByteArray odd = QFile::encodeName(card()) + "/b\xFF\xFE\x80.mid";
    QVERIFY(::rename(QFile::encodeName(card() + u"/odd.mid"_qs).constData(), odd.constData()) == 0);
    import({u"good.mid"_qs});
    transfer(u"Tutti i file sono stati copiati correttamente"_qs);
    QVERIFY(QFile::exists(card() + u"/songs/good.mid"_qs));
    QCOMPARE(::access(odd.constData(), F_OK), 0);
    ::unlink(odd.constData());
}

void TestHostileSongs::hugeAndEmptyFiles()
{
    constexpr off_t size = off_t{5} << 30;
    const QList<std::pair<QString, QByteArray>> files{{u"a.mid"_qs, Sample::midi("one love", true)},
                                                      {u"b.kar"_qs, Sample::midi("one love", true)},
                                                      {u"c.zb3"_qs, "_ZB3"},
                                                      {u"d.mp3"_qs, "ID3\3"},
                                                      {u"e.mid"_qs, {}}};
    for (const auto &[name, start] : files) {
        for (const QString &place : {at(u"huge/"_qs), card() + u'/'}) {
            makeFile(place + name, start);
            if (!start.isEmpty())
                cutTo(place + name, size);
        }
    }
    const long before = peakMemory();
    pickAll(at(u"huge"_qs), int(files.size()));
    const QString imported = statuses();
    QVERIFY(imported.size() <= 1);
    synchronise();
    QVERIFY(!statuses().contains(u'1'));
    for (const auto &[name, start] : files)
        QCOMPARE(QFileInfo(at(u"huge/"_qs + name)).size(), start.isEmpty() ? 0 : size);

    makeSongs({u"good.mid"_qs}, false);
    import({u"good.mid"_qs});
    transfer(u"Tutti i file sono stati copiati correttamente"_qs);
    constexpr long mostKiB = 256 * 1024;
    QVERIFY2(peakMemory() - before < mostKiB, "it holds what it does not need");
}

/// Songs that were replaced by other entries after the import.
void TestHostileSongs::filesThatAreNone()
{
    const QStringList names{u"a.mid"_qs, u"b.mid"_qs, u"c.mid"_qs,
                            u"d.mid"_qs, u"e.mid"_qs, u"good.mid"_qs};
    for (const QString &name : names)
        makeFile(at(name), Sample::midi("one love", true));
    import(names);
    for (const QString &name : names.mid(0, 5))
        QVERIFY(QFile::remove(at(name)));
    QVERIFY(QDir().mkdir(at(names.at(0))));
    QVERIFY(::mkfifo(QFile::encodeName(at(names.at(1))).constData(), 0600) == 0);
    QVERIFY(QFile::link(at(names.at(2)), at(names.at(2))));
    QVERIFY(QFile::link(u"/dev/zero"_qs, at(names.at(3))));
    // The last one stays removed.
    synchronise();
    QCOMPARE(statuses(), u"333331"_qs);
    for (int row = 0; row < 5; ++row)
        doubleClick(row);
    verifyScript();
    transfer(u"Non è stato possibile copiare uno o più file"_qs);
    QCOMPARE(QDir(card() + u"/songs"_qs)
                 .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot),
             QStringList(u"good.mid"_qs));
    QVERIFY(QFileInfo(at(names.at(0))).isDir());
    QVERIFY(QFileInfo(at(names.at(2))).isSymLink());
}

void TestHostileSongs::filesThatShrink()
{
    const QStringList names{u"a.mid"_qs, u"b.mid"_qs, u"c.mid"_qs};
    for (const QString &name : names)
        makeFile(at(name), Sample::midi("one love", true));
    import(names);
    atProgress(u"Aggiornamento file"_qs, u"1 di 3"_qs, [this](QProgressDialog *) {
        cutTo(at(u"b.mid"_qs), 20);
        cutTo(at(u"c.mid"_qs), 0);
    });
    synchronise();
    QCOMPARE(statuses(), u"133"_qs);
    QCOMPARE(QFileInfo(at(u"b.mid"_qs)).size(), 20);
    QCOMPARE(QFileInfo(at(u"c.mid"_qs)).size(), 0);
    QCOMPARE(model().index(1, model().fieldIndex(u"title"_qs)).data().toString(), u"one love"_qs);
    transfer(u"Tutti i file sono stati copiati correttamente"_qs);
    QVERIFY(QFile::exists(card() + u"/fsinfos.id2"_qs));
}

BRISEL_TEST(QApplication, TestHostileSongs)
#include "tst_hostilesongs.moc"
