#include "tools/samplesongs.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <array>

namespace brisel
{

namespace SampleSongs
{

namespace
{

constexpr int verses = 2;
constexpr int audioSeconds = 3; // of an MP3

/// A record with the field that every sample of \a tune has: its title.
SongInfo titled(const Tune &tune)
{
    SongInfo info;
    info.title = tune.title;
    return info;
}

/// A record with everything filled in.
SongInfo complete(const Tune &tune, const QString &artist, const QString &author,
                  const QString &genre)
{
    SongInfo info = titled(tune);
    info.artist = artist;
    info.author = author;
    info.genre = genre;
    info.key = tune.key;
    info.userBpm = tune.bpm;
    info.length = seconds(tune, verses, tune.bpm);
    return info;
}

Sample midiSample(const QString &fileName, int format, const Tune &tune, const SongInfo &info)
{
    Sample sample;
    sample.fileName = fileName;
    sample.catalogueName = tune.name;
    sample.expected = info;
    sample.expected.format = u"MIDI"_qs;
    MidiOptions options;
    options.format = format;
    options.tune = tune;
    options.verses = verses;
    options.karaoke = fileName.endsWith(u".kar");
    options.info = info;
    sample.content = midi(options);
    return sample;
}

/// Stores \a info in the header; key, length and markers in the MIDI data.
Sample containerSample(const QString &fileName, SongInfo::fileTypeEnum generation, const Tune &tune,
                       SongInfo info)
{
    info.isKordia = true;
    info.zbxFlags = info.markers.isEmpty() ? 0 : 1;
    Sample sample;
    sample.fileName = fileName;
    sample.catalogueName = tune.name;
    sample.expected = info;
    sample.expected.format = u"ZB%1"_qs.arg(generation);
    MidiOptions options;
    options.tune = tune;
    options.verses = verses;
    options.info = info;
    sample.content = container(generation, info, midi(options));
    return sample;
}

Sample mp3Sample(const QString &fileName, Tag tag, const Tune &tune, SongInfo info)
{
    info.length = audioSeconds;
    info.markers.clear(); // a tag has no place for them
    Sample sample;
    sample.fileName = fileName;
    sample.catalogueName = tune.name;
    sample.content = mp3(tag, info, audioSeconds);
    if (tag != Tag::None)
        sample.expected = info;
    sample.expected.format = u"MP3"_qs;
    return sample;
}

void addMidis(QList<Sample> &samples)
{
    const Tune &ode = tune(u"ODEFREUD"_qs);
    SongInfo info = titled(ode);
    info.title = u"Ode"_qs;
    info.isKordia = true;
    samples.append(midiSample(u"ODEFREUD.MID"_qs, 1, ode, info));

    const Tune &star = tune(u"TWINKTWI"_qs);
    samples.append(midiSample(u"twinktwi.mid"_qs, 0, star, titled(star)));

    const Tune &martin = tune(u"FRAMARTI"_qs);
    info = complete(martin, u"Coro dei bambini"_qs, u"Traditional"_qs, u"INFANZIA"_qs);
    samples.append(midiSample(u"FRAMARTI.kar"_qs, 1, martin, info));

    const Tune &syne = tune(u"AULDLANG"_qs);
    info = titled(syne);
    info.title = u"Auld Lang Syne"_qs;
    samples.append(midiSample(u"Valzer delle candele.mid"_qs, 1, syne, info));

    const Tune &greensleeves = tune(u"GREENSLE"_qs);
    info = complete(greensleeves, u"TRADITIONAL"_qs, u"Traditional"_qs, u"FOLK"_qs);
    info.markers = markers(greensleeves, verses);
    info.isKordia = true;
    samples.append(midiSample(u"Greens02.mid"_qs, 0, greensleeves, info));

    const Tune &scale = tune(QString());
    info = titled(scale);
    info.artist = u"Accademia di Forl\u00EC"_qs;
    samples.append(midiSample(u"SCALADO.MID"_qs, 1, scale, info));
}

void addContainers(QList<Sample> &samples)
{
    const Tune &night = tune(u"STILLNAC"_qs);
    SongInfo info = titled(night);
    info.artist = u"--"_qs;
    info.author = u"-"_qs;
    info.zbxLongName = u"STILLNAC.ZB3"_qs;
    samples.append(containerSample(u"NATALE01.zb3"_qs, SongInfo::Zb3, night, info));

    const Tune &grace = tune(u"AMAZIGRA"_qs);
    info = complete(grace, u"John Newton"_qs, u"John Newton"_qs, u"GOSPEL"_qs);
    info.title = u"-"_qs;
    info.markers = markers(grace, verses);
    info.zbxLongName = u"AMAZIGRA"_qs;
    samples.append(containerSample(u"AMAZIGRA.zb4"_qs, SongInfo::Zb4, grace, info));

    const Tune &bells = tune(u"JINGLBEL"_qs);
    info = complete(bells, u"JAMES LORD PIERPONT"_qs, u"James Lord Pierpont"_qs, u"NATALE"_qs);
    info.markers = markers(bells, verses);
    samples.append(containerSample(u"SLITTA.ZB5"_qs, SongInfo::Zb5, bells, info));
}

void addMp3s(QList<Sample> &samples)
{
    const Tune &clementine = tune(u"OHMYDARL"_qs);
    samples.append(mp3Sample(u"ohmydarl.mp3"_qs, Tag::Id3v22, clementine,
                             complete(clementine, u"TRADITIONAL"_qs, {}, u"FOLK"_qs)));

    const Tune &cucaracha = tune(u"CUCARACH"_qs);
    SongInfo info = complete(cucaracha, u"Mariachi"_qs, u"Traditional"_qs, u"LATIN"_qs);
    info.isKordia = true;
    samples.append(mp3Sample(u"Cucaracha.mp3"_qs, Tag::Id3v23, cucaracha, info));
    Sample graphics;
    graphics.fileName = u"Cucaracha.cdg"_qs;
    graphics.content = cdg(audioSeconds);
    graphics.isSong = false;
    samples.append(graphics);

    const Tune &saints = tune(u"WHENSAIN"_qs);
    samples.append(mp3Sample(u"Saints.MP3"_qs, Tag::Id3v24, saints, titled(saints)));

    samples.append(mp3Sample(u"YANKEDOO.mp3"_qs, Tag::None, tune(u"YANKEDOO"_qs), SongInfo()));
}

bool writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() &&
           file.flush() && file.size() == content.size();
}

/// A different song for each \a number, with the kinds mixed as in a musician's folder.
Sample numbered(int number)
{
    static const std::array genres{u"POP"_qs,  u"ROCK"_qs,  u"LISCIO"_qs, u"VALZER"_qs,
                                   u"JAZZ"_qs, u"LATIN"_qs, u"NATALE"_qs, u"FOLK"_qs};
    const Tune &tune = tunes().at(number % tunes().size());
    SongInfo info = complete(tune, u"Orchestra %1"_qs.arg(number / 20), u"Autore %1"_qs.arg(number),
                             genres.at(static_cast<size_t>(number) % genres.size()));
    info.title = u"Prova di misura %1"_qs.arg(number);
    info.markers = markers(tune, verses);
    const QString name = u"P%1"_qs.arg(number, 7, 10, QLatin1Char('0'));
    switch (number % 10) {
    case 0:
        return containerSample(name + u".zb3"_qs, SongInfo::Zb3, tune, info);
    case 1:
        return containerSample(name + u".zb4"_qs, SongInfo::Zb4, tune, info);
    case 2:
        return containerSample(name + u".zb5"_qs, SongInfo::Zb5, tune, info);
    case 3:
        return mp3Sample(name + u".mp3"_qs, Tag::Id3v23, tune, info);
    case 4:
        return midiSample(name + u".kar"_qs, 1, tune, info);
    case 5:
        return midiSample(name + u".mid"_qs, 0, tune, info);
    default:
        return midiSample(name + u".mid"_qs, 1, tune, info);
    }
}

/// Writes one sample and, if it is a song, adds its path.
bool writeSample(const QString &folder, const Sample &sample, QStringList *paths)
{
    const QString path = QDir(folder).filePath(sample.fileName);
    if (!writeFile(path, sample.content))
        return false;
    if (paths != nullptr && sample.isSong)
        paths->append(path);
    return true;
}

} // namespace

QList<Sample> set()
{
    QList<Sample> samples;
    addMidis(samples);
    addContainers(samples);
    addMp3s(samples);
    return samples;
}

bool writeSet(const QString &folder, QStringList *paths)
{
    const QList<Sample> samples = set();
    return std::all_of(samples.begin(), samples.end(),
                       [&](const Sample &sample) { return writeSample(folder, sample, paths); });
}

bool writeMany(const QString &folder, int count, QStringList *paths)
{
    for (int number = 0; number < count; ++number) {
        if (!writeSample(folder, numbered(number), paths))
            return false;
    }
    return true;
}

} // namespace SampleSongs

} // namespace brisel
