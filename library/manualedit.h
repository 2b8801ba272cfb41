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

class UserSongsRelTableModel;

/// Writes what the user corrected by hand into song files, and into the rows that show them.
class ManualEdit
{
    Q_DECLARE_TR_FUNCTIONS(ManualEdit)

public:
    enum class Outcome {
        Done,        ///< every song was tried
        Interrupted, ///< by the end of the program, which alone interrupts an edit
    };

    /// Which data of the edited song are copied to all songs of the list.
    struct Spread {
        bool author = false;
        bool artist = false;
        bool genre = false;
        bool titleFromFileName = false;

        bool any() const { return author || artist || genre || titleFromFileName; }
    };

    /// Opens the song in row \a row of \a model. Empty, and reported, when it doesn't open.
    [[nodiscard]] static std::optional<SongFile> open(Run &run, UserSongsRelTableModel &model,
                                                      int row);

    /// Is to put \a info into the open song \a song, to save it to \a path, which \a row shows, and
    /// to apply what \a spread calls for to all other rows.
    ManualEdit(UserSongsRelTableModel &model, MetaSong song, SongInfo info, QString path, int row,
               Spread spread);

    /// Whether a song could be saved or not, its row then shows what the file holds and has the
    /// status Edited; the row of a file that can't be read any more keeps its data. Rows over which
    /// data are spread are taken in lots; those whose file does not open are left as they are.
    [[nodiscard]] Outcome run(Run &run);

private:
    struct Staged {
        int row = 0;
        QString path;
    };
    using WhyNot = std::optional<Reason>;

    SongInfo spreadInfo(const SongFile &file) const;
    void saveSong(Run &run, MetaSong &song, const SongInfo &info, const QString &path, int row);
    void spreadOverList(Run &run);
    void spreadOver(Run &run, int row);
    std::optional<SongFile> openFile(Run &run, const QString &path);
    void finishLot(Run &run);
    void finishSong(Run &run, const QString &path, int row, WhyNot whyNotSaved);

    UserSongsRelTableModel &m_model;
    MetaSong m_song;
    const SongInfo m_edited;
    const QString m_path;
    const int m_row;
    const Spread m_spread;
    PulledMemories m_memories;
    FileLot m_lot;
    QList<Staged> m_staged; ///< the songs in the lot
};

} // namespace brisel
