#pragma once

#include "base/reason.h"

#include <QCoreApplication>
#include <QList>
#include <QString>
#include <QStringList>

#include <map>
#include <optional>

namespace brisel
{

/// What came of a run: how many songs went well, and each file that did not, with the reason. Each
/// part of a run fills one, and the parts are joined. Texts are in the language of the moment in
/// which they are asked for. Of each kind, what the file was not and why, 1,000 files are named and
/// the others counted: a memory may have any number of them.
class RunReport
{
    Q_DECLARE_TR_FUNCTIONS(RunReport)

public:
    enum class Operation { Import, Synchronisation, Backup, Edit, Transfer, Index, SongsList };
    enum class Success { Updated, Edited, Copied };
    /// The step that failed for a file.
    enum class Step { Read, Find, Change, Save, Copy, Index };

    RunReport() = default;
    explicit RunReport(Operation operation) : m_operations{operation} {}

    /// Makes the report one about \a operation, too.
    void addOperation(Operation operation);
    void count(Success success);
    void add(Step step, const QString &path, Reason reason);
    /// A file that was not indexed, in words that name it and the reason. Messages that are the
    /// same up to the first "/" are of one kind. False when its kind has its lines already: it is
    /// counted only.
    bool addMessage(const QString &message);
    /// Something that was done and the user should know, in words of its own. Kinds and result as
    /// with addMessage(); counted neither as failed nor as skipped, and listed behind the files.
    bool addNotice(const QString &message);
    /// A file that shares one line with all others of \a place, such as those of a memory that was
    /// pulled. The line shows the step of the first.
    void addShared(Step step, const QString &place, Reason reason);
    /// Adds the operations, the counts and the files of \a part behind its own.
    void append(const RunReport &part);

    /// True while nothing was counted, added or joined, not even a second operation.
    bool isUntouched() const;
    /// True when there is neither a file nor a notice to list.
    bool isEmpty() const { return m_entries.isEmpty() && m_shared.isEmpty(); }
    int counted(Success success) const;
    /// Files passed over because the user wanted it so.
    int skipped() const;
    /// All other files that are listed.
    int failed() const;

    /// The operations and what they have counted in one line; empty when nothing was counted.
    QString summary() const;
    /// The summary, a line for each file, one for each notice, and the lines of rest(). Names can't
    /// break a line.
    QString text() const;
    /// A line for each kind that has more files than are named: how many more.
    QStringList rest() const;

private:
    struct Entry {
        Step step = Step::Index;
        std::optional<Reason> reason;
        QString path;
        QString message; ///< stands for all the rest when it is not empty
        bool isNotice = false;
    };
    struct Shared {
        Step step;
        QString place;
        Reason reason;
        int count;
    };
    /// What files have in common, each kind with lines of its own.
    struct Kind {
        Step step;
        std::optional<Reason> reason;
        QString start; ///< of its messages
        bool isNotice = false;
        bool operator<(const Kind &other) const;
    };

    static QString operationText(Operation operation);
    static QString stepText(Step step);
    static QString line(const Entry &entry);
    QString lines(bool areNotices) const;
    static Kind kindOf(const Entry &entry);
    static bool isSkipped(const Kind &kind);
    bool addEntry(const Entry &entry);
    void addShared(const Shared &shared);
    int counted(bool areSkipped) const;

    QList<Operation> m_operations;
    QList<Entry> m_entries;
    QList<Shared> m_shared;       ///< each place once
    std::map<Kind, int> m_counts; ///< of all files
    int m_updated = 0;
    int m_edited = 0;
    int m_copied = 0;
};

} // namespace brisel
