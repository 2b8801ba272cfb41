#pragma once

#include <QStringView>

#include <array>

namespace brisel
{

/// The suffixes of the names of song files, in lower case.
inline constexpr std::array<QStringView, 6> songSuffixes{u"mid", u"kar", u"mp3",
                                                         u"zb3", u"zb4", u"zb5"};

/// Returns true if \a suffix, without its point, is one of songSuffixes, ignoring case.
[[nodiscard]] bool isSongSuffix(QStringView suffix);

/// Returns true if the name \a name ends in a point and \a suffix, ignoring case.
[[nodiscard]] bool hasSuffix(QStringView name, QStringView suffix);

} // namespace brisel
