#include "app/songtooltip.h"

#include "base/runguard.h"
#include "db/usersongsreltablemodel.h"
#include "songfile/metasong.h"
#include "songfile/songinfo.h"

#include <QHelpEvent>
#include <QTableView>
#include <QToolTip>

namespace brisel
{

static constexpr int maxMarkers = 20; ///< more would not fit on a small screen

SongToolTip::SongToolTip(QTableView &view, UserSongsRelTableModel &model)
    : QObject(&view), m_view(view), m_model(model)
{
    view.viewport()->installEventFilter(this);
}

QString SongToolTip::textFor(int row) const
{
    const QString path = m_model.index(row, m_model.colIdxFilename()).data().toString();
    QStringList lines{path, tr("Stato: %1").arg(m_model.outcomeText(row))};
    if (m_model.isSong(row) && !RunGuard::isActive()) // a run may be writing the file
        lines += markerLines(path);
    for (QString &line : lines)
        line = line.simplified().toHtmlEscaped();
    return QStringLiteral("<p>%1</p>").arg(lines.join(QStringLiteral("<br>")));
}

bool SongToolTip::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QObject::eventFilter(watched, event);
    const auto *help = static_cast<QHelpEvent *>(event);
    const QModelIndex index = m_view.indexAt(help->pos());
    if (index.isValid())
        QToolTip::showText(help->globalPos(), textFor(index.row()), m_view.viewport(),
                           m_view.visualRect(index));
    else
        QToolTip::hideText();
    return true;
}

QStringList SongToolTip::markerLines(const QString &path)
{
    MetaSong song;
    SongInfo info;
    if (!song.importFile(path))
        return {tr("Il file non è più leggibile")};
    song.getSongInfo(info);
    if (info.markers.isEmpty())
        return {tr("Nessun marker")};
    QStringList lines{tr("Marker:")};
    for (const Marker &marker : info.markers.mid(0, maxMarkers))
        lines.append(QStringLiteral("%1: %2").arg(QString::number(marker.bar), marker.text));
    if (info.markers.size() > maxMarkers)
        lines.append(QStringLiteral("..."));
    return lines;
}

} // namespace brisel
