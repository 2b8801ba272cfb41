// The part of SongLife that changes songs as other programs do, and checks what the program did.

#include "tests/lives/songlife.h"

#include <QDirIterator>
#include <QFileInfo>

#include <fileref.h>
#include <tag.h>

#include <utility>

namespace brisel
{

using namespace Qt::StringLiterals;

namespace
{

void writeAll(const RestoreModel::Files &files)
{
    for (auto file = files.cbegin(); file != files.cend(); ++file)
        makeFile(file.key(), file.value());
}

} // namespace

RestoreModel::Files SongLife::filesNow() const
{
    RestoreModel::Files files;
    QDirIterator found(m_library.path(u"songs"_s), QDir::Files | QDir::Hidden,
                       QDirIterator::Subdirectories);
    while (found.hasNext()) {
        const QString path = found.next();
        files.insert(path, fileContent(path));
    }
    return files;
}

/// Gives a song another content, or writes it to a free path.
void SongLife::change()
{
    const QString path = oneOf(m_list);
    note(u"another program writes "_s + path);
    m_model.files[path] = isOneOf(8) ? QByteArray("no song") : content(QFileInfo(path).suffix());
    writeAll({{path, m_model.files[path]}});
}

/// To a place in the list, or to one that is not there.
void SongLife::move()
{
    if (m_model.files.isEmpty())
        return;
    const QString from = oneOf(m_model.files.keys());
    const QString to =
        isOneOf(3) ? path(u"elsewhere/"_s + QFileInfo(from).fileName()) : oneOf(m_list);
    note(u"another program moves %1 to %2"_s.arg(from, to));
    const QByteArray content = m_model.files.take(from);
    QFile::remove(from);
    m_model.files[to] = content;
    writeAll({{to, content}});
}

void SongLife::exchange()
{
    if (m_model.files.isEmpty())
        return;
    const QString one = oneOf(m_model.files.keys());
    const QString other = oneOf(m_model.files.keys());
    note(u"another program exchanges %1 and %2"_s.arg(one, other));
    std::swap(m_model.files[one], m_model.files[other]);
    writeAll(m_model.files);
}

void SongLife::copy()
{
    if (m_model.files.isEmpty())
        return;
    const QString from = oneOf(m_model.files.keys());
    const QString to = oneOf(m_list);
    note(u"another program copies %1 to %2"_s.arg(from, to));
    m_model.files[to] = m_model.files[from];
    writeAll(m_model.files);
}

void SongLife::remove()
{
    if (m_model.files.isEmpty())
        return;
    const QString path = oneOf(m_model.files.keys());
    note(u"another program deletes "_s + path);
    m_model.files.remove(path);
    QFile::remove(path);
}

/// An older version of a song, from a backup of its own.
void SongLife::putBack()
{
    if (m_model.changes.isEmpty())
        return;
    const RestoreModel::Change change = m_model.changes.values().at(below(m_model.changes.size()));
    note(u"another program puts an older version back to "_s + change.path);
    m_model.files[change.path] = isOneOf(2) ? change.before.bytes : change.after.bytes;
    writeAll(m_model.files);
}

void SongLife::fail(const QString &problem)
{
    if (m_problem.isEmpty())
        m_problem = problem;
}

/// After a run of \a kind: the files are \a expected, and the history has everything that it
/// changed.
void SongLife::checkRun(RunKind kind, const RestoreModel::Files &expected)
{
    const RestoreModel::Files files = filesNow();
    for (auto file = files.cbegin(); file != files.cend(); ++file) {
        if (!expected.contains(file.key()) || expected[file.key()] != file.value())
            fail(u"not what it should be: "_s + file.key());
    }
    if (files.size() != expected.size())
        fail(u"a file is missing"_s);
    const QList<HistoryRun> runs = m_history->runs();
    const bool isKept = !runs.isEmpty() && runs.first().id > m_lastRun;
    if (isKept) {
        if (runs.first().kind != kind || !runs.first().hasReport ||
            (runs.size() > 1 && runs.at(1).id > m_lastRun))
            fail(u"another run"_s);
        m_lastRun = runs.first().id;
        checkEntries(runs.first(), files);
    } else if (files != m_model.files) {
        fail(u"changed without an entry"_s);
    }
    if (m_history->trouble().has_value())
        fail(m_history->trouble()->text());
    m_model.files = files;
}

/// Taking the entries of \a run back one by one, the newest first, leads from \a contents to what
/// was there before the run.
void SongLife::checkEntries(const HistoryRun &run, RestoreModel::Files contents)
{
    const QList<HistorySong> songs = m_history->songs(run.id);
    if (songs.size() != run.songs)
        fail(u"the number of songs"_s);
    for (auto song = songs.crbegin(); song != songs.crend(); ++song) {
        const bool isLast = contents.value(song->path) == fileContent(song->path);
        if (isLast && run.kind != RunKind::Restore)
            checkFields(*song);
        if (!takeEntry(*song, contents))
            fail(u"entry %1 is not what %2 was"_s.arg(song->id).arg(song->path));
    }
    if (contents != m_model.files)
        fail(u"the entries of the run do not lead back"_s);
}

bool SongLife::takeEntry(const HistorySong &song, RestoreModel::Files &contents)
{
    const std::optional<QByteArray> old = m_history->oldBytes(song.id);
    if (!old.has_value() || !contents.contains(song.path))
        return false;
    QByteArray &content = contents[song.path];
    const bool isMp3 = song.format == u"MP3"_s;
    const QByteArray audio = isMp3 ? content.mid(song.after.tagSize) : QByteArray();
    const auto fingerprint = [&](const QByteArray &bytes, qint64 tagSize) {
        return isMp3 ? Fingerprint::ofMp3(bytes.left(tagSize), audio, bytes.size())
                     : Fingerprint::ofWhole(bytes);
    };
    const QByteArray before = *old + audio;
    m_model.changes.insert(
        song.id, {song.path, {before, song.before.tagSize}, {content, song.after.tagSize}});
    const bool isRight = fingerprint(content, song.after.tagSize) == song.after &&
                         fingerprint(before, old->size()) == song.before;
    content = before;
    return isRight;
}

/// An independent reader finds the title that the entry has.
void SongLife::checkFields(const HistorySong &song)
{
    if (song.format != u"MP3"_s)
        return;
    const QList<FieldChange> fields = m_history->fields(song.id);
    for (const FieldChange &change : fields) {
        if (change.field != FieldChange::Field::Title)
            continue;
        const TagLib::FileRef file(QFile::encodeName(song.path).constData(), false);
        const QString title = file.isNull() || file.tag() == nullptr
                                  ? QString()
                                  : QString::fromStdString(file.tag()->title().to8Bit(true));
        if (title != change.after)
            fail(u"the title of %1 is %2, not %3"_s.arg(song.path, title, change.after));
    }
}

} // namespace brisel
