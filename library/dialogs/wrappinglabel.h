#pragma once

#include <QLabel>

namespace brisel
{

/// A label for messages with paths: its lines break at blanks, and within a word that is wider than
/// the label, so that long names do not widen the dialog beyond the screen. A text of more than
/// longestText characters is shown without its middle.
class WrappingLabel : public QLabel
{
    Q_OBJECT

public:
    static constexpr int longestText = 600; ///< characters

    explicit WrappingLabel(QWidget *parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString shownText() const;
};

} // namespace brisel
