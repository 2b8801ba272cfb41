#pragma once

#include <QString>
#include <QTemporaryDir>

namespace brisel
{

/// A memory of small songs of all kinds, in the temporary folder: titles are unique, artists and
/// genres are shared. The destructor removes it.
class SongMemory
{
public:
    SongMemory(int songs, int folders);

    QString root() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder;
};

} // namespace brisel
