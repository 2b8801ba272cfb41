#pragma once

#include <QObject>
#include <QStringList>

class QLineEdit;
class QSqlTableModel;
class QTableView;

namespace brisel
{

/// The search in the library: hides the rows that do not contain the words in the search field.
///
/// Only the view is affected: rows keep their numbers in the model, and a workflow processes all of
/// them. Each word of the field must be part of the title, artist, genre,
/// author or file name; case and accents make no difference. Rows that come while a search is on
/// are shown until the model is read again, which ends every import.
///
/// Ctrl+F moves the focus to the field, Return or Down from there to the rows, and Escape, in the
/// field or in the table, shows all rows again.
class SongFilter : public QObject
{
    Q_OBJECT

public:
    /// \a view shows \a model and stands in a window with \a field. Owned by the view.
    SongFilter(QLineEdit &field, QTableView &view, QSqlTableModel &model);

    /// True when there are rows and the search hides every one of them.
    bool hidesAll() const;

signals:
    /// Rows were hidden or shown, or have come or gone.
    void changed();

private:
    void connectKeys();
    void search();
    void showAll();
    void enterRows();
    void apply(int first, int last);
    void applyToAll();
    void forgetTexts();
    bool matches(int row);
    QString foldedTexts(int row) const;

    QLineEdit &m_field;
    QTableView &m_view;
    QSqlTableModel &m_model;
    QList<int> m_columns; ///< those that are searched
    QStringList m_words;  ///< folded; empty while all rows are shown
    QStringList m_texts;  ///< a row's texts, folded; null until they are first asked for
    int m_hidden = 0;     ///< number of hidden rows
};

/// \a text without accents and in one case, as texts are compared by the search.
QString foldedForSearch(const QString &text);

} // namespace brisel
