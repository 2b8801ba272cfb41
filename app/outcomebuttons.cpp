#include "app/outcomebuttons.h"

#include "app/outcomecolumn.h"
#include "db/usersongsreltablemodel.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLocale>
#include <QToolButton>

namespace brisel
{

static constexpr int countDelay = 50; ///< milliseconds from a change of rows to the new numbers

OutcomeButtons::OutcomeButtons(QWidget *parent) : QWidget(parent)
{
    auto *line = new QHBoxLayout(this);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(4);
    for (const SongOutcome outcome : allSongOutcomes) {
        auto *one = new QToolButton(this);
        one->setObjectName(QStringLiteral("outcomeButton%1").arg(static_cast<int>(outcome)));
        one->setIcon(OutcomeColumn::icon(outcome));
        one->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        one->setAutoRaise(true);
        one->setCheckable(true);
        one->hide();
        connect(one, &QToolButton::clicked, this, [this, outcome](bool on) {
            emit chosen(on ? std::optional(outcome) : std::nullopt);
        });
        line->addWidget(one);
        m_buttons.at(static_cast<size_t>(outcome)) = one;
    }
    m_recount.setSingleShot(true);
    m_recount.setInterval(countDelay);
    connect(&m_recount, &QTimer::timeout, this, &OutcomeButtons::showCounts);
}

void OutcomeButtons::setModel(UserSongsRelTableModel &songs)
{
    m_songs = &songs;
    const auto recount = [this] {
        if (!m_recount.isActive())
            m_recount.start();
    };
    connect(&songs, &QAbstractItemModel::rowsInserted, this, recount);
    connect(&songs, &QAbstractItemModel::rowsRemoved, this, recount);
    connect(&songs, &QAbstractItemModel::dataChanged, this, recount);
    connect(&songs, &QAbstractItemModel::modelReset, this, &OutcomeButtons::showCounts);
    showCounts();
}

void OutcomeButtons::setChosen(std::optional<SongOutcome> outcome)
{
    for (const SongOutcome each : allSongOutcomes)
        button(each)->setChecked(each == outcome);
}

void OutcomeButtons::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        showCounts();
}

void OutcomeButtons::showCounts()
{
    if (m_songs == nullptr)
        return;
    for (const SongOutcome outcome : allSongOutcomes) {
        QToolButton *shown = button(outcome);
        const int count = m_songs->outcomeCount(outcome);
        const QString word = outcomeWord(outcome);
        shown->setText(QLocale().toString(count));
        shown->setToolTip(tr("Mostra solo le song con lo stato: %1").arg(word));
        shown->setAccessibleName(tr("%1: %2").arg(word).arg(count));
        shown->setVisible(count > 0);
        if (count == 0 && shown->isChecked())
            emit chosen(std::nullopt);
    }
}

} // namespace brisel
