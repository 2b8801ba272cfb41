#include "tests/memories/changinglife.h"
#include "tests/memories/manymemories.h"
#include "tests/testprogram.h"

using namespace brisel;

/// After any changes of its songs a memory has a correct set, and playlists that play what they
/// should.
class TestMemoryChanges : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { ManyMemories::suppressLog(); }
    void staysRight_data() { ManyMemories::addRows(); }
    void staysRight() { ManyMemories::live<ChangingLife>(); }
};

BRISEL_TEST(QCoreApplication, TestMemoryChanges)
#include "tst_memorychanges.moc"
