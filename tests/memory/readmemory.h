#pragma once

#include "memory/memorycontents.h"
#include "memory/memorylook.h"
#include "tests/index/handmadeset.h"
#include "tests/scriptedrun.h"

#include <QTimeZone>

#include <memory>

namespace brisel
{

/// What is on \a memory; empty if there is no index.
inline std::shared_ptr<const MemoryContents> contentsOf(const SampleMemory &memory)
{
    ScriptedRun run;
    auto contents = std::make_shared<MemoryContents>();
    static_cast<void>(contents->read(memory.root(), run));
    return contents;
}

/// Gives the songs of a HandMadeSet the date that its index has.
inline void dateSongs(const SampleMemory &memory)
{
    for (const QString &name : {QStringLiteral("A.MID"), QStringLiteral("BASI/B.MP3"),
                                QStringLiteral("C.KAR"), QStringLiteral("BASI/D.MP3")})
        memory.setDate(name, QDateTime({2009, 12, 31}, {23, 59, 58}, QTimeZone::utc()));
}

/// A finished look at \a memory.
inline MemoryLook lookedAt(const SampleMemory &memory)
{
    MemoryLook look(memory.root(), contentsOf(memory));
    while (look.work(1)) {
    }
    return look;
}

} // namespace brisel
