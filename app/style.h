#pragma once

class QApplication;

namespace brisel
{

/// Gives the program its dark look: the Fusion style, a dark palette and the style sheet
/// ":/style/dark.qss". Application-wide, so that dialogs without a parent have it too.
void applyDarkStyle(QApplication &application);

} // namespace brisel
