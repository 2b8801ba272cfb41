#include "tests/logcapture.h"

LogCapture *LogCapture::s_current = nullptr;

LogCapture::LogCapture() : m_previous(qInstallMessageHandler(&LogCapture::receive))
{
    s_current = this;
}

LogCapture::~LogCapture()
{
    s_current = nullptr;
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
