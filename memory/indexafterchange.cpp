#include "memory/indexafterchange.h"

#include "base/run.h"
#include "index/index.h"
#include "library/transfer.h"

namespace brisel
{

bool updateAfterChange(Run &run, const QString &root)
{
    run.begin({Transfer::tr("Aggiornamento"), Transfer::tr("Aggiornamento database..."), 0, false});
    run.answerAll(Run::Question::Rename, false);
    Index index(run);
    int songs = 0;
    QObject::connect(&index, &Index::fileFoundChanged, [&songs](int count) { songs = count; });
    bool isDone = index.updateIndex(root);
    if (isDone && songs == 0) {
        // An update keeps the index of a memory without songs, but a rebuild removes it.
        (void)index.createIndex(root);
        isDone = !index.checkIndexFile();
    }
    if (!isDone)
        run.report().add(RunReport::Step::Index, root, index.failure());
    run.end();
    return isDone;
}

} // namespace brisel
