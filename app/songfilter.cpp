#include "app/songfilter.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QShortcut>
#include <QTableView>

#include <algorithm>

namespace brisel
{

SongFilter::SongFilter(QLineEdit &field, QTableView &view, QSqlTableModel &model)
    : QObject(&view), m_field(field), m_view(view), m_model(model)
{
    for (const QString &column :
         {QStringLiteral("title"), QStringLiteral("artist"), QStringLiteral("genre"),
          QStringLiteral("author"), QStringLiteral("shortname")})
        m_columns.append(model.fieldIndex(column));
    forgetTexts();
    connect(&field, &QLineEdit::textChanged, this, &SongFilter::search);
    connect(&model, &QAbstractItemModel::modelReset, this, [this] {
        forgetTexts();
        applyToAll();
        emit changed();
    });
    connect(&model, &QAbstractItemModel::dataChanged, this,
            [this](const QModelIndex &first, const QModelIndex &last) {
                std::fill(m_texts.begin() + first.row(), m_texts.begin() + last.row() + 1,
                          QString());
                apply(first.row(), last.row());
                emit changed();
            });
    connect(&model, &QAbstractItemModel::rowsInserted, this,
            [this](const QModelIndex & /*parent*/, int first, int last) {
                m_texts.insert(first, last - first + 1, QString());
                emit changed();
            });
    connect(&model, &QAbstractItemModel::rowsAboutToBeRemoved, this,
            [this](const QModelIndex & /*parent*/, int first, int last) {
                for (int row = first; row <= last; ++row)
                    m_hidden -= m_view.isRowHidden(row) ? 1 : 0;
                m_texts.remove(first, last - first + 1);
            });
    connect(&model, &QAbstractItemModel::rowsRemoved, this, &SongFilter::changed);
    connectKeys();
}

void SongFilter::connectKeys()
{
    const auto connectKey = [this](const QKeySequence &key, QWidget &widget,
                                   Qt::ShortcutContext context, auto &&act) {
        auto *shortcut = new QShortcut(key, &widget);
        shortcut->setContext(context);
        connect(shortcut, &QShortcut::activated, this, act);
    };
    connectKey(QKeySequence::Find, *m_field.window(), Qt::WindowShortcut, [this] {
        m_field.setFocus(Qt::ShortcutFocusReason);
        m_field.selectAll();
    });
    for (QWidget *widget : {static_cast<QWidget *>(&m_field), static_cast<QWidget *>(&m_view)})
        connectKey(QKeySequence(Qt::Key_Escape), *widget, Qt::WidgetShortcut,
                   [this] { showAll(); });
    connectKey(QKeySequence(Qt::Key_Down), m_field, Qt::WidgetShortcut, [this] { enterRows(); });
    connect(&m_field, &QLineEdit::returnPressed, this, &SongFilter::enterRows);
}

void SongFilter::search()
{
    const QStringList words =
        foldedForSearch(m_field.text()).simplified().split(u' ', Qt::SkipEmptyParts);
    if (words == m_words)
        return;
    m_words = words;
    applyToAll();
    emit changed();
}

void SongFilter::showAll()
{
    m_field.clear();
    m_view.setFocus(Qt::ShortcutFocusReason);
    m_view.scrollTo(m_view.currentIndex());
}

/// Moves the focus from the field to the current row; if it is hidden, to the first visible one.
void SongFilter::enterRows()
{
    const int rows = m_model.rowCount();
    if (rows == 0 || hidesAll())
        return;
    const int current = m_view.currentIndex().row();
    if (current < 0 || m_view.isRowHidden(current)) {
        int row = 0;
        while (m_view.isRowHidden(row))
            ++row;
        m_view.setCurrentIndex(m_model.index(row, m_columns.constFirst()));
    }
    m_view.setFocus(Qt::ShortcutFocusReason);
}

void SongFilter::apply(int first, int last)
{
    if (m_words.isEmpty() && m_hidden == 0)
        return;
    // The header would search the position of each row, which takes a pass over all rows every
    // time.
    QHeaderView *header = m_view.verticalHeader();
    header->setUpdatesEnabled(false);
    for (int row = first; row <= last; ++row) {
        const bool wasHidden = m_view.isRowHidden(row);
        const bool isHidden = !matches(row);
        if (wasHidden == isHidden)
            continue;
        m_view.setRowHidden(row, isHidden);
        m_hidden += isHidden ? 1 : -1;
    }
    header->setUpdatesEnabled(true);
}

/// After the model was read again: the view still hides the row numbers that it hid before.
void SongFilter::forgetTexts()
{
    const int rows = m_model.rowCount();
    m_texts = QStringList(rows);
    m_hidden = 0;
    for (int row = 0; row < rows; ++row)
        m_hidden += m_view.isRowHidden(row) ? 1 : 0;
}

bool SongFilter::matches(int row)
{
    QString &text = m_texts[row];
    if (m_words.isEmpty())
        return true;
    if (text.isNull())
        text = foldedTexts(row);
    return std::all_of(m_words.cbegin(), m_words.cend(),
                       [&text](const QString &word) { return text.contains(word); });
}

QString SongFilter::foldedTexts(int row) const
{
    QStringList texts;
    for (const int column : m_columns)
        texts.append(m_model.index(row, column).data().toString());
    return foldedForSearch(texts.join(u'\n')); // words must not match across two texts
}

QString foldedForSearch(const QString &text)
{
    QString folded = text.normalized(QString::NormalizationForm_KD);
    folded.removeIf([](QChar character) { return character.isMark(); });
    return folded.toUpper(); // only toUpper() turns a sharp s into two letters
}

} // namespace brisel
