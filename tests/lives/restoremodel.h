#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace brisel
{

/// What song files must hold after changes of the program were taken back: whole contents instead
/// of checksums, and no code of the program.
class RestoreModel
{
public:
    /// One content of a song.
    struct Version {
        QByteArray bytes;
        qsizetype tagSize = -1; ///< of an MP3, in bytes: the audio follows; otherwise -1

        bool isMp3() const { return tagSize >= 0; }
        /// True if the program can't tell them apart.
        bool isLike(const Version &other) const;
        bool isLike(const QByteArray &content) const { return isLike(Version{content, tagSize}); }
    };
    struct Change {
        QString path;
        Version before;
        Version after;
    };
    using Files = QMap<QString, QByteArray>;
    struct Result {
        int restored = 0;
        int skipped = 0;
        int failed = 0;
        int asked = 0;
    };

    Files files;                  ///< by their paths
    QMap<qint64, Change> changes; ///< by their numbers in the history
    QStringList list;             ///< the paths of the list, in its order
    /// The start of the audio in the content of an MP3; nothing if it is not a song.
    std::function<std::optional<qsizetype>(const QByteArray &)> audioStart;

    /// Takes the changes \a ids back, the newest first; \a answers are given in turn, true for
    /// yes, and no when all are used.
    Result restore(QList<qint64> ids, QList<bool> answers);

private:
    enum class Kind { Own, Before, Other, Nothing };
    struct Found {
        Kind kind = Kind::Nothing;
        qsizetype tagSize = -1;
    };

    Found at(const QString &path, qint64 id) const;
    QString moved(qint64 id);
    void restoreOne(qint64 id);
    bool write(const QString &path, qint64 id, std::optional<qsizetype> tagSize);

    QList<qint64> m_left;               ///< changes that are not taken back yet
    QMap<QString, QString> m_newPlaces; ///< of songs that were found elsewhere
    QSet<QString> m_taken;              ///< these places
    QSet<QString> m_refused;            ///< places that were looked at since their last change
    QList<Change> m_made;               ///< these are changes, too
    QList<bool> m_answers;
    Result m_result;
};

} // namespace brisel
