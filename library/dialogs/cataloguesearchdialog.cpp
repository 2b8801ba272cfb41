#include "library/dialogs/cataloguesearchdialog.h"

#include "ui_cataloguesearchdialog.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPushButton>

namespace brisel
{

CatalogueSearchDialog::CatalogueSearchDialog(CatalogueSearch &search, const SongInfo &info,
                                             const QString &fileName, QWidget *parent)
    : QDialog(parent), m_search(search), m_fileName(fileName),
      m_ui(std::make_unique<Ui::CatalogueSearchDialog>())
{
    m_ui->setupUi(this);
    m_ui->resultTableWidget->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    connect(m_ui->resultTableWidget, &QTableWidget::itemSelectionChanged, this, [this] {
        m_ui->choosePushButton->setEnabled(m_ui->resultTableWidget->currentRow() >= 0);
    });
    connect(m_ui->resultTableWidget, &QTableWidget::itemDoubleClicked, this, &QDialog::accept);
    m_ui->searchLineEdit->setText(info.title.isEmpty() ? fileName.section(u'.', 0, -2)
                                                       : info.title);
    m_ui->searchLineEdit->selectAll();
    m_ui->searchLineEdit->setFocus();
    m_ui->searchLineEdit->installEventFilter(this);
    showSong();
    show(m_search.guesses(info, fileName));
}

CatalogueSearchDialog::~CatalogueSearchDialog() = default;

std::optional<CatalogueSong> CatalogueSearchDialog::chosen() const
{
    const int row = m_ui->resultTableWidget->currentRow();
    if (result() != Accepted || row < 0)
        return std::nullopt;
    return m_songs.at(row);
}

void CatalogueSearchDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    m_ui->retranslateUi(this);
    showSong();
    showHint();
}

/// The arrow keys choose a row while the words are typed.
bool CatalogueSearchDialog::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp ||
            key == Qt::Key_PageDown)
            return QCoreApplication::sendEvent(m_ui->resultTableWidget, event);
    }
    return QDialog::eventFilter(watched, event);
}

void CatalogueSearchDialog::on_searchLineEdit_textEdited(const QString &text)
{
    show(m_search.find(text));
}

void CatalogueSearchDialog::show(const QList<CatalogueSong> &songs)
{
    QTableWidget *table = m_ui->resultTableWidget;
    m_songs = songs;
    table->setRowCount(static_cast<int>(songs.size()));
    for (int row = 0; row < table->rowCount(); ++row) {
        const CatalogueSong &song = songs.at(row);
        int column = 0;
        for (const QString &text : {song.record.title, song.record.artist, song.fileName})
            table->setItem(row, column++, new QTableWidgetItem(text));
    }
    if (!songs.isEmpty())
        table->setCurrentCell(0, 0);
    m_ui->choosePushButton->setEnabled(!songs.isEmpty());
    showHint();
}

void CatalogueSearchDialog::showSong()
{
    m_ui->songLabel->setWholeText(tr("Song da cercare: %1").arg(m_fileName));
}

void CatalogueSearchDialog::showHint()
{
    const std::optional<Reason> whyNot = m_search.whyUnavailable();
    if (whyNot.has_value())
        m_ui->hintLabel->setText(whyNot->text());
    else
        m_ui->hintLabel->setText(m_songs.isEmpty() ? tr("Nessuna song con queste parole")
                                                   : tr("Le song più simili sono le prime"));
}

} // namespace brisel
