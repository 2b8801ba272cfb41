#include "tests/db/songsmodeltest.h"

using namespace brisel;

namespace
{

class EnglishHeadings : public QTranslator
{
public:
    QString translate(const char *context, const char *sourceText, const char * /*disambiguation*/,
                      int /*n*/) const override
    {
        if (qstrcmp(context, "brisel::UserSongsRelTableModel") != 0)
            return {};
        return QStringLiteral("en:") + QString::fromUtf8(sourceText);
    }
    bool isEmpty() const override { return false; }
};

} // namespace

/// What a row stores and displays.
class TestUserSongsRelTableModel : public SongsModelTest
{
    Q_OBJECT

private slots:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void findsColumnsByName();
    void setsHeadings();
    void retranslatesHeadings();
    void readsNothingWhenMade();
    void storesSongAsDescribed();
    void storesEmptyTextsNotNull();
    void showsLength_data();
    void showsLength();
    void keepsNegativeTempoOfAddedSong();
    void updateZeroesNegativeTempo();
    void updateLeavesTypeNamesAndStatus();
    void updateShowsAtOnceAndNotifiesTheView();
    void setsStatus();
    void readsStatusThatIsNoNumberAsZero();
    void rowsOutsideTheModelAreEmpty();
    void failsToAddWithoutTable();
    void failsToWriteRowThatIsGone();
    void colorsRows_data();
    void colorsRows();
    void setDataWritesTheTable();
    void refusesBlankRows();
    void keepsHostileTexts();
};

void TestUserSongsRelTableModel::findsColumnsByName()
{
    const QStringList names{
        QStringLiteral("id"),       QStringLiteral("type"),      QStringLiteral("title"),
        QStringLiteral("artist"),   QStringLiteral("genre"),     QStringLiteral("author"),
        QStringLiteral("length"),   QStringLiteral("userbpm"),   QStringLiteral("key"),
        QStringLiteral("filename"), QStringLiteral("shortname"), QStringLiteral("status"),
        QStringLiteral("outcome"),  QStringLiteral("reason"),    QStringLiteral("folder"),
        QStringLiteral("markers"),  QStringLiteral("size"),      QStringLiteral("modified")};
    QCOMPARE(m_model->columnCount(), 18);
    for (int i = 0; i < names.size(); ++i)
        QCOMPARE(m_model->fieldIndex(names.at(i)), i);
    QCOMPARE(m_model->colIdxFilename(), 9);
    QCOMPARE(m_model->colIdxStatus(), 11);
    QCOMPARE(m_model->colIdxOutcome(), 12);
    QCOMPARE(m_model->choosableColumns(), QList<int>({13, 14, 15, 16, 17}));
    QCOMPARE(m_model->editStrategy(), QSqlTableModel::OnFieldChange);
    QCOMPARE(m_model->tableName(), QStringLiteral("usersongs"));
    QCOMPARE(UserSongsRelTableModel::staticMetaObject.className(),
             "brisel::UserSongsRelTableModel");
}

void TestUserSongsRelTableModel::setsHeadings()
{
    m_model->setHeaderLabels();
    const QStringList headings{QStringLiteral("Num"),
                               QStringLiteral("Formato"),
                               QStringLiteral("Titolo"),
                               QStringLiteral("Artista"),
                               QStringLiteral("Genere"),
                               QStringLiteral("Autore"),
                               QStringLiteral("Durata"),
                               QStringLiteral("Bpm"),
                               QStringLiteral("Tonalita'"),
                               QString(),
                               QStringLiteral("Nome file"),
                               QString(),
                               QString(),
                               QStringLiteral("Stato"),
                               QStringLiteral("Cartella"),
                               QStringLiteral("Marker"),
                               QStringLiteral("Dimensione"),
                               QStringLiteral("Data")};
    for (int i = 0; i < headings.size(); ++i)
        QCOMPARE(m_model->headerData(i, Qt::Horizontal).toString(), headings.at(i));
    QVERIFY(m_model->select());
    QCOMPARE(m_model->headerData(1, Qt::Horizontal).toString(), headings.at(1));
}

