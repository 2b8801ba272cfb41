#pragma once

#include "base/filelot.h"
#include "base/runreport.h"
#include "library/pulledmemories.h"

#include <QString>

#include <optional>

class MetaSong;
class Progress;
class SongInfo;
class UserSongsRelTableModel;

/// Writes what the user corrected by hand into song files, and into the rows that show them.
class ManualEdit
{
public:
    /// What of one edited song is spread over the whole list.
    struct Spread {
        bool author = false;
        bool artist = false;
        bool genre = false;
        bool titleFromFileName = false;

        bool any() const { return author || artist || genre || titleFromFileName; }
    };

    explicit ManualEdit(UserSongsRelTableModel &model) : m_model(model) {}

    /// Puts \a info into the open song and saves it to \a path. Whether that went well or not, the
    /// row then shows what the file holds and has the status Edited; the row of a file that can't
    /// be read any more keeps its data.
    void modifySong(MetaSong &song, const SongInfo &info, const QString &path, int row);

    /// Applies what \a spread calls for to every row but \a editedRow, in lots; rows whose file
    /// does not open are skipped. "Interrompi" does not stop it, the end of the program does.
    void spreadOverList(const SongInfo &edited, int editedRow, const Spread &spread,
                        Progress &progress);

    /// How many songs were edited, and which were not, and why.
    const RunReport &report() const { return m_report; }

private:
    struct Staged {
        int row = 0;
        QString path;
    };
    using WhyNot = std::optional<Reason>;

    void note(RunReport::Step lack, const QString &path, Reason reason);
    bool importFile(MetaSong &song, const QString &path);
    void finishLot(const SongInfo &edited, const Spread &spread);
    void finishSong(const QString &path, int row, WhyNot whyNotSaved);

    UserSongsRelTableModel &m_model;
    RunReport m_report;
    PulledMemories m_memories;
    FileLot m_lot;
    QList<Staged> m_staged; ///< the songs in the lot
};
