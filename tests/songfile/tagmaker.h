#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QString>

#include <random>

namespace brisel
{

/// Makes ID3v2 tags of every version and form byte by byte; shares no code with the program's
/// reader.
class TagMaker
{
public:
    explicit TagMaker(quint32 seed) : m_random(seed) {}

    /// An MP3: a tag of a random form with random frames, then \a audio.
    QByteArray song(const QByteArray &audio);
    /// Describes the last song, for failure messages.
    QString description() const { return m_description; }

    /// True if the last song has a tag of version 2.4 with frame sizes as in version 2.3.
    bool hasPlainSizes() const { return m_hasPlainSizes; }

    /// A random number from 0 to \a limit - 1.
    int number(int limit);
    bool isOneOf(int count) { return number(count) == 0; }

private:
    enum Encoding { Latin1, Utf16, Utf16BigEndian, Utf8 };

    QByteArray frames();
    QByteArray frame(const QByteArray &name, const QByteArray &content);
    QByteArray flaggedFrame(const QByteArray &name, QByteArray content);
    QByteArray textContent(const QString &text);
    QByteArray encoded(const QString &text, Encoding encoding) const;
    QByteArray nested();
    QByteArray noise(int size);
    QByteArray number28(quint32 value) const;
    QByteArray frameSize(qsizetype size) const;
    QByteArray extendedHeader(const QByteArray &frames, qsizetype padding);
    QByteArray name(const char *current, const char *ofVersion22) const;

    std::mt19937 m_random;
    QString m_description;
    int m_version = 3;
    bool m_isUnsynchronised = false;
    bool m_hasPlainSizes = false;
};

} // namespace brisel
