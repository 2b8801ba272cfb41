#include "index/songslistwriter.h"

namespace brisel
{

namespace
{

/// \a text without characters that a reader of the list could read as the end of a record.
QString onOneRecord(QString text)
{
    static constexpr QStringView breaks = u"\n\v\f\r\u001C\u001D\u001E\u0085\u2028\u2029";
    for (QChar &character : text) {
        if (breaks.contains(character))
            character = u' ';
    }
    return text;
}

/// \a text for a page, in which control characters are not allowed.
QString onPage(QString text)
{
    for (QChar &character : text) {
        if (character.category() == QChar::Other_Control)
            character = u' ';
    }
    return text.toHtmlEscaped();
}

} // namespace

SongsListWriter::SongsListWriter(const SongsListKind &kind, qsizetype songs) : m_kind(kind)
{
    const QStringList columns{tr("TITOLO"), tr("ARTISTA"), tr("GENERE"), tr("FILE")};
    if (kind.format == SongsListKind::Format::Csv) {
        m_text = columns.join(u';') + QStringLiteral(";\n");
        return;
    }
    const QString title = kind.isMp3Only ? tr("Elenco delle song MP3") : tr("Elenco delle song");
    m_text = QStringLiteral("<!DOCTYPE html>\n<html lang=\"%1\">\n<head>\n"
                            "<meta charset=\"utf-8\">\n<title>%2</title>\n<style>\n"
                            "body { font-family: sans-serif; }\n"
                            "table { border-collapse: collapse; width: 100%; }\n"
                            "thead { display: table-header-group; }\n"
                            "th, td { text-align: left; padding: 2px 8px; }\n"
                            "td { border-top: 1px solid #ccc; overflow-wrap: anywhere; }\n"
                            "tr { break-inside: avoid; }\n"
                            ".group th { padding-top: 1em; font-size: larger; "
                            "break-after: avoid; }\n"
                            "</style>\n</head>\n<body>\n<h1>%2</h1>\n<p>%3</p>\n"
                            "<table>\n<thead>\n")
                 .arg(tr("it", "la lingua della pagina"), onPage(title),
                      onPage(tr("%n song", "", static_cast<int>(songs))));
    addCells(columns, QStringLiteral("th"));
    m_text += QStringLiteral("</thead>\n<tbody>\n");
}

void SongsListWriter::add(const SongInfoIndex &song, int group)
{
    // The reader returns the bytes of the path as Latin-1.
    const QStringList cells{song.title, song.artist, song.genre,
                            pathFromBytes(song.path.toLatin1())};
    if (m_kind.format == SongsListKind::Format::Csv) {
        // Fields are not quoted: a ";" in a title shifts the columns of its line.
        for (const QString &cell : cells)
            m_text += onOneRecord(cell) + u';';
        m_text += u'\n';
        return;
    }
    if (m_kind.isGrouped() && group != m_group) {
        const QString &heading = m_kind.mode == SortByGenre ? song.genre : song.artist;
        m_text += QStringLiteral("</tbody>\n<tbody>\n<tr class=\"group\"><th colspan=\"4\" "
                                 "scope=\"rowgroup\">") +
                  onPage(heading) + QStringLiteral("</th></tr>\n");
        m_group = group;
    }
    addCells(cells, QStringLiteral("td"));
}

void SongsListWriter::addCells(const QStringList &cells, const QString &tag)
{
    m_text += QStringLiteral("<tr>");
    for (const QString &cell : cells)
        m_text += u'<' + tag + u'>' + onPage(cell) + QStringLiteral("</") + tag + u'>';
    m_text += QStringLiteral("</tr>\n");
}

QByteArray SongsListWriter::finished() const
{
    if (m_kind.format == SongsListKind::Format::Csv)
        return m_text.toUtf8();
    return (m_text + QStringLiteral("</tbody>\n</table>\n</body>\n</html>\n")).toUtf8();
}

} // namespace brisel
