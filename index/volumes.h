#pragma once

#include <QString>
#include <QStringList>

namespace brisel
{

/// The mount folders of memories, and the part of a path that is the memory.
///
/// A memory is a folder directly below a mount folder: "/Volumes" on every system, on Linux also
/// "/media/<user>" and "/run/media/<user>", and the folder that the environment variable
/// BRISEL_VOLUMES names. "/Volumes/" is recognised ignoring case, the others exactly.

/// The mount folders, the one of BRISEL_VOLUMES first, whether they exist or not.
QStringList mountFolders();

/// The root of the memory that contains \a path: "/Volumes/CARD" of "/Volumes/CARD/songs/pop".
/// Outside of mount folders the first two components ("/" for a path of one component or with
/// "..").
QString getRoot(const QString &path);

/// Returns true if \a path is the root of a memory itself. Case-sensitive.
bool isRoot(const QString &path);

/// Returns false only for a path below a mount folder that does not lead out of it through links.
/// The mount folder itself counts as the system disk.
bool isSystemDisk(const QString &path);

/// The root of the memory that contains \a path; empty if isSystemDisk(path).
QString getRootDrivePath(const QString &path);

/// The start folder of dialogs that ask for a memory: the first mount folder that exists, or "/".
QString volumesStartFolder();

} // namespace brisel
