#pragma once

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>
#include <QDir>
#include <QMap>
#include <QProcess>
#include <QStandardPaths>
#include <QVariantMap>

#include <functional>

namespace brisel
{

/// A session bus that only this test uses.
class PrivateBus
{
public:
    PrivateBus()
    {
        if (QStandardPaths::findExecutable(u"dbus-daemon"_qs).isEmpty())
            return;
        m_daemon.start(u"dbus-daemon"_qs,
                       {u"--session"_qs, u"--nofork"_qs, u"--nopidfile"_qs, u"--print-address"_qs,
                        u"--address=unix:tmpdir="_qs + QDir::tempPath()});
        if (m_daemon.waitForReadyRead())
            m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();
    }
    ~PrivateBus()
    {
        m_daemon.kill();
        m_daemon.waitForFinished();
    }
    PrivateBus(const PrivateBus &) = delete;
    PrivateBus &operator=(const PrivateBus &) = delete;

    /// Empty if there is no program for it.
    const QString &address() const { return m_address; }

private:
    QProcess m_daemon;
    QString m_address;
};

/// The system's service for disks as far as the program uses it. It answers as a test says.
class FakeUDisks : public QDBusVirtualObject
{
public:
    using Interfaces = QMap<QString, QVariantMap>;
    using Objects = QMap<QDBusObjectPath, Interfaces>;

    explicit FakeUDisks(QDBusConnection bus) : m_bus(std::move(bus))
    {
        qDBusRegisterMetaType<QList<QByteArray>>();
        qDBusRegisterMetaType<Interfaces>();
        qDBusRegisterMetaType<Objects>();
        m_bus.registerVirtualObject(u"/org/freedesktop/UDisks2"_qs, this, QDBusConnection::SubPath);
    }

    /// Adds a mounted file system \a name on the drive \a drive.
    void add(const QString &name, const QString &drive, const QList<QByteArray> &mountPoints)
    {
        Interfaces &disk = objects[QDBusObjectPath(block + name)];
        disk.insert(u"org.freedesktop.UDisks2.Filesystem"_qs,
                    {{u"MountPoints"_qs, QVariant::fromValue(mountPoints)},
                     {u"Size"_qs, QVariant::fromValue(quint64(1000))}});
        disk.insert(u"org.freedesktop.UDisks2.Block"_qs,
                    {{u"Drive"_qs, QVariant::fromValue(QDBusObjectPath(drives + drive))}});
    }
    void addDrive(const QString &name, bool canPowerOff, bool isEjectable)
    {
        objects[QDBusObjectPath(drives + name)].insert(
            u"org.freedesktop.UDisks2.Drive"_qs,
            {{u"CanPowerOff"_qs, canPowerOff}, {u"Ejectable"_qs, isEjectable}});
    }

    QString introspect(const QString & /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override
    {
        calls.append(message.path().section(u'/', -1) + u' ' + message.member() + u' ' +
                     message.signature());
        if (silent == message.member())
            return true;
        if (message.member() == u"GetManagedObjects" && !errors.contains(message.member())) {
            connection.send(message.createReply(QVariant::fromValue(objects)));
            return true;
        }
        if (message.member() == u"Unmount" && !errors.contains(message.member()) && onUnmount)
            onUnmount();
        connection.send(errors.contains(message.member())
                            ? message.createErrorReply(u"org.freedesktop.UDisks2.Error."_qs +
                                                           errors.value(message.member()),
                                                       u"target is busy"_qs)
                            : message.createReply());
        return true;
    }

    Objects objects;
    QMap<QString, QString> errors; ///< names of errors by method
    QString silent;                ///< a method that is never answered
    std::function<void()> onUnmount;
    QStringList calls; ///< object, method and signature

private:
    static inline const QString block = u"/org/freedesktop/UDisks2/block_devices/"_qs;
    static inline const QString drives = u"/org/freedesktop/UDisks2/drives/"_qs;

    QDBusConnection m_bus;
};

} // namespace brisel
