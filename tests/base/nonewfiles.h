#pragma once

/// While it lives the system refuses to create files, as a disk does that has no room for one more
/// entry; files that are there can be opened and written. One at a time.
class NoNewFiles
{
public:
    NoNewFiles();
    ~NoNewFiles();
    NoNewFiles(const NoNewFiles &) = delete;
    NoNewFiles &operator=(const NoNewFiles &) = delete;
};
