#include "memory/indexafterchange.h"

#include "base/fileidentity.h"
#include "base/run.h"
#include "index/index.h"
#include "index/indexset.h"
#include "library/transfer.h"

#include <algorithm>

namespace brisel
{

bool updateAfterChange(Run &run, const QString &root)
{
    IndexSet set(run);
    set.setRoot(root);
    const QStringList &names = IndexSet::names();
    if (std::none_of(names.cbegin(), names.cend(),
                     [&set](const QString &name) { return entryExists(set.filePath(name)); }))
        return true;
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
