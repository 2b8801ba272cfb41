#include "tests/lives/songlife.h"

#include "history/historyrecorder.h"
#include "library/restore.h"
#include "library/synchroniser.h"
#include "library/syncpreview.h"
#include "tests/songfile/samples.h"

#include <QDir>

namespace brisel
{

using namespace Qt::StringLiterals;

namespace
{

const QList<Sample::CatalogueRow> catalogue{{u"ONE"_s, u"ONE LOVE"_s, u"X"_s, u"0:INTRO,4:END"_s},
                                            {u"TWO"_s, u"TWO SONGS"_s, u"YY"_s},
                                            {u"THREE"_s, u"THREE KINGS"_s, u"ZZZ"_s}};

/// The start of the audio of the MP3 \a content.
std::optional<qsizetype> audioStartOf(const QByteArray &content)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(u"song.mp3"_s);
    makeFile(path, content);
    MetaSong song;
    return song.importFile(path) ? song.audioStart() : std::nullopt;
}

} // namespace

SongLife::SongLife(unsigned seed) : m_random(seed), m_tags(seed), m_library(catalogue)
{
    m_history = std::make_unique<History>(m_library.path(u"data/history.sqlite"_s));
    m_model.audioStart = audioStartOf;
    makeSongs();
}

/// The standard distributions differ between implementations.
int SongLife::below(qsizetype end)
{
    return static_cast<int>(m_random() % static_cast<std::mt19937::result_type>(end));
}

QString SongLife::oneOf(const QStringList &paths)
{
    return paths.at(below(paths.size()));
}

QByteArray SongLife::audio()
{
    const int sizes[] = {20, 300, 4096, 9000};
    QByteArray bytes = Samples::audio(sizes[below(std::size(sizes))] + below(3));
    if (isOneOf(3))
        bytes += "TAG" + QByteArray("Old title").leftJustified(125, '\0');
    return bytes;
}

/// A new song for a file with this suffix.
QByteArray SongLife::content(const QString &suffix)
{
    if (suffix == u"mp3"_s)
        return isOneOf(3) ? audio() : m_tags.song(audio());
    const QByteArray title = "Song " + QByteArray::number(++m_numbers);
    QByteArray events = isOneOf(4) ? QByteArray() : Samples::metaEvent(3, title);
    if (isOneOf(2))
        events += Samples::metaEvent(2, "(c) Kordia");
    const QByteArray midi = Samples::midi(events, below(2));
    if (suffix == u"mid"_s)
        return midi;
    const QByteArray magic = "_" + suffix.toUpper().toLatin1();
    const auto size = static_cast<int>(ZbxHeader::sizeOf(ZbxHeader::typeOf(magic)));
    return Samples::container(Samples::containerHeader(magic, size), midi);
}

/// Some rows have no file yet, and some files have no row.
void SongLife::makeSongs()
{
    const QStringList names{u"one"_s, u"two"_s, u"three"_s, u"four"_s};
    const QStringList suffixes{u"mid"_s, u"mp3"_s, u"mp3"_s, u"zb3"_s, u"zb4"_s, u"zb5"_s};
    for (int songs = 5 + below(5); songs > 0; --songs) {
        const QString suffix = oneOf(suffixes);
        const QString name = u"%1/%2.%3"_s.arg(songs).arg(oneOf(names), suffix);
        const QByteArray song = content(suffix);
        m_list.append(m_library.add(u"songs/"_s + name, song));
        m_model.files.insert(path(name), song);
        if (isOneOf(6))
            m_list.append(m_library.add(u"songs/"_s + name, song));
    }
    for (const QString &suffix : {u"mid"_s, u"mp3"_s}) {
        const QString name = u"new/%1."_s.arg(oneOf(names)) + suffix;
        m_list.append(m_library.add(u"songs/"_s + name, content(suffix)));
        if (!QFile::remove(path(name)))
            qFatal("can't remove a song");
    }
    if (!QDir().mkpath(path(u"elsewhere"_s)))
        qFatal("no folder");
    m_model.list = m_list;
}

QString SongLife::live()
{
    for (int steps = 6 + below(12); steps > 0 && m_problem.isEmpty(); --steps) {
        if (isOneOf(4))
            m_history = std::make_unique<History>(m_library.path(u"data/history.sqlite"_s));
        step();
    }
    return m_problem.isEmpty() ? QString() : m_actions.join(u"\n  "_s) + u"\n  => "_s + m_problem;
}

void SongLife::step()
{
    const int choice = below(20);
    if (choice < 3)
        synchronise();
    else if (choice < 5)
        edit(false);
    else if (choice < 7)
        edit(true);
    else if (choice < 8)
        writePlan();
    else if (choice < 13)
        restore();
    else if (choice < 15)
        change();
    else if (choice < 16)
        move();
    else if (choice < 17)
        exchange();
    else if (choice < 18)
        copy();
    else if (choice < 19)
        putBack();
    else
        remove();
}

