#include "songfile/mp3header.h"
#include "base/bytes.h"
#include "base/songtext.h"
#include "fuzz/fuzzing.h"
#include "fuzz/targets.h"

#include <algorithm>
#include <array>

namespace
{

/// What a tag must look like after each change, worked out byte by byte.
class TagModel
{
public:
    explicit TagModel(const QByteArray &tag) : m_tag(tag), m_size(Mp3Header::getId3TagSize(tag)) {}

    const QByteArray &bytes() const { return m_tag; }
    /// Bytes that the size field claims more than there are.
    qint64 excess() const { return m_size + Mp3Header::tagHeaderSize - m_tag.size(); }

    void setText(const QByteArray &id, const QByteArray &text)
    {
        removeFirst(id);
        if (!text.isEmpty())
            insertFirst(id, text);
    }

    void insertFirst(const QByteArray &id, const QByteArray &text)
    {
        QByteArray size(4, '\0');
        putBe32(size, 0, static_cast<quint32>(text.size() + 1));
        const QByteArray frame = id + size + QByteArray(3, '\0') + text;
        m_tag = m_tag.left(Mp3Header::tagHeaderSize) + frame + m_tag.mid(Mp3Header::tagHeaderSize);
        resized(frame.size());
    }

private:
    void removeFirst(const QByteArray &id)
    {
        const qsizetype pos = m_tag.indexOf(id, Mp3Header::tagHeaderSize);
        if (pos < 0 || pos >= m_size + Mp3Header::tagHeaderSize)
            return;
        const qint64 claimed = qint64{be32At(m_tag, pos + 4)} + 10;
        const qint64 removed = std::min({claimed, m_size + Mp3Header::tagHeaderSize - pos,
                                         static_cast<qint64>(m_tag.size() - pos)});
        m_tag = m_tag.left(pos) + m_tag.mid(pos + removed);
        resized(-removed);
    }

    void resized(qint64 bytes)
    {
        m_size += bytes;
        for (int i = 0; i < 4; ++i)
            putByte(m_tag, 6 + i, static_cast<quint8>((m_size >> (21 - 7 * i)) & 0x7F));
    }

    QByteArray m_tag;
    qint64 m_size;
};

struct TagField {
    const char *id;
    void (Mp3Header::*set)(const QString &);
    QString (Mp3Header::*get)() const;
    bool (Mp3Header::*has)() const;
};

constexpr std::array tagFields{
    TagField{"TIT2", &Mp3Header::setTitle, &Mp3Header::title, &Mp3Header::hasTitle},
    TagField{"TPE1", &Mp3Header::setArtist, &Mp3Header::artist, &Mp3Header::hasArtist},
    TagField{"TCOM", &Mp3Header::setAuthor, &Mp3Header::author, &Mp3Header::hasAuthor},
    TagField{"TCON", &Mp3Header::setGenre, &Mp3Header::genre, &Mp3Header::hasGenre},
    TagField{"TKEY", &Mp3Header::setKey, &Mp3Header::key, &Mp3Header::hasKey}};

void readAll(const Mp3Header &header)
{
    for (const TagField &field : tagFields) {
        const QString text = (header.*field.get)();
        REQUIRE(text.isEmpty() || (header.*field.has)());
        REQUIRE(!text.contains(QChar::Null));
    }
    REQUIRE(header.length() >= 0 && (header.length() == 0 || header.hasLength()));
    REQUIRE(header.userBpm() >= 0 && (header.userBpm() == 0 || header.hasUserBpm()));
    static_cast<void>(header.isKordia());
}

void change(Mp3Header &header, TagModel &model, Script &script)
{
    const unsigned operation = script.byte() % (tagFields.size() + 3);
    if (operation < tagFields.size()) {
        const TagField &field = tagFields.at(operation);
        const QString text = script.text();
        (header.*field.set)(text);
        model.setText(field.id, songBytes(text));
        if (!text.isEmpty())
            REQUIRE((header.*field.get)() == songText(songBytes(text)));
    } else if (operation == tagFields.size()) {
        const int seconds = script.number();
        header.setLength(seconds);
        model.setText("TLEN", seconds > 0 ? QByteArray::number(qint64{seconds} * 1000) : "");
        REQUIRE(seconds <= 0 || header.length() == seconds);
    } else if (operation == tagFields.size() + 1) {
        const int bpm = script.number();
        header.setUserBpm(bpm);
        model.setText("TBPM", bpm > 0 ? QByteArray::number(bpm) : "");
        REQUIRE(bpm <= 0 || header.userBpm() == bpm);
    } else {
        header.setBriselEditParam();
        model.insertFirst("MEDT", QByteArray(3, '\0'));
        REQUIRE(header.hasBriselEditParam());
    }
}

} // namespace

void checkMp3Header(const QByteArray &input)
{
    constexpr int maxChanges = 16;
    Mp3Header header;
    if (!header.loadHeader(input)) {
        REQUIRE(header.stream().isEmpty());
        header.setTitle(QStringLiteral("title"));
        header.setBriselEditParam();
        REQUIRE(header.stream().isEmpty() || input.size() < Mp3Header::tagHeaderSize);
        readAll(header);
        return;
    }
    const bool hadTag = input.startsWith("ID3");
    REQUIRE(hadTag == input.startsWith(header.stream()));
    REQUIRE(hadTag == (header.getAudioDataStartPos() > 0));
    TagModel model(header.stream());
    const qint64 excess = model.excess();
    REQUIRE(excess >= 0 && excess <= Mp3Header::tagHeaderSize);
    readAll(header);
    Script script(input);
    for (int i = 0; i < maxChanges && !script.atEnd(); ++i) {
        change(header, model, script);
        // The size says what the frames take, if it did before, and nothing else has changed.
        REQUIRE(header.stream() == model.bytes());
        REQUIRE(Mp3Header::getId3TagSize(header.stream()) + Mp3Header::tagHeaderSize -
                    header.stream().size() ==
                excess);
        readAll(header);
    }
}
