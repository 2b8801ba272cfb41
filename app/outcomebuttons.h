#pragma once

#include "db/songoutcome.h"

#include <QTimer>
#include <QWidget>

#include <array>
#include <optional>

class QToolButton;

namespace brisel
{

class UserSongsRelTableModel;

/// The number of songs with each outcome, as buttons of the status bar. One that is pressed shows
/// only its songs; pressed again, it shows all.
class OutcomeButtons : public QWidget
{
    Q_OBJECT

public:
    explicit OutcomeButtons(QWidget *parent = nullptr);

    /// Shows the numbers of \a songs from now on. During a run they are read a few times a second.
    void setModel(UserSongsRelTableModel &songs);

    /// Shows which outcome is chosen; does not emit chosen().
    void setChosen(std::optional<SongOutcome> outcome);

    /// No width: the buttons never keep the window from being made narrower.
    QSize minimumSizeHint() const override { return {0, QWidget::minimumSizeHint().height()}; }

signals:
    /// The user has chosen an outcome, or none, or the last song of the chosen one is gone.
    void chosen(std::optional<brisel::SongOutcome> outcome);

protected:
    void changeEvent(QEvent *event) override;

private:
    void showCounts();
    QToolButton *button(SongOutcome outcome) const
    {
        return m_buttons.at(static_cast<size_t>(outcome));
    }

    UserSongsRelTableModel *m_songs = nullptr; ///< null without a library
    QTimer m_recount;
    std::array<QToolButton *, allSongOutcomes.size()> m_buttons{};
};

} // namespace brisel
