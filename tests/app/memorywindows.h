#pragma once

#include <QWidget>

#include <memory>

namespace brisel
{

/// The window of the memory, with songs of which some are marked.
std::unique_ptr<QWidget> makeMemoryWindow();
/// With its folders.
std::unique_ptr<QWidget> makeMemoryFoldersWindow();
/// For a song of a memory, with a name that is not possible.
std::unique_ptr<QWidget> makeRenameSongDialog();
std::unique_ptr<QWidget> makeExportListDialog();
/// For an entry of a playlist whose song is not there, with guesses.
std::unique_ptr<QWidget> makeRepairDialog();

} // namespace brisel
