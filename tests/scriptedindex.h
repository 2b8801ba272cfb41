#pragma once

#include "index/index.h"
#include "index/memorycheck.h"
#include "tests/scriptedrun.h"

#include <utility>

namespace brisel
{

namespace Detail
{

struct RunHolder {
    ScriptedRun m_ownRun;
};

} // namespace Detail

/// An index with a run of its own, which lives as long.
class ScriptedIndex : private Detail::RunHolder, public Index
{
public:
    ScriptedIndex() : Index(m_ownRun) {}

    void setRenameQuestion(AnswerFunction question) { m_ownRun.answerTo = std::move(question); }
    qint64 pulses() const { return m_ownRun.pulses; }
};

/// The same for the check of a memory.
class ScriptedCheck : private Detail::RunHolder, public MemoryCheck
{
public:
    ScriptedCheck() : MemoryCheck(m_ownRun) {}

    qint64 pulses() const { return m_ownRun.pulses; }
};

} // namespace brisel
