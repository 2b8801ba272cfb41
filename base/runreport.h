#pragma once

#include <QCoreApplication>
#include <QList>
#include <QString>
#include <QStringList>

#include <map>

/// What came of a run: how many songs went well, and each file that did not, with the reason. Each
/// part of a run fills one, and the parts are joined. Texts are in the language of the moment in
/// which they are asked for. Of each kind, what the file was not and why, 1,000 files are named and
/// the others counted: a memory may have any number of them.
class RunReport
{
    Q_DECLARE_TR_FUNCTIONS(RunReport)

public:
    enum class Run { Import, Synchronisation, Backup, Edit, Transfer, Index, SongsList };
    enum class Success { Updated, Edited, Copied };
    /// What a file was not.
    enum class Lack { Read, Found, Changed, Saved, Copied, Indexed };
    enum class Reason {
        Missing,
        Unreachable,
        NoPlainFile,
        Empty,
        TooLarge,
        UnknownFormat,
        NotInTable,
        NotInCatalogue,
        Declined,    ///< the user did not want it
        Kept,        ///< the user did not want the one that is there replaced
        Interrupted, ///< the run ended before the file's turn
        AlreadyThere,
        PickedToo, ///< what stands in its place is to be copied itself
        FolderMissing,
        MemoryGone,
        InUse, ///< another program works on the memory
        WriteProtected,
        NotAllowed, ///< the user may not write there
        NoSpace,
        Unwritable,
        WouldBeTooLarge,
        IndexIncomplete,
        NotPrepared,      ///< the memory has no index
        CutShort,         ///< fewer bytes could be read than the file holds
        ChangedMeanwhile, ///< it no longer is what was read
        ListFailed,
    };

    RunReport() = default;
    explicit RunReport(Run run) : m_runs{run} {}

    /// Says that the report is about \a run, too.
    void addRun(Run run);
    void count(Success success);
    void add(Lack lack, const QString &path, Reason reason);
    /// A file that was not indexed, in words that name it and the reason. Messages that are the
    /// same up to the first "/" are of one kind. False when its kind has its lines already: it is
    /// counted only.
    bool addMessage(const QString &message);
    /// Something that was done and the user should know, in words of its own. Kinds and result as
    /// with addMessage(); counted neither as failed nor as skipped, and listed behind the files.
    bool addNotice(const QString &message);
    /// A file of the memory \a memory, which was pulled. All of them share one line, with the lack
    /// of the first.
    void addPulled(Lack lack, const QString &memory);
    /// Takes the runs, the counts and the files of \a part, after its own.
    void append(const RunReport &part);

    /// True when there is neither a file nor a notice to list.
    bool isEmpty() const { return m_entries.isEmpty() && m_pulled.isEmpty(); }
    int counted(Success success) const;
    /// Files passed over because the user wanted it so.
    int skipped() const;
    /// All other files that are told of.
    int failed() const;

    /// The runs and what they have counted in one line; empty when nothing was counted.
    QString summary() const;
    /// The summary, a line for each file, one for each notice, and the lines of rest(). Names can't
    /// break a line.
    QString text() const;
    /// A line for each kind that has more files than are named: how many more.
    QStringList rest() const;
    static QString reasonText(Reason reason);

private:
    struct Entry {
        Lack lack;
        Reason reason;
        QString path;
        QString message; ///< stands for all the rest when it is not empty
        bool isNotice = false;
    };
    struct Pulled {
        Lack lack;
        QString memory;
        int count;
    };
    /// What files have in common, each kind with lines of its own.
    struct Kind {
        Lack lack;
        Reason reason;
        QString start; ///< of its messages
        bool isNotice = false;
        bool operator<(const Kind &other) const;
    };

    static QString runText(Run run);
    static QString lackText(Lack lack);
    static QString line(const Entry &entry);
    QString lines(bool areNotices) const;
    static Kind kindOf(const Entry &entry);
    static bool isSkipped(const Kind &kind);
    bool addEntry(const Entry &entry);
    void addPulled(const Pulled &pulled);
    int counted(bool areSkipped) const;

    QList<Run> m_runs;
    QList<Entry> m_entries;
    QList<Pulled> m_pulled;       ///< each memory once
    std::map<Kind, int> m_counts; ///< of all files
    int m_updated = 0;
    int m_edited = 0;
    int m_copied = 0;
};
