#pragma once

#include "base/run.h"
#include "library/previewsong.h"

#include <QCoreApplication>
#include <QList>
#include <QSet>
#include <QString>

#include <memory>

namespace brisel
{

class Database;
class UserSongsRelTableModel;

/// Shows what a synchronisation would change: looks each song of the library up and makes the
/// change in memory. Writes nothing, asks nothing, and changes no row.
class SyncPreview
{
    Q_DECLARE_TR_FUNCTIONS(SyncPreview)

public:
    enum class Outcome {
        Done,        ///< songs() has every row
        Interrupted, ///< by the user or the end of the program
    };

    SyncPreview(UserSongsRelTableModel &model, Database &catalogue);

    /// Processes every row once, in the table's order.
    [[nodiscard]] Outcome run(Run &run);

    /// One song for each row processed, in their order. Equal texts are stored once.
    const QList<PreviewSong> &songs() const { return m_songs; }

    /// Computes the song in \a row again, with the record that the user chose for it.
    PreviewSong matched(int row, std::shared_ptr<const SongsDbRecord> chosen);

private:
    PreviewSong preview(int row, std::shared_ptr<const SongsDbRecord> chosen);
    QString shared(const QString &text);

    UserSongsRelTableModel &m_model;
    Database &m_catalogue;
    QList<PreviewSong> m_songs;
    QSet<QString> m_texts; ///< of all songs
};

} // namespace brisel
