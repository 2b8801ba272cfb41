#include "base/bytes.h"
#include "base/songtext.h"
#include "fuzz/fuzzing.h"
#include "fuzz/targets.h"
#include "songfile/midikeys.h"
#include "songfile/rawmidifile.h"
#include "tests/songfile/midireader.h"

#include <algorithm>
#include <array>
#include <limits>

namespace brisel
{

namespace
{

constexpr quint8 makersMeta = 0x4B;
constexpr int anySubType = -1;

/// Computes byte by byte what a MIDI file must be after each change.
class MidiModel
{
public:
    explicit MidiModel(const QByteArray &file)
        : m_file(file), m_track(file.indexOf("MTrk")), m_length(be32At(file, m_track + 4))
    {
    }

    const QByteArray &bytes() const { return m_file; }
    qsizetype trackStart() const { return m_track + 8; }
    qint64 trackEnd() const { return trackStart() + m_length; }
    /// True if the first track's length field is not larger than the file.
    bool isLengthTrue() const { return trackEnd() <= m_file.size(); }
    QByteArray behindTrack() const { return m_file.mid(trackEnd()); }

    /// Removes the events of a kind from the first track and writes others at its start.
    void replaceEvents(const MidiReader::Kind &kind, const QByteArray &written)
    {
        m_kind = kind;
        m_written = written;
        removeEvents();
        if (trackStart() > m_file.size())
            return;
        m_file = m_file.left(trackStart()) + written + m_file.mid(trackStart());
        resized(written.size());
    }

    /// The events that the last change removed and wrote.
    const MidiReader::Kind &kind() const { return m_kind; }
    const QByteArray &written() const { return m_written; }

    static QByteArray event(quint8 meta, const QByteArray &data)
    {
        return QByteArray("\x00\xFF", 2) + static_cast<char>(meta) +
               static_cast<char>(data.size()) + data;
    }

private:
    void removeEvents()
    {
        const qsizetype end = std::min<qint64>(trackEnd(), m_file.size());
        if (trackStart() > end)
            return;
        QByteArray kept = m_file.left(trackStart());
        qsizetype copied = trackStart();
        const auto skip = [&](const MidiReader::Event &event) {
            if (!MidiReader::isAtZero(event, m_kind))
                return;
            kept += QByteArrayView(m_file).sliced(copied, event.start - copied);
            copied = event.end;
        };
        if (MidiReader::forEachEvent(m_file, trackStart(), end, skip))
            kept += m_file.mid(copied, end - copied);
        else
            kept = withoutLookalikes(end);
        const qsizetype removed = end - kept.size();
        if (removed > 0) {
            m_file = kept + m_file.mid(end);
            resized(-removed);
        }
    }

    /// The file up to the first track's end, without bytes that look like the events.
    QByteArray withoutLookalikes(qsizetype end) const
    {
        QByteArray kept = m_file.left(trackStart());
        for (qsizetype i = trackStart(); i < end;) {
            const bool isEvent =
                byteAt(m_file, i) == 0 && byteAt(m_file, i + 1) == 0xFF && fits(m_file, i, 3) &&
                byteAt(m_file, i + 2) == m_kind.type &&
                (m_kind.subType == anySubType || byteAt(m_file, i + 4) == m_kind.subType);
            const qint64 size = std::min<qint64>(signedByteAt(m_file, i + 3) + 4, end - i);
            if (isEvent && size > 0)
                i += size;
            else
                kept += m_file.at(i++);
        }
        return kept;
    }

    void resized(qint64 bytes)
    {
        m_length = std::clamp<qint64>(m_length + bytes, 0, std::numeric_limits<quint32>::max());
        putBe32(m_file, m_track + 4, static_cast<quint32>(m_length));
    }

