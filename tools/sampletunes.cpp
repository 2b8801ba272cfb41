#include "tools/sampletunes.h"

#include <algorithm>
#include <array>

namespace brisel
{

namespace SampleSongs
{

namespace
{

/// Parses a melody: notes as name, octave, colon, sixteenths ("F#4:6"), rests as "r:4", bars
/// separated by "|".
struct Sheet {
    const char *name;
    const char *title;
    const char *key;
    int beats;
    int bpm;
    int pickup;
    const char *melody;
    const char *chords;
    const char *lyrics;
};

constexpr std::array sheets{
    Sheet{"ODEFREUD", "ODE AN DIE FREUDE", "D", 4, 126, 0,
          "F#4:4 F#4:4 G4:4 A4:4 | A4:4 G4:4 F#4:4 E4:4 | D4:4 D4:4 E4:4 F#4:4 | F#4:6 E4:2 E4:8 |"
          "F#4:4 F#4:4 G4:4 A4:4 | A4:4 G4:4 F#4:4 E4:4 | D4:4 D4:4 E4:4 F#4:4 | E4:6 D4:2 D4:8 |"
          "E4:4 E4:4 F#4:4 D4:4 | E4:4 F#4:2 G4:2 F#4:4 D4:4 | E4:4 F#4:2 G4:2 F#4:4 E4:4 |"
          "D4:4 E4:4 A3:8 |"
          "F#4:4 F#4:4 G4:4 A4:4 | A4:4 G4:4 F#4:4 E4:4 | D4:4 D4:4 E4:4 F#4:4 | E4:6 D4:2 D4:8",
          "D A7 D A7 D A7 D A7,D A7 A7 A7 D,A7 D A7 D A7,D", ""},
    Sheet{"FRAMARTI", "FRA MARTINO CAMPANARO", "F", 4, 108, 0,
          "F4:4 G4:4 A4:4 F4:4 | F4:4 G4:4 A4:4 F4:4 | A4:4 Bb4:4 C5:8 | A4:4 Bb4:4 C5:8 |"
          "C5:2 D5:2 C5:2 Bb4:2 A4:4 F4:4 | C5:2 D5:2 C5:2 Bb4:2 A4:4 F4:4 |"
          "F4:4 C4:4 F4:8 | F4:4 C4:4 F4:8",
          "F F F F F F C7,F C7,F",
          "\\Fra |Mar|ti|no |cam|pa|na|ro, |/dor|mi |tu, |dor|mi |tu? "
          "|/Suo|na |le |cam|pa|ne, |suo|na |le |cam|pa|ne, |/din, |don, |dan, |din, |don, |dan."},
    Sheet{"STILLNAC", "STILLE NACHT", "C", 3, 96, 0,
          "G4:6 A4:2 G4:4 | E4:12 | G4:6 A4:2 G4:4 | E4:12 | D5:8 D5:4 | B4:12 | C5:8 C5:4 |"
          "G4:12 | A4:8 A4:4 | C5:6 B4:2 A4:4 | G4:6 A4:2 G4:4 | E4:12 | A4:8 A4:4 |"
          "C5:6 B4:2 A4:4 | G4:6 A4:2 G4:4 | E4:12 | D5:8 D5:4 | F5:6 D5:2 B4:4 | C5:12 | E5:12 |"
          "C5:6 G4:2 E4:4 | G4:6 F4:2 D4:4 | C4:12 | r:12",
          "C C C C G7 G7 C C F F C C F F C C G7 G7 C C C G7 C C", ""},
    Sheet{"TWINKTWI", "TWINKLE TWINKLE LITTLE STAR", "C", 4, 100, 0,
          "C4:4 C4:4 G4:4 G4:4 | A4:4 A4:4 G4:8 | F4:4 F4:4 E4:4 E4:4 | D4:4 D4:4 C4:8 |"
          "G4:4 G4:4 F4:4 F4:4 | E4:4 E4:4 D4:8 | G4:4 G4:4 F4:4 F4:4 | E4:4 E4:4 D4:8 |"
          "C4:4 C4:4 G4:4 G4:4 | A4:4 A4:4 G4:8 | F4:4 F4:4 E4:4 E4:4 | D4:4 D4:4 C4:8",
          "C F,C F,C G7,C C,F C,G7 C,F C,G7 C F,C F,C G7,C", ""},
    Sheet{"AMAZIGRA", "AMAZING GRACE", "G", 3, 84, 4,
          "D4:4 | G4:8 B4:2 G4:2 | B4:8 A4:4 | G4:8 E4:4 | D4:8 D4:4 | G4:8 B4:2 G4:2 |"
          "B4:8 A4:4 | D5:20 B4:4 | D5:8 B4:2 G4:2 | B4:8 A4:4 | G4:8 E4:4 | D4:8 D4:4 |"
          "G4:8 B4:2 G4:2 | B4:8 A4:4 | G4:20",
          "G G C G G Em D7 D7 G G C G Em D7 G G", ""},
    Sheet{"GREENSLE", "GREENSLEEVES", "A-", 3, 120, 4,
          "A4:4 | C5:8 D5:4 | E5:6 F#5:2 E5:4 | D5:8 B4:4 | G4:6 A4:2 B4:4 | C5:8 A4:4 |"
          "A4:6 G#4:2 A4:4 | B4:8 G#4:4 | E4:8 A4:4 | C5:8 D5:4 | E5:6 F#5:2 E5:4 | D5:8 B4:4 |"
          "G4:6 A4:2 B4:4 | C5:6 B4:2 A4:4 | G#4:6 F#4:2 G#4:4 | A4:12 | A4:12 |"
          "G5:12 | G5:6 F#5:2 E5:4 | D5:8 B4:4 | G4:6 A4:2 B4:4 | C5:8 A4:4 | A4:6 G#4:2 A4:4 |"
          "B4:8 G#4:4 | E4:12 | G5:12 | G5:6 F#5:2 E5:4 | D5:8 B4:4 | G4:6 A4:2 B4:4 |"
          "C5:6 B4:2 A4:4 | G#4:6 F#4:2 G#4:4 | A4:12 | A4:8",
          "Am Am G G Am Am E7 E7 Am Am G G Am E7 Am Am C C G G Am Am E7 E7 C C G G Am E7 Am Am",
          ""},
    Sheet{"AULDLANG", "AULD LANG SYNE", "F", 4, 88, 4,
          "C4:4 | F4:6 F4:2 F4:4 A4:4 | G4:6 F4:2 G4:4 A4:4 | F4:6 F4:2 A4:4 C5:4 | D5:12 D5:4 |"
          "C5:6 A4:2 A4:4 F4:4 | G4:6 F4:2 G4:4 A4:4 | F4:6 D4:2 D4:4 C4:4 | F4:12 D5:4 |"
          "C5:6 A4:2 A4:4 F4:4 | G4:6 F4:2 G4:4 D5:4 | C5:6 A4:2 A4:4 C5:4 | D5:12 D5:4 |"
          "C5:6 A4:2 A4:4 F4:4 | G4:6 F4:2 G4:4 A4:4 | F4:6 D4:2 D4:4 C4:4 | F4:12",
          "F C7 F Bb F C7 Bb,C7 F F C7 F Bb F C7 Bb,C7 F", ""},
    Sheet{"JINGLBEL", "JINGLE BELLS", "G", 4, 184, 0,
          "B4:4 B4:4 B4:8 | B4:4 B4:4 B4:8 | B4:4 D5:4 G4:6 A4:2 | B4:16 |"
          "C5:4 C5:4 C5:6 C5:2 | C5:4 B4:4 B4:4 B4:2 B4:2 | B4:4 A4:4 A4:4 B4:4 | A4:8 D5:8 |"
          "B4:4 B4:4 B4:8 | B4:4 B4:4 B4:8 | B4:4 D5:4 G4:6 A4:2 | B4:16 |"
          "C5:4 C5:4 C5:6 C5:2 | C5:4 B4:4 B4:4 B4:2 B4:2 | D5:4 D5:4 C5:4 A4:4 | G4:16",
          "G G G G C G A7 D7 G G G G C G D7 G", ""},
    Sheet{"OHMYDARL", "OH MY DARLING CLEMENTINE", "F", 3, 112, 4,
          "F4:3 F4:1 | F4:4 C4:4 A4:3 A4:1 | A4:4 F4:4 F4:3 A4:1 | C5:6 C5:2 Bb4:3 A4:1 |"
          "G4:8 G4:3 A4:1 | Bb4:4 Bb4:4 A4:3 G4:1 | A4:4 F4:4 F4:3 A4:1 | G4:6 C4:2 E4:3 G4:1 |"
          "F4:8",
          "F F F C7 C7 F C7 F", ""},
    Sheet{"YANKEDOO", "YANKEE DOODLE", "G", 4, 144, 0,
          "G4:4 G4:4 A4:4 B4:4 | G4:4 B4:4 A4:4 D4:4 | G4:4 G4:4 A4:4 B4:4 | G4:8 F#4:8 |"
          "G4:4 G4:4 A4:4 B4:4 | C5:4 B4:4 A4:4 G4:4 | F#4:4 D4:4 E4:4 F#4:4 | G4:8 G4:8 |"
          "E4:6 F#4:2 E4:4 D4:4 | E4:4 F#4:4 G4:8 | D4:6 E4:2 D4:4 C4:4 | B3:8 D4:8 |"
          "E4:6 F#4:2 E4:4 D4:4 | E4:4 F#4:4 G4:4 E4:4 | D4:4 G4:4 F#4:4 A4:4 | G4:8 G4:8",
          "G G,D7 G G,D7 G C D7 G C C G G C C D7 G", ""},
    Sheet{"CUCARACH", "LA CUCARACHA", "F", 4, 132, 6,
          "C4:2 C4:2 C4:2 | F4:6 A4:4 C4:2 C4:2 C4:2 | F4:6 A4:10 |"
          "F4:4 F4:2 E4:2 E4:2 D4:2 D4:4 | C4:10 C4:2 C4:2 C4:2 | E4:6 G4:4 C4:2 C4:2 C4:2 |"
          "E4:6 G4:10 | C5:4 D5:2 C5:2 Bb4:2 A4:2 G4:4 | F4:10",
          "F F F C7 C7 C7 C7 F", ""},
    Sheet{"WHENSAIN", "WHEN THE SAINTS GO MARCHING IN", "F", 4, 176, 12,
          "F4:4 A4:4 Bb4:4 | C5:16 | r:4 F4:4 A4:4 Bb4:4 | C5:16 | r:4 F4:4 A4:4 Bb4:4 |"
          "C5:8 A4:8 | F4:8 A4:8 | G4:16 | r:4 A4:4 A4:4 G4:4 | F4:12 F4:4 | A4:8 C5:4 C5:4 |"
          "Bb4:16 | r:8 A4:4 Bb4:4 | C5:8 A4:8 | F4:8 G4:8 | F4:16 | r:4",
          "F F F F F F C7 C7 F F7 Bb Bb F C7 F F", ""},
    Sheet{"LONDOBRI", "LONDON BRIDGE IS FALLING DOWN", "C", 4, 112, 0,
          "G4:6 A4:2 G4:4 F4:4 | E4:4 F4:4 G4:8 | D4:4 E4:4 F4:8 | E4:4 F4:4 G4:8 |"
          "G4:6 A4:2 G4:4 F4:4 | E4:4 F4:4 G4:8 | D4:8 G4:8 | E4:4 C4:12",
          "C C G7 C C C G7 C", ""},
    Sheet{"", "Esercizio sulla scala di do (pi\u00F9 lento)", "C", 4, 72, 0,
          "C4:4 D4:4 E4:4 F4:4 | G4:4 A4:4 B4:4 C5:4 | C5:4 B4:4 A4:4 G4:4 | F4:4 E4:4 D4:4 C4:4",
          "C,F G7,C C,G7 F,C", ""},
};

Note parseNote(const QString &text)
{
    const QString name = text.section(u':', 0, 0);
    Note note{0, text.section(u':', 1).toInt()};
    if (name == u"r")
        return note;
    static const QString letters = QStringLiteral("C D EF G A B");
    note.pitch = static_cast<int>(letters.indexOf(name.at(0))) + name.count(u'#') -
                 name.count(u'b') + 12 * (name.right(1).toInt() + 1);
    return note;
}

Tune readSheet(const Sheet &sheet)
{
    Tune tune;
    tune.name = QLatin1StringView(sheet.name);
    tune.title = QString::fromUtf8(sheet.title);
    tune.key = QLatin1StringView(sheet.key);
    tune.beats = sheet.beats;
    tune.bpm = sheet.bpm;
    tune.pickup = sheet.pickup;
    QString melody = QString::fromLatin1(sheet.melody);
    const QStringList notes = melody.replace(u'|', u' ').split(u' ', Qt::SkipEmptyParts);
    for (const QString &note : notes)
        tune.melody.append(parseNote(note));
    tune.chords = QString::fromLatin1(sheet.chords).split(u' ');
    tune.lyrics = QString::fromLatin1(sheet.lyrics).split(u'|', Qt::SkipEmptyParts);
    return tune;
}

} // namespace

const QList<Tune> &tunes()
{
    static const QList<Tune> all = [] {
        QList<Tune> read;
        for (const Sheet &sheet : sheets)
            read.append(readSheet(sheet));
        return read;
    }();
    return all;
}

const Tune &tune(const QString &name)
{
    const auto found = std::find_if(tunes().begin(), tunes().end(),
                                    [&name](const Tune &each) { return each.name == name; });
    return found == tunes().end() ? tunes().first() : *found;
}

} // namespace SampleSongs

} // namespace brisel
