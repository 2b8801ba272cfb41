#pragma once

#include "base/runguard.h"
#include "base/runreport.h"

#include <QMultiHash>
#include <QString>

#include <array>
#include <optional>

namespace brisel
{

/// One run of a workflow, its only connection to the user: it shows the progress, can be
/// interrupted, asks questions, and collects the report.
///
/// During its lifetime a quit is delayed (RunGuard). This class shows nothing and answers each
/// question with No; derived classes override the virtual functions.
class Run
{
public:
    /// The answer to a question about one file. Closing the dialog gives Yes, but No to
    /// Question::RestoreChanged and ReplaceForGood.
    enum class Answer { Yes = 0, YesToAll = 1, No = 2, NoToAll = 3 };
    /// Each has its own "to all" answer, which is valid for the rest of the run.
    enum class Question {
        Replace,           ///< whether an existing file may be replaced
        ChangeUnpublished, ///< whether a song that the publisher did not publish may be changed
        Rename,            ///< whether a long name may be shortened
        RestoreChanged,    ///< whether a song that another program changed may be restored
        ReplaceForGood,    ///< whether a file may be replaced that the history does not keep
    };
    static constexpr std::size_t questionCount = 5;
    /// A part of the run that is shown separately.
    struct Stage {
        QString title;
        QString label;
        int steps = 0;             ///< 0: unknown
        bool areStepsShown = true; ///< as "%1 of %2" instead of the label
    };

    /// The run ended before it reached the file.
    static constexpr Reason interrupted{QT_TRANSLATE_NOOP("RunReport", "operazione interrotta"),
                                        Reason::Kind::Skip};

    Run() = default;
    explicit Run(RunReport::Operation operation) : m_report(operation) {}
    virtual ~Run() = default;
    Run(const Run &) = delete;
    Run &operator=(const Run &) = delete;

    /// Starts a stage instead of the previous one, and clears its interruption.
    virtual void begin(const Stage & /*stage*/) {}
    /// Changes the number of steps of the stage; 0 if unknown.
    virtual void setSteps(int /*steps*/) {}
    /// \a done steps of the stage are done. Processes no clicks or keys.
    virtual void setStep(int /*done*/) {}
    /// Work that is not a step: the window may be painted. Processes no clicks or keys.
    virtual void pulse() {}
    /// Between two files: pending events are processed, a click on "Interrompi" among them.
    virtual void processEvents() {}
    /// Processes pending events, which come too late to interrupt, and ends the stage; nothing is
    /// shown until the next one.
    virtual void end() {}
    /// The number of bytes that remain to be written into \a folder.
    virtual void showSpace(const QString & /*folder*/, qint64 /*bytes*/) {}
    virtual void hideSpace() {}

    /// Returns false if the user has interrupted the stage or the program must end.
    [[nodiscard]] bool mayGoOn() const { return !isInterrupted() && !isEnding(); }
    /// Returns true if the program must end, which also ends stages that the user can't interrupt.
    [[nodiscard]] static bool isEnding() { return RunGuard::endRequested(); }

    /// Asks \a question about the file \a path, unless it was answered "to all" before; an empty
    /// \a message means the usual one. Returns true for yes. If the program must end, returns false
    /// for any answer, because the user may not have seen the question. \a other is the second
    /// file of the question: the source of a replacement, or the new name.
    [[nodiscard]] bool ask(Question question, const QString &path, const QString &message = {},
                           const QString &other = {});
    /// Returns true if ask() would ask the user.
    [[nodiscard]] bool isAsking(Question question, const QString &path = {},
                                const QString &other = {}) const;
    /// Answers \a question for the rest of the run, whatever was prepared.
    void answerAll(Question question, bool isYes);
    /// The user has agreed to \a question about exactly these two files before the run.
    void prepareYes(Question question, const QString &path, const QString &other);

    RunReport &report() { return m_report; }
    const RunReport &report() const { return m_report; }

protected:
    /// Returns true if the user has interrupted the stage.
    virtual bool isInterrupted() const { return false; }
    virtual Answer answerOf(Question /*question*/, const QString & /*path*/,
                            const QString & /*message*/)
    {
        return Answer::No;
    }

private:
    bool isPrepared(Question question, const QString &path, const QString &other) const;

    RunGuard m_guard;
    RunReport m_report;
    std::array<std::optional<bool>, questionCount> m_answers; ///< "to all", by question
    /// By question: the files of prepareYes().
    std::array<QMultiHash<QString, QString>, questionCount> m_prepared;
};

} // namespace brisel