void TestUserSongsRelTableModel::retranslatesHeadings()
{
    m_model->setHeaderLabels();
    EnglishHeadings translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    m_model->setHeaderLabels();
    QCoreApplication::removeTranslator(&translator);
    QCOMPARE(m_model->headerData(2, Qt::Horizontal).toString(), QStringLiteral("en:Titolo"));
    QCOMPARE(m_model->headerData(9, Qt::Horizontal).toString(), QString());
    QCOMPARE(m_model->headerData(11, Qt::Horizontal).toString(), QString());
}

void TestUserSongsRelTableModel::readsNothingWhenMade()
{
    QSqlQuery query(*m_database->userLibraryDb());
    QVERIFY(query.exec(QStringLiteral("insert into usersongs (shortname) values ('OLD.MID')")));
    CountingModel model(nullptr, *m_database->userLibraryDb());
    QCOMPARE(model.selects, 0);
    QCOMPARE(model.rowCount(), 0);
    QVERIFY(!model.canFetchMore());
    // With the first song, earlier rows of the table appear, too.
    QVERIFY(model.addSong(song(1)));
    QCOMPARE(model.goodRowCount(), 2);
    QCOMPARE(model.shortName(0), QStringLiteral("OLD.MID"));
    QCOMPARE(model.shortName(1), QStringLiteral("SONG1.MID"));
}

void TestUserSongsRelTableModel::storesSongAsDescribed()
{
    SongInfo info = song(125);
    info.altArtist = QStringLiteral("ALT");
    QVERIFY(m_model->addSong(info));
    QCOMPARE(stored(QStringLiteral("id")).toInt(), 1);
    QCOMPARE(stored(QStringLiteral("type")).toString(), QStringLiteral("MIDI"));
    QCOMPARE(stored(QStringLiteral("title")).toString(), info.title);
    QCOMPARE(stored(QStringLiteral("artist")).toString(), info.artist);
    QCOMPARE(stored(QStringLiteral("genre")).toString(), info.genre);
    QCOMPARE(stored(QStringLiteral("author")).toString(), info.author);
    QCOMPARE(stored(QStringLiteral("length")).toString(), QStringLiteral("02:05"));
    QCOMPARE(stored(QStringLiteral("userbpm")).toInt(), 120);
    QCOMPARE(stored(QStringLiteral("key")).toString(), QStringLiteral("C"));
    QCOMPARE(stored(QStringLiteral("filename")).toString(), info.fileName);
    QCOMPARE(stored(QStringLiteral("shortname")).toString(), info.shortName);
    QCOMPARE(stored(QStringLiteral("status")).toInt(), 0);
    QCOMPARE(stored(QStringLiteral("typeof(status)")).toString(), QStringLiteral("integer"));
    QCOMPARE(stored(QStringLiteral("typeof(userbpm)")).toString(), QStringLiteral("integer"));

    QStringList shown;
    for (int i = 0; i < m_model->columnCount(); ++i)
        shown.append(m_model->data(m_model->index(0, i)).toString());
    QVERIFY(m_model->select());
    for (int i = 0; i < m_model->columnCount(); ++i)
        QCOMPARE(m_model->data(m_model->index(0, i)).toString(), shown.at(i));
}

void TestUserSongsRelTableModel::storesEmptyTextsNotNull()
{
    QVERIFY(m_model->addSong(SongInfo()));
    m_model->updateRow(0, SongInfo());
    QSqlQuery query(*m_database->userLibraryDb());
    QVERIFY(query.exec(QStringLiteral(
        "select count(*) from usersongs where type='' and title='' and artist='' and genre='' "
        "and author='' and key='' and filename='' and shortname=''")));
    QVERIFY(query.next());
    QCOMPARE(query.value(0).toInt(), 1);
}

