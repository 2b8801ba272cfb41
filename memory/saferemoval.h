#pragma once

#include "base/memoryidentity.h"

#include <QObject>
#include <QString>

#include <memory>

namespace brisel
{

class UnmountService;

/// Prepares a memory for being pulled out: everything is flushed to it, and then the desktop's
/// service unmounts it, where there is one.
class SafeRemoval : public QObject
{
    Q_OBJECT

public:
    enum class Outcome {
        Removable,   ///< it is unmounted, and its drive switched off or ejected if that is possible
        OnlyFlushed, ///< everything is on the disk, but nothing can unmount it from here
        OthersMounted, ///< it is unmounted, but another part of its drive is in use
        Busy,          ///< it is in use by a program, and still mounted
        NotAllowed,    ///< the user may not unmount it, and it is still mounted
        NoAnswer,      ///< the service has not answered in time: its state is unknown
        NotUnmounted,  ///< the service has failed, and may have left it mounted
        NotFlushed,    ///< not everything could be written to it; it was not unmounted
        InUse,         ///< another program changes it
        Gone,          ///< it is not mounted
    };

    /// Uses the desktop's service, where there is one.
    explicit SafeRemoval(QObject *parent = nullptr);
    /// Uses \a service, which may be null.
    SafeRemoval(std::unique_ptr<UnmountService> service, QObject *parent);
    ~SafeRemoval() override;

    /// Starts for the memory \a root; finished() follows, perhaps from inside this call. Does
    /// nothing while one is under way.
    void start(const QString &root);
    [[nodiscard]] bool isWorking() const { return m_isWorking; }

    /// What the user is told about \a outcome, in the current language.
    [[nodiscard]] static QString text(Outcome outcome);
    /// Returns true if the memory may be pulled out after \a outcome.
    [[nodiscard]] static bool mayBePulled(Outcome outcome) { return outcome == Outcome::Removable; }

signals:
    /// The memory is about to be unmounted: everything that the program has open there must be
    /// closed before the receivers return.
    void aboutToUnmount();
    /// \a detail is the service's own message, if it has failed.
    void finished(SafeRemoval::Outcome outcome, const QString &detail);

private:
    void finish(Outcome outcome, const QString &detail);

    std::unique_ptr<UnmountService> m_service;
    MemoryIdentity m_identity;
    bool m_isWorking = false;
};

/// A service of the desktop that unmounts memories.
class UnmountService : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Unmounts the file system that is mounted at \a root. Returns at once; finished() follows
    /// later, once, in a bounded time.
    virtual void unmount(const QString &root) = 0;

    /// The service of this desktop; null in a program built without Qt DBus.
    [[nodiscard]] static std::unique_ptr<UnmountService> ofDesktop();

signals:
    void finished(SafeRemoval::Outcome outcome, const QString &detail);
};

} // namespace brisel
