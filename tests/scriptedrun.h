#pragma once

#include "base/run.h"

#include <QList>
#include <QStringList>

#include <functional>

namespace brisel
{

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
    void processEvents() override
    {
        ++eventRounds;
        if (onEvents)
            onEvents();
    }

    QStringList stages; ///< their titles
    QList<int> steps;
    int eventRounds = 0;
    QStringList asked; ///< the paths of the questions
    /// What the next questions are answered with; No when there is nothing left.
    QList<Answer> answers;
    bool isStopped = false; ///< the user has pressed "Interrompi"
    std::function<void(int)> onStep;
    std::function<void()> onEvents;
    std::function<void(const QString &path)> onQuestion;

protected:
    bool isInterrupted() const override { return isStopped; }
    Answer answerOf(Question /*question*/, const QString &path,
                    const QString & /*message*/) override
    {
        asked.append(path);
        if (onQuestion)
            onQuestion(path);
        return answers.isEmpty() ? Answer::No : answers.takeFirst();
    }
};

} // namespace brisel
