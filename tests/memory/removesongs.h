#pragma once

#include "memory/memoryclaim.h"
#include "memory/songremoval.h"
#include "tests/index/samplememory.h"

namespace brisel
{

/// Removes the songs with these paths below the root.
inline SongRemoval::Outcome removeSongs(const SampleMemory &memory, const QStringList &names,
                                        Run &run)
{
    QStringList files;
    for (const QString &name : names)
        files.append(memory.path(name));
    MemoryClaim claim(memory.root());
    return SongRemoval(claim, files).run(run);
}

} // namespace brisel
