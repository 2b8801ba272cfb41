#pragma once

/// While it exists all file systems appear to be read-only to statvfs(2). Only one may exist at a
/// time.
class ReadOnlyDisk
{
public:
    ReadOnlyDisk();
    ~ReadOnlyDisk();
    ReadOnlyDisk(const ReadOnlyDisk &) = delete;
    ReadOnlyDisk &operator=(const ReadOnlyDisk &) = delete;
};

/// While it exists all files appear to be on a file system with the given magic number of
/// statfs(2). Only one may exist at a time.
class DiskKind
{
public:
    explicit DiskKind(unsigned magic);
    ~DiskKind();
    DiskKind(const DiskKind &) = delete;
    DiskKind &operator=(const DiskKind &) = delete;
};
