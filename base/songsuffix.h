#pragma once

#include <QStringView>

#include <array>

namespace brisel
{

/// The suffixes of the names of song files, in lower case.
inline constexpr std::array<QStringView, 6> songSuffixes{u"mid", u"kar", u"mp3",
                                                         u"zb3", u"zb4", u"zb5"};

/// True when \a suffix, without its point, is one of songSuffixes in upper or lower case.
[[nodiscard]] bool isSongSuffix(QStringView suffix);

} // namespace brisel
