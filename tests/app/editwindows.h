#pragma once

#include <QString>
#include <QWidget>

#include <memory>

namespace brisel
{

/// The path of a song, wider than most windows.
inline const QString longPath =
    QStringLiteral("/home/anna/Musica/Basi musicali/Matrimoni/Anni Sessanta/Il cielo sopra il "
                   "mare e altre storie di una estate molto lunga.mid");

/// The edit dialog of one song, filled.
std::unique_ptr<QWidget> makeEditWindow();
/// With a hint under each text, one of them of maximum length.
std::unique_ptr<QWidget> makeEditWindowWithHints();
/// The edit dialog of several songs, which share some of their data.
std::unique_ptr<QWidget> makeEditWindowOfSeveral();
/// The table of a song's markers.
std::unique_ptr<QWidget> makeMarkersWindow();

} // namespace brisel
