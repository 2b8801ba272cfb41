#pragma once

#include "tests/memories/memorylife.h"

namespace brisel
{

/// The life of a memory whose songs are changed there: removed, renamed and copied back, between
/// runs, transfers and changes of the playlists.
class ChangingLife : public MemoryLife
{
public:
    using MemoryLife::MemoryLife;

protected:
    void step() override;

private:
    void removeSongs();
    void renameSong();
    void copySongsBack();
    QStringList somePaths();
    QString newBase(const QString &path);
};

} // namespace brisel
