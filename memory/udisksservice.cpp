#include "memory/udisksservice.h"

#include <QDBusArgument>
#include <QDBusError>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QTimer>

#include <algorithm>

namespace brisel
{

namespace
{

using Interfaces = QMap<QString, QVariantMap>;     // a{sa{sv}}
using Objects = QMap<QDBusObjectPath, Interfaces>; // a{oa{sa{sv}}}

const QString serviceName = QStringLiteral("org.freedesktop.UDisks2");
const QString filesystemInterface = QStringLiteral("org.freedesktop.UDisks2.Filesystem");
const QString blockInterface = QStringLiteral("org.freedesktop.UDisks2.Block");
const QString driveInterface = QStringLiteral("org.freedesktop.UDisks2.Drive");
constexpr int searchTime = 10000; // milliseconds
const QString errorStart = QStringLiteral("org.freedesktop.UDisks2.Error.");

/// The mount points of a file system: arrays of bytes that end in 0.
QList<QByteArray> mountPointsOf(const QVariant &value)
{
    QList<QByteArray> points;
    if (!value.canConvert<QDBusArgument>())
        return points;
    const auto argument = value.value<QDBusArgument>();
    if (argument.currentSignature() != QStringLiteral("aay"))
        return points;
    argument >> points;
    for (QByteArray &point : points) {
        if (point.endsWith('\0'))
            point.chop(1);
    }
    return points;
}

SafeRemoval::Outcome outcomeOf(const QString &error)
{
    if (error == errorStart + QStringLiteral("DeviceBusy"))
        return SafeRemoval::Outcome::Busy;
    if (error.startsWith(errorStart + QStringLiteral("NotAuthorized")))
        return SafeRemoval::Outcome::NotAllowed;
    if (error == QDBusError::errorString(QDBusError::NoReply) ||
        error == QDBusError::errorString(QDBusError::TimedOut) ||
        error == QDBusError::errorString(QDBusError::Timeout))
        return SafeRemoval::Outcome::NoAnswer;
    return SafeRemoval::Outcome::NotUnmounted;
}

} // namespace

UDisksService::UDisksService(QDBusConnection bus, int milliseconds, QObject *parent)
    : UnmountService(parent), m_bus(std::move(bus)), m_milliseconds(milliseconds)
{
    qDBusRegisterMetaType<Interfaces>();
    qDBusRegisterMetaType<Objects>();
}

void UDisksService::unmount(const QString &root)
{
    if (!m_bus.isConnected()) {
        QTimer::singleShot(0, this,
                           [this] { emit finished(SafeRemoval::Outcome::OnlyFlushed, {}); });
        return;
    }
    // The service knows the path without links.
    const QByteArray mountPoint = QFile::encodeName(QFileInfo(root).canonicalFilePath());
    call(QStringLiteral("/org/freedesktop/UDisks2"),
         QStringLiteral("org.freedesktop.DBus.ObjectManager"), QStringLiteral("GetManagedObjects"),
         [this, mountPoint](const QDBusMessage &reply) {
             // Without an answer nothing was asked to unmount the memory.
             const Disk disk =
                 reply.type() == QDBusMessage::ErrorMessage ? Disk() : findDisk(reply, mountPoint);
             if (disk.path.isEmpty())
                 emit finished(SafeRemoval::Outcome::OnlyFlushed, {});
             else
                 unmountDisk(disk);
         });
}

UDisksService::Disk UDisksService::findDisk(const QDBusMessage &objects,
                                            const QByteArray &mountPoint)
{
    Disk disk;
    const auto all = qdbus_cast<Objects>(objects.arguments().value(0));
    for (auto object = all.cbegin(); object != all.cend(); ++object) {
        const QVariant points =
            object->value(filesystemInterface).value(QStringLiteral("MountPoints"));
        if (!mountPointsOf(points).contains(mountPoint))
            continue;
        disk.path = object.key().path();
        disk.drive = object->value(blockInterface)
                         .value(QStringLiteral("Drive"))
                         .value<QDBusObjectPath>()
                         .path();
        break;
    }
    if (!disk.drive.startsWith(u'/'))
        return disk;
    const QVariantMap drive = all.value(QDBusObjectPath(disk.drive)).value(driveInterface);
    disk.canPowerOff = drive.value(QStringLiteral("CanPowerOff")).toBool();
    disk.canEject = drive.value(QStringLiteral("Ejectable")).toBool();
    return disk;
}

/// Calls a method of the object \a path; \a next is called with its reply, which may be an error.
void UDisksService::call(const QString &path, const QString &interface, const QString &method,
                         const std::function<void(const QDBusMessage &reply)> &next)
{
    const bool isSearch = !interface.startsWith(serviceName);
    QDBusMessage message = QDBusMessage::createMethodCall(serviceName, path, interface, method);
    if (!isSearch)
        message.setArguments({QVariantMap()});
    message.setInteractiveAuthorizationAllowed(true);
    const int time = isSearch ? std::min(m_milliseconds, searchTime) : m_milliseconds;
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(message, time), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [watcher, next] {
        watcher->deleteLater();
        next(watcher->reply());
    });
}

void UDisksService::unmountDisk(const Disk &disk)
{
    call(disk.path, filesystemInterface, QStringLiteral("Unmount"),
         [this, disk](const QDBusMessage &reply) {
             if (reply.type() == QDBusMessage::ErrorMessage)
                 fail(reply);
             else
                 releaseDrive(disk);
         });
}

/// A drive that can't be switched off may be pulled all the same, unless something on it is still
/// mounted.
void UDisksService::releaseDrive(const Disk &disk)
{
    if (!disk.canPowerOff && !disk.canEject) {
        emit finished(SafeRemoval::Outcome::Removable, {});
        return;
    }
    call(disk.drive, driveInterface,
         disk.canPowerOff ? QStringLiteral("PowerOff") : QStringLiteral("Eject"),
         [this](const QDBusMessage &reply) {
             const bool isBusy = reply.errorName() == errorStart + QStringLiteral("DeviceBusy");
             emit finished(isBusy ? SafeRemoval::Outcome::OthersMounted
                                  : SafeRemoval::Outcome::Removable,
                           isBusy ? reply.errorMessage() : QString());
         });
}

void UDisksService::fail(const QDBusMessage &error)
{
    emit finished(outcomeOf(error.errorName()), error.errorMessage());
}

} // namespace brisel
