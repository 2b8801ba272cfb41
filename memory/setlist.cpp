#include "memory/setlist.h"

#include "base/bytes.h"
#include "base/filewriting.h"
#include "base/run.h"
#include "index/indexrecords.h"
#include "memory/playlistdocument.h"
#include "songfile/lengthtext.h"
#include "songfile/metasong.h"

#include <QBuffer>
#include <QPdfWriter>
#include <QTextDocument>

namespace brisel
{

namespace
{

SetList::Song songOfIndex(const PlaylistDocument &document, qsizetype playlist, qsizetype entry)
{
    SetList::Song song;
    song.title = document.title(playlist, entry);
    song.bpm = byteAt(document.record(playlist, entry), SongRecord::bpmAt);
    const qsizetype position = document.song(playlist, entry);
    if (position >= 0 &&
        document.entryState(playlist, entry) != PlaylistDocument::EntryState::Wrong)
        song.artist = document.contents()->artist(position);
    return song;
}

/// Adds what only the file at \a path has.
void readSong(const QString &path, SetList::Song &song)
{
    MetaSong file;
    if (!file.importFile(path))
        return;
    SongInfo info;
    file.getSongInfo(info);
    if (!info.title.isEmpty())
        song.title = info.title;
    if (!info.artist.isEmpty())
        song.artist = info.artist;
    song.key = info.key;
    song.length = info.length;
    if (info.userBpm > 0)
        song.bpm = info.userBpm;
}

QString cell(const QString &text)
{
    return QStringLiteral("<td>") + text.toHtmlEscaped() + QStringLiteral("</td>");
}

} // namespace

bool SetList::read(const PlaylistDocument &document, qsizetype playlist, Run &run)
{
    m_songs.clear();
    m_name = tr("Playlist %1").arg(document.number(playlist));
    const auto count = static_cast<int>(document.size(playlist));
    run.begin({tr("Scaletta"), tr("Lettura delle song"), count});
    for (int entry = 0; entry < count && run.mayGoOn(); ++entry) {
        Song song = songOfIndex(document, playlist, entry);
        if (document.entryState(playlist, entry) == PlaylistDocument::EntryState::Good)
            readSong(document.contents()->root() +
                         document.contents()->path(document.song(playlist, entry)),
                     song);
        m_songs.append(song);
        run.setStep(entry + 1);
        run.processEvents();
    }
    const bool isWhole = m_songs.size() == count && run.mayGoOn();
    run.end();
    return isWhole;
}

QString SetList::html() const
{
    QString rows;
    for (qsizetype number = 0; number < m_songs.size(); ++number) {
        const Song &song = m_songs.at(number);
        rows += QStringLiteral("<tr>") + cell(QString::number(number + 1)) + cell(song.title) +
                cell(song.artist) + cell(song.key) +
                cell(song.bpm > 0 ? QString::number(song.bpm) : QString()) +
                cell(song.length > 0 ? lengthText(song.length) : QString()) +
                QStringLiteral("</tr>\n");
    }
    const QStringList heads{QString(),      tr("Titolo"), tr("Artista"),
                            tr("Tonalità"), tr("Tempo"),  tr("Durata")};
    QString head;
    for (const QString &text : heads)
        head +=
            QStringLiteral("<th align=\"left\">") + text.toHtmlEscaped() + QStringLiteral("</th>");
    return QStringLiteral("<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"><title>") +
           m_name.toHtmlEscaped() + QStringLiteral("</title></head><body>\n<h1>") +
           m_name.toHtmlEscaped() +
           QStringLiteral("</h1>\n<table width=\"100%\" cellpadding=\"4\"><thead><tr>") + head +
           QStringLiteral("</tr></thead>\n<tbody>\n") + rows +
           QStringLiteral("</tbody></table>\n</body></html>\n");
}

bool SetList::writePdf(const QString &path) const
{
    QBuffer buffer;
    if (!buffer.open(QIODevice::WriteOnly))
        return false;
    {
        QPdfWriter writer(&buffer);
        writer.setPageSize(QPageSize(QPageSize::A4));
        writer.setTitle(m_name);
        QTextDocument page;
        page.setHtml(html());
        page.print(&writer);
    }
    return replaceFile(path, buffer.data());
}

} // namespace brisel
