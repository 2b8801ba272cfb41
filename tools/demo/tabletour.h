#pragma once

#include "tools/demo/stage.h"

namespace brisel
{

/// Searches the table by a field, shows the songs of one outcome, and another column.
void lookAtTheTable(Stage &stage);

/// Adds a song to the list, and tries to add the same ones again; then removes it.
void addSongs(Stage &stage);

/// Edits several songs at once, and goes from song to song in the edit dialog.
void editSeveralSongs(Stage &stage);

/// Empties the table and resumes the list.
void resumeTheList(Stage &stage);

} // namespace brisel
