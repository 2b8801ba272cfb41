#include "base/debugstream.h"

#include <QtGlobal>

namespace brisel
{

// A separate category, because logging rules of the user's desktop may disable the default one.
static constexpr char categoryName[] = "brisel2pc";

void DebugStream::add(const char *latin1Literal)
{
    m_message += QLatin1StringView(latin1Literal);
    m_message += u' ';
}

void DebugStream::add(const QString &text)
{
    QString line = text;
    line.replace(u'\n', QStringLiteral("\\n")).replace(u'\r', QStringLiteral("\\r"));
    m_message += u'"' + line + QStringLiteral("\" ");
}

void DebugStream::add(qint64 value)
{
    m_message += QString::number(value) + u' ';
}

void DebugStream::send() const
{
    const QMessageLogContext context(nullptr, 0, nullptr, categoryName);
    qt_message_output(QtDebugMsg, context, m_message);
}

} // namespace brisel
