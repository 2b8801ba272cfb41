#include "library/dialogs/dataeditdialog.h"

#include "base/songtext.h"
#include "library/dialogs/popupcompleter.h"
#include "library/dialogs/wheelguard.h"
#include "library/songfile.h"
#include "library/songfilename.h"

#include "ui_dataeditdialog.h"

#include <QCollator>
#include <QEvent>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpressionValidator>

#include <algorithm>
#include <limits>

namespace brisel
{

namespace
{

void restrictToDigits(QLineEdit *edit, const QString &pattern)
{
    edit->setValidator(new QRegularExpressionValidator(QRegularExpression(pattern), edit));
}

void fillCombo(QComboBox *combo, const QStringList &entries)
{
    combo->clear();
    combo->addItems(entries);
}

/// \a texts in the order of the user's language, in which case makes no difference.
QStringList alphabetical(const QStringList &texts)
{
    const QLocale own; // the locale "C" would put all capital letters first
    QCollator collator(own.language() == QLocale::C ? QLocale(QLocale::Italian) : own);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::vector<std::pair<QCollatorSortKey, QString>> keyed;
    keyed.reserve(static_cast<size_t>(texts.size()));
    for (const QString &text : texts)
        keyed.emplace_back(collator.sortKey(text), text);
    std::stable_sort(keyed.begin(), keyed.end(), [](const auto &left, const auto &right) {
        return left.first.compare(right.first) < 0;
    });
    QStringList sorted;
    for (const auto &[key, text] : keyed)
        sorted.append(text);
    return sorted;
}

/// A loaded length with more digits than the rules allow can be extended without limit.
int secondsOf(const QString &minutes, const QString &seconds)
{
    const qint64 length = qint64(minutes.toInt()) * 60 + seconds.toInt();
    return static_cast<int>(std::clamp<qint64>(length, std::numeric_limits<int>::min(),
                                               std::numeric_limits<int>::max()));
}

/// The first of \a characters, in a form for a list: the code point of a character that is
/// invisible, changes the direction of the line, or combines with its neighbour.
QString listed(const QString &characters)
{
    constexpr int most = 20;
    QStringList shown;
    for (const char32_t character : characters.toUcs4()) {
        if (shown.size() == most) {
            shown.append(QStringLiteral("..."));
            break;
        }
        const bool standsAlone =
            QChar::isPrint(character) && !QChar::isSpace(character) && !QChar::isMark(character);
        shown.append(standsAlone ? QString::fromUcs4(&character, 1)
                                 : QStringLiteral("U+%1").arg(
                                       QString::number(character, 16).toUpper(), 4, u'0'));
    }
    return shown.join(u' ');
}

} // namespace

DataEditDialog::DataEditDialog(QWidget *parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::DataEditDialog>()),
      m_loaded(std::make_unique<SongInfo>())
{
    m_ui->setupUi(this);
    new WheelGuard(*this);
    restrictToDigits(m_ui->mmLineEdit, QStringLiteral("^[0-9]{2}"));
    restrictToDigits(m_ui->ssLineEdit, QStringLiteral("^[0-9]{2}"));
    restrictToDigits(m_ui->bpmLineEdit, QStringLiteral("^[0-9]{3}"));
    // Qt's own completer would replace "queen" by the list's "QUEEN" without notice.
    new PopupCompleter(*m_ui->artistComboBox);
    new PopupCompleter(*m_ui->genreComboBox);
    m_texts = {{m_ui->titleLineEdit, m_ui->titleLineEdit, &SongInfo::title, Field::Title, nullptr,
                m_ui->titleHintLabel},
               {m_ui->artistComboBox, m_ui->artistComboBox->lineEdit(), &SongInfo::artist,
                Field::Artist, m_ui->checkBoxToAllArtist, m_ui->artistHintLabel},
               {m_ui->genreComboBox, m_ui->genreComboBox->lineEdit(), &SongInfo::genre,
                Field::Genre, m_ui->checkBoxToAllGenre, m_ui->genreHintLabel},
               {m_ui->authorLineEdit, m_ui->authorLineEdit, &SongInfo::author, Field::Author,
                m_ui->checkBoxToAllAuthor, m_ui->authorHintLabel}};
    for (const TextField &field : m_texts) {
        field.hint->hide();
        connect(field.edit, &QLineEdit::textChanged, this, &DataEditDialog::updateHints);
        if (field.toAll != nullptr)
            connect(field.toAll, &QCheckBox::toggled, this, &DataEditDialog::updateHints);
    }
    connectTouches();
    connectWalk();
    showMarkers();
}

DataEditDialog::~DataEditDialog() = default;

void DataEditDialog::setArtistsCombo(const QStringList &artists)
{
    if (artists == m_artists)
        return;
    m_artists = artists;
    fillCombo(m_ui->artistComboBox, alphabetical(artists));
}

void DataEditDialog::setGenresCombo(const QStringList &genres)
{
    fillCombo(m_ui->genreComboBox, genres);
}

void DataEditDialog::setKeysCombo(const QStringList &keys)
{
    fillCombo(m_ui->keyComboBox, keys);
}

void DataEditDialog::setListSize(int songs, int hidden)
{
    m_listSongs = songs;
    m_listHidden = hidden;
}

void DataEditDialog::setOtherInfo(const SongInfo &info)
{
    m_several.reset();
    m_fromName = FromName::Nothing;
    m_loaded = std::make_unique<SongInfo>(info);
    m_markers = info.markers;
    m_ui->pathLabel->setWholeText(info.fileName);
    m_ui->formatLabel->setText(info.format);
    for (TextField &field : m_texts) {
        field.edit->setText(info.*field.datum);
        field.shown = field.edit->text();
    }
    showNumbers(info);
    for (QCheckBox *box : {m_ui->checkBoxToAllTitle, m_ui->checkBoxToAllArtist,
                           m_ui->checkBoxToAllGenre, m_ui->checkBoxToAllAuthor})
        box->setChecked(false);
    m_ui->checkBoxToAllTitle->setEnabled(false);
    m_ui->radioButtonTitle1->setChecked(true);
    showSeveral();
    focusFirst();
    updateHints();
}

/// Shows the length, the tempo and the key.
void DataEditDialog::showNumbers(const SongInfo &info)
{
    m_ui->mmLineEdit->setText(QString::number(info.length / 60));
    m_ui->ssLineEdit->setText(QString::number(info.length % 60));
    m_ui->keyComboBox->setCurrentIndex(
        m_ui->keyComboBox->findText(info.key, Qt::MatchExactly | Qt::MatchCaseSensitive));
    m_ui->bpmLineEdit->setText(QString::number(info.userBpm));
}

void DataEditDialog::getInfo(SongInfo &info) const
{
    for (const TextField &field : m_texts) {
        const QString text = field.edit->text();
        info.*field.datum = text == field.shown ? *m_loaded.*field.datum : text;
    }
    if (m_ui->keyComboBox->currentIndex() >= 0)
        info.key = m_ui->keyComboBox->currentText();
    info.length = secondsOf(m_ui->mmLineEdit->text(), m_ui->ssLineEdit->text());
    info.userBpm = m_ui->bpmLineEdit->text().toInt();
}

bool DataEditDialog::isApplyToAllAuthor() const
{
    return m_ui->checkBoxToAllAuthor->isChecked();
}

bool DataEditDialog::isApplyToAllArtist() const
{
    return m_ui->checkBoxToAllArtist->isChecked();
}

bool DataEditDialog::isApplyToAllGenre() const
{
    return m_ui->checkBoxToAllGenre->isChecked();
}

bool DataEditDialog::isApplyToAllFname() const
{
    return m_ui->checkBoxToAllTitle->isChecked();
}

void DataEditDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        m_ui->retranslateUi(this);
        showSeveral();
        updateHints();
    }
}

