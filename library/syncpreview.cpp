#include "library/syncpreview.h"

#include "db/database.h"
#include "db/usersongsreltablemodel.h"
#include "library/songfile.h"
#include "library/workflowlog.h"
#include "songfile/songdata.h"

#include <utility>

namespace brisel
{

bool losesText(const FieldChange &change)
{
    using Field = FieldChange::Field;
    switch (change.field) {
    case Field::Title:
    case Field::Artist:
    case Field::Genre:
    case Field::Author:
        return !change.before.isEmpty() && !isPlaceholder(change.before) &&
               !change.after.contains(change.before, Qt::CaseInsensitive);
    default:
        return false;
    }
}

SyncPreview::SyncPreview(UserSongsRelTableModel &model, Database &catalogue)
    : m_model(model), m_catalogue(catalogue)
{
}

SyncPreview::Outcome SyncPreview::run(Run &run)
{
    logBanner("PREVIEW OF THE UPDATE");
    m_songs.clear();
    m_catalogue.prepareLookUps();
    const int count = m_model.goodRowCount();
    run.begin({tr("Anteprima"), tr("Cerco le song nel database..."), count});
    m_songs.reserve(count);
    for (int row = 0; row < count && run.mayGoOn(); ++row) {
        m_songs.append(preview(row, nullptr));
        run.setStep(row + 1);
        run.processEvents();
    }
    run.end();
    m_texts.clear();
    return m_songs.size() == count && !Run::isEnding() ? Outcome::Done : Outcome::Interrupted;
}

PreviewSong SyncPreview::matched(int row, std::shared_ptr<const SongsDbRecord> chosen)
{
    return preview(row, std::move(chosen));
}

PreviewSong SyncPreview::preview(int row, std::shared_ptr<const SongsDbRecord> chosen)
{
    PreviewSong song;
    song.row = row;
    song.path = m_model.fileName(row);
    song.chosen = std::move(chosen);
    SongFile file(song.path);
    song.state = file.song.stateWhenRead();
    if (!file.isOpen) {
        song.whyNotRead = file.whyNotOpen();
        return song;
    }
    song.isPublished = file.info.isKordia;
    const std::optional<CatalogueHit> hit = findInCatalogue(
        m_catalogue, catalogueKeys(m_model.shortName(row), file.info), song.chosen.get());
    if (!hit.has_value())
        return song;
    song.foundBy = hit->foundBy;
    file.song.setSongInfo(mergedWithCatalogue(file.info, hit->record), false);
    SongInfo after;
    file.song.getSongInfo(after);
    song.changes = fieldChanges(file.info, after);
    for (FieldChange &change : song.changes) {
        change.before = shared(change.before);
        change.after = shared(change.after);
    }
    return song;
}

QString SyncPreview::shared(const QString &text)
{
    return *m_texts.insert(text);
}

} // namespace brisel
