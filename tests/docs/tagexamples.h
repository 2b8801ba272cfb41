#pragma once

#include <QObject>

namespace brisel
{

/// The examples of ID3 tags. Each case is named for its example.
class TestTagExamples : public QObject
{
    Q_OBJECT

private slots:
    void id3Tag();
    void id3Padded();
    void id3PaddedChanged();
    void id3Version22();
};

} // namespace brisel
