#pragma once

#include <QString>

/// While it lives all files lie on a disk that answers to FAT's requests for attributes: at first
/// each file has the archive attribute alone. One at a time.
class FatDisk
{
public:
    FatDisk();
    ~FatDisk();
    FatDisk(const FatDisk &) = delete;
    FatDisk &operator=(const FatDisk &) = delete;

    static unsigned attributes(const QString &path);
    /// The other files have the archive attribute alone after that.
    static void setAttributes(const QString &path, unsigned attributes);
    /// From now on the system attribute can't be set.
    static void refuseSystem();
};
