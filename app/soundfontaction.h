#pragma once

#include <QAction>

class QSettings;
class QWidget;

namespace brisel
{

/// The menu entry that chooses the sound font for MIDI songs.
class SoundFontAction : public QAction
{
    Q_OBJECT

public:
    /// \a window owns the action; \a settings outlive it.
    SoundFontAction(QWidget &window, QSettings &settings);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void retranslate();
    void ask();
    void pick(const QString &present);

    QWidget &m_window;
    QSettings &m_settings;
};

} // namespace brisel
