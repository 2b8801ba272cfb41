#include "memory/dialogs/repairdialog.h"

#include "base/lettercase.h"
#include "library/dialogs/celltext.h"
#include "memory/memorycontents.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSet>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

namespace brisel
{

void SongChoiceModel::search(const QString &text)
{
    const QStringList words = lowerCased(text).split(u' ', Qt::SkipEmptyParts);
    beginResetModel();
    m_isSearched = !words.isEmpty();
    m_rows.clear();
    QSet<qsizetype> guessed;
    for (const EntryGuess &guess : std::as_const(m_guesses)) {
        guessed.insert(guess.song);
        if (matches(guess.song, words))
            m_rows.append(guess);
    }
    for (qsizetype song = 0; song < m_contents.size(); ++song) {
        if (!guessed.contains(song) && !m_contents.record(song).isEmpty() && matches(song, words))
            m_rows.append(EntryGuess{song, QString()});
    }
    endResetModel();
}

bool SongChoiceModel::isFirstLikely() const
{
    return !m_rows.isEmpty() && (m_isSearched || !m_rows.constFirst().why.isEmpty());
}

bool SongChoiceModel::matches(qsizetype song, const QStringList &words) const
{
    if (words.isEmpty())
        return true;
    const QString text = lowerCased(m_contents.title(song) + u'\n' + m_contents.artist(song) +
                                    u'\n' + m_contents.path(song));
    return std::all_of(words.cbegin(), words.cend(),
                       [&text](const QString &word) { return text.contains(word); });
}

int SongChoiceModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int SongChoiceModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant SongChoiceModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || role != Qt::DisplayRole)
        return {};
    const EntryGuess &row = m_rows.at(index.row());
    switch (index.column()) {
    case Title:
        return cellText(m_contents.title(row.song));
    case Artist:
        return cellText(m_contents.artist(row.song));
    case Path:
        return cellText(m_contents.path(row.song));
    default:
        return row.why;
    }
}

QVariant SongChoiceModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case Title:
        return tr("Titolo");
    case Artist:
        return tr("Artista");
    case Path:
        return tr("Percorso");
    default:
        return tr("Perché");
    }
}

RepairDialog::RepairDialog(const MemoryContents &contents, const QString &title,
                           const QList<EntryGuess> &guesses, QWidget *parent)
    : QDialog(parent), m_title(cellText(title)), m_model(new SongChoiceModel(contents, this)),
      m_label(new QLabel(this)), m_searchLabel(new QLabel(this)), m_search(new QLineEdit(this)),
      m_table(new QTableView(this)),
      m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this))
{
    constexpr QSize size(860, 420);
    m_label->setTextFormat(Qt::PlainText);
    m_label->setWordWrap(true);
    m_searchLabel->setBuddy(m_search);
    m_search->setObjectName(QStringLiteral("searchLineEdit"));
    m_table->setObjectName(QStringLiteral("songsTableView"));
    m_model->setGuesses(guesses);
    m_table->setModel(m_model);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setTabKeyNavigation(false);
    m_table->setWordWrap(false);
    m_table->verticalHeader()->hide();
    m_table->horizontalHeader()->setStretchLastSection(true);
    auto *layout = new QVBoxLayout(this);
    for (QWidget *widget : {static_cast<QWidget *>(m_label), static_cast<QWidget *>(m_searchLabel),
                            static_cast<QWidget *>(m_search), static_cast<QWidget *>(m_table),
                            static_cast<QWidget *>(m_buttons)})
        layout->addWidget(widget);
    connect(m_search, &QLineEdit::textChanged, this, &RepairDialog::search);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_table, &QTableView::doubleClicked, this, &QDialog::accept);
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &RepairDialog::updateOk);
    retranslate();
    search();
    m_table->resizeColumnsToContents();
    if (m_model->isFirstLikely())
        m_table->setFocus();
    else
        m_search->setFocus();
    resize(size);
}

std::optional<qsizetype> RepairDialog::song() const
{
    // With the focus, the table makes a row current that nobody has chosen.
    const QModelIndexList rows = m_table->selectionModel()->selectedRows();
    return rows.isEmpty() ? std::nullopt : std::optional(m_model->songAt(rows.constFirst().row()));
}

void RepairDialog::search()
{
    m_model->search(m_search->text());
    if (m_model->isFirstLikely())
        m_table->setCurrentIndex(m_model->index(0, 0));
    updateOk();
}

void RepairDialog::updateOk()
{
    m_buttons->button(QDialogButtonBox::Ok)->setEnabled(song().has_value());
}

void RepairDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void RepairDialog::retranslate()
{
    setWindowTitle(tr("Ripara playlist"));
    m_label->setText(tr("Quale song deve suonare al posto di \"%1\"?").arg(m_title));
    m_searchLabel->setText(tr("&Cerca:"));
    m_search->setAccessibleName(tr("Cerca una song della memoria"));
    const QString searchTip = tr("Mostra solo le song con queste parole nel titolo, nell'artista o "
                                 "nel percorso");
    m_search->setToolTip(searchTip);
    m_search->setAccessibleDescription(searchTip);
    m_table->setAccessibleName(tr("Song della memoria, le più probabili per prime"));
    m_table->setAccessibleDescription(tr("Dice per ogni song probabile perché lo è"));
}

} // namespace brisel
