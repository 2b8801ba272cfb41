#pragma once

#include <QString>

namespace brisel
{

/// The names that the user may choose for the songs on a memory: the player finds names of up to
/// eight characters and a suffix, in characters that FAT allows and code page IBM 850 has.
namespace ChosenNames
{

enum class Problem {
    None,
    Empty,
    TooLong,
    Forbidden,   ///< a character that FAT does not allow in a short name
    NotInPlayer, ///< a character that the code page lacks: the player would show '?'
    Edge,        ///< a blank at the start or at the end
    Reserved,    ///< the name of a device, which some systems can't open
};

/// The most characters before the suffix.
constexpr int longest = 8;

/// Returns what is wrong with \a base as a name without its suffix.
[[nodiscard]] Problem problemOf(const QString &base);
/// The first character of \a base that is Forbidden or NotInPlayer; empty if all are allowed.
[[nodiscard]] QString wrongCharacter(const QString &base);

/// Returns true if the user may give the song file \a name the name \a newName: another one with
/// the same suffix. Names that differ only in letter case are not others.
[[nodiscard]] bool canChoose(const QString &name, const QString &newName);
/// Returns true if the user may give any song file the name \a name.
[[nodiscard]] bool isAllowed(const QString &name);

} // namespace ChosenNames

} // namespace brisel
