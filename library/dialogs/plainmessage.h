#pragma once

class QMessageBox;
class QString;

namespace brisel
{

/// Sets the texts of \a box to plain text, and its informative text to \a details: names of files
/// may look like markup.
void setPlainTexts(QMessageBox &box, const QString &details);

} // namespace brisel