void TestUserSongsRelTableModel::showsLength_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<QString>("expected");
    const auto row = [](int length, const char *expected) {
        QTest::addRow("%d", length) << length << QString::fromLatin1(expected);
    };
    row(-1, "");
    row(std::numeric_limits<int>::min(), "");
    row(0, "00:00");
    row(59, "00:59");
    row(60, "01:00");
    row(3600, "60:00");
    row(6000, "100:00");
    row(std::numeric_limits<int>::max(), "35791394:07");
}

void TestUserSongsRelTableModel::showsLength()
{
    QFETCH(int, length);
    QFETCH(QString, expected);
    SongInfo info = song(0);
    info.length = length;
    QVERIFY(m_model->addSong(info));
    QCOMPARE(stored(QStringLiteral("length")).toString(), expected);
    QVERIFY(!stored(QStringLiteral("length")).isNull());
    QVERIFY(m_model->addSong(song(7)));
    m_model->updateRow(1, info);
    QCOMPARE(stored(QStringLiteral("length"), 2).toString(), expected);
    QCOMPARE(cell(1, "length").toString(), expected);
}

void TestUserSongsRelTableModel::keepsNegativeTempoOfAddedSong()
{
    SongInfo info = song(0);
    info.userBpm = -5;
    QVERIFY(m_model->addSong(info));
    QCOMPARE(stored(QStringLiteral("userbpm")).toInt(), -5);
}

void TestUserSongsRelTableModel::updateZeroesNegativeTempo()
{
    SongInfo info = song(0);
    QVERIFY(m_model->addSong(info));
    info.userBpm = -5;
    m_model->updateRow(0, info);
    QCOMPARE(stored(QStringLiteral("userbpm")).toInt(), 0);
    QVERIFY(!stored(QStringLiteral("userbpm")).isNull());
}

void TestUserSongsRelTableModel::updateLeavesTypeNamesAndStatus()
{
    QVERIFY(m_model->addSong(song(1)));
    m_model->setStatus(0, Database::Failed);
    SongInfo info = song(2);
    info.format = QStringLiteral("MP3");
    m_model->updateRow(0, info);
    QCOMPARE(stored(QStringLiteral("type")).toString(), QStringLiteral("MIDI"));
    QCOMPARE(stored(QStringLiteral("filename")).toString(), QStringLiteral("/songs/SONG1.MID"));
    QCOMPARE(stored(QStringLiteral("shortname")).toString(), QStringLiteral("SONG1.MID"));
    QCOMPARE(stored(QStringLiteral("status")).toInt(), 3);
    QCOMPARE(stored(QStringLiteral("title")).toString(), info.title);
}

void TestUserSongsRelTableModel::updateShowsAtOnceAndNotifiesTheView()
{
    addSongs(3);
    QSignalSpy changes(m_model.get(), &QAbstractItemModel::dataChanged);
    SongInfo info = song(0);
    info.title = QStringLiteral("NEW");
    info.key = QStringLiteral("A-");
    m_model->updateRow(1, info);
    QCOMPARE(changes.size(), 1);
    QCOMPARE(changes.at(0).at(0).toModelIndex(), m_model->index(1, column("title")));
    QCOMPARE(changes.at(0).at(1).toModelIndex(), m_model->index(1, column("key")));
    QCOMPARE(cell(1, "title").toString(), QStringLiteral("NEW"));
    QCOMPARE(cell(1, "key").toString(), QStringLiteral("A-"));
    QCOMPARE(stored(QStringLiteral("title"), 2).toString(), QStringLiteral("NEW"));
    QCOMPARE(stored(QStringLiteral("title"), 1).toString(), song(0).title);
    QCOMPARE(stored(QStringLiteral("title"), 3).toString(), song(2).title);
}

