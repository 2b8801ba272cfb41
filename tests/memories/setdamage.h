#pragma once

#include <QString>

#include <random>

/// Harm that was done to a file of a memory.
struct SetDamage {
    QString words;
    bool isOfIds = false;  ///< "index.id2" may not say which id is which song's
    bool isOfPath = false; ///< "index.id2" may name another file for a song
};

/// Damages a file of the set in \a root. \a mayRemove: no file is taken away otherwise.
SetDamage damageSet(const QString &root, std::mt19937 &random, bool mayRemove);
/// Damages the path file of a playlist, if there is one.
SetDamage damagePathFile(const QString &root, std::mt19937 &random);
