#pragma once

#include <QString>
#include <QStringList>

/// Where memories are mounted, and what part of a path names the memory.
///
/// A memory is a folder directly below a mount folder: "/Volumes" on every system, on Linux also
/// "/media/<user>" and "/run/media/<user>", and the folder that the environment variable
/// BRISEL_VOLUMES names. "/Volumes/" is recognised ignoring case, the others exactly.

/// The mount folders, the one of BRISEL_VOLUMES first, whether they exist or not.
QStringList mountFolders();

/// The root of the memory that holds \a path: "/Volumes/CARD" of "/Volumes/CARD/songs/pop". Below
/// no mount folder the first two components ("/" for a path of one component or with "..").
QString getRoot(const QString &path);

/// True when \a path is the root of a memory itself. Distinguishes case.
bool isRoot(const QString &path);

/// False only for a path below a mount folder that, when it exists, leads nowhere else by links.
/// The mount folder itself counts as the system disk.
bool isSystemDisk(const QString &path);

/// The root of the memory that holds \a path; empty when isSystemDisk(path).
QString getRootDrivePath(const QString &path);

/// Where a dialog that asks for a memory starts: the first mount folder that exists, "/" if none.
QString volumesStartFolder();
