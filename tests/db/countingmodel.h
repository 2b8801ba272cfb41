#pragma once

#include "db/usersongsreltablemodel.h"

namespace brisel
{

/// Counts how often the table is read.
class CountingModel : public UserSongsRelTableModel
{
public:
    using UserSongsRelTableModel::UserSongsRelTableModel;
    bool select() override
    {
        ++selects;
        return UserSongsRelTableModel::select();
    }
    int selects = 0;
};

} // namespace brisel
