#include "songfile/mp3header.h"
#include "base/songtext.h"
#include "fuzz/fuzzing.h"
#include "fuzz/id3parser.h"
#include "fuzz/targets.h"

#include <algorithm>
#include <array>

namespace brisel
{

namespace
{

constexpr qsizetype understoodFrames = 1000;
constexpr int maxChanges = 16;

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

/// A change of a tag.
struct Change {
    QByteArray id;
    QString text;         ///< empty: removes the frame
    bool isAdded = false; ///< true: added to a frame of that name
};

QString beforeZero(const QString &text)
{
    return text.left(text.indexOf(QChar::Null));
}

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

/// Changes \a header, and checks that it returns the new value.
Change change(Mp3Header &header, Script &script)
{
    const unsigned operation = script.byte() % (tagFields.size() + 3);
    if (operation < tagFields.size()) {
        const TagField &field = tagFields.at(operation);
        const QString text = script.text().remove(QChar(QChar::ByteOrderMark));
        (header.*field.set)(text);
        REQUIRE((header.*field.has)() || text.isEmpty());
        REQUIRE(text.isEmpty() || (header.*field.get)() == trimmedSongText(beforeZero(text)));
        return {field.id, text};
    }
    if (operation == tagFields.size()) {
        const int seconds = script.number();
        header.setLength(seconds);
        REQUIRE(seconds <= 0 || header.length() == seconds);
        return {"TLEN", seconds > 0 ? QString::number(qint64{seconds} * 1000) : QString()};
    }
    if (operation == tagFields.size() + 1) {
        const int bpm = script.number();
        header.setUserBpm(bpm);
        REQUIRE(bpm <= 0 || header.userBpm() == bpm);
        return {"TBPM", bpm > 0 ? QString::number(bpm) : QString()};
    }
    header.setBriselEditParam();
    REQUIRE(header.hasBriselEditParam());
    return {"MEDT", QString(3, QChar::Null), true};
}

/// For a tag that the strict parser accepts: every change must keep everything else.
class UnderstoodTag
{
public:
    explicit UnderstoodTag(const Id3Parser::Tag &tag)
        : m_tag(tag), m_loadedEnd(tag.framesEnd), m_loadedPadding(tag.padding)
    {
    }

    void checkTexts(const Mp3Header &header) const
    {
        for (const TagField &field : tagFields) {
            const qsizetype index = m_tag.indexOf(m_tag.name(field.id));
            REQUIRE((header.*field.has)() == (index >= 0));
            const std::optional<QString> text =
                index < 0 ? QString() : m_tag.text(m_tag.frames.at(index));
            REQUIRE(!text || (header.*field.get)() == trimmedSongText(*text));
        }
    }

    void take(const Change &change, const QByteArray &stream)
    {
        std::optional<Id3Parser::Tag> after =
            Id3Parser::parse(stream, understoodFrames + maxChanges);
        REQUIRE(after && after->size == stream.size() && after->version == m_tag.version);
        const QByteArray name = m_tag.name(change.id);
        const qsizetype old = change.isAdded ? -1 : m_tag.indexOf(name);
        const bool isChanged = old >= 0 || !change.text.isEmpty();
        if (!isChanged)
            return;
        if (old >= 0)
            m_tag.frames.removeAt(old);
        const qsizetype added = change.text.isEmpty() ? 0 : 1;
        REQUIRE(after->frames.size() == m_tag.frames.size() + added);
        if (added > 0) {
            const Id3Parser::Frame &frame = after->frames.at(0);
            REQUIRE(frame.name == name && frame.flags.count('\0') == frame.flags.size());
            REQUIRE(after->text(frame) == beforeZero(change.text));
        }
        for (qsizetype i = 0; i < m_tag.frames.size(); ++i) {
            const Id3Parser::Frame &kept = m_tag.frames.at(i);
            const Id3Parser::Frame &found = after->frames.at(i + added);
            REQUIRE(found.name == kept.name && found.flags == kept.flags &&
                    found.content == kept.content);
        }
        const qsizetype growth = std::max<qsizetype>(after->framesEnd - m_loadedEnd, 0);
        REQUIRE(after->padding == std::max<qsizetype>(m_loadedPadding - growth, 0));
        m_tag = *after;
    }

private:
    Id3Parser::Tag m_tag;
    qsizetype m_loadedEnd;
    qsizetype m_loadedPadding;
};

void changeUnderstood(Mp3Header &header, const Id3Parser::Tag &tag, Script &script)
{
    UnderstoodTag model(tag);
    model.checkTexts(header);
    for (int i = 0; i < maxChanges && !script.atEnd(); ++i) {
        const Change made = change(header, script);
        model.take(made, header.stream());
        model.checkTexts(header);
        readAll(header);
    }
}

/// The bytes by which the size field exceeds the tag.
qint64 excess(const QByteArray &tag)
{
    return qint64{Mp3Header::getId3TagSize(tag)} + Mp3Header::tagHeaderSize - tag.size();
}

void changeOther(Mp3Header &header, Script &script)
{
    const QByteArray loaded = header.stream();
    for (int i = 0; i < maxChanges && !script.atEnd(); ++i) {
        change(header, script);
        // A correct size stays correct.
        if (header.stream() != loaded)
            REQUIRE(excess(header.stream()) == std::max<qint64>(excess(loaded), 0));
        readAll(header);
    }
}

} // namespace

void checkMp3Header(const QByteArray &input)
{
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
    REQUIRE(excess(header.stream()) <= Mp3Header::tagHeaderSize);
    REQUIRE(excess(header.stream()) >=
            -Mp3Header::tagHeaderSize); // the size does not include a footer
    readAll(header);
    Script script(input);
    const std::optional<Id3Parser::Tag> tag =
        Id3Parser::parse(hadTag ? input : header.stream(), understoodFrames);
    if (tag)
        changeUnderstood(header, *tag, script);
    else
        changeOther(header, script);
}

} // namespace brisel
