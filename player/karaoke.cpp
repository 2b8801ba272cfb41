#include "player/karaoke.h"

#include <QStringDecoder>

#include <algorithm>

namespace brisel
{

namespace
{

constexpr quint8 textEvent = 1;
constexpr quint8 lyricEvent = 5;
constexpr qsizetype usualLine = 60;    ///< characters after which a line ends with its word
constexpr qsizetype longestLine = 120; ///< characters after which it ends anywhere

bool isLineStart(char character)
{
    return character == '/' || character == '\\';
}

/// Joins syllables to lines.
class LineMaker
{
public:
    void add(qint64 ms, const QByteArray &syllable)
    {
        const bool isNewLine = !syllable.isEmpty() && isLineStart(syllable.at(0));
        const QString text = eventText(isNewLine ? syllable.mid(1) : syllable);
        const bool isNewWord = text.startsWith(u' ') || m_line.text.endsWith(u' ');
        const qsizetype size = m_line.text.size() + text.size();
        if (isNewLine || size > longestLine || (isNewWord && size > usualLine))
            endLine();
        if (m_line.text.isEmpty())
            m_line.ms = ms;
        m_line.text += text.left(longestLine);
        if (syllable.endsWith('\r') || syllable.endsWith('\n'))
            endLine();
    }
    QList<TimedText> finish()
    {
        endLine();
        return m_lines;
    }

private:
    void endLine()
    {
        m_line.text = m_line.text.simplified();
        if (!m_line.text.isEmpty())
            m_lines.append(m_line);
        m_line = {};
    }

    QList<TimedText> m_lines;
    TimedText m_line;
};

} // namespace

QString eventText(const QByteArray &bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = decoder.decode(bytes);
    if (decoder.hasError())
        text = QString::fromLatin1(bytes);
    for (QChar &character : text) {
        const QChar::Category category = character.category();
        if (category == QChar::Other_Control || category == QChar::Separator_Line ||
            category == QChar::Separator_Paragraph)
            character = u' ';
    }
    return text;
}

QList<TimedText> karaokeLines(const SongTimeline &timeline)
{
    const QList<SongTimeline::RawText> &events = timeline.texts();
    const auto has = [&events](auto isKind) {
        return std::any_of(events.cbegin(), events.cend(), isKind);
    };
    quint8 type = 0;
    if (has([](const auto &event) { return event.metaType == lyricEvent; }))
        type = lyricEvent;
    else if (has([](const auto &event) {
                 return event.metaType == textEvent && !event.bytes.isEmpty() &&
                        isLineStart(event.bytes.at(0));
             }))
        type = textEvent;
    LineMaker lines;
    for (const SongTimeline::RawText &event : events) {
        if (event.metaType == type && !event.bytes.startsWith('@'))
            lines.add(timeline.msAt(event.tick), event.bytes);
    }
    return lines.finish();
}

} // namespace brisel
