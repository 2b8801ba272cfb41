// The part of the edit dialog that goes from song to song.

#include "library/dialogs/dataeditdialog.h"

#include "songfile/fieldchange.h"

#include "ui_dataeditdialog.h"

#include <QMessageBox>
#include <QShortcut>

namespace brisel
{

void DataEditDialog::setNeighbours(bool hasPrevious, bool hasNext)
{
    m_ui->previousPushButton->setEnabled(hasPrevious);
    m_ui->nextPushButton->setEnabled(hasNext);
}

void DataEditDialog::connectWalk()
{
    setNeighbours(false, false);
    const auto connectKeys = [this](const QList<QKeySequence> &keys, auto &&act) {
        for (const QKeySequence &key : keys) {
            auto *shortcut = new QShortcut(key, this);
            connect(shortcut, &QShortcut::activated, this, act);
        }
    };
    connectKeys({Qt::CTRL | Qt::Key_PageUp, Qt::ALT | Qt::Key_Left},
                [this] { m_ui->previousPushButton->click(); });
    connectKeys({Qt::CTRL | Qt::Key_PageDown, Qt::ALT | Qt::Key_Right},
                [this] { m_ui->nextPushButton->click(); });
    connectKeys({Qt::CTRL | Qt::Key_Return, Qt::CTRL | Qt::Key_Enter}, [this] { saveAndGoOn(); });
}

/// True if a save would write another value, or copy one to the list.
bool DataEditDialog::isChanged() const
{
    SongInfo now = *m_loaded;
    getInfo(now);
    const bool isSame = now.title == m_loaded->title && now.artist == m_loaded->artist &&
                        now.genre == m_loaded->genre && now.author == m_loaded->author &&
                        now.key == m_loaded->key && now.length == m_loaded->length &&
                        now.userBpm == m_loaded->userBpm;
    return !isSame || changedMarkers().has_value() || isApplyToAllAuthor() ||
           isApplyToAllArtist() || isApplyToAllGenre() || isApplyToAllFname();
}

void DataEditDialog::setOtherInfoAgain(const SongInfo &info)
{
    const SongInfo before = *m_loaded;
    SongInfo typed = before;
    getInfo(typed);
    const std::optional<QList<Marker>> markers = changedMarkers();
    setOtherInfo(info);
    const SongInfo shown = withChanges(info, before, typed);
    for (const TextField &field : m_texts) {
        if (shown.*field.datum != info.*field.datum)
            field.edit->setText(shown.*field.datum);
    }
    showNumbers(shown);
    m_markers = markers.value_or(info.markers);
    showMarkers();
}

/// Leaves the song for one of its neighbours, after a question if it was changed.
void DataEditDialog::askAndGo(Answer where)
{
    m_isSaveWanted = false;
    if (isChanged()) {
        const auto answer = QMessageBox::question(
            this, windowTitle(), tr("Salvare le modifiche?"),
            QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Yes);
        if (answer != QMessageBox::Yes && answer != QMessageBox::No)
            return;
        m_isSaveWanted = answer == QMessageBox::Yes;
    }
    go(where);
}

void DataEditDialog::saveAndGoOn()
{
    if (!m_ui->nextPushButton->isEnabled() || m_several.has_value()) {
        done(Accepted);
        return;
    }
    m_isSaveWanted = isChanged();
    go(Next);
}

/// The next song is shown at the same place, with the focus in the same field.
void DataEditDialog::go(Answer where)
{
    m_focused = focusWidget();
    move(pos());
    done(where);
}

void DataEditDialog::focusFirst()
{
    QWidget *first = m_ui->titleLineEdit;
    if (m_focused != nullptr && m_focused->isEnabled() && m_focused->isVisibleTo(this))
        first = m_focused;
    m_focused = nullptr;
    first->setFocus();
    if (auto *edit = qobject_cast<QLineEdit *>(first);
        edit != nullptr && edit != m_ui->titleLineEdit)
        edit->selectAll();
}

} // namespace brisel
