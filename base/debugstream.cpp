#include "base/debugstream.h"

#include <QtGlobal>

// A category of our own: logging rules of the user's desktop silence the default one.
static constexpr char categoryName[] = "brisel2pc";

DebugStream::~DebugStream()
{
    const QMessageLogContext context(nullptr, 0, nullptr, categoryName);
    qt_message_output(QtDebugMsg, context, m_message);
}

DebugStream &DebugStream::operator<<(const char *latin1Literal)
{
    m_message += QLatin1StringView(latin1Literal);
    m_message += u' ';
    return *this;
}

DebugStream &DebugStream::operator<<(const QString &text)
{
    QString line = text;
    line.replace(u'\n', QStringLiteral("\\n")).replace(u'\r', QStringLiteral("\\r"));
    m_message += u'"' + line + QStringLiteral("\" ");
    return *this;
}

DebugStream &DebugStream::operator<<(bool value)
{
    return *this << (value ? "true" : "false");
}

DebugStream &DebugStream::operator<<(int value)
{
    return *this << static_cast<qint64>(value);
}

DebugStream &DebugStream::operator<<(unsigned value)
{
    return *this << static_cast<qint64>(value);
}

DebugStream &DebugStream::operator<<(qint64 value)
{
    m_message += QString::number(value) + u' ';
    return *this;
}
