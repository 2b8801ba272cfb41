#pragma once

#include "base/run.h"
#include "index/index.h"
#include "index/memorycheck.h"

#include <functional>
#include <utility>

namespace brisel
{

/// Answers about a file as the four-way dialog does: 0 yes, 1 yes to all, 2 no, 3 no to all.
using AnswerFunction = std::function<int(const QString &path, const QString &message)>;

/// A run without a window that answers by a function and counts its pulses.
class AnsweringRun : public Run
{
public:
    void pulse() override { ++pulses; }

    AnswerFunction answer;
    qint64 pulses = 0;

protected:
    Answer answerOf(Question question, const QString &path, const QString &message) override
    {
        return answer ? static_cast<Answer>(answer(path, message))
                      : Run::answerOf(question, path, message);
    }
};

namespace Detail
{

struct RunHolder {
    AnsweringRun m_ownRun;
};

} // namespace Detail

/// An index with a run of its own, which lives as long.
class ScriptedIndex : private Detail::RunHolder, public Index
{
public:
    ScriptedIndex() : Index(m_ownRun) {}

    void setRenameQuestion(AnswerFunction question) { m_ownRun.answer = std::move(question); }
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
