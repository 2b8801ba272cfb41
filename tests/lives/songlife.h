#pragma once

#include "history/history.h"
#include "library/manualedit.h"
#include "tests/library/samplelibrary.h"
#include "tests/lives/restoremodel.h"
#include "tests/scriptedrun.h"
#include "tests/songfile/tagmaker.h"

#include <memory>
#include <random>

namespace brisel
{

class HistoryRecorder;

/// Songs of every format, a user who changes them and takes changes back, and other programs that
/// change, move and delete them in between. A RestoreModel says what the files must hold.
class SongLife
{
public:
    explicit SongLife(unsigned seed);

    /// Lives. Returns what happened up to the first thing that is wrong; empty if nothing is.
    QString live();
    /// The songs that were restored.
    int restored() const { return m_restored; }

private:
    int below(qsizetype end);
    bool isOneOf(int count) { return below(count) == 0; }
    QString path(const QString &name) const
    {
        return m_library.path(QStringLiteral("songs/") + name);
    }
    QByteArray content(const QString &suffix);
    QByteArray audio();
    QString oneOf(const QStringList &paths);

    void makeSongs();
    void step();

    // What the user does.
    void synchronise();
    void edit(bool isSpread);
    void writePlan();
    void restore();
    QList<HistorySong> songsToRestore();

    // What other programs do.
    void change();
    void move();
    void exchange();
    void copy();
    void remove();
    void putBack();

    RestoreModel::Files filesNow() const;
    void note(const QString &action) { m_actions.append(action); }
    void fail(const QString &problem);
    void checkRun(RunKind kind, const RestoreModel::Files &expected);
    void checkEntries(const HistoryRun &run, RestoreModel::Files contents);
    bool takeEntry(const HistorySong &song, RestoreModel::Files &contents);
    void checkFields(const HistorySong &song);

    std::mt19937 m_random;
    TagMaker m_tags;
    Sample::Library m_library;
    std::unique_ptr<History> m_history;
    RestoreModel m_model;
    QStringList m_list; ///< a path of every row
    qint64 m_lastRun = 0;
    int m_restored = 0;
    int m_numbers = 0;
    QStringList m_actions;
    QString m_problem;
};

} // namespace brisel
