#include "memory/saferemoval.h"

#include "base/fileidentity.h"
#include "base/folderhandle.h"
#include "base/folderlock.h"

#ifdef BRISEL_HAS_DBUS
#include "memory/udisksservice.h"

#include <QDBusConnection>
#endif

#include <utility>

namespace brisel
{

namespace
{

/// Writes everything that the system still holds for the memory \a root.
SafeRemoval::Outcome flushMemory(const QString &root)
{
    if (fileKind(root) != FileKind::Folder)
        return SafeRemoval::Outcome::Gone;
    const FolderLock lock(root, FolderLock::Kind::Exclusive);
    if (lock.isBusy())
        return SafeRemoval::Outcome::InUse;
    const FolderHandle folder(root, QString());
    const bool isFlushed = folder.isOpen() && folder.flushFileSystem().value_or(false);
    return isFlushed ? SafeRemoval::Outcome::OnlyFlushed : SafeRemoval::Outcome::NotFlushed;
}

} // namespace

SafeRemoval::SafeRemoval(QObject *parent) : SafeRemoval(UnmountService::ofDesktop(), parent) {}

SafeRemoval::SafeRemoval(std::unique_ptr<UnmountService> service, QObject *parent)
    : QObject(parent), m_service(std::move(service))
{
    if (m_service != nullptr)
        connect(m_service.get(), &UnmountService::finished, this, &SafeRemoval::finish);
}

SafeRemoval::~SafeRemoval() = default;

void SafeRemoval::start(const QString &root)
{
    if (std::exchange(m_isWorking, true))
        return;
    const Outcome flushed = flushMemory(root);
    if (flushed != Outcome::OnlyFlushed || m_service == nullptr) {
        finish(flushed, {});
        return;
    }
    m_identity = MemoryIdentity(root);
    emit aboutToUnmount();
    m_service->unmount(root);
}

/// Only a memory that has disappeared from its folder counts as unmounted.
void SafeRemoval::finish(Outcome outcome, const QString &detail)
{
    const bool isUnmounted = outcome == Outcome::Removable || outcome == Outcome::OthersMounted;
    m_isWorking = false;
    emit finished(isUnmounted && m_identity.isThere() ? Outcome::NotUnmounted : outcome, detail);
}

QString SafeRemoval::text(Outcome outcome)
{
    switch (outcome) {
    case Outcome::Removable:
        return tr("La memoria è stata smontata: ora si può togliere.");
    case Outcome::OnlyFlushed:
        return tr("Tutti i dati sono scritti sulla memoria, ma il programma non può smontarla.\n"
                  "Smontarla con il gestore dei file prima di toglierla.");
    case Outcome::OthersMounted:
        return tr("La memoria è stata smontata, ma un'altra parte dello stesso disco è ancora in "
                  "uso.\nSmontare anche quella prima di togliere il disco.");
    case Outcome::Busy:
        return tr("La memoria è in uso da un programma e non è stata smontata.\n"
                  "Chiudere i file aperti e riprovare.");
    case Outcome::NotAllowed:
        return tr("Manca il permesso di smontare la memoria, che è ancora montata.");
    case Outcome::NoAnswer:
        return tr("Il sistema non ha risposto in tempo: non togliere la memoria finché il gestore "
                  "dei file non la mostra come smontata.");
    case Outcome::NotUnmounted:
        return tr("Non è stato possibile smontare la memoria: non toglierla.");
    case Outcome::NotFlushed:
        return tr("Non è stato possibile scrivere tutti i dati sulla memoria, che non è stata "
                  "smontata.");
    case Outcome::InUse:
        return tr("Un altro programma sta lavorando su questa memoria.\n"
                  "Riprovare quando ha finito.");
    case Outcome::Gone:
        return tr("La memoria non è più presente.");
    }
    return {};
}

std::unique_ptr<UnmountService> UnmountService::ofDesktop()
{
#ifdef BRISEL_HAS_DBUS
    return std::make_unique<UDisksService>(QDBusConnection::systemBus());
#else
    return nullptr;
#endif
}

} // namespace brisel
