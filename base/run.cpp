#include "base/run.h"

namespace brisel
{

bool Run::ask(Question question, const QString &path, const QString &message, const QString &other)
{
    std::optional<bool> &toAll = m_answers.at(static_cast<std::size_t>(question));
    if (isEnding())
        return false;
    if (isPrepared(question, path, other))
        return true;
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

bool Run::isAsking(Question question, const QString &path, const QString &other) const
{
    return !isEnding() && !m_answers.at(static_cast<std::size_t>(question)).has_value() &&
           !isPrepared(question, path, other);
}

void Run::answerAll(Question question, bool isYes)
{
    m_answers.at(static_cast<std::size_t>(question)) = isYes;
    m_prepared.at(static_cast<std::size_t>(question)).clear();
}

void Run::prepareYes(Question question, const QString &path, const QString &other)
{
    m_prepared.at(static_cast<std::size_t>(question)).insert(path, other);
}

bool Run::isPrepared(Question question, const QString &path, const QString &other) const
{
    return m_prepared.at(static_cast<std::size_t>(question)).contains(path, other);
}

} // namespace brisel
