#pragma once

#include <QObject>
#include <QSqlTableModel>
#include <QStringList>

class QLineEdit;
class QTableView;

namespace brisel
{

/// The search in the library: hides the rows that do not contain the words in the search field.
///
/// Only the view is affected: rows keep their numbers in the model, and a workflow processes all of
/// them. Each word of the field must be part of the title, artist, genre, author or file name; case
/// and accents make no difference. Rows that come while a search is on are shown until the model is
/// read again, which ends every import.
///
/// Ctrl+F moves the focus to the field, Return or Down from there to the rows, and Escape, in the
/// field or in the table, shows all rows again.
class SongFilter : public QObject
{
    Q_OBJECT

public:
    /// \a view shows \a model and is in a window with \a field. Owned by the view.
    SongFilter(QLineEdit &field, QTableView &view, QSqlTableModel &model);

    /// Returns true if there are rows and the search hides all of them.
    bool hidesAll() const { return m_hidden > 0 && m_hidden == m_model.rowCount(); }

signals:
    /// Rows were hidden, shown, added or removed.
    void changed();

private:
    void connectKeys();
    void search();
    void showAll();
    void enterRows();
    void apply(int first, int last);
    void applyToAll() { apply(0, m_model.rowCount() - 1); }
    void forgetTexts();
    bool matches(int row);
    QString foldedTexts(int row) const;

    QLineEdit &m_field;
    QTableView &m_view;
    QSqlTableModel &m_model;
    QList<int> m_columns; ///< the searched columns
    QStringList m_words;  ///< folded; empty while all rows are shown
    QStringList m_texts;  ///< a row's texts, folded; null until first use
    int m_hidden = 0;     ///< number of hidden rows
};

/// \a text without accents and case-folded, as the search compares texts.
QString foldedForSearch(const QString &text);

} // namespace brisel
