#pragma once

#include "base/filelot.h"
#include "base/runreport.h"
#include "library/pulledmemories.h"

#include <QString>

#include <functional>
#include <optional>

class Database;
class MetaSong;
class Progress;
class UserSongsRelTableModel;

/// Brings the songs of the library in line with the catalogue: looks each one up, writes what the
/// catalogue knows into its file, and shows in the row what the file holds then. One object serves
/// one run.
class Synchroniser
{
public:
    static constexpr Reason notInCatalogue{
        QT_TRANSLATE_NOOP("RunReport", "il database Kordia non la contiene")};
    static constexpr Reason declined{
        QT_TRANSLATE_NOOP("RunReport", "la modifica è stata rifiutata"), Reason::Kind::Skip};

    /// Asks whether a song that the publisher did not publish may be changed; gives a
    /// NoCopyrightDialog::Answer.
    using Question = std::function<int(const QString &fileName)>;

    /// With \a askPublisher off every such song is changed unasked.
    Synchroniser(UserSongsRelTableModel &model, Database &catalogue, bool askPublisher,
                 Question question);

    /// Takes every row once, in the table's order, which must not change meanwhile, and sets its
    /// status. Songs are put in their places in lots, before a question and at the end of the run;
    /// only then their rows show what they hold. False when the user interrupted; the rows left
    /// keep what they had.
    bool updateRows(Progress &progress);

    /// True when the row's file was found in the catalogue, rewritten and read again.
    bool updateFileWithDb(int row);

    /// How many songs were updated, and which were not, and why.
    const RunReport &report() const { return m_report; }

private:
    using Step = RunReport::Step;

    enum class Change {
        Failed, ///< the song can't be read, or is to stay as it is; reported
        Made,   ///< the row shows what the song holds, changed or not
        Staged, ///< the song waits for the end of the lot
    };

    Change change(int row, FileLot *lot);
    bool finishLot();
    bool finishRow(int row, std::optional<Reason> whyNotSaved);
    void setStatus(int row, bool isUpdated);
    void note(Step lack, const QString &fileName, Reason reason);
    void noteRowsLeft(int firstRow);
    bool mayChange(const QString &fileName);
    bool reloadRow(int row, const QString &fileName, MetaSong &song);

    UserSongsRelTableModel &m_model;
    Database &m_catalogue;
    Question m_question;
    bool m_askPublisher;
    bool m_rememberedAnswer = true; ///< holds while nobody is asked
    RunReport m_report;
    PulledMemories m_memories;
    FileLot m_lot;
    QList<int> m_staged; ///< the rows of the songs in the lot
};
