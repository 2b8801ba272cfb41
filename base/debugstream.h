#pragma once

#include <QString>

/// Builds one diagnostic message and sends it as a debug message when it is destroyed.
///
/// Every item is followed by one blank, the last one too. A literal stands as it is; a text value
/// stands between double quotes as it is, except that its line breaks are shown as \n and \r, so
/// that one message stays one line of the log whatever a song file holds.
///
///     debug() << "Found file:" << path;
class DebugStream
{
public:
    DebugStream() = default;
    ~DebugStream();
    DebugStream(const DebugStream &) = delete;
    DebugStream &operator=(const DebugStream &) = delete;

    DebugStream &operator<<(const char *latin1Literal);
    DebugStream &operator<<(const QString &text);
    DebugStream &operator<<(bool value);
    DebugStream &operator<<(int value);
    DebugStream &operator<<(unsigned value);
    DebugStream &operator<<(qint64 value);

private:
    QString m_message;
};

/// A new message: `debug() << "DB initialized correctly";`
inline DebugStream debug()
{
    return {};
}
