#pragma once

#include <QHash>
#include <QMultiHash>
#include <QString>
#include <QStringList>

namespace brisel
{

/// The path of the graphics of the MP3 \a song: every ".mp3" in it is replaced, also in names of
/// folders, because existing memories depend on that. Other paths stay as they are.
QString graphicsPath(const QString &song);

/// The karaoke graphics (".cdg") in the folders of songs: their names differ from those of their
/// songs in the suffix, and on memories written elsewhere in letter case. Reads each folder once.
class GraphicsFiles
{
public:
    /// The names of the graphics in \a folder that are \a name, or differ from it only in letter
    /// case, in the order of names.
    [[nodiscard]] QStringList named(const QString &folder, const QString &name);
    /// The graphics file of the MP3 \a song: the file of graphicsPath(), or else one whose name
    /// differs in case only. Empty if the song has no graphics file.
    [[nodiscard]] QString companionOf(const QString &song);

private:
    QHash<QString, QMultiHash<QString, QString>> m_folders; ///< by path, then lower-cased name
};

} // namespace brisel
