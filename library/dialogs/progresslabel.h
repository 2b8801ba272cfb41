#pragma once

#include <QLabel>

namespace brisel
{

/// The label of a progress dialog, with a second line that may be empty. Its text() is the first
/// line only.
class ProgressLabel : public QLabel
{
    Q_OBJECT

public:
    explicit ProgressLabel(const QString &text);

    void setSecondLine(const QString &text);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    QLabel *m_second;
};

} // namespace brisel