void SongLife::synchronise()
{
    note(u"synchronise"_s);
    ScriptedRun run;
    HistoryRecorder recorder(*m_history, RunKind::Synchronisation);
    Synchroniser synchroniser(m_library.model(), m_library.database(), false);
    synchroniser.setRecorder(&recorder);
    if (synchroniser.run(run) != Synchroniser::Outcome::Done)
        fail(u"interrupted"_s);
    checkRun(RunKind::Synchronisation, filesNow());
}

void SongLife::edit(bool isSpread)
{
    const int row = below(m_list.size());
    const QString &path = m_list.at(row);
    const SongFile file(path);
    if (!file.isOpen)
        return;
    note(u"edit "_s + path);
    SongInfo info = file.info;
    const QStringList texts{u"New"_s, u"Citt\u00E0"_s, u"\u03A9 \u2014"_s, QString(500, u'l')};
    info.title = oneOf(texts);
    info.artist = oneOf(texts);
    ManualEdit::Spread spread;
    if (isSpread)
        spread = {isOneOf(2), isOneOf(2), isOneOf(2), isOneOf(3)};
    ScriptedRun run;
    const RunKind kind = spread.any() ? RunKind::ApplyToAll : RunKind::Edit;
    HistoryRecorder recorder(*m_history, kind);
    ManualEdit edit(m_library.model(), file.song, info, path, row, spread);
    edit.setRecorder(&recorder);
    if (edit.run(run) != ManualEdit::Outcome::Done)
        fail(u"interrupted"_s);
    checkRun(kind, filesNow());
}

/// Some rows and fields of a preview.
void SongLife::writePlan()
{
    note(u"write a plan"_s);
    SyncPreview preview(m_library.model(), m_library.database());
    Run previewRun;
    if (preview.run(previewRun) != SyncPreview::Outcome::Done || filesNow() != m_model.files)
        fail(u"the preview"_s);
    SyncPlan plan;
    for (const PreviewSong &song : preview.songs()) {
        SongFields fields = SongFields::all();
        if (isOneOf(3))
            fields.remove(SongFields::Field::Title);
        if (isOneOf(2))
            plan.add(song, fields);
    }
    ScriptedRun run;
    HistoryRecorder recorder(*m_history, RunKind::Synchronisation);
    Synchroniser synchroniser(m_library.model(), m_library.database(), true);
    synchroniser.setRecorder(&recorder);
    synchroniser.setPlan(plan);
    if (synchroniser.run(run) != Synchroniser::Outcome::Done || !run.asked.isEmpty())
        fail(u"asked or interrupted"_s);
    checkRun(RunKind::Synchronisation, filesNow());
}

QList<HistorySong> SongLife::songsToRestore()
{
    const QList<HistoryRun> runs = m_history->runs();
    const int choice = below(6);
    QList<HistorySong> songs;
    if (runs.isEmpty())
        return songs;
    if (choice == 0)
        return m_history->songs(runs.first().id);
    if (choice == 1)
        return m_history->songs(runs.last().id);
    if (choice == 2)
        return m_history->songs(runs.at(below(runs.size())).id);
    for (const HistoryRun &run : runs)
        songs += m_history->songs(run.id);
    if (choice == 3)
        return songs;
    if (choice == 4)
        return {songs.at(below(songs.size()))};
    songs.removeIf([this](const HistorySong &) { return isOneOf(2); });
    return songs;
}

void SongLife::restore()
{
    const QList<HistorySong> songs = songsToRestore();
    QList<qint64> ids;
    QString numbers;
    for (const HistorySong &song : songs) {
        ids.append(song.id);
        numbers += u" %1"_s.arg(song.id);
    }
    QList<bool> answers;
    ScriptedRun run(RunReport::Operation::Restore);
    for (int i = 0; i < 20; ++i) {
        answers.append(isOneOf(2));
        run.answers.append(answers.last() ? Run::Answer::Yes : Run::Answer::No);
    }
    note(u"restore"_s + numbers);
    const RestoreModel::Files before = m_model.files;
    const RestoreModel::Result wanted = m_model.restore(ids, answers);
    const RestoreModel::Files expected = std::exchange(m_model.files, before);
    HistoryRecorder recorder(*m_history, RunKind::Restore);
    if (Restore(m_library.model(), *m_history, songs, &recorder).run(run) != Restore::Outcome::Done)
        fail(u"interrupted"_s);
    const int restored = run.report().counted(RunReport::Success::Restored);
    if (restored != wanted.restored || run.report().skipped() != wanted.skipped ||
        run.report().failed() != wanted.failed || run.asked.size() != wanted.asked)
        fail(u"not %1 restored, %2 skipped, %3 failed, %4 asked, but\n%5\nasked: %6"_s
                 .arg(wanted.restored)
                 .arg(wanted.skipped)
                 .arg(wanted.failed)
                 .arg(wanted.asked)
                 .arg(run.report().text(), run.asked.join(u' ')));
    m_restored += restored;
    checkRun(RunKind::Restore, expected);
}

} // namespace brisel
