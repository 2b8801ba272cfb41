// The columns of the library table: their places, headings and texts.

#include "db/usersongsreltablemodel.h"

#include <QDateTime>
#include <QLocale>
#include <QSqlQuery>
#include <QSqlRecord>

#include <algorithm>

namespace brisel
{

static QString folderOf(const QString &path)
{
    const qsizetype slash = path.lastIndexOf(u'/');
    return path.left(slash == 0 ? 1 : std::max<qsizetype>(slash, 0));
}

/// The table is created with the twelve columns of a song; these are the model's. New rows get no
/// outcome and no folder: binding more values would slow down an import.
void UserSongsRelTableModel::addColumns() const
{
    if (database().record(QStringLiteral("usersongs")).contains(QStringLiteral("outcome")))
        return; // by another model
    QSqlQuery query(database());
    for (const char *column : {"outcome int default 0", "reason varchar", "folder varchar",
                               "markers int", "size int", "modified int"})
        query.exec(QStringLiteral("alter table usersongs add column ") + QLatin1StringView(column));
}

void UserSongsRelTableModel::setFiledsIndexes()
{
    m_type = fieldIndex(QStringLiteral("type"));
    m_title = fieldIndex(QStringLiteral("title"));
    m_artist = fieldIndex(QStringLiteral("artist"));
    m_genre = fieldIndex(QStringLiteral("genre"));
    m_author = fieldIndex(QStringLiteral("author"));
    m_length = fieldIndex(QStringLiteral("length"));
    m_userBpm = fieldIndex(QStringLiteral("userbpm"));
    m_key = fieldIndex(QStringLiteral("key"));
    m_filename = fieldIndex(QStringLiteral("filename"));
    m_shortName = fieldIndex(QStringLiteral("shortname"));
    m_status = fieldIndex(QStringLiteral("status"));
    m_outcome = fieldIndex(QStringLiteral("outcome"));
    m_reason = fieldIndex(QStringLiteral("reason"));
    m_folder = fieldIndex(QStringLiteral("folder"));
    m_markers = fieldIndex(QStringLiteral("markers"));
    m_size = fieldIndex(QStringLiteral("size"));
    m_modified = fieldIndex(QStringLiteral("modified"));
    m_dataColumns = {m_title, m_artist, m_genre, m_author, m_length, m_userBpm, m_key};
    m_fileColumns = {m_markers, m_size, m_modified};
    m_songColumns =
        m_dataColumns + m_fileColumns + QList<int>{m_type, m_filename, m_shortName, m_status};
    m_statements = RowStatements(database(), tableName(), record());
}

void UserSongsRelTableModel::setHeaderLabels()
{
    setHeaderData(RowStatements::idColumn, Qt::Horizontal, tr("Num"));
    setHeaderData(m_type, Qt::Horizontal, tr("Formato"));
    setHeaderData(m_title, Qt::Horizontal, tr("Titolo"));
    setHeaderData(m_artist, Qt::Horizontal, tr("Artista"));
    setHeaderData(m_genre, Qt::Horizontal, tr("Genere"));
    setHeaderData(m_author, Qt::Horizontal, tr("Autore"));
    setHeaderData(m_length, Qt::Horizontal, tr("Durata"));
    setHeaderData(m_userBpm, Qt::Horizontal, tr("Bpm"));
    setHeaderData(m_key, Qt::Horizontal, tr("Tonalita'"));
    setHeaderData(m_filename, Qt::Horizontal, QString());
    setHeaderData(m_shortName, Qt::Horizontal, tr("Nome file"));
    setHeaderData(m_status, Qt::Horizontal, QString());
    setHeaderData(m_outcome, Qt::Horizontal, QString());
    setHeaderData(m_outcome, Qt::Horizontal, tr("Stato (simbolo)"), Qt::AccessibleTextRole);
    setHeaderData(m_reason, Qt::Horizontal, tr("Stato"));
    setHeaderData(m_folder, Qt::Horizontal, tr("Cartella"));
    setHeaderData(m_markers, Qt::Horizontal, tr("Marker"));
    setHeaderData(m_size, Qt::Horizontal, tr("Dimensione"));
    setHeaderData(m_modified, Qt::Horizontal, tr("Data"));
    setHeaderToolTips();
}

void UserSongsRelTableModel::setHeaderToolTips()
{
    const auto explain = [this](int column, const QString &text) {
        setHeaderData(column, Qt::Horizontal, tr("%1 (un clic ordina le righe)").arg(text),
                      Qt::ToolTipRole);
    };
    explain(m_type, tr("Formato del file"));
    explain(m_title, tr("Titolo della song"));
    explain(m_artist, tr("Interprete della song"));
    explain(m_genre, tr("Genere musicale"));
    explain(m_author, tr("Autore della song"));
    explain(m_length, tr("Durata in minuti e secondi"));
    explain(m_userBpm, tr("Tempo in battiti al minuto"));
    explain(m_key, tr("Tonalità; il segno - indica il modo minore"));
    explain(m_shortName, tr("Nome del file senza la cartella"));
    explain(m_outcome, tr("Che cosa è stato della song"));
    explain(m_reason, tr("Che cosa è stato della song, in parole"));
    explain(m_folder, tr("Cartella del file"));
    explain(m_markers, tr("Numero di marker"));
    explain(m_size, tr("Dimensione del file"));
    explain(m_modified, tr("Data dell'ultima modifica del file"));
}

/// Fills the column of the folders, by which the rows are to be sorted.
void UserSongsRelTableModel::storeFolders() const
{
    QSqlQuery query(database());
    query.exec(
        QStringLiteral("update usersongs set folder=rtrim(filename,replace(filename,'/',''))"));
}

QList<int> UserSongsRelTableModel::choosableColumns() const
{
    return {m_reason, m_folder, m_markers, m_size, m_modified};
}

QVariant UserSongsRelTableModel::shownValue(int row, int column) const
{
    QVariant value = rowAt(row).at(column);
    if (column == m_outcome)
        return {};
    if (column == m_reason)
        return outcomeText(row);
    if (column == m_folder)
        return folderOf(rowAt(row).at(m_filename).toString());
    if (column == m_size && !value.isNull())
        return QLocale().formattedDataSize(value.toLongLong(), 1,
                                           QLocale::DataSizeTraditionalFormat);
    if (column == m_modified && !value.isNull())
        return QLocale().toString(QDateTime::fromSecsSinceEpoch(value.toLongLong()),
                                  QLocale::ShortFormat);
    return value;
}

} // namespace brisel
