#include "base/bytes.h"
#include "base/songtext.h"
#include "fuzz/fuzzing.h"
#include "fuzz/targets.h"
#include "songfile/midikeys.h"
#include "songfile/rawmidifile.h"

#include <algorithm>
#include <array>
#include <limits>

namespace
{

constexpr quint8 makersMeta = 0x4B;
constexpr int anySubType = -1;

/// What a MIDI file must look like after each change, worked out byte by byte.
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
    /// True when the length field names bytes that are there.
    bool isLengthTrue() const { return trackEnd() <= m_file.size(); }
    QByteArray behindTrack() const { return m_file.mid(trackEnd()); }

    void removeEvents(quint8 meta, int subType)
    {
        const qint64 end = std::min<qint64>(trackEnd(), m_file.size());
        QByteArray kept = m_file.left(trackStart());
        qsizetype removed = 0;
        for (qsizetype i = trackStart(); i < end;) {
            const bool isEvent = byteAt(m_file, i) == 0 && byteAt(m_file, i + 1) == 0xFF &&
                                 fits(m_file, i, 3) && byteAt(m_file, i + 2) == meta &&
                                 (subType == anySubType || byteAt(m_file, i + 4) == subType);
            const qint64 size = std::min<qint64>(signedByteAt(m_file, i + 3) + 4, end - i);
            if (isEvent && size > 0) {
                i += size;
                removed += size;
            } else {
                kept += m_file.at(i++);
            }
        }
        if (removed > 0) {
            m_file = kept + m_file.mid(end);
            resized(-removed);
        }
    }

    void insertEvent(quint8 meta, const QByteArray &data) { insert(event(meta, data)); }

    void insert(const QByteArray &events)
    {
        if (trackStart() > m_file.size())
            return;
        m_file = m_file.left(trackStart()) + events + m_file.mid(trackStart());
        resized(events.size());
    }

    static QByteArray event(quint8 meta, const QByteArray &data)
    {
        return QByteArray("\x00\xFF", 2) + static_cast<char>(meta) +
               static_cast<char>(data.size()) + data;
    }

private:
    void resized(qint64 bytes)
    {
        m_length = std::clamp<qint64>(m_length + bytes, 0, std::numeric_limits<quint32>::max());
        putBe32(m_file, m_track + 4, static_cast<quint32>(m_length));
    }

    QByteArray m_file;
    qsizetype m_track;
    qint64 m_length;
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
    model.removeEvents(field.meta, field.subType);
    model.insertEvent(field.meta, fieldData(field, written));
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
    model.removeEvents(makersMeta, subType);
    model.insertEvent(makersMeta, static_cast<char>(subType) + QByteArray::number(number));
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
    model.removeEvents(keyMeta, anySubType);
    if (name.isEmpty())
        return;
    const QString plainName = QString(name).remove(u' ');
    const std::optional<quint16> value =
        plainName.isEmpty() ? std::optional<quint16>(0) : MidiKeys::valueOf(plainName);
    if (!value)
        return;
    QByteArray data(2, '\0');
    putBe16(data, 0, *value);
    model.insertEvent(keyMeta, data);
    if (model.trackStart() <= model.bytes().size())
        REQUIRE(file.key() == MidiKeys::nameOf(*value));
}

void changeMarkers(RawMidiFile &file, MidiModel &model, Script &script)
{
    QList<Marker> markers;
    QByteArray events;
    for (int left = script.byte() % 8; left > 0; --left) {
        const Marker marker{script.text(), script.number()};
        markers.append(marker);
        QByteArray data(3, RawMidiFile::Marker);
        putBe16(data, 1, static_cast<quint16>(marker.bar));
        events +=
            MidiModel::event(makersMeta, data + songBytes(marker.text.left(RawMidiFile::maxText)));
    }
    file.setMarkersList(markers);
    // Authors go when markers come: always so.
    model.removeEvents(makersMeta, RawMidiFile::Author);
    model.insert(events);
    if (model.trackStart() > model.bytes().size())
        return;
    const QList<Marker> read = file.markersList();
    REQUIRE(read.size() >= markers.size());
    for (qsizetype i = 0; i < markers.size(); ++i) {
        REQUIRE(read.at(i).bar == static_cast<quint16>(markers.at(i).bar));
        REQUIRE(read.at(i).text ==
                songText(songBytes(markers.at(i).text.left(RawMidiFile::maxText))));
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
        QByteArray data(3, RawMidiFile::Marker);
        putBe16(data, 1, bar);
        return model.insertEvent(makersMeta, data + songBytes(text.left(RawMidiFile::maxText)));
    }
    default:
        return changeText(file, model, script, textFields.at(operation));
    }
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
        change(file, model, script);
        // The length field names the bytes that are there, if it did before: what stands behind
        // the first track stays where the field says.
        REQUIRE(file.stream() == model.bytes());
        REQUIRE(!isLengthTrue || (model.isLengthTrue() && model.behindTrack() == behindTrack));
        readAll(file);
    }
}
