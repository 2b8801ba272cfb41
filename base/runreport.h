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

/// The outcome of a run: the number of successful songs, each failed or skipped file with the
/// reason, and each changed song with its fields before and after. Each part of a run fills one,
/// and the parts are joined. Texts are in the language at the time of the call. Of each kind (step
/// and reason) at most 1,000 files are listed and the others counted, because a memory may have any
/// number of them; of the changed songs all.
class RunReport
{
    Q_DECLARE_TR_FUNCTIONS(RunReport)

public:
    enum class Operation {
        Import,
        Synchronisation,
        Backup,
        Edit,
        Transfer,
        Index,
        SongsList,
        Restore,
        Deletion,
        Renaming,
        CopyBack
    };
    enum class Success { Updated, Edited, Copied, Restored, Deleted, Renamed };
    /// The step that failed for a file.
    enum class Step { Read, Find, Change, Save, Copy, Index, Restore, Delete, Rename };
    /// A field of a song that was changed.
    struct ChangedField {
        const char *field; ///< its name, marked as QT_TRANSLATE_NOOP("RunReport", "...")
        QString before;
        QString after;
    };

    RunReport() = default;
    explicit RunReport(Operation operation) : m_operations{operation} {}

    /// Adds \a operation to the operations of the report.
    void addOperation(Operation operation);
    void count(Success success);
    void add(Step step, const QString &path, Reason reason) { addEntry({step, reason, path, {}}); }
    /// Adds a message about a file that was not indexed, with its path and the reason. Messages
    /// that are equal up to the first "/" have the same kind. Returns false if its kind already has
    /// all its lines: then it is only counted.
    bool addMessage(const QString &message);
    /// Adds a message that the user should know and that is not a failure. Kinds and result as with
    /// addMessage(); counted neither as failed nor as skipped, and listed after the files.
    bool addNotice(const QString &message);
    /// Adds a file that shares one line with all others of \a place, such as a pulled memory. The
    /// line shows the step of the first.
    void addShared(Step step, const QString &place, Reason reason);
    /// Adds the song \a path, which was saved with these changes; a no-op without a change. Texts
    /// that differ late are cut before the difference, and long ones in the middle.
    void addChanges(const QString &path, const QList<ChangedField> &changes);
    /// Appends the operations, the counts and the files of \a part.
    void append(const RunReport &part);

    /// Returns true if nothing was counted, added or joined, not even a second operation.
    bool isUntouched() const;
    /// Returns true if there are no files, notices or changed songs to list.
    bool isEmpty() const { return m_entries.isEmpty() && m_shared.isEmpty() && !hasChanges(); }
    /// Returns true if there are changed songs to list.
    bool hasChanges() const { return !m_changed.isEmpty(); }
    int counted(Success success) const;
    /// The number of files that the user chose to skip.
    int skipped() const { return counted(true); }
    /// The number of all other listed files.
    int failed() const;

    /// The operations and their counts in one line; empty if nothing was counted.
    QString summary() const;
    /// The summary, a line for each file, one for each notice, the lines of rest(), and for each
    /// changed song a line with its name and one for each field. Line breaks in names and texts are
    /// replaced.
    QString text() const;
    /// For each kind with more files than are listed, a line with the number of the others.
    QStringList rest() const;

private:
    struct Entry {
        Step step = Step::Index;
        std::optional<Reason> reason;
        QString path;
        QString message; ///< if not empty, replaces all other members
        bool isNotice = false;
    };
    struct Shared {
        Step step;
        QString place;
        Reason reason;
        int count;
    };
    struct ChangedSong {
        QString path;
        QList<ChangedField> fields;
    };
    /// The common data of the files in the same lines.
    struct Kind {
        Step step;
        std::optional<Reason> reason;
        QString start; ///< the common start of the messages
        bool isNotice = false;
        bool operator<(const Kind &other) const;
    };

    static QString operationText(Operation operation);
    static QString stepText(Step step);
    static QString line(const Entry &entry);
    static QString fieldLine(const ChangedField &change);
    QString lines(bool areNotices) const;
    static Kind kindOf(const Entry &entry);
    static bool isSkipped(const Kind &kind);
    bool addEntry(const Entry &entry);
    void addShared(const Shared &shared);
    int counted(bool areSkipped) const;

    QList<Operation> m_operations;
    QList<Entry> m_entries;
    QList<Shared> m_shared; ///< each place once
    QList<ChangedSong> m_changed;
    std::map<Kind, int> m_counts; ///< of all files
    int m_updated = 0;
    int m_edited = 0;
    int m_copied = 0;
    int m_restored = 0;
    int m_deleted = 0;
    int m_renamed = 0;
};

} // namespace brisel
