#pragma once

#include "base/runguard.h"
#include "base/runreport.h"

#include <QString>

#include <array>
#include <optional>

namespace brisel
{

/// One run of a workflow, and all that the workflow knows of the world: it shows how far it has
/// come, learns whether to go on, asks the user, and reports.
///
/// While a Run lives a quit waits for it (RunGuard). A Run as it stands shows nothing and answers
/// each question with No; one that shows or answers overrides the virtual functions.
class Run
{
public:
    /// To a question about one file. A dialog that is closed gives Yes.
    enum class Answer { Yes = 0, YesToAll = 1, No = 2, NoToAll = 3 };
    /// Each has its own "to all" answer, which holds for the rest of the run.
    enum class Question {
        Replace,           ///< whether a file that is there may be replaced
        ChangeUnpublished, ///< whether a song that the publisher did not publish may be changed
        Rename,            ///< whether a long name may be shortened
    };
    static constexpr std::size_t questionCount = 3;
    /// A part of the run that is shown on its own.
    struct Stage {
        QString title;
        QString label;
        int steps = 0;             ///< 0: not known
        bool areStepsShown = true; ///< as "%1 of %2" in place of the label
    };

    /// The run ended before the file's turn.
    static constexpr Reason interrupted{QT_TRANSLATE_NOOP("RunReport", "operazione interrotta"),
                                        Reason::Kind::Skip};

    Run() = default;
    explicit Run(RunReport::Operation operation) : m_report(operation) {}
    virtual ~Run() = default;
    Run(const Run &) = delete;
    Run &operator=(const Run &) = delete;

    /// Starts a stage in place of the one before, and forgets that that was interrupted.
    virtual void begin(const Stage &stage);
    /// Changes the number of steps of the stage; 0 when it is not known.
    virtual void setSteps(int steps);
    /// \a done steps of the stage are done. Lets no click or key through.
    virtual void setStep(int done);
    /// Work that is no step: what shows the run may paint itself. Lets no click or key through.
    virtual void pulse();
    /// Between two files: pending events are processed, a click on "Interrompi" among them.
    virtual void processEvents();
    /// Ends the stage; nothing is shown until the next one.
    virtual void end();
    /// How many bytes are still to be written into \a folder.
    virtual void showSpace(const QString &folder, qint64 bytes);
    virtual void hideSpace();

    /// False once the user has interrupted the stage or the program is to end.
    [[nodiscard]] bool mayGoOn() const { return !isInterrupted() && !isEnding(); }
    /// True once the program is to end, which also ends what the user can't interrupt.
    [[nodiscard]] static bool isEnding() { return RunGuard::endRequested(); }

    /// Asks \a question about the file \a path, unless it was answered "to all" before; an empty
    /// \a message stands for the question's usual one. True for yes. False once the program is to
    /// end, whatever the answer: nobody may have seen the question.
    [[nodiscard]] bool ask(Question question, const QString &path, const QString &message = {});
    /// True when ask() would ask the user.
    [[nodiscard]] bool isAsking(Question question) const;
    /// Answers \a question for the rest of the run.
    void answerAll(Question question, bool isYes);

    RunReport &report() { return m_report; }
    const RunReport &report() const { return m_report; }

protected:
    /// True once the user has interrupted the stage.
    virtual bool isInterrupted() const;
    virtual Answer answerOf(Question question, const QString &path, const QString &message);

private:
    RunGuard m_guard;
    RunReport m_report;
    std::array<std::optional<bool>, questionCount> m_answers; ///< "to all", by question
};

} // namespace brisel
