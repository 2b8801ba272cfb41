#pragma once

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
