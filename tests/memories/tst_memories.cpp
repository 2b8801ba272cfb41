#include "tests/memories/manymemories.h"
#include "tests/memories/memorylife.h"
#include "tests/testprogram.h"

using namespace brisel;

/// After any life a memory has a correct set, and playlists that play what they should.
class TestMemories : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { ManyMemories::suppressLog(); }
    void staysRight_data() { ManyMemories::addRows(); }
    void staysRight() { ManyMemories::live<MemoryLife>(); }
};

BRISEL_TEST(QCoreApplication, TestMemories)
#include "tst_memories.moc"
