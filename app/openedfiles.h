#pragma once

#include <QObject>
#include <QStringList>
#include <QTimer>

namespace brisel
{

/// The files that the desktop asks the program to open (QFileOpenEvent, as the Finder of macOS
/// sends them): those that come together, one event each, are reported together. Those that come
/// during a run are reported after it.
class OpenedFiles : public QObject
{
    Q_OBJECT

public:
    /// Filters the events of the application object. Owned by \a parent.
    explicit OpenedFiles(QObject *parent);

signals:
    /// Paths of files and folders.
    void opened(const QStringList &paths);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void report();

    QStringList m_paths;
    QTimer m_timer;
};

} // namespace brisel
