#pragma once

#include "library/copyroom.h"
#include "library/plannedcopies.h"
#include "library/transfer.h"

#include <QCoreApplication>
#include <QHash>
#include <QSet>

#include <memory>
#include <optional>

namespace brisel
{

class ComingNames;
class GraphicsFiles;
class SongPlaces;

/// What a transfer would do, one entry for each file, before anything is written: the user ticks
/// what is copied. Writes nothing, neither on the memory nor elsewhere.
class TransferPlan
{
    Q_DECLARE_TR_FUNCTIONS(TransferPlan)

public:
    enum class Outcome {
        New,
        Same,         ///< the memory has the same content: nothing to do
        Replaces,     ///< replaces another content on the memory
        ReplacesSong, ///< replaces another file of the plan, copied before under the same name
        NoRoom,       ///< does not fit beside the ticked files before it
        Failed,       ///< can't be copied
    };
    static constexpr int outcomes = 6;

    struct Song {
        QString source;
        QString place = {};                 ///< that it is copied to
        qint64 bytes = 0;                   ///< with its graphics file
        FileState there = {};               ///< at the place
        std::optional<Reason> failure = {}; ///< why it can't be copied
        bool isSame = false;                ///< what is there has the same content
        bool isWanted = false;              ///< ticked, unless it is not tickable
        Outcome outcome = Outcome::New;     ///< depends on the ticks
        qsizetype replaced = -1;            ///< for ReplacesSong: the number of the replaced file
        QString newPath = {};               ///< absolute, after the index has shortened long names
    };

    /// \a chosen is the folder that the user picked.
    TransferPlan(QStringList files, QString chosen);
    ~TransferPlan();
    TransferPlan(const TransferPlan &) = delete;
    TransferPlan &operator=(const TransferPlan &) = delete;

    /// Compares the files with the memory, one step for each. Ticks all that have something to do.
    /// Failed if the user has interrupted the run, or the memory was pulled, which is reported.
    [[nodiscard]] Transfer::Outcome run(Run &run);

    const QList<Song> &songs() const { return m_songs; }
    /// Returns true if the user can have the file \a number copied.
    bool isTickable(qsizetype number) const;
    /// Returns true if the file \a number is copied.
    bool isTicked(qsizetype number) const;
    /// Ticks or unticks files that are tickable.
    void tick(const QList<qsizetype> &numbers, bool isWanted);

    int count(Outcome outcome) const { return m_counts.value(outcome); }
    /// The number of ticked files.
    int ticked() const { return m_ticked; }
    /// The number of ticked files that get a short name.
    int shortened() const { return m_shortened; }
    /// The bytes of the ticked files.
    qint64 bytes() const { return m_bytes; }
    /// The room that the ticked files need, and the free room.
    const CopyRoom &room() const { return *m_room; }
    /// The folder that the user picked.
    const QString &chosen() const { return m_chosen; }
    /// The root of the memory.
    const QString &root() const { return m_root; }

    /// The ticked files.
    PlannedCopies copies() const;

private:
    bool compareFiles(Run &run, const QStringList &files);
    Song look(Run &run, const QString &source);
    std::optional<Reason> whyFailed(const Song &song) const;
    bool hasSameContent(Run &run, const Song &song, const QString &companion) const;
    void readNames(Run &run);
    void update();
    void updatePlaces();
    void updateRoom();
    void updateNames();

    const QStringList m_files;
    const QString m_chosen;
    QString m_folder;
    QString m_present; ///< the folder, or the memory if the folder is missing
    QString m_root;
    MemoryIdentity m_memory;
    QSet<QString> m_sources; ///< identities
    QList<Song> m_songs;
    QList<QList<CopyRoom::Need>> m_needs; ///< of each song
    std::unique_ptr<CopyRoom> m_room;
    std::unique_ptr<ComingNames> m_names;
    std::unique_ptr<GraphicsFiles> m_graphics;
    std::unique_ptr<SongPlaces> m_places;
    QHash<Outcome, int> m_counts;
    int m_ticked = 0;
    int m_shortened = 0;
    qint64 m_bytes = 0;
};

} // namespace brisel
