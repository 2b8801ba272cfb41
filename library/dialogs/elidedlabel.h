#pragma once

#include <QLabel>

/// A label for a path of any length: what does not fit gives way in the middle, and the tool tip
/// holds the whole. It never widens its dialog, and shows markup in a file name as it stands.
class ElidedLabel : public QLabel
{
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget *parent = nullptr);

    /// Shows \a path; text() stays the whole path.
    void setPath(const QString &path);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
};
