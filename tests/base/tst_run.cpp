#include "base/run.h"
#include "tests/testprogram.h"

#include <QTest>

#include <functional>

using namespace brisel;

namespace
{

/// Gives its answers in order.
class AnsweringRun : public Run
{
public:
    explicit AnsweringRun(const QList<Answer> &answers) : m_answers(answers) {}

    QStringList asked;
    bool isStopped = false;
    std::function<void()> whileAsking = [] {};

protected:
    bool isInterrupted() const override { return isStopped; }
    Answer answerOf(Question /*question*/, const QString &path, const QString &message) override
    {
        asked.append(path + message);
        whileAsking();
        return m_answers.takeFirst();
    }

private:
    QList<Answer> m_answers;
};

} // namespace

using Answer = Run::Answer;
using Question = Run::Question;

class TestRun : public QObject
{
    Q_OBJECT

private slots:
    void asksForEachFile();
    void remembersAnAnswerToAll_data();
    void remembersAnAnswerToAll();
    void remembersEachQuestionsAnswer();
    void takesAnAnswerGivenBefore();
    void knowsWhatWasAgreedBefore();
    void forgetsWhatWasAgreedBefore();
    void refusesWhenTheProgramEnds();
    void endsForTheUserAndForTheProgram();
    void answersNoWithoutAUser();
    void holdsAQuitBack();
};

void TestRun::asksForEachFile()
{
    AnsweringRun run({Answer::Yes, Answer::No});
    QVERIFY(run.ask(Question::Replace, u"a"_qs, u"?"_qs));
    QVERIFY(!run.ask(Question::Replace, u"b"_qs));
    QVERIFY(run.isAsking(Question::Replace));
    QCOMPARE(run.asked, QStringList({u"a?"_qs, u"b"_qs}));
}

void TestRun::remembersAnAnswerToAll_data()
{
    QTest::addColumn<bool>("isYes");
    QTest::addRow("yes") << true;
    QTest::addRow("no") << false;
}

void TestRun::remembersAnAnswerToAll()
{
    QFETCH(bool, isYes);
    AnsweringRun run({isYes ? Answer::YesToAll : Answer::NoToAll});
    for (int i = 0; i < 3; ++i)
        QCOMPARE(run.ask(Question::Rename, u"a"_qs), isYes);
    QVERIFY(!run.isAsking(Question::Rename));
    QCOMPARE(run.asked.size(), 1);
}

void TestRun::remembersEachQuestionsAnswer()
{
    AnsweringRun run({Answer::NoToAll, Answer::YesToAll});
    QVERIFY(!run.ask(Question::Replace, u"a"_qs));
    QVERIFY(run.ask(Question::ChangeUnpublished, u"a"_qs));
    QVERIFY(!run.ask(Question::Replace, u"b"_qs));
    QVERIFY(run.ask(Question::ChangeUnpublished, u"b"_qs));
    QVERIFY(run.isAsking(Question::Rename));
}

void TestRun::takesAnAnswerGivenBefore()
{
    AnsweringRun run({});
    run.answerAll(Question::Rename, true);
    QVERIFY(!run.isAsking(Question::Rename));
    QVERIFY(run.ask(Question::Rename, u"a"_qs));
    QVERIFY(run.asked.isEmpty());
}

void TestRun::knowsWhatWasAgreedBefore()
{
    AnsweringRun run({Answer::NoToAll, Answer::No});
    run.prepareYes(Question::Replace, u"a"_qs, u"new a"_qs);
    run.prepareYes(Question::Replace, u"a"_qs, u"newer a"_qs);
    QVERIFY(!run.isAsking(Question::Replace, u"a"_qs, u"new a"_qs));
    QVERIFY(run.isAsking(Question::Replace, u"a"_qs));
    QVERIFY(run.isAsking(Question::Rename, u"a"_qs, u"new a"_qs));
    QVERIFY(run.ask(Question::Replace, u"a"_qs, {}, u"new a"_qs));
    QVERIFY(!run.ask(Question::Replace, u"a"_qs, {}, u"another a"_qs)); // no to all
    QVERIFY(run.ask(Question::Replace, u"a"_qs, {}, u"newer a"_qs));
    QVERIFY(!run.ask(Question::Rename, u"a"_qs, {}, u"new a"_qs));
    QCOMPARE(run.asked, QStringList({u"a"_qs, u"a"_qs}));
}

/// The run itself knows better, as on a write-protected memory.
void TestRun::forgetsWhatWasAgreedBefore()
{
    Run run;
    run.prepareYes(Question::Rename, u"a"_qs, u"b"_qs);
    run.prepareYes(Question::Replace, u"a"_qs, u"b"_qs);
    run.answerAll(Question::Rename, false);
    QVERIFY(!run.ask(Question::Rename, u"a"_qs, {}, u"b"_qs));
    QVERIFY(run.ask(Question::Replace, u"a"_qs, {}, u"b"_qs));
}

void TestRun::refusesWhenTheProgramEnds()
{
    AnsweringRun run({Answer::YesToAll});
    run.whileAsking = [] { RunGuard::requestEnd(); };
    QVERIFY(!run.ask(Question::Replace, u"a"_qs));
    run.answerAll(Question::Rename, true);
    QVERIFY(!run.isAsking(Question::Replace));
    QVERIFY(!run.ask(Question::Rename, u"b"_qs));
    QCOMPARE(run.asked.size(), 1);
}

void TestRun::endsForTheUserAndForTheProgram()
{
    AnsweringRun run({});
    QVERIFY(run.mayGoOn());
    run.isStopped = true;
    QVERIFY(!run.mayGoOn());
    QVERIFY(!Run::isEnding());
    run.isStopped = false;
    RunGuard::requestEnd();
    QVERIFY(!run.mayGoOn());
    QVERIFY(Run::isEnding());
}

void TestRun::answersNoWithoutAUser()
{
    Run run;
    QVERIFY(!run.ask(Question::ChangeUnpublished, u"a"_qs));
    QVERIFY(run.mayGoOn());
}

void TestRun::holdsAQuitBack()
{
    QVERIFY(!RunGuard::isActive());
    const Run run(RunReport::Operation::Edit);
    QVERIFY(RunGuard::isActive());
}

BRISEL_TEST(QCoreApplication, TestRun)
#include "tst_run.moc"
