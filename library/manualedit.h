#pragma once

#include "base/filelot.h"
#include "base/run.h"
#include "library/pulledmemories.h"
#include "library/songfile.h"

#include <QCoreApplication>
#include <QString>

#include <optional>

namespace brisel
{

class HistoryRecorder;
class UserSongsRelTableModel;

/// Writes the user's corrections into song files and updates their rows.
class ManualEdit
{
    Q_DECLARE_TR_FUNCTIONS(ManualEdit)

public:
    enum class Outcome {
        Done,        ///< all songs were processed
        Interrupted, ///< by the end of the program only: the user can't interrupt an edit
    };

    /// The data of the edited song that are copied to all songs of the list.
    struct Spread {
        bool author = false;
        bool artist = false;
        bool genre = false;
        bool titleFromFileName = false;

        bool any() const { return author || artist || genre || titleFromFileName; }
    };

    /// Opens the song in row \a row of \a model. Returns nothing, and reports the reason, if it
    /// does not open.
    [[nodiscard]] static std::optional<SongFile> open(Run &run, UserSongsRelTableModel &model,
                                                      int row);

    /// For setting \a info in the open song \a song, saving it to \a path, the file of \a row, and
    /// copying the data selected by \a spread to all other rows.
    ManualEdit(UserSongsRelTableModel &model, MetaSong song, SongInfo info, QString path, int row,
               Spread spread);

    /// Keeps the changed songs with \a recorder, which must outlive this object; null for none.
    void setRecorder(HistoryRecorder *recorder);

    /// Afterwards the row of a song shows the content of the file and has the status Edited, even
    /// if saving failed; the row of a file that can't be read keeps its data. Rows to which data
    /// are copied are processed in lots; if their file does not open they are not changed.
    [[nodiscard]] Outcome run(Run &run);

private:
    struct Staged {
        int row = 0;
        QString path;
        SongInfo before; ///< the song as it was read
    };
    using WhyNot = std::optional<Reason>;

    SongInfo spreadInfo(const SongFile &file) const;
    void saveSong(Run &run, MetaSong &song, const SongInfo &info, const QString &path, int row);
    void spreadOverList(Run &run);
    void spreadOver(Run &run, int row);
    std::optional<SongFile> openFile(Run &run, const QString &path);
    void finishLot(Run &run);
    void finishSong(Run &run, const Staged &song, WhyNot whyNotSaved);

    UserSongsRelTableModel &m_model;
    MetaSong m_song;
    const SongInfo m_edited;
    const QString m_path;
    const int m_row;
    const Spread m_spread;
    PulledMemories m_memories;
    FileLot m_lot;
    HistoryRecorder *m_recorder = nullptr;
    QList<Staged> m_staged; ///< the songs in the lot
};

} // namespace brisel
