#pragma once

#include "memory/saferemoval.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QVariantMap>

#include <functional>

namespace brisel
{

/// Unmounts memories through UDisks2, "org.freedesktop.UDisks2": finds the file system by its mount
/// point, unmounts it, and then switches its drive off or ejects it, if the drive supports that.
class UDisksService : public UnmountService
{
    Q_OBJECT

public:
    /// Over \a bus. The search may take at most \a milliseconds and ten seconds, each of the two
    /// calls after it at most \a milliseconds.
    explicit UDisksService(QDBusConnection bus, int milliseconds = usualTime,
                           QObject *parent = nullptr);

    void unmount(const QString &root) override;

    /// Milliseconds: a large cache can take long, and the user may be asked for a password.
    static constexpr int usualTime = 120000;

private:
    /// What the service says about a mounted file system.
    struct Disk {
        QString path; ///< of the object; empty if none was found
        QString drive;
        bool canPowerOff = false;
        bool canEject = false;
    };

    static Disk findDisk(const QDBusMessage &objects, const QByteArray &mountPoint);
    void call(const QString &path, const QString &interface, const QString &method,
              const std::function<void(const QDBusMessage &reply)> &next);
    void unmountDisk(const Disk &disk);
    void releaseDrive(const Disk &disk);
    void fail(const QDBusMessage &error);

    QDBusConnection m_bus;
    const int m_milliseconds;
};

} // namespace brisel
