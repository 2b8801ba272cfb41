#pragma once

#include <QString>

namespace brisel
{

/// Builds one diagnostic message and sends it as a debug message when it is destroyed.
///
/// Each item is followed by one blank, also the last one. A literal is unchanged; a text value is
/// put in double quotes, with its line breaks shown as \n and \r, so that each message is one line
/// of the log for any song file.
///
///     debug() << "Found file:" << path;
///
/// While the log is off, nothing is built and nothing is sent: a song has some twenty messages, and
/// the log is off by default.
class DebugStream
{
public:
    DebugStream() = default;
    ~DebugStream()
    {
        if (s_isHeard)
            send();
    }
    DebugStream(const DebugStream &) = delete;
    DebugStream &operator=(const DebugStream &) = delete;

    /// Returns whether messages are built and sent: true unless the program's log is off.
    static bool isHeard() { return s_isHeard; }
    /// To be switched on when a message handler for these messages is installed.
    static void setHeard(bool heard) { s_isHeard = heard; }

    DebugStream &operator<<(const char *latin1Literal)
    {
        if (s_isHeard)
            add(latin1Literal);
        return *this;
    }
    DebugStream &operator<<(const QString &text)
    {
        if (s_isHeard)
            add(text);
        return *this;
    }
    DebugStream &operator<<(qint64 value)
    {
        if (s_isHeard)
            add(value);
        return *this;
    }
    DebugStream &operator<<(bool value) { return *this << (value ? "true" : "false"); }
    DebugStream &operator<<(int value) { return *this << static_cast<qint64>(value); }
    DebugStream &operator<<(unsigned value) { return *this << static_cast<qint64>(value); }

    /// The text built so far.
    const QString &message() const { return m_message; }

private:
    void add(const char *latin1Literal);
    void add(const QString &text);
    void add(qint64 value);
    void send() const;

    static inline bool s_isHeard = true;

    QString m_message;
};

/// A new message: `debug() << "DB initialized correctly";`
inline DebugStream debug()
{
    return {};
}

} // namespace brisel
