// The part of the edit dialog that shows several songs.

#include "library/dialogs/dataeditdialog.h"

#include "library/dialogs/placeholder.h"
#include "songfile/songinfo.h"

#include "ui_dataeditdialog.h"

namespace brisel
{

void DataEditDialog::setSeveral(const SharedSongs &songs)
{
    setOtherInfo(songs.info);
    m_several = songs;
    m_touched = SongFields::none();
    m_ui->pathLabel->setWholeText(tr("%1 song selezionate").arg(songs.songs));
    if (!songs.shared.holds(Field::Length)) {
        m_ui->mmLineEdit->clear();
        m_ui->ssLineEdit->clear();
    }
    if (!songs.shared.holds(Field::Bpm))
        m_ui->bpmLineEdit->clear();
    showSeveral();
}

SeveralEdit DataEditDialog::getSeveral() const
{
    SeveralEdit edit;
    getInfo(edit.data);
    edit.fields = m_touched;
    edit.fromName = m_fromName;
    return edit;
}

void DataEditDialog::connectTouches()
{
    const auto connectEdit = [this](QLineEdit *edit, Field field) {
        connect(edit, &QLineEdit::textEdited, this, [this, field] { touch(field); });
    };
    for (const TextField &text : m_texts) {
        connectEdit(text.edit, text.field);
        if (auto *combo = qobject_cast<QComboBox *>(text.control))
            connect(combo, &QComboBox::activated, this,
                    [this, field = text.field] { touch(field); });
    }
    connectEdit(m_ui->mmLineEdit, Field::Length);
    connectEdit(m_ui->ssLineEdit, Field::Length);
    connectEdit(m_ui->bpmLineEdit, Field::Bpm);
    connect(m_ui->keyComboBox, &QComboBox::activated, this, [this] { touch(Field::Key); });
}

/// A field of several songs is written from now on.
void DataEditDialog::touch(Field field)
{
    if (!m_several.has_value())
        return;
    m_touched.insert(field);
    showPlaceholders();
    updateHints();
}

/// Each of several songs gets its texts from the name of its own file; \a fromName says which.
void DataEditDialog::takeFromName(FromName fromName)
{
    if (!m_several.has_value())
        return;
    m_fromName = fromName;
    m_touched.remove(Field::Title);
    m_ui->titleLineEdit->setText(fromName == FromName::Nothing ? m_loaded->title : QString());
    if (fromName == FromName::TitleAndArtist) {
        m_touched.remove(Field::Artist);
        m_ui->artistComboBox->lineEdit()->clear();
    } else if (!m_ui->artistComboBox->isEnabled()) {
        m_ui->artistComboBox->lineEdit()->setText(m_loaded->artist);
    }
    showPlaceholders();
    updateHints();
}

void DataEditDialog::showSeveral()
{
    const bool isSeveral = m_several.has_value();
    for (QCheckBox *box : {m_ui->checkBoxToAllTitle, m_ui->checkBoxToAllArtist,
                           m_ui->checkBoxToAllGenre, m_ui->checkBoxToAllAuthor})
        box->setVisible(!isSeveral);
    m_ui->previousPushButton->setVisible(!isSeveral);
    m_ui->nextPushButton->setVisible(!isSeveral);
    setWindowTitle(isSeveral ? tr("Modifica dati di %1 song").arg(m_several->songs)
                             : tr("Modifica dati song"));
    if (isSeveral)
        m_ui->pathLabel->setWholeText(tr("%1 song selezionate").arg(m_several->songs));
    showMarkers();
    showPlaceholders();
}

void DataEditDialog::showPlaceholders()
{
    constexpr int numberWidth = 60; // pixels, as in the form
    const QString various = tr("<diversi>");
    const int variousWidth = fontMetrics().horizontalAdvance(various) + numberWidth / 2;
    const bool isTitleNamed = m_fromName != FromName::Nothing;
    const bool isArtistNamed = m_fromName == FromName::TitleAndArtist;
    const auto placeholder = [&](Field field) {
        if ((field == Field::Title && isTitleNamed) || (field == Field::Artist && isArtistNamed))
            return tr("<dal nome del file>");
        const bool isVarious =
            m_several.has_value() && !m_several->shared.holds(field) && !m_touched.holds(field);
        return isVarious ? various : QString();
    };
    for (const TextField &text : m_texts)
        showPlaceholder(*text.edit, placeholder(text.field));
    const auto showNumber = [&](QLineEdit *edit, Field field) {
        showPlaceholder(*edit, placeholder(field));
        edit->setMaximumWidth(m_several.has_value() ? std::max(numberWidth, variousWidth)
                                                    : numberWidth);
    };
    showNumber(m_ui->mmLineEdit, Field::Length);
    showNumber(m_ui->ssLineEdit, Field::Length);
    showNumber(m_ui->bpmLineEdit, Field::Bpm);
    showPlaceholder(*m_ui->keyComboBox, placeholder(Field::Key));
    m_ui->titleLineEdit->setEnabled(!isTitleNamed);
    m_ui->artistComboBox->setEnabled(!isArtistNamed);
}

} // namespace brisel