/// Only now the width is known, and with it the height of the hints.
void DataEditDialog::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    updateHints();
}

void DataEditDialog::on_radioButtonTitle1_clicked()
{
    takeFromName(FromName::Nothing);
    m_ui->checkBoxToAllTitle->setChecked(false);
    m_ui->checkBoxToAllTitle->setEnabled(false);
    m_ui->titleLineEdit->setText(m_loaded->title);
}

void DataEditDialog::on_radioButtonTitle2_clicked()
{
    if (m_several.has_value()) {
        takeFromName(FromName::Title);
        return;
    }
    m_ui->checkBoxToAllTitle->setEnabled(true);
    m_ui->titleLineEdit->setText(titleFromFileName(m_loaded->fileName));
}

void DataEditDialog::on_fromNamePushButton_clicked()
{
    if (m_several.has_value()) {
        m_ui->radioButtonTitle2->setChecked(true);
        takeFromName(FromName::TitleAndArtist);
        return;
    }
    const NamedSong named = songFromFileName(m_loaded->fileName);
    m_ui->titleLineEdit->setText(named.title);
    if (!named.artist.isEmpty())
        m_ui->artistComboBox->lineEdit()->setText(named.artist);
}

void DataEditDialog::on_checkBoxToAllTitle_clicked(bool checked)
{
    // "non il nome" should be "con il nome"; the text is kept because users know it.
    if (checked)
        confirmApplyToAll(m_ui->checkBoxToAllTitle,
                          tr("Il titolo di tutte le song della lista verrà sovrascritto non il "
                             "nome del file, sei sicuro?"));
}

