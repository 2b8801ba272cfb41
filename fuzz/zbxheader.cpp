#include "songfile/zbxheader.h"
#include "base/bytes.h"
#include "base/songtext.h"
#include "fuzz/fuzzing.h"
#include "fuzz/targets.h"

#include <algorithm>

namespace brisel
{

namespace
{

constexpr qsizetype textWidth = 32;

/// Requires that \a now differs from \a before only in the \a width bytes at \a pos.
void requireOnlyChanged(const QByteArray &before, const QByteArray &now, qsizetype pos,
                        qsizetype width)
{
    REQUIRE(now.size() == before.size());
    REQUIRE(now.left(pos) == before.left(pos));
    REQUIRE(now.mid(pos + width) == before.mid(pos + width));
}

void readAll(const ZbxHeader &header)
{
    for (const QString &text : {header.title(), header.artist(), header.author(), header.genre(),
                                header.editor(), header.copyright(), header.longName()})
        REQUIRE(text.size() <= textWidth && !text.contains(QChar::Null));
    REQUIRE(header.hasTitle() == !header.title().isEmpty());
    REQUIRE(header.hasArtist() == !header.artist().isEmpty());
    REQUIRE(header.hasAuthor() == !header.author().isEmpty());
    REQUIRE(header.hasGenre() == !header.genre().isEmpty());
    REQUIRE(header.hasLongName() == !header.longName().isEmpty());
    REQUIRE(header.hasValidTempo() == (header.tempo() > 0 && header.tempo() < 500));
    REQUIRE(header.flags() >= -128 && header.flags() <= 127);
}

void setText(ZbxHeader &header, const QString &text, void (ZbxHeader::*set)(const QString &),
             QString (ZbxHeader::*get)() const, qsizetype pos)
{
    const QByteArray before = header.header();
    (header.*set)(text);
    requireOnlyChanged(before, header.header(), pos, textWidth);
    if (!before.isEmpty())
        REQUIRE((header.*get)() == songText(songBytes(text.left(textWidth))));
}

void change(ZbxHeader &header, Script &script)
{
    const QByteArray before = header.header();
    switch (script.byte() % 8) {
    case 0:
        return setText(header, script.text(), &ZbxHeader::setTitle, &ZbxHeader::title, 122);
    case 1:
        return setText(header, script.text(), &ZbxHeader::setAuthor, &ZbxHeader::author, 186);
    case 2:
        return setText(header, script.text(), &ZbxHeader::setArtist, &ZbxHeader::artist, 218);
    case 3:
        return setText(header, script.text(), &ZbxHeader::setGenre, &ZbxHeader::genre, 250);
    case 4: {
        const int tempo = script.number();
        header.setTempo(tempo);
        requireOnlyChanged(before, header.header(), 38, 2);
        if (!before.isEmpty())
            REQUIRE(header.tempo() == static_cast<quint16>(tempo));
        return;
    }
    case 5:
        header.setFlag(ZbxHeader::HasMarkers);
        requireOnlyChanged(before, header.header(), 185, 1);
        if (!before.isEmpty())
            REQUIRE(byteAt(header.header(), 185) == (byteAt(before, 185) | 1));
        return;
    case 6:
        header.setSize(static_cast<unsigned>(script.number()));
        return requireOnlyChanged(before, header.header(), 4, 4);
    default:
        header.setOrigSize(static_cast<unsigned>(script.number()));
        return requireOnlyChanged(before, header.header(), 12, 4);
    }
}

} // namespace

void checkZbxHeader(const QByteArray &input)
{
    constexpr int maxChanges = 16;
    const SongInfo::fileTypeEnum type = ZbxHeader::typeOf(input);
    ZbxHeader header;
    const bool loaded = header.loadHeader(input);
    REQUIRE(loaded == (type != SongInfo::Unknown && input.size() >= ZbxHeader::sizeOf(type)));
    REQUIRE(header.header() == (loaded ? input : QByteArray()));
    readAll(header);
    Script script(input);
    for (int i = 0; i < maxChanges && !script.atEnd(); ++i) {
        change(header, script);
        readAll(header);
    }
}

} // namespace brisel
