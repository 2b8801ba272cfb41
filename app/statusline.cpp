#include "app/statusline.h"

#include <QAbstractItemModel>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>

static constexpr int recountDelay = 50; ///< milliseconds from a change of rows to the new number

StatusLine::StatusLine(QWidget *parent) : QWidget(parent), m_songsLabel(new QLabel(this))
{
    auto *line = new QHBoxLayout(this);
    line->setContentsMargins(0, 0, 0, 0);
    m_songsLabel->setObjectName(QStringLiteral("songsLabel"));
    m_songsLabel->setTextFormat(Qt::PlainText);
    line->addWidget(m_songsLabel);
    line->addStretch();
    m_recount.setSingleShot(true);
    m_recount.setInterval(recountDelay);
    connect(&m_recount, &QTimer::timeout, this, &StatusLine::showSongs);
    showSongs();
}

void StatusLine::setModel(const QAbstractItemModel *songs)
{
    m_songs = songs;
    const auto recount = [this] {
        if (!m_recount.isActive())
            m_recount.start();
    };
    connect(songs, &QAbstractItemModel::rowsInserted, this, recount);
    connect(songs, &QAbstractItemModel::rowsRemoved, this, recount);
    connect(songs, &QAbstractItemModel::modelReset, this, recount);
    showSongs();
}

void StatusLine::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        showSongs();
}

void StatusLine::showSongs()
{
    m_songsLabel->setText(tr("%n song", "", m_songs == nullptr ? 0 : m_songs->rowCount()));
}
