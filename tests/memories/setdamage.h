#pragma once

#include <QString>

#include <random>

namespace brisel
{

/// Damage that was done to a file of a memory.
struct SetDamage {
    QString description;
    bool isOfIds = false;  ///< "index.id2" may no longer connect ids and songs
    bool isOfPath = false; ///< "index.id2" may name another file for a song
};

/// Damages a file of the set in \a root. \a mayRemove: false if no file may be removed.
SetDamage damageSet(const QString &root, std::mt19937 &random, bool mayRemove);
/// Damages the path file of a playlist, if there is one.
SetDamage damagePathFile(const QString &root, std::mt19937 &random);

} // namespace brisel