void DataEditDialog::on_checkBoxToAllArtist_clicked(bool checked)
{
    if (checked)
        confirmApplyToAll(m_ui->checkBoxToAllArtist,
                          tr("L'interprete inserito verrà applicato a tutte le song della lista, "
                             "sei sicuro?"));
}

void DataEditDialog::on_checkBoxToAllGenre_clicked(bool checked)
{
    if (checked)
        confirmApplyToAll(m_ui->checkBoxToAllGenre,
                          tr("Il genere inserito verrà applicato a tutte le song della lista, sei "
                             "sicuro?"));
}

void DataEditDialog::on_checkBoxToAllAuthor_clicked(bool checked)
{
    if (checked)
        confirmApplyToAll(m_ui->checkBoxToAllAuthor,
                          tr("L'autore inserito verrà applicato a tutte le song della lista, sei "
                             "sicuro?"));
}

/// The dialog grows by the height of the hints, and shrinks again when they are hidden.
void DataEditDialog::updateHints()
{
    const int own = height() - m_hintRoom; // showing a label increases the dialog's height at once
    for (const TextField &field : m_texts)
        showHint(field);
    if (!isVisible() && m_hintRoom == 0)
        return;
    layout()->activate();
    const int needed = std::max(layout()->totalHeightForWidth(width()), minimumHeight());
    m_hintRoom = std::max(0, needed - own);
    resize(width(), own + m_hintRoom);
}

void DataEditDialog::showHint(const TextField &field) const
{
    const QString hint = hintFor(field);
    field.hint->setText(hint);
    field.hint->setVisible(!hint.isEmpty());
    // Without a description a screen reader reads the tool tip.
    field.control->setAccessibleDescription(
        hint.isEmpty() ? QString() : field.control->toolTip() + QStringLiteral(". ") + hint);
}

/// Empty if the song, and those to which the text is copied, can contain the text.
QString DataEditDialog::hintFor(const TextField &field) const
{
    if (m_several.has_value() && m_touched.holds(field.field) && field.edit->text().isEmpty())
        return tr("Verrà svuotato in tutte le song selezionate");
    const bool isHere = hasMidiData(m_loaded->format);
    const QStringList formats = m_loaded->format.split(QStringLiteral(", "));
    const bool isAmongThem = std::any_of(formats.cbegin(), formats.cend(), hasMidiData);
    const bool isElsewhere = isAmongThem || (field.toAll != nullptr && field.toAll->isChecked());
    const QString lost =
        isHere || isElsewhere ? charactersLostInSongBytes(field.edit->text()) : QString();
    if (lost.isEmpty())
        return {};
    return (isHere ? tr("Nel file diventeranno \"?\": %1")
                   : tr("Nei file che non sono MP3 diventeranno \"?\": %1"))
        .arg(listed(lost));
}

void DataEditDialog::confirmApplyToAll(QCheckBox *box, const QString &question)
{
    QMessageBox message(QMessageBox::Question, tr("ATTENZIONE"), question,
                        QMessageBox::Yes | QMessageBox::No, this);
    QString scope;
    if (m_listSongs > 0)
        scope = tr("Song da modificare: %1").arg(m_listSongs);
    if (m_listHidden > 0)
        scope += u'\n' + tr("Anche quelle nascoste dalla ricerca: %1").arg(m_listHidden);
    message.setInformativeText(scope);
    message.button(QMessageBox::No)->setFocus(); // without a default button, Return presses it
    box->setChecked(message.exec() == QMessageBox::Yes);
}

} // namespace brisel
