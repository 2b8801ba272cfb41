// The part of the edit dialog that opens the markers of the song.

#include "library/dialogs/dataeditdialog.h"

#include "library/dialogs/markersdialog.h"
#include "library/dialogs/markersmodel.h"
#include "library/songfile.h"
#include "songfile/songinfo.h"

#include "ui_dataeditdialog.h"

namespace brisel
{

void DataEditDialog::on_markersPushButton_clicked()
{
    MarkersDialog dialog(m_markers, m_areMarkersWritable, this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    // The order in the file stays if nothing was changed.
    const bool isAsLoaded = dialog.markers() == MarkersModel::sorted(m_loaded->markers);
    m_markers = isAsLoaded ? m_loaded->markers : dialog.markers();
    showMarkers();
}

std::optional<QList<Marker>> DataEditDialog::changedMarkers() const
{
    return m_markers == m_loaded->markers ? std::nullopt : std::optional(m_markers);
}

void DataEditDialog::showMarkers()
{
    QPushButton *button = m_ui->markersPushButton;
    const bool isSeveral = m_several.has_value();
    const bool isEnabled = !isSeveral && hasMidiData(m_loaded->format);
    button->setText(isEnabled ? tr("Marker (%1)...").arg(m_markers.size()) : tr("Marker..."));
    if (isEnabled)
        button->setToolTip(tr("Mostra e modifica i marker della song: battuta e testo"));
    else if (isSeveral)
        button->setToolTip(tr("I marker si modificano in una song alla volta"));
    else
        button->setToolTip(tr("Le song di questo formato non hanno marker"));
    button->setAccessibleDescription(button->toolTip());
    button->setEnabled(isEnabled);
}

} // namespace brisel
