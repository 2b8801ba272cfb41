#include "player/playablesong.h"

#include "base/filefailure.h"
#include "player/karaoke.h"
#include "songfile/metasong.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>

namespace brisel
{

namespace
{

/// Bytes of MIDI data, after which the synthesiser would need too much memory for the events.
constexpr qsizetype maxMidiSize = 4 * 1024 * 1024;
constexpr quint8 markerEvent = 6;

QString unreadableText(const QString &path)
{
    const std::optional<Reason> reason = whyUnreadable(path, MetaSong::maxSongSize);
    return QCoreApplication::translate("SongPlayer", "Il brano non si può leggere:") + u' ' +
           (reason.has_value() ? reason->text()
                               : QCoreApplication::translate("SongPlayer", "formato sconosciuto"));
}

QList<TimedText> markersOf(const SongInfo &info, const SongTimeline &timeline)
{
    QList<TimedText> markers;
    for (const Marker &marker : info.markers)
        markers.append({timeline.msOfBar(marker.bar), marker.text});
    for (const SongTimeline::RawText &event : timeline.texts()) {
        if (event.metaType == markerEvent)
            markers.append({timeline.msAt(event.tick), eventText(event.bytes).simplified()});
    }
    std::stable_sort(markers.begin(), markers.end(),
                     [](const TimedText &a, const TimedText &b) { return a.ms < b.ms; });
    return markers;
}

} // namespace

std::optional<PlayableSong> PlayableSong::read(const QString &path, QString &trouble)
{
    MetaSong file;
    if (!file.importFile(path)) {
        trouble = unreadableText(path);
        return std::nullopt;
    }
    SongInfo info;
    file.getSongInfo(info);
    PlayableSong song;
    song.path = path;
    song.title = info.title.isEmpty() ? QFileInfo(path).fileName() : info.title;
    song.midi = file.midiData();
    if (!song.isMidi())
        return song;
    std::optional<SongTimeline> timeline;
    if (song.midi.size() <= maxMidiSize)
        timeline = SongTimeline::read(song.midi);
    if (!timeline.has_value()) {
        trouble = QCoreApplication::translate("SongPlayer",
                                              "I dati MIDI del brano non si possono suonare.");
        return std::nullopt;
    }
    song.lines = karaokeLines(*timeline);
    song.markers = markersOf(info, *timeline);
    song.timeline = *std::move(timeline);
    return song;
}

} // namespace brisel
