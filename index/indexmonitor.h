#pragma once

#include "base/run.h"

namespace brisel
{

/// Receives the progress and the messages of the steps of an index run.
class IndexMonitor
{
public:
    explicit IndexMonitor(Run &run) : m_run(run) {}
    IndexMonitor(const IndexMonitor &) = delete;
    IndexMonitor &operator=(const IndexMonitor &) = delete;

    Run &run() const { return m_run; }
    /// The number of steps of the stage that begins; 0 if unknown.
    virtual void setMaximum(int maximum) = 0;
    virtual void setProgress(int value) = 0;
    /// The number of songs that the walk has met.
    virtual void setFilesFound(int count) = 0;
    /// The file in progress; empty at the end of a stage.
    virtual void showPath(const QString &path) = 0;
    virtual void reportError(const QString &message) = 0;
    /// Reports something that the user should know and that is not a failure.
    virtual void reportNotice(const QString &message) = 0;

protected:
    ~IndexMonitor() = default;

private:
    Run &m_run;
};

} // namespace brisel
