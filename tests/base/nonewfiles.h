#pragma once

/// While it exists no files can be created, as on a disk without room for another entry; existing
/// files can be opened and written. Only one may exist at a time.
class NoNewFiles
{
public:
    NoNewFiles();
    ~NoNewFiles();
    NoNewFiles(const NoNewFiles &) = delete;
    NoNewFiles &operator=(const NoNewFiles &) = delete;
};
