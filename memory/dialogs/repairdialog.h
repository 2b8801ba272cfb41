#pragma once

#include "memory/entryguess.h"

#include <QAbstractTableModel>
#include <QDialog>
#include <QList>

#include <optional>

class QDialogButtonBox;
class QLabel;
class QLineEdit;
class QTableView;

namespace brisel
{

class MemoryContents;

/// Songs of a memory, each with a note.
class SongChoiceModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { Title, Artist, Path, Note, ColumnCount };

    /// \a contents must outlive this.
    explicit SongChoiceModel(const MemoryContents &contents, QObject *parent = nullptr)
        : QAbstractTableModel(parent), m_contents(contents)
    {
    }

    void setGuesses(const QList<EntryGuess> &guesses) { m_guesses = guesses; }
    /// Shows the guesses, then the other songs; only those with all words of \a text.
    void search(const QString &text);
    /// Returns true if the first song is a guess, or was searched for.
    bool isFirstLikely() const;
    qsizetype songAt(int row) const { return m_rows.at(row).song; }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    bool matches(qsizetype song, const QStringList &words) const;

    const MemoryContents &m_contents;
    QList<EntryGuess> m_guesses;
    QList<EntryGuess> m_rows;
    bool m_isSearched = false; ///< for words
};

/// Asks which song an entry of a playlist means: the guesses come first, then all songs.
class RepairDialog : public QDialog
{
    Q_OBJECT

public:
    /// For the entry with this \a title. \a contents must outlive this.
    RepairDialog(const MemoryContents &contents, const QString &title,
                 const QList<EntryGuess> &guesses, QWidget *parent = nullptr);

    /// The position of the chosen song; empty if there is none.
    std::optional<qsizetype> song() const;

protected:
    void changeEvent(QEvent *event) override;

private:
    void retranslate();
    void search();
    void updateOk();

    const QString m_title;
    SongChoiceModel *m_model;
    QLabel *m_label;
    QLabel *m_searchLabel;
    QLineEdit *m_search;
    QTableView *m_table;
    QDialogButtonBox *m_buttons;
};

} // namespace brisel
