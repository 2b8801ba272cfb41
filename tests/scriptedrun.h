#pragma once

#include "base/run.h"

#include <QList>
#include <QStringList>

#include <functional>

namespace brisel
{

/// Answers about a file as the four-way dialog does: 0 yes, 1 yes to all, 2 no, 3 no to all.
using AnswerFunction = std::function<int(const QString &path, const QString &message)>;

/// A run that remembers what it was shown and asked, gives the answers of a script, and is
/// interrupted when a test says so.
class ScriptedRun : public Run
{
public:
    using Run::Run;

    void begin(const Stage &stage) override { stages.append(stage.title); }
    void setStep(int done) override
    {
        steps.append(done);
        if (onStep)
            onStep(done);
    }
    void pulse() override { ++pulses; }
    void processEvents() override
    {
        ++eventRounds;
        if (onEvents)
            onEvents();
    }
    void end() override
    {
        if (onEnd)
            onEnd();
    }

    QStringList stages; ///< their titles
    QList<int> steps;
    qint64 pulses = 0;
    int eventRounds = 0;
    QStringList asked;    ///< the paths of the questions
    QStringList messages; ///< their texts
    /// What the next questions are answered with; No when there is nothing left.
    QList<Answer> answers;
    AnswerFunction answerTo; ///< gives all answers if it is set
    bool isStopped = false;  ///< the user has pressed "Interrompi"
    std::function<void(int)> onStep;
    std::function<void()> onEvents;
    std::function<void()> onEnd;
    std::function<void(const QString &path)> onQuestion;

protected:
    bool isInterrupted() const override { return isStopped; }
    Answer answerOf(Question /*question*/, const QString &path, const QString &message) override
    {
        asked.append(path);
        messages.append(message);
        if (onQuestion)
            onQuestion(path);
        if (answerTo)
            return static_cast<Answer>(answerTo(path, message));
        return answers.isEmpty() ? Answer::No : answers.takeFirst();
    }
};

} // namespace brisel
