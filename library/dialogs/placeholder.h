#pragma once

#include <QString>

class QComboBox;
class QLineEdit;

namespace brisel
{

/// Shows \a text in the empty \a field, in italics and in a colour of its own, so that it can be
/// read and is not taken for typed text. An empty text removes it.
void showPlaceholder(QLineEdit &field, const QString &text);
/// The same where a list has no current entry. Its colour is that of the entries.
void showPlaceholder(QComboBox &list, const QString &text);

} // namespace brisel
