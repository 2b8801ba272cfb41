#pragma once

#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QProgressBar>

#include <algorithm>
#include <ctime>

namespace brisel
{

/// An application that measures how a run shows its progress: the longest time without painting,
/// and the share of the time spent painting.
class PaintWatch : public QApplication
{
public:
    using QApplication::QApplication;

    /// Starts measuring: paint events of \a window count or, if it is null, those of progress bars.
    /// The time before the first one does not count.
    void startWatching(const QWidget *window = nullptr)
    {
        m_window = window;
        m_longestGap = 0;
        m_longestWork = 0;
        m_painting = 0;
        m_sincePaint.invalidate();
        m_total.start();
    }
    /// The longest time between two such paint events, in milliseconds.
    double longestGap() const { return static_cast<double>(m_longestGap) / 1e6; }
    /// The most processor time of this program between two of them, in milliseconds.
    double longestWork() const { return static_cast<double>(m_longestWork) / 1e6; }
    /// The share of the time since startWatching() that was spent painting, 0 to 1.
    double paintingShare() const
    {
        return static_cast<double>(m_painting) / static_cast<double>(m_total.nsecsElapsed());
    }
    /// True once a window was painted for the first time.
    bool hasPainted() const { return m_hasPainted; }

    bool notify(QObject *receiver, QEvent *event) override
    {
        const bool paints =
            event->type() == QEvent::Paint || event->type() == QEvent::UpdateRequest;
        if (!paints || m_inPainting)
            return watch(receiver, event);
        QElapsedTimer timer;
        timer.start();
        m_inPainting = true;
        const bool done = watch(receiver, event);
        m_inPainting = false;
        m_painting += timer.nsecsElapsed();
        return done;
    }

private:
    /// The processor time of this thread in nanoseconds.
    static qint64 processorTime()
    {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return static_cast<qint64>(time.tv_sec) * 1000000000 + time.tv_nsec;
    }
    /// A window paints everything while it handles an update request.
    bool isWatched(QObject *receiver, QEvent::Type type) const
    {
        return m_window != nullptr
                   ? receiver == m_window && type == QEvent::UpdateRequest
                   : qobject_cast<QProgressBar *>(receiver) != nullptr && type == QEvent::Paint;
    }
    bool watch(QObject *receiver, QEvent *event)
    {
        // Read before, because the event may delete its receiver.
        const QEvent::Type type = event->type();
        const bool isCounted = isWatched(receiver, type);
        const bool done = QApplication::notify(receiver, event);
        m_hasPainted = m_hasPainted || type == QEvent::Paint;
        if (!isCounted)
            return done;
        const qint64 worked = processorTime();
        if (m_sincePaint.isValid()) {
            m_longestGap = std::max(m_longestGap, m_sincePaint.nsecsElapsed());
            m_longestWork = std::max(m_longestWork, worked - m_workedAtPaint);
        }
        m_workedAtPaint = worked;
        m_sincePaint.start();
        return done;
    }

    const QWidget *m_window = nullptr;
    QElapsedTimer m_total;
    QElapsedTimer m_sincePaint;
    qint64 m_longestGap = 0;
    qint64 m_longestWork = 0;
    qint64 m_workedAtPaint = 0;
    qint64 m_painting = 0;
    bool m_inPainting = false;
    bool m_hasPainted = false;
};

} // namespace brisel
