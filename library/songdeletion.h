#pragma once

#include "base/run.h"

#include <QCoreApplication>
#include <QList>

namespace brisel
{

class UserSongsRelTableModel;

/// Deletes the files of several songs. The rows stay: see deleted().
class SongDeletion
{
    Q_DECLARE_TR_FUNCTIONS(SongDeletion)

public:
    enum class Outcome {
        Done,        ///< every file was processed
        Interrupted, ///< by the user or the end of the program; the remaining files are there
    };

    static constexpr Reason undeletable{
        QT_TRANSLATE_NOOP("RunReport", "non è stato possibile cancellare il file")};

    /// Returns why the file at \a path, which exists, could not be deleted.
    static Reason whyNotDeleted(const QString &path);

    /// For the songs in \a rows of \a model, which must outlive this object.
    SongDeletion(UserSongsRelTableModel &model, QList<int> rows);

    /// Reports each file that could not be deleted.
    [[nodiscard]] Outcome run(Run &run);

    /// The rows whose files do not exist any more.
    const QList<int> &deleted() const { return m_deleted; }

private:
    void deleteFile(Run &run, int row);

    UserSongsRelTableModel &m_model;
    const QList<int> m_rows;
    QList<int> m_deleted;
};

} // namespace brisel
