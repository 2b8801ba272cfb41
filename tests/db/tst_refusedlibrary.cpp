#include "db/database.h"
#include "tests/logcapture.h"
#include "tests/testprogram.h"

#include <QDir>
#include <QSqlDriver>
#include <QSqlResult>
#include <QtTest>

using namespace brisel;

/// The database when its first connection, to the library in memory, can't be opened.
class TestRefusedLibrary : public QObject
{
    Q_OBJECT

private slots:
    void failsSilentlyAndOpensNoCatalogue();
};

/// Replaces the SQLite driver and opens nothing.
class RefusingDriver : public QSqlDriver
{
public:
    static inline QStringList asked; ///< the databases that it was asked to open

    bool hasFeature(DriverFeature) const override { return false; }
    bool open(const QString &name, const QString &, const QString &, const QString &, int,
              const QString &) override
    {
        asked.append(name);
        setOpenError(true);
        return false;
    }
    void close() override {}
    QSqlResult *createResult() const override { return nullptr; }
};

void TestRefusedLibrary::failsSilentlyAndOpensNoCatalogue()
{
    QSqlDatabase::registerSqlDriver(QStringLiteral("QSQLITE"),
                                    new QSqlDriverCreator<RefusingDriver>);
    {
        Database database;
        const LogCapture log;
        QVERIFY(!database.init());
        QCOMPARE(RefusingDriver::asked, QStringList(QStringLiteral(":memory:")));
        QCOMPARE(log.messages(), QStringList());
        QCOMPARE(QSqlDatabase::connectionNames(), QStringList(QStringLiteral("con_mem")));
        QVERIFY(!database.userLibraryDb()->isOpen());
        QVERIFY(QDir::temp().isEmpty());
    }
    QVERIFY(QSqlDatabase::connectionNames().isEmpty());
}

BRISEL_TEST(QCoreApplication, TestRefusedLibrary)
#include "tst_refusedlibrary.moc"
