#pragma once

#include "base/fileidentity.h"
#include "base/reason.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QThreadPool>

#include <optional>

namespace brisel
{

namespace HistoryReason
{

inline constexpr Reason locked{
    QT_TRANSLATE_NOOP("RunReport", "un altro programma sta usando la cronologia")};
inline constexpr Reason damaged{QT_TRANSLATE_NOOP("RunReport", "la cronologia è danneggiata")};
inline constexpr Reason newer{
    QT_TRANSLATE_NOOP("RunReport", "la cronologia è di una versione più recente del programma")};
inline constexpr Reason tooSmall{QT_TRANSLATE_NOOP(
    "RunReport", "le modifiche occupano più spazio di quello concesso alla cronologia")};

} // namespace HistoryReason

/// The SQLite file of the history, docs/formats/history.md, with its own connection. After a
/// failure, trouble() has the reason.
class HistoryFile
{
public:
    static constexpr qint64 leastSpace = 1024 * 1024; ///< bytes on the disk that a run needs

    explicit HistoryFile(QString path);
    ~HistoryFile();
    HistoryFile(const HistoryFile &) = delete;
    HistoryFile &operator=(const HistoryFile &) = delete;

    const QString &path() const { return m_path; }
    /// Opens the file, unless it is open. Returns false if it does not exist, without trouble, or
    /// can't be used.
    [[nodiscard]] bool open();
    /// The same; creates the file and its folder if they are missing.
    [[nodiscard]] bool openOrCreate();
    void close();

    /// A query of the open file, for statements with values; see exec().
    QSqlQuery query(const QString &statement);
    /// Executes a query, or a single statement. Return false on failure.
    [[nodiscard]] bool exec(QSqlQuery &query);
    [[nodiscard]] bool exec(const QString &statement);
    /// The number that \a statement returns; nothing on failure.
    std::optional<qint64> number(const QString &statement);

    /// The bytes that the entries occupy, without free pages; -1 on failure.
    qint64 usedBytes();
    /// Gives up to \a pages free pages back to the disk, and the space of the log. No-op on
    /// failure.
    void giveBack(int pages);

    /// Starts to write: other programs wait until end() or drop(). Waits for another program's lock
    /// for up to two seconds, but only shortly if the last call did so in vain.
    [[nodiscard]] bool begin();
    /// Ends what begin() started; on the disk when it returns true. After a failure nothing is
    /// written. \a bytes: what was added, about. When the log has become long, a thread moves it
    /// into the file.
    [[nodiscard]] bool end(qint64 bytes = 0);
    void drop();

    /// Why the last call failed.
    const std::optional<Reason> &trouble() const { return m_trouble; }

private:
    [[nodiscard]] bool isStillThere() const;
    [[nodiscard]] bool openFile();
    [[nodiscard]] bool connectTo();
    [[nodiscard]] bool checkVersion();
    [[nodiscard]] bool makeTables();
    void setPatience(bool isPatient);
    [[nodiscard]] bool fail(Reason reason);
    [[nodiscard]] bool fail(const QSqlError &error);

    QString m_path;
    QString m_connection;
    QSqlDatabase m_database;
    FileState m_opened; ///< the file as it was opened
    bool m_isPatient = true;
    qint64 m_logBytes = 0; ///< added to the log since it was last moved into the file, about
    QThreadPool m_thread;  ///< moves it; its destructor waits
    std::optional<Reason> m_trouble;
};

} // namespace brisel
