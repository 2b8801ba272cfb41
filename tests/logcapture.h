#pragma once

#include <QStringList>
#include <QtGlobal>

namespace brisel
{

/// Collects every message of the program's own category while it exists, also with the log switched
/// off. Only one may exist at a time.
class LogCapture
{
public:
    LogCapture();
    ~LogCapture();
    LogCapture(const LogCapture &) = delete;
    LogCapture &operator=(const LogCapture &) = delete;

    /// The messages in order, each with its trailing blank.
    const QStringList &messages() const { return m_messages; }
    bool contains(const QString &message) const { return m_messages.contains(message); }
    void clear() { m_messages.clear(); }

private:
    static void receive(QtMsgType type, const QMessageLogContext &context, const QString &message);

    static LogCapture *s_current;
    QtMessageHandler m_previous;
    bool m_wasHeard; ///< whether the program builds its messages
    QStringList m_messages;
};

} // namespace brisel
