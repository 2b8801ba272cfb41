#include "library/dataeditdialog.h"

#include "library/songfilename.h"
#include "songfile/songinfo.h"

#include "ui_dataeditdialog.h"

#include <QEvent>
#include <QMessageBox>
#include <QRegularExpressionValidator>

#include <algorithm>
#include <limits>

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

/// A length that was loaded with more digits than the rules allow may be typed on for ever.
int secondsOf(const QString &minutes, const QString &seconds)
{
    const qint64 length = qint64(minutes.toInt()) * 60 + seconds.toInt();
    return static_cast<int>(std::clamp<qint64>(length, std::numeric_limits<int>::min(),
                                               std::numeric_limits<int>::max()));
}

} // namespace

DataEditDialog::DataEditDialog(QWidget *parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::DataEditDialog>()),
      m_loaded(std::make_unique<SongInfo>())
{
    m_ui->setupUi(this);
    restrictToDigits(m_ui->mmLineEdit, QStringLiteral("^[0-9]{2}"));
    restrictToDigits(m_ui->ssLineEdit, QStringLiteral("^[0-9]{2}"));
    restrictToDigits(m_ui->bpmLineEdit, QStringLiteral("^[0-9]{3}"));
    // A completer would turn "queen" into the list's "QUEEN" behind the user's back.
    m_ui->artistComboBox->setCompleter(nullptr);
    m_ui->genreComboBox->setCompleter(nullptr);
    m_texts = {{m_ui->titleLineEdit, &SongInfo::title, {}},
               {m_ui->artistComboBox->lineEdit(), &SongInfo::artist, {}},
               {m_ui->genreComboBox->lineEdit(), &SongInfo::genre, {}},
               {m_ui->authorLineEdit, &SongInfo::author, {}}};
}

DataEditDialog::~DataEditDialog() = default;

void DataEditDialog::setArtistsCombo(const QStringList &artists)
{
    fillCombo(m_ui->artistComboBox, artists);
}

void DataEditDialog::setGenresCombo(const QStringList &genres)
{
    fillCombo(m_ui->genreComboBox, genres);
}

void DataEditDialog::setKeysCombo(const QStringList &keys)
{
    fillCombo(m_ui->keyComboBox, keys);
}

void DataEditDialog::setOtherInfo(const SongInfo &info)
{
    m_loaded = std::make_unique<SongInfo>(info);
    m_ui->pathLabel->setPath(info.fileName);
    m_ui->formatLabel->setText(info.format);
    for (TextField &field : m_texts) {
        field.edit->setText(info.*field.datum);
        field.shown = field.edit->text();
    }
    m_ui->mmLineEdit->setText(QString::number(info.length / 60));
    m_ui->ssLineEdit->setText(QString::number(info.length % 60));
    m_ui->keyComboBox->setCurrentIndex(
        m_ui->keyComboBox->findText(info.key, Qt::MatchExactly | Qt::MatchCaseSensitive));
    m_ui->bpmLineEdit->setText(QString::number(info.userBpm));

    for (QCheckBox *box : {m_ui->checkBoxToAllTitle, m_ui->checkBoxToAllArtist,
                           m_ui->checkBoxToAllGenre, m_ui->checkBoxToAllAuthor})
        box->setChecked(false);
    m_ui->checkBoxToAllTitle->setEnabled(false);
    m_ui->radioButtonTitle1->setChecked(true);
    m_ui->titleLineEdit->setFocus();
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
    if (event->type() == QEvent::LanguageChange)
        m_ui->retranslateUi(this);
}

void DataEditDialog::on_radioButtonTitle1_clicked()
{
    m_ui->checkBoxToAllTitle->setChecked(false);
    m_ui->checkBoxToAllTitle->setEnabled(false);
    m_ui->titleLineEdit->setText(m_loaded->title);
}

void DataEditDialog::on_radioButtonTitle2_clicked()
{
    m_ui->checkBoxToAllTitle->setEnabled(true);
    m_ui->titleLineEdit->setText(titleFromFileName(m_loaded->fileName));
}

void DataEditDialog::on_checkBoxToAllTitle_clicked(bool checked)
{
    // "non il nome" stands where "con il nome" was meant; users know the text as it is.
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

void DataEditDialog::on_savePushButton_clicked()
{
    done(Accepted);
}

void DataEditDialog::on_exitPushButton_clicked()
{
    done(Rejected);
}

void DataEditDialog::confirmApplyToAll(QCheckBox *box, const QString &question)
{
    const int answer =
        QMessageBox::question(this, tr("ATTENZIONE"), question, QMessageBox::Yes | QMessageBox::No);
    box->setChecked(answer == QMessageBox::Yes);
}
