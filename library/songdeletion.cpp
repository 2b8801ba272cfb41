#include "library/songdeletion.h"

#include "base/filefailure.h"
#include "base/fileidentity.h"
#include "db/usersongsreltablemodel.h"
#include "library/songactions.h"

#include <QFileInfo>

#include <utility>

namespace brisel
{

Reason SongDeletion::whyNotDeleted(const QString &path)
{
    if (isWriteProtected(path))
        return FileReason::writeProtected;
    return QFileInfo(QFileInfo(path).absolutePath()).isWritable() ? undeletable
                                                                  : FileReason::notAllowed;
}

SongDeletion::SongDeletion(UserSongsRelTableModel &model, QList<int> rows)
    : m_model(model), m_rows(std::move(rows))
{
}

SongDeletion::Outcome SongDeletion::run(Run &run)
{
    run.begin(
        {tr("Cancellazione file"), tr("Cancello i file..."), static_cast<int>(m_rows.size())});
    Outcome outcome = Outcome::Done;
    for (qsizetype done = 0; done < m_rows.size(); ++done) {
        const int row = m_rows.at(done);
        if (outcome == Outcome::Done)
            run.processEvents();
        if (!run.mayGoOn()) {
            outcome = Outcome::Interrupted;
            run.report().add(RunReport::Step::Delete, m_model.fileName(row), Run::interrupted);
            continue;
        }
        deleteFile(run, row);
        run.setStep(static_cast<int>(done) + 1);
    }
    run.end();
    return outcome;
}

void SongDeletion::deleteFile(Run &run, int row)
{
    const QString path = m_model.fileName(row);
    if (deleteSongFile(path)) {
        run.report().count(RunReport::Success::Deleted);
    } else if (entryExists(path)) {
        run.report().add(RunReport::Step::Delete, path, whyNotDeleted(path));
        return;
    }
    m_deleted.append(row);
}

} // namespace brisel
