#pragma once

#include <QList>
#include <QString>

namespace brisel
{

/// A text that is shown from a moment of a song on, until the next one.
struct TimedText {
    qint64 ms = 0; ///< milliseconds since the start of the song
    QString text;

    bool operator==(const TimedText &other) const = default;
};

/// The text of \a texts, in the order of their moments, that is shown at \a ms; empty before the
/// first one.
QString textAt(const QList<TimedText> &texts, qint64 ms);

} // namespace brisel
