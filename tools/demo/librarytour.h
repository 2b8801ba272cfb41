#pragma once

#include "tools/demo/stage.h"

namespace brisel
{

/// The first half of the tour: the songs in the library table.
class LibraryTour
{
public:
    explicit LibraryTour(Stage &stage) : m_stage(stage) {}

    void openWindow();
    void importSongs();
    void synchronise();
    void editOneSong();

private:
    void answerImportSummary(QWidget *dialog);
    void expectBackup();
    void expectConfirmations();
    void checkSynchronised();
    void checkUpdated(const DemoSong &song, int row);
    void checkLeftAlone(const DemoSong &song, int row, const QString &why);
    void checkBackup();
    bool isEnabled(const QString &button) const;
    /// The rows of songs that are not the publisher's, in the order of the table.
    QList<int> foreignRows() const;
    const DemoSong *songAt(int row) const;

    Stage &m_stage;
};

} // namespace brisel
