#pragma once

#include "db/songoutcome.h"
#include "library/songsearch.h"

#include <QHash>
#include <QObject>
#include <QStringList>
#include <QTimer>

#include <array>
#include <optional>

class QLineEdit;
class QTableView;

namespace brisel
{

class OutcomeButtons;
class UserSongsRelTableModel;

/// The search in the library: hides the rows that do not contain the words in the search field.
///
/// Only the view is affected: rows keep their numbers in the model, and a workflow processes all of
/// them. Each word of the field must be part of the title, artist, genre, author, file name, the
/// name of its folder, or the beginning of a word for its outcome; conditions on fields are those
/// of SongSearch. An outcome can be chosen beside them. Rows that come while a search is on are
/// shown until the model is read again, which ends every import.
///
/// The texts of the rows are made while the program is idle, so that the first letter does not wait
/// for those of a large library.
///
/// Ctrl+F moves the focus to the field, Return or Down from there to the rows, and Escape, in the
/// field or in the table, shows all rows again.
class SongFilter : public QObject
{
    Q_OBJECT

public:
    /// \a view shows \a model and is in a window with \a field. Owned by the view.
    SongFilter(QLineEdit &field, QTableView &view, UserSongsRelTableModel &model);

    /// Shows only rows with this outcome among those that the words match; null: with any.
    void setOutcome(std::optional<SongOutcome> outcome);
    std::optional<SongOutcome> outcome() const { return m_outcome; }
    /// Lets \a buttons choose the outcome.
    void connectTo(OutcomeButtons &buttons);
    /// Hides rows that came while a search was on.
    void applyToAll();

    /// Returns true if there are rows and the search hides all of them.
    bool hidesAll() const;
    /// "8 di 364": how many rows are shown of all; empty if no search is on.
    QString countText() const;

protected:
    /// Other words for the outcomes.
    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    /// Rows were hidden, shown, added or removed.
    void changed();

private:
    void connectKeys();
    void search();
    void showAll();
    void enterRows();
    void apply(int first, int last);
    void forgetTexts();
    void forgetTexts(int first, int last);
    void readSomeTexts();
    bool isOn() const { return !m_search.isEmpty() || m_outcome.has_value(); }
    bool matches(int row);
    void readOutcomeWords();
    bool beginsOutcome(SongOutcome outcome, const QString &word) const;
    const QString &textsOf(int row);
    QString foldedTexts(int row) const;
    QString foldedText(int row, SongSearch::Field field);
    QString textOf(int row, SongSearch::Field field) const;

    QLineEdit &m_field;
    QTableView &m_view;
    UserSongsRelTableModel &m_model;
    QHash<SongSearch::Field, int> m_columns; ///< those that the model has for the fields
    std::array<QString, allSongOutcomes.size()> m_outcomeTexts;     ///< folded
    std::array<QStringList, allSongOutcomes.size()> m_outcomeWords; ///< of these texts
    SongSearch m_search;
    std::optional<SongOutcome> m_outcome;
    QStringList m_texts;       ///< a row's texts, folded; null until they are read
    QTimer m_reading;          ///< active while rows may be without texts
    int m_firstUnread = 0;     ///< the rows before it have their texts
    int m_hidden = 0;          ///< number of hidden rows
    bool m_isOutdated = false; ///< all of these are from before the model was read again
};

} // namespace brisel
