#include "tests/logcapture.h"

#include "base/debugstream.h"

namespace brisel
{

LogCapture *LogCapture::s_current = nullptr;

LogCapture::LogCapture()
    : m_previous(qInstallMessageHandler(&LogCapture::receive)), m_wasHeard(DebugStream::isHeard())
{
    s_current = this;
    DebugStream::setHeard(true);
}

LogCapture::~LogCapture()
{
    s_current = nullptr;
    DebugStream::setHeard(m_wasHeard);
    qInstallMessageHandler(m_previous);
}

void LogCapture::receive(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (s_current == nullptr)
        return;
    if (qstrcmp(context.category, "brisel2pc") == 0)
        s_current->m_messages.append(message);
    else if (s_current->m_previous != nullptr)
        s_current->m_previous(type, context, message);
}

} // namespace brisel
