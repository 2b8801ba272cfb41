#pragma once

#include <QString>
#include <QTemporaryDir>

/// A memory full of small songs of all kinds, in the temporary folder: each has a title of its
/// own, and artists and genres come again. Gone with the object.
class SongMemory
{
public:
    SongMemory(int songs, int folders);

    QString root() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder;
};
