#include "songfile/metasong.h"

#include "base/bytes.h"
#include "base/debugstream.h"
#include "base/fileidentity.h"
#include "base/filereading.h"
#include "base/filewriting.h"
#include "base/plainfile.h"
#include "songfile/fieldchange.h"
#include "songfile/mp3writer.h"
#include "songfile/readonlyflag.h"
#include "songfile/songkeeper.h"

#include <QFileInfo>

#include <algorithm>

namespace brisel
{

using namespace Qt::StringLiterals;

namespace
{

constexpr qsizetype magicSize = 4;

/// True for the start of an MP3 file. The second byte is compared as a signed one: 0xF3 to 0xFF are
/// accepted, and also 0 to 0x7F, because there are songs that need it.
bool looksLikeMp3(const QByteArray &start)
{
    constexpr qint8 lastRefused = -14;
    if (start.startsWith("ID3"))
        return true;
    const quint8 first = byteAt(start, 0);
    return (first == 0 && byteAt(start, 1) == 0) ||
           (first == 0xFF && signedByteAt(start, 1) > lastRefused);
}

/// True if a file can probably be written at \a path. Changes nothing.
bool mayBeWritten(const QString &path)
{
    const QFileInfo file(path);
    switch (fileKind(path)) {
    case FileKind::Regular:
        return file.isWritable();
    case FileKind::Missing:
        return !file.isSymLink() && QFileInfo(file.absolutePath()).isWritable();
    default:
        return false;
    }
}

} // namespace

bool MetaSong::importFile(const QString &path)
{
    m_song.clear();
    m_changes.clear();
    m_content.clear();
    m_trouble = Trouble::None;
    m_path = path;
    PlainFile file;
    const bool isLoaded = file.open(path) && load(file, path);
    m_size = file.size();
    m_state = file.state();
    m_loaded = m_song;
    return isLoaded;
}

bool MetaSong::load(const PlainFile &file, const QString &path)
{
    QByteArray start;
    if (!file.read(0, std::min<qint64>(file.size(), magicSize), start)) {
        m_trouble = Trouble::CutShort;
        return false;
    }
    const bool isContainer = ZbxHeader::typeOf(start) != SongInfo::Unknown;
    if (isContainer || start == "MThd") {
        if (!readWhole(file))
            return false;
        return isContainer ? m_song.loadContainer(m_content) : m_song.loadMidi(m_content);
    }
    if (!path.toUpper().endsWith(u"MP3"_s) || !looksLikeMp3(start))
        return false;
    const std::optional<QByteArray> head = readMp3Head(file);
    m_content = head.value_or(QByteArray());
    return head && m_song.loadMp3(m_content);
}

/// Reads the file into m_content. Returns false if it is too large or can't be read to its end.
bool MetaSong::readWhole(const PlainFile &file)
{
    const FileContent content = readWholeFile(file, maxSongSize);
    if (content.result == ReadResult::CutShort)
        m_trouble = Trouble::CutShort;
    m_content = content.bytes;
    return content.isDone();
}

/// Reads the tag and the bytes after it. Returns nothing if the tag is not within the allowed part
/// of the file or can't be read.
std::optional<QByteArray> MetaSong::readMp3Head(const PlainFile &file)
{
    constexpr qint64 behindTag = 4096; ///< bytes of audio by which the song is recognised
    const auto read = [&](qint64 wanted) -> std::optional<QByteArray> {
        QByteArray bytes;
        if (!file.read(0, std::min(file.size(), wanted), bytes))
            m_trouble = Trouble::CutShort;
        return m_trouble == Trouble::None ? std::optional(bytes) : std::nullopt;
    };
    const std::optional<QByteArray> header = read(Mp3Header::tagHeaderSize);
    if (!header)
        return {};
    const qint64 tagSize = header->startsWith("ID3") ? Mp3Header::getId3TagSize(*header) : 0;
    if (tagSize > std::min<qint64>(file.size(), Mp3Header::maxFileStart))
        return {};
    return read(tagSize + Mp3Header::tagHeaderSize + behindTag);
}

void MetaSong::getSongInfo(SongInfo &info) const
{
    info = m_song.info();
    info.format = getFormatString(m_song.fileType());
}

void MetaSong::setSongInfo(const SongInfo &info, bool manual, SongFields fields)
{
    debug() << "[MetaSong] setSongInfo,"
            << "manual: " << manual;
    m_song.setInfo(info, manual, fields);
    m_changes.append({info, manual, fields});
    debug() << "";
}

bool MetaSong::setMarkers(const QList<Marker> &markers)
{
    if (!m_song.setMarkers(markers))
        return false;
    m_changes.append({{}, true, SongFields::none(), markers});
    return true;
}

bool MetaSong::saveToFile(const QString &path)
{
    return save(path, nullptr) == WriteResult::Done;
}

WriteResult MetaSong::saveInLot(const QString &path, FileLot &lot)
{
    return save(path, &lot);
}

WriteResult MetaSong::save(const QString &path, FileLot *lot)
{
    m_trouble = Trouble::None;
    if (!isWholeInMemory()) {
        debug() << "[MetaSong::saveToFile] UNKNOWN format (or data corrupted) in memory, aborting";
        return WriteResult::Failed;
    }
    makeWritable(path);
    // If a program keeps writing, waits a few times only.
    constexpr int maxAttempts = 3;
    WriteResult result = WriteResult::Changed;
    for (int attempt = 0; attempt < maxAttempts && result == WriteResult::Changed; ++attempt) {
        m_trouble = Trouble::None;
        result = isMp3() ? saveMp3(path, lot) : saveMidi(path, lot);
        if (m_keeper != nullptr && result != WriteResult::Staged)
            m_keeper->settle(path, result);
    }
    if (result == WriteResult::Changed) {
        m_trouble = Trouble::ChangedMeanwhile;
        debug() << "[MetaSong::saveToFile] The file was changed meanwhile. Aborting!";
    }
    return result;
}

/// True if \a file starts with, or is, what was read.
bool MetaSong::isAsRead(const PlainFile &file)
{
    QByteArray content;
    if (file.size() < m_content.size() || (!isMp3() && file.size() != m_content.size()))
        return false;
    if (!file.read(0, m_content.size(), content))
        m_trouble = Trouble::CutShort;
    return content == m_content;
}

bool MetaSong::isSameSong(const MetaSong &other) const
{
    constexpr qsizetype fewest = 64;    ///< the fewest bytes of audio that identify a song
    constexpr qint64 tagAtTheEnd = 128; ///< bytes of an older tag that a program may add
    if (m_loaded.hasSameMusicOrNames(other.m_loaded))
        return true;
    if (!isMp3() || !other.isMp3())
        return false;
    const QByteArray audio = m_content.mid(m_loaded.audioStart());
    const QByteArray otherAudio = other.m_content.mid(other.m_loaded.audioStart());
    const qsizetype known = std::min(audio.size(), otherAudio.size());
    const qint64 difference =
        (m_size - m_loaded.audioStart()) - (other.m_size - other.m_loaded.audioStart());
    return known >= fewest && audio.first(known) == otherAudio.first(known) &&
           std::abs(difference) <= tagAtTheEnd;
}

/// Reads a song again that another program has changed since the import, and applies the same
/// changes to it. Returns false if it is no longer the same song.
bool MetaSong::catchUp(const QString &path)
{
    MetaSong now;
    if (m_trouble != Trouble::None || !now.importFile(path) || !isSameSong(now)) {
        if (m_trouble == Trouble::None)
            m_trouble =
                now.m_trouble == Trouble::CutShort ? Trouble::CutShort : Trouble::ChangedMeanwhile;
        return false;
    }
    SongData replayed = m_loaded;
    for (const Change &change : std::as_const(m_changes)) {
        if (change.markers.has_value()) {
            const bool areTheirs = now.m_song.info().markers != replayed.info().markers;
            if (areTheirs || !replayed.setMarkers(*change.markers) ||
                !now.m_song.setMarkers(*change.markers)) {
                m_trouble = Trouble::ChangedMeanwhile;
                return false;
            }
            continue;
        }
        const SongInfo before = replayed.info();
        const SongInfo present = now.m_song.info();
        SongInfo info = change.info;
        info.isKordia = present.isKordia;
        now.m_song.setInfo(change.manual ? withChanges(present, before, change.info) : info,
                           change.manual, change.fields);
        replayed.setInfo(change.info, change.manual, change.fields);
    }
    now.m_changes = m_changes;
    now.m_keeper = m_keeper;
    *this = now;
    return isWholeInMemory();
}

/// Records that the file at \a path now starts with, or is, \a content.
void MetaSong::noteSaved(const QString &path, const QByteArray &content)
{
    if (path != m_path)
        return;
    m_song.noteSaved();
    m_loaded = m_song;
    m_content = content;
    m_changes.clear();
    m_size = fileState(path).size;
}

/// Opens the file at \a path and, if the song was read there, ensures that it is the same.
bool MetaSong::openUnchanged(const QString &path, PlainFile &file)
{
    if (!file.open(path))
        return false;
    if (path != m_path || isAsRead(file))
        return true;
    if (!catchUp(path))
        return false;
    const bool isUnchanged = file.open(path) && isAsRead(file);
    if (!isUnchanged && m_trouble == Trouble::None)
        m_trouble = Trouble::ChangedMeanwhile;
    return isUnchanged;
}

void MetaSong::logTrouble(const PlainFile &file) const
{
    if (m_trouble == Trouble::ChangedMeanwhile && isMp3() && file.size() < m_loaded.audioStart())
        debug() << "[MetaSong::saveToFile] Impossible to seek file.";
    else if (m_trouble == Trouble::ChangedMeanwhile)
        debug() << "[MetaSong::saveToFile] The file was changed meanwhile. Aborting!";
    else
        debug() << "[MetaSong::saveToFile] Impossible to read from file.";
}

WriteResult MetaSong::saveMp3(const QString &path, FileLot *lot)
{
    PlainFile file;
    SongData present;
    const bool isUnchanged = openUnchanged(path, file);
    const std::optional<QByteArray> head = isUnchanged ? readMp3Head(file) : std::nullopt;
    if (!head || !present.loadMp3(*head)) {
        logTrouble(file);
        return WriteResult::Failed;
    }
    const QByteArray tag = m_song.tag();
    if (path == m_path && !keepMp3(file, *head, present.audioStart())) {
        m_trouble = Trouble::CutShort;
        logTrouble(file);
        return WriteResult::Failed;
    }
    const WriteResult result = rewriteMp3(path, file, tag, present.audioStart(), lot, keeping());
    if (result == WriteResult::SourceFailed)
        m_trouble = Trouble::CutShort;
    if (result == WriteResult::Done)
        noteSaved(path, tag + head->mid(present.audioStart()));
    return result;
}

WriteResult MetaSong::saveMidi(const QString &path, FileLot *lot)
{
    PlainFile file;
    const bool isOwnFile = path == m_path;
    WriteResult result = WriteResult::Failed;
    if (mayBeWritten(path)) {
        if (isOwnFile && !openUnchanged(path, file)) {
            logTrouble(file);
            return WriteResult::Failed;
        }
        debug() << (m_song.isContainer() ? "[MetaSong::saveToFile] ZBx"
                                         : "[MetaSong::saveToFile] MIDI");
        const QByteArray content = m_song.fileContent();
        // The space of the replaced file is not freed while the file is open.
        file.close();
        if (isOwnFile) {
            keepMidi(content);
            result = replaceUnchanged(path, content, file.state(), lot, keeping());
        } else if (replaceFile(path, content)) {
            result = WriteResult::Done;
        }
        if (result == WriteResult::Done)
            noteSaved(path, content);
    }
    if (result == WriteResult::Failed || result == WriteResult::NotNamed)
        logFailedSave();
    return result;
}

void MetaSong::logFailedSave()
{
    debug() << "[MetaSong::saveToFile] Impossible to write to file. Maybe it's write "
               "protected? Aborting!";
}

QString MetaSong::getFormatString(SongInfo::fileTypeEnum type)
{
    switch (type) {
    case SongInfo::Midi0:
    case SongInfo::Midi1:
        return u"MIDI"_s;
    case SongInfo::Zb3:
        return u"ZB3"_s;
    case SongInfo::Zb4:
        return u"ZB4"_s;
    case SongInfo::Zb5:
        return u"ZB5"_s;
    case SongInfo::Mp3:
        return u"MP3"_s;
    default:
        return u"UNKNOWN"_s;
    }
}

void MetaSong::removeReadOnlyFlag(const QString &path)
{
    clearReadOnlyFlag(path);
}

int MetaSong::dbgAddMarker(const QString &text, unsigned short bar)
{
    debug() << "[MetaSong] addMarker";
    const int inserted = m_song.addMarker(text, bar);
    debug() << "Marker added, len= " << inserted;
    debug() << "-----------------------------------";
    debug() << "";
    return inserted;
}

} // namespace brisel
