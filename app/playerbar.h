#pragma once

#include <QWidget>

class QLabel;
class QPushButton;
class QSlider;

namespace brisel
{

class ElidedLabel;
class WrappingLabel;

/// The bar below the table that shows the song being played: its title, position, marker and
/// karaoke line, or why it can't be played. Hidden until it has something to show.
class PlayerBar : public QWidget
{
    Q_OBJECT

public:
    explicit PlayerBar(QWidget *parent = nullptr);

    /// Shows a song that begins to play; \a hasTexts reserves a line for markers and karaoke.
    void showSong(const QString &title, bool hasTexts);
    /// Shows the title of a song that can't be played.
    void setTitle(const QString &title);
    /// Shows \a text instead of a song's texts.
    void showTrouble(const QString &text);
    /// Shows that nothing plays; the title stays.
    void reset();
    /// \a ms, \a duration: milliseconds. The slider stays while the user drags it.
    void setPosition(qint64 ms, qint64 duration);
    void setTexts(const QString &marker, const QString &line);

    /// Puts the controls after \a widget in the order of Tab.
    void followInTabOrder(QWidget *widget);

signals:
    void buttonPressed();
    /// The user moved the slider: to \a ms milliseconds.
    void seekRequested(qint64 ms);

protected:
    void changeEvent(QEvent *event) override;

private:
    void arrange();
    void retranslate();
    void setPlaying(bool isPlaying);

    QPushButton *m_button;
    ElidedLabel *m_title;
    QSlider *m_slider;
    QLabel *m_time;
    QWidget *m_texts;
    ElidedLabel *m_marker;
    ElidedLabel *m_line;
    WrappingLabel *m_trouble;
    bool m_isPlaying = false;
    bool m_isShowingPosition = false; ///< the slider is moved by the song, not by the user
};

} // namespace brisel
