#include "base/run.h"

namespace brisel
{

bool Run::ask(Question question, const QString &path, const QString &message)
{
    std::optional<bool> &toAll = m_answers.at(static_cast<std::size_t>(question));
    if (isEnding())
        return false;
    if (toAll.has_value())
        return *toAll;
    const Answer answer = answerOf(question, path, message);
    if (isEnding())
        return false;
    const bool isYes = answer == Answer::Yes || answer == Answer::YesToAll;
    if (answer == Answer::YesToAll || answer == Answer::NoToAll)
        toAll = isYes;
    return isYes;
}

bool Run::isAsking(Question question) const
{
    return !isEnding() && !m_answers.at(static_cast<std::size_t>(question)).has_value();
}

void Run::answerAll(Question question, bool isYes)
{
    m_answers.at(static_cast<std::size_t>(question)) = isYes;
}

} // namespace brisel