void TestUserSongsRelTableModel::setsStatus()
{
    addSongs(2);
    for (const auto status :
         {Database::Updated, Database::Edited, Database::Failed, Database::Imported}) {
        m_model->setStatus(1, status);
        QCOMPARE(m_model->status(1), static_cast<int>(status));
        QCOMPARE(stored(QStringLiteral("status"), 2).toInt(), static_cast<int>(status));
        QCOMPARE(stored(QStringLiteral("typeof(status)"), 2).toString(), QStringLiteral("integer"));
        QCOMPARE(m_model->status(0), 0);
    }
}

void TestUserSongsRelTableModel::readsStatusThatIsNoNumberAsZero()
{
    addSongs(1);
    QSqlQuery query(*m_database->userLibraryDb());
    QVERIFY(query.exec(QStringLiteral("update usersongs set status='abc'")));
    QVERIFY(m_model->select());
    QCOMPARE(m_model->status(0), 0);
    QVERIFY(query.exec(QStringLiteral("update usersongs set status=NULL")));
    QVERIFY(m_model->select());
    QCOMPARE(m_model->status(0), 0);
}

void TestUserSongsRelTableModel::rowsOutsideTheModelAreEmpty()
{
    addSongs(2);
    for (const int row : {-1, 2, 1000000, std::numeric_limits<int>::min()}) {
        QCOMPARE(m_model->fileName(row), QString());
        QCOMPARE(m_model->shortName(row), QString());
        QCOMPARE(m_model->status(row), 0);
        QVERIFY(!m_model->rowIndex(row).isValid());
        m_model->setStatus(row, Database::Failed);
        m_model->updateRow(row, song(9));
    }
    QVERIFY(!m_model->data(QModelIndex(), Qt::BackgroundRole).isValid());
    QCOMPARE(m_model->goodRowCount(), 2);
    QCOMPARE(m_model->status(0) + m_model->status(1), 0);
    QCOMPARE(m_model->rowIndex(1), m_model->index(1, 0));
}

void TestUserSongsRelTableModel::failsToAddWithoutTable()
{
    addSongs(2);
    QSqlQuery query(*m_database->userLibraryDb());
    QVERIFY(query.exec(QStringLiteral("drop table usersongs")));
    QVERIFY(!m_model->addSong(song(3)));
    QCOMPARE(m_model->goodRowCount(), 2);
    QVERIFY(!m_model->removeRows(0, 1));
    m_model->setStatus(0, Database::Failed);
    QCOMPARE(m_model->status(0), 0);
    QVERIFY(!m_model->select());
    QCOMPARE(m_model->goodRowCount(), 0);
    QVERIFY(!m_model->addSong(song(3)));

    CountingModel without(nullptr, *m_database->userLibraryDb());
    QVERIFY(!without.addSong(song(3)));
    QCOMPARE(without.goodRowCount(), 0);
}

void TestUserSongsRelTableModel::failsToWriteRowThatIsGone()
{
    addSongs(2);
    QSqlQuery query(*m_database->userLibraryDb());
    QVERIFY(query.exec(QStringLiteral("delete from usersongs where id=1")));
    QSignalSpy changes(m_model.get(), &QAbstractItemModel::dataChanged);
    m_model->setStatus(0, Database::Failed);
    QVERIFY(!m_model->setData(m_model->index(0, 2), QStringLiteral("x")));
    QVERIFY(!m_model->removeRows(0, 1));
    QCOMPARE(changes.size(), 0);
    QCOMPARE(m_model->status(0), 0);
}

void TestUserSongsRelTableModel::colorsRows_data()
{
    QTest::addColumn<QString>("status");
    QTest::addColumn<QColor>("even");
    QTest::addColumn<QColor>("odd");
    const QColor dark = colour(200, 200, 200);
    const QColor light = colour(230, 230, 230);
    QTest::newRow("imported") << "0" << dark << light;
    QTest::newRow("updated") << "1" << colour(100, 225, 100) << colour(130, 255, 130);
    QTest::newRow("edited") << "2" << colour(225, 225, 100) << colour(255, 255, 130);
    QTest::newRow("failed") << "3" << colour(225, 100, 100) << colour(255, 130, 130);
    QTest::newRow("unknown") << "7" << dark << light;
    QTest::newRow("negative") << "-1" << dark << light;
    QTest::newRow("NULL") << "NULL" << dark << light;
}

