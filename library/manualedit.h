#pragma once

#include "base/filelot.h"
#include "base/run.h"
#include "library/pulledmemories.h"
#include "library/severalsongs.h"
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
        Interrupted, ///< while copying, by the user or the end of the program
    };

    static constexpr Reason markersNotWritable{
        QT_TRANSLATE_NOOP("RunReport", "i marker di questa song non si possono riscrivere")};
    static constexpr Reason markersMisread{
        QT_TRANSLATE_NOOP("RunReport", "un marker verrebbe letto come un altro dato della song")};

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

    /// For writing \a edit into the songs in \a rows.
    ManualEdit(UserSongsRelTableModel &model, QList<int> rows, SeveralEdit edit);

    /// Replaces the markers of the edited song, too; otherwise they are not written.
    void setMarkers(const QList<Marker> &markers) { m_markers = markers; }

    /// Keeps the changed songs with \a recorder, which must outlive this object; null for none.
    void setRecorder(HistoryRecorder *recorder);

    /// Afterwards the row of a song shows the content of the file and has the status Edited, even
    /// if saving failed; the row of a file that can't be read keeps its data. Rows to which data
    /// are copied are processed in lots; if their file does not open they are not changed.
    [[nodiscard]] Outcome run(Run &run);

    /// Why the edited song was not saved; nothing if it was.
    const std::optional<Reason> &whyNotSaved() const { return m_whyNotSaved; }

private:
    struct Staged {
        int row = 0;
        QString path;
        SongInfo before; ///< the song as it was read
    };
    using WhyNot = std::optional<Reason>;

    bool isSeveral() const { return m_row < 0; }
    WhyNot setEdited();
    QList<int> rowsToCopyTo();
    void setCopied(SongFile &file) const;
    WhyNot saveSong(Run &run, MetaSong &song, const SongInfo &before, const QString &path, int row);
    Outcome spreadOverRows(Run &run, const QList<int> &rows);
    void noteRowsLeft(Run &run, const QList<int> &rows);
    void spreadOver(Run &run, int row, int step);
    std::optional<SongFile> openFile(Run &run, const QString &path, int row);
    void finishLot(Run &run);
    WhyNot finishSong(Run &run, const Staged &song, WhyNot whyNot);

    UserSongsRelTableModel &m_model;
    MetaSong m_song;
    const SongInfo m_edited;
    const QString m_path;
    std::optional<QList<Marker>> m_markers;
    const int m_row = -1; ///< -1 for several songs
    const Spread m_spread;
    const QList<int> m_rows;
    const SeveralEdit m_several;
    PulledMemories m_memories;
    FileLot m_lot;
    HistoryRecorder *m_recorder = nullptr;
    WhyNot m_whyNotSaved;
    QList<Staged> m_staged; ///< the songs in the lot
};

} // namespace brisel
