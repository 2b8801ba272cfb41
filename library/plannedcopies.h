#pragma once

#include "base/fileidentity.h"
#include "base/memoryidentity.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace brisel
{

/// What a transfer by plan copies, and what the user agreed to.
struct PlannedCopies {
    /// A file that \a source replaces.
    struct Replacement {
        QString source;
        QString place;
        FileState there; ///< as the plan found it
    };
    /// Absolute paths, as the run of the index asks about them.
    struct Rename {
        QString from;
        QString to;
    };

    QStringList files;
    QStringList places = {}; ///< of each file
    QString folder = {};     ///< that the places are in; empty without a plan
    MemoryIdentity memory = {};
    QList<Replacement> replacements = {};
    QList<Rename> renames = {};
};

} // namespace brisel