    QByteArray m_file;
    qsizetype m_track;
    qint64 m_length;
    MidiReader::Kind m_kind;
    QByteArray m_written;
};

struct TextField {
    quint8 meta;
    int subType;
    void (RawMidiFile::*set)(const QString &);
    QString (RawMidiFile::*get)() const;
    bool (RawMidiFile::*has)() const;
};

constexpr std::array textFields{TextField{0x03, anySubType, &RawMidiFile::setTitle,
                                          &RawMidiFile::title, &RawMidiFile::hasTitle},
                                TextField{makersMeta, RawMidiFile::Genre, &RawMidiFile::setGenre,
                                          &RawMidiFile::genre, &RawMidiFile::hasGenre},
                                TextField{makersMeta, RawMidiFile::Artist, &RawMidiFile::setArtist,
                                          &RawMidiFile::artist, &RawMidiFile::hasArtist},
                                TextField{makersMeta, RawMidiFile::Author, &RawMidiFile::setAuthor,
                                          &RawMidiFile::author, &RawMidiFile::hasAuthor}};

QByteArray fieldData(const TextField &field, const QByteArray &text)
{
    return field.subType == anySubType ? text : static_cast<char>(field.subType) + text;
}

void readAll(const RawMidiFile &file)
{
    for (const TextField &field : textFields)
        REQUIRE((file.*field.get)().isEmpty() || (file.*field.has)());
    REQUIRE(file.length() >= 0 && (file.length() == 0 || file.hasLength()));
    REQUIRE(file.userBpm() >= 0 && (file.userBpm() == 0 || file.hasUserBpm()));
    REQUIRE(file.key().isEmpty() || file.hasKey());
    REQUIRE(file.markersList().isEmpty() == !file.hasMarkers());
    static_cast<void>(file.isKordia());
}

void changeText(RawMidiFile &file, MidiModel &model, Script &script, const TextField &field)
{
    const QString text = script.text();
    const QByteArray written = songBytes(text.left(RawMidiFile::maxText));
    (file.*field.set)(text);
    model.replaceEvents({field.meta, field.subType},
                        MidiModel::event(field.meta, fieldData(field, written)));
    if (model.trackStart() <= model.bytes().size())
        REQUIRE((file.*field.get)() == songText(written));
}

void changeNumber(RawMidiFile &file, MidiModel &model, Script &script, bool isLength)
{
    const int number = script.number();
    const int subType = isLength ? RawMidiFile::Length : RawMidiFile::UserBpm;
    if (isLength)
        file.setLength(number);
    else
        file.setUserBpm(number);
    const QByteArray data = static_cast<char>(subType) + QByteArray::number(number);
    model.replaceEvents({makersMeta, subType}, MidiModel::event(makersMeta, data));
    if (model.trackStart() <= model.bytes().size())
        REQUIRE((isLength ? file.length() : file.userBpm()) == std::max(number, 0));
}

void changeKey(RawMidiFile &file, MidiModel &model, Script &script)
{
    constexpr quint8 keyMeta = 0x59;
    const QStringList names = RawMidiFile::getKeysList();
    const quint8 choice = script.byte();
    const QString name = choice < names.size() ? names.at(choice) : script.text();
    file.setKey(name);
    const QString plainName = QString(name).remove(u' ');
    std::optional<quint16> value = MidiKeys::valueOf(plainName);
    if (plainName.isEmpty() && !name.isEmpty())
        value = 0;
    QByteArray data(2, '\0');
    putBe16(data, 0, value.value_or(0));
    model.replaceEvents({keyMeta, anySubType},
                        value ? MidiModel::event(keyMeta, data) : QByteArray());
    if (value && model.trackStart() <= model.bytes().size())
        REQUIRE(file.key() == MidiKeys::nameOf(*value));
}

/// A marker's text as written: the event's length is 127 at most.
QByteArray markerText(const QString &text)
{
    constexpr int longest = 124;
    return songBytes(text.left(longest));
}

QByteArray markerEvent(const Marker &marker)
{
    QByteArray data(3, RawMidiFile::Marker);
    putBe16(data, 1, static_cast<quint16>(marker.bar));
    return MidiModel::event(makersMeta, data + markerText(marker.text));
}

void changeMarkers(RawMidiFile &file, MidiModel &model, Script &script)
{
    QList<Marker> markers;
    QByteArray events;
    for (int left = script.byte() % 8; left > 0; --left) {
        const Marker marker{script.text(), script.number()};
        markers.append(marker);
        events += markerEvent(marker);
    }
    file.setMarkersList(markers);
    // Writing markers always removes authors.
    model.replaceEvents({makersMeta, RawMidiFile::Author}, events);
    if (model.trackStart() > model.bytes().size())
        return;
    const QList<Marker> read = file.markersList();
    REQUIRE(read.size() >= markers.size());
    for (qsizetype i = 0; i < markers.size(); ++i) {
        REQUIRE(read.at(i).bar == static_cast<quint16>(markers.at(i).bar));
        REQUIRE(read.at(i).text == songText(markerText(markers.at(i).text)));
    }
}

void change(RawMidiFile &file, MidiModel &model, Script &script)
{
    const unsigned operation = script.byte() % (textFields.size() + 5);
    switch (operation) {
    case textFields.size():
    case textFields.size() + 1:
        return changeNumber(file, model, script, operation == textFields.size());
    case textFields.size() + 2:
        return changeKey(file, model, script);
    case textFields.size() + 3:
        return changeMarkers(file, model, script);
    case textFields.size() + 4: {
        const QString text = script.text();
        const auto bar = static_cast<quint16>(script.number());
        file.insertMarker(text, bar);
        constexpr int noSubType = 0x100;
        return model.replaceEvents({makersMeta, noSubType}, markerEvent({text, bar}));
    }
    default:
        return changeText(file, model, script, textFields.at(operation));
    }
}

/// A song that the strict reader accepts keeps every event that the change did not concern.
void requireAllElse(const QByteArray &before, const QByteArray &after, const MidiModel &model)
{
    constexpr qsizetype longest = 65536; ///< bytes: reading takes time and memory
    if (before.size() <= longest && MidiReader::readTracks(before))
        REQUIRE(MidiReader::whatChanged(before, after, model.kind(), model.written()).isEmpty());
}

} // namespace

void checkMidiFile(const QByteArray &input)
{
    constexpr int maxChanges = 16;
    RawMidiFile file;
    if (!file.loadData(input)) {
        REQUIRE(file.stream().isEmpty());
        file.setTitle(QStringLiteral("title"));
        file.setMarkersList({{QStringLiteral("marker"), 1}});
        REQUIRE(file.stream().isEmpty());
        readAll(file);
        return;
    }
    REQUIRE(file.stream() == input);
    readAll(file);
    MidiModel model(input);
    const bool isLengthTrue = model.isLengthTrue();
    const QByteArray behindTrack = model.behindTrack();
    Script script(input);
    for (int i = 0; i < maxChanges && !script.atEnd(); ++i) {
        const QByteArray before = file.stream();
        change(file, model, script);
        // A correct length field stays correct, and the bytes after the first track stay the same.
        REQUIRE(file.stream() == model.bytes());
        REQUIRE(!isLengthTrue || (model.isLengthTrue() && model.behindTrack() == behindTrack));
        requireAllElse(before, file.stream(), model);
        readAll(file);
    }
}

} // namespace brisel
