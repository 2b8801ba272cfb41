#pragma once

#include <QLabel>

namespace brisel
{

/// A label for one line of text of any length, such as a path: a text that is too wide is elided in
/// the middle, and the tool tip shows all of it. The label never widens its dialog, and shows
/// markup as plain text.
class ElidedLabel : public QLabel
{
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget *parent = nullptr);

    /// Shows \a text, elided if it is too wide; text() is always the whole text.
    void setWholeText(const QString &text);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace brisel
