#pragma once

#include "tests/index/samplememory.h"

namespace brisel
{

/// A memory of four songs and its fifteen files, every byte written out by hand.
///
///     record  id  path         title  artist  genre
///     0       0   /A.MID       ONE    ANNA    POP
///     1       1   /BASI/B.MP3  TWO    BRUNO   ROCK
///     2       3   /C.KAR       THREE  ANNA    ROCK
///     3       7   /BASI/D.MP3  FOUR   BRUNO   POP
class HandMadeSet : public SampleMemory
{
public:
    HandMadeSet()
    {
        using namespace Sample;
        write(u"A.MID"_qs, midiSong("One", "Anna", "Pop"));
        write(u"BASI/B.MP3"_qs, mp3Song("Two", "Bruno", "Rock"));
        write(u"C.KAR"_qs, midiSong("Three", "Anna", "Rock"));
        write(u"BASI/D.MP3"_qs, mp3Song("Four", "Bruno", "Pop"));

        const QByteArray date = "20091231235958";
        write(u"index.id2"_qs, pathRecord("00000000", "/A.MID", date) +
                                   pathRecord("00000001", "/BASI/B.MP3", date) +
                                   pathRecord("00000003", "/C.KAR", date) +
                                   pathRecord("00000007", "/BASI/D.MP3", date));
        write(u"ordfile.id2"_qs, hex("0000010003000200"));
        write(u"title.id2"_qs, four() + one() + three() + two());
        write(u"atitle.id2"_qs,
              alphabet({{152, "00000000"}, {188, "00000040"}, {208, "00000080"}}));
        write(u"artist.id2"_qs, groupHeader("00000002", "ANNA") + one() + three() +
                                    groupHeader("00020002", "BRUNO") + four() + two());
        write(u"aartist.id2"_qs, alphabet({{132, "00000000"}, {136, "000000C0"}}));
        write(u"genre.id2"_qs, groupHeader("00000002", "POP") + four() + one() +
                                   groupHeader("00020002", "ROCK") + three() + two());
        write(u"agenre.id2"_qs, alphabet({{192, "00000000"}, {200, "000000C0"}}));
        write(u"title3.id2"_qs, four() + two());
        write(u"atitle3.id2"_qs, alphabet({{152, "00000000"}, {208, "00000040"}}));
        write(u"artist3.id2"_qs, groupHeader("00000002", "BRUNO") + four() + two());
        write(u"aartist3.id2"_qs, alphabet({{136, "00000000"}}));
        write(u"genre3.id2"_qs,
              groupHeader("00000001", "POP") + four() + groupHeader("00010001", "ROCK") + two());
        write(u"agenre3.id2"_qs, alphabet({{192, "00000000"}, {200, "00000080"}}));
        write(u"fsinfos.id2"_qs, hex("040002000200020001000200"));
    }

    static QByteArray one() { return Sample::songRecord("00000000", "ONE", "7800"); }
    static QByteArray two() { return Sample::songRecord("00000001", "TWO", "0001"); }
    static QByteArray three() { return Sample::songRecord("00000003", "THREE", "7800"); }
    static QByteArray four() { return Sample::songRecord("00000007", "FOUR", "0001"); }

    /// Overwrites the bytes at \a pos of a file.
    void patch(const QString &name, qsizetype pos, const QByteArray &bytes) const
    {
        write(name, read(name).replace(pos, bytes.size(), bytes));
    }
    /// Exchanges two records of a file.
    void exchange(const QString &name, qsizetype first, qsizetype second) const
    {
        const QByteArray content = read(name);
        patch(name, first * 64, content.mid(second * 64, 64));
        patch(name, second * 64, content.mid(first * 64, 64));
    }
    void cut(const QString &name, qsizetype bytes) const { write(name, read(name).chopped(bytes)); }
    /// Adds playlist 7, with \a content as its songs.
    void addPlaylist(const QByteArray &content) const
    {
        write(u"playlist/playlist.dat"_qs, Sample::field("\x07", 32));
        write(u"playlist/play0007.dat"_qs, content);
    }
};

} // namespace brisel
