#pragma once

#include <QString>

/// While it exists all files appear to be on a disk with FAT's attributes: at first each file has
/// only the archive attribute. Only one may exist at a time.
class FatDisk
{
public:
    FatDisk();
    ~FatDisk();
    FatDisk(const FatDisk &) = delete;
    FatDisk &operator=(const FatDisk &) = delete;

    static unsigned attributes(const QString &path);
    /// All other files then have only the archive attribute.
    static void setAttributes(const QString &path, unsigned attributes);
    /// Makes setting the system attribute fail.
    static void refuseSystem();
};
