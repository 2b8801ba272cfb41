#include "app/songfilter.h"
#include "base/runguard.h"
#include "db/usersongsreltablemodel.h"
#include "songfile/songinfo.h"
#include "tests/library/samplelibrary.h"
#include "tests/testprogram.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QTableView>
#include <QTest>

#include <memory>

using namespace brisel;

/// Counts the requests for a cell's text.
class AskedModel : public UserSongsRelTableModel
{
public:
    using UserSongsRelTableModel::UserSongsRelTableModel;
    QVariant data(const QModelIndex &index, int role) const override
    {
        asked += role == Qt::DisplayRole ? 1 : 0;
        return UserSongsRelTableModel::data(index, role);
    }
    mutable int asked = 0;
};

/// The texts of the search, which are read while the program is idle.
class TestSearchTexts : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void ofEachRowAreReadOnce();
    void areReadInPortionsBeforeTheFirstLetter();
    void areNotReadDuringARun();
    void areReadAgainAfterAChange();
    void belongToTheirRowsAfterRemovals();
    void belongToTheirRowsAfterSorting();
    void ofARowChangedBetweenTwoPortionsAreNew();

private:
    static constexpr int textsOfARow = 6;

    void addSongs(int count)
    {
        SongInfo info;
        for (int i = 0; i < count; ++i) {
            info.title = u"song %1."_qs.arg(i);
            info.shortName = u"%1.mid"_qs.arg(i);
            QVERIFY(m_model->addSong(info));
        }
    }
    /// Waits for the next portion of texts. Returns the number of its rows.
    int nextPortion() const
    {
        const int before = m_model->asked;
        while (m_model->asked == before)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        return (m_model->asked - before) / textsOfARow;
    }
    void waitForTexts() { QTRY_COMPARE(m_model->asked, m_model->rowCount() * textsOfARow); }
    /// The numbers of the songs that are found.
    QStringList found(const QString &text)
    {
        m_field->setText(u'"' + text + u'"');
        QStringList names;
        for (int row = 0; row < m_model->rowCount(); ++row) {
            if (!m_view->isRowHidden(row))
                names.append(m_model->shortName(row).section(u'.', 0, 0));
        }
        return names;
    }
    void setTitle(int row, const QString &title)
    {
        SongInfo info;
        info.title = title;
        info.shortName = m_model->shortName(row);
        m_model->updateRow(row, info);
    }

    std::unique_ptr<Sample::Library> m_library;
    std::unique_ptr<AskedModel> m_model;
    std::unique_ptr<QTableView> m_view;
    QLineEdit *m_field = nullptr;
};

void TestSearchTexts::init()
{
    m_library = std::make_unique<Sample::Library>();
    m_model = std::make_unique<AskedModel>(nullptr, *m_library->database().userLibraryDb());
    m_view = std::make_unique<QTableView>();
    m_view->setModel(m_model.get());
    m_field = new QLineEdit(m_view.get());
    new SongFilter(*m_field, *m_view, *m_model);
}

void TestSearchTexts::cleanup()
{
    m_view.reset();
    m_model.reset();
    m_library.reset();
}

void TestSearchTexts::ofEachRowAreReadOnce()
{
    Sample::Library library;
    AskedModel model(nullptr, *library.database().userLibraryDb());
    QTableView view;
    view.setModel(&model);
    QLineEdit search(&view);
    new SongFilter(search, view, model);
    constexpr int rows = 10000;
    SongInfo info;
    for (int i = 0; i < rows; ++i) {
        info.title = u"Il cielo di notte %1"_qs.arg(i);
        info.artist = u"Gli Amici del Porto è"_qs;
        QVERIFY(model.addSong(info));
    }
    QCOMPARE(model.asked, 0);
    int hidings = 0;
    connect(view.verticalHeader(), &QHeaderView::sectionResized, this, [&hidings] { ++hidings; });
    search.setText(u"notte 12"_qs);
    QCOMPARE(model.asked, rows * 6);
    const int few = hidings;
    QVERIFY(few > rows * 9 / 10 && few < rows);
    search.setText(u"notte 123"_qs);
    search.setText(u"NOTTE 123"_qs);
    search.setText(u"notte 12"_qs);
    QCOMPARE(model.asked, rows * 6);
    QVERIFY(hidings < few * 11 / 10);
    search.clear();
    QCOMPARE(model.asked, rows * 6);
}

void TestSearchTexts::areReadInPortionsBeforeTheFirstLetter()
{
    addSongs(2500);
    QCOMPARE(m_model->asked, 0);
    for (const int rows : {1000, 1000, 500})
        QCOMPARE(nextPortion(), rows);
    const int read = m_model->asked;
    QCOMPARE(found(u"song 2499."_qs), QStringList{u"2499"_qs});
    QTest::qWait(100);
    QVERIFY(m_model->asked - read <= 1); // the name in this test
}

void TestSearchTexts::areNotReadDuringARun()
{
    addSongs(10);
    {
        const RunGuard guard;
        QTest::qWait(100);
        QCOMPARE(m_model->asked, 0);
    }
    waitForTexts();
}

void TestSearchTexts::areReadAgainAfterAChange()
{
    addSongs(10);
    waitForTexts();
    for (const bool isRead : {false, true}) {
        const QString title = isRead ? u"second"_qs : u"first"_qs;
        setTitle(3, title);
        if (isRead)
            QCOMPARE(nextPortion(), 1);
        QCOMPARE(found(title), QStringList{u"3"_qs});
        QCOMPARE(found(u"song 3."_qs), QStringList());
        m_field->clear();
    }
    QCOMPARE(found(u"first"_qs), QStringList());
}

void TestSearchTexts::belongToTheirRowsAfterRemovals()
{
    addSongs(2000);
    QCOMPARE(nextPortion(), 1000); // the others are still to be read
    QVERIFY(m_model->removeRows(0, 5));
    QVERIFY(m_model->removeRows(1200, 5));
    QCOMPARE(nextPortion(), 995);
    QCOMPARE(found(u"song 5."_qs), QStringList{u"5"_qs});
    QCOMPARE(found(u"song 1204."_qs), QStringList{u"1204"_qs});
    QCOMPARE(found(u"song 1207."_qs), QStringList());
    QCOMPARE(found(u"song 1210."_qs), QStringList{u"1210"_qs});
    QCOMPARE(found(u"song 1999."_qs), QStringList{u"1999"_qs});
}

void TestSearchTexts::belongToTheirRowsAfterSorting()
{
    addSongs(20);
    waitForTexts();
    m_model->sort(m_model->fieldIndex(u"title"_qs), Qt::DescendingOrder);
    QCOMPARE(m_model->shortName(0), u"9.mid"_qs);
    QCOMPARE(found(u"song 9."_qs), QStringList{u"9"_qs});
    QCOMPARE(found(u"song 0."_qs), QStringList{u"0"_qs});
}

void TestSearchTexts::ofARowChangedBetweenTwoPortionsAreNew()
{
    addSongs(1500);
    QCOMPARE(nextPortion(), 1000);
    setTitle(10, u"early"_qs);
    setTitle(1400, u"late"_qs);
    QCOMPARE(nextPortion(), 501);
    QCOMPARE(found(u"song 10."_qs), QStringList());
    QCOMPARE(found(u"early"_qs), QStringList{u"10"_qs});
    QCOMPARE(found(u"late"_qs), QStringList{u"1400"_qs});
}

BRISEL_TEST(QApplication, TestSearchTexts)
#include "tst_searchtexts.moc"