void TestUserSongsRelTableModel::colorsRows()
{
    QFETCH(QString, status);
    QFETCH(QColor, even);
    QFETCH(QColor, odd);
    addSongs(4);
    QSqlQuery query(*m_database->userLibraryDb());
    QVERIFY(query.exec(QStringLiteral("update usersongs set status=") + status));
    QVERIFY(m_model->select());
    for (int row = 0; row < 4; ++row) {
        const QColor expected = row % 2 == 0 ? even : odd;
        QCOMPARE(cell(row, "status", Qt::BackgroundRole).value<QColor>(), expected);
        QCOMPARE(cell(row, "status", Qt::ForegroundRole).value<QColor>(), expected);
        QCOMPARE(expected.alpha(), 255);
        const QColor grey = row % 2 == 0 ? colour(200, 200, 200) : colour(230, 230, 230);
        for (int i = 0; i < m_model->colIdxStatus(); ++i) {
            const QModelIndex index = m_model->index(row, i);
            QCOMPARE(m_model->data(index, Qt::BackgroundRole).value<QColor>(), grey);
            QVERIFY(!m_model->data(index, Qt::ForegroundRole).isValid());
            QVERIFY(!m_model->data(index, Qt::ToolTipRole).isValid());
        }
    }
}

void TestUserSongsRelTableModel::setDataWritesTheTable()
{
    addSongs(2);
    const QModelIndex index = m_model->index(1, column("author"));
    QVERIFY(m_model->setData(index, QStringLiteral("SOMEONE")));
    QCOMPARE(index.data().toString(), QStringLiteral("SOMEONE"));
    QCOMPARE(stored(QStringLiteral("author"), 2).toString(), QStringLiteral("SOMEONE"));
    QCOMPARE(m_model->record(1).value(QStringLiteral("author")).toString(),
             QStringLiteral("SOMEONE"));
    QVERIFY(!m_model->setData(index, QStringLiteral("x"), Qt::BackgroundRole));
    QVERIFY(!m_model->setData(QModelIndex(), QStringLiteral("x")));
    QVERIFY(!m_model->isDirty());
}

void TestUserSongsRelTableModel::refusesBlankRows()
{
    addSongs(1);
    QVERIFY(!m_model->insertRow(0));
    QCOMPARE(m_model->goodRowCount(), 1);
}

void TestUserSongsRelTableModel::keepsHostileTexts()
{
    const QStringList texts{QStringLiteral("'; drop table usersongs; --"),
                            QStringLiteral("\"; delete from usersongs; --"),
                            QStringLiteral("<img src=\"file:///x\">"),
                            QString(255, u'"'),
                            QStringLiteral("%1 %2 ? :title @a $b"),
                            QString(100000, u'x'),
                            QStringLiteral("a\nb\r\u0001")};
    for (const QString &text : texts) {
        SongInfo info = song(1);
        info.title = text;
        info.fileName = text;
        QVERIFY(m_model->addSong(info));
        m_model->updateRow(m_model->goodRowCount() - 1, info);
    }
    QVERIFY(m_model->select());
    QCOMPARE(m_model->goodRowCount(), static_cast<int>(texts.size()));
    for (int row = 0; row < texts.size(); ++row) {
        QCOMPARE(cell(row, "title").toString(), texts.at(row));
        QCOMPARE(m_model->fileName(row), texts.at(row));
    }
}

BRISEL_TEST(QApplication, TestUserSongsRelTableModel)
#include "tst_usersongsreltablemodel.moc"
