#include "app/statusline.h"

#include "app/outcomebuttons.h"
#include "base/freespace.h"
#include "base/runguard.h"
#include "db/usersongsreltablemodel.h"
#include "library/dialogs/elidedlabel.h"
#include "library/dialogs/reportdialog.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>

namespace brisel
{

static constexpr int recountDelay = 50; ///< milliseconds from a change of rows to the new number
static constexpr qint64 spaceInterval = 100; ///< milliseconds between two checks of the free space

static QString sizeText(qint64 bytes)
{
    return QLocale().formattedDataSize(bytes, 1, QLocale::DataSizeTraditionalFormat);
}

StatusLine::StatusLine(QWidget *parent)
    : QWidget(parent), m_songsLabel(new QLabel(this)), m_outcomes(new OutcomeButtons(this)),
      m_outcomeLabel(new ElidedLabel(this)), m_spaceLabel(new QLabel(this)),
      m_detailsButton(new QPushButton(this))
{
    m_songsLabel->setObjectName(QStringLiteral("songsLabel"));
    m_outcomeLabel->setObjectName(QStringLiteral("outcomeLabel"));
    m_spaceLabel->setObjectName(QStringLiteral("spaceLabel"));
    m_detailsButton->setObjectName(QStringLiteral("detailsPushButton"));
    for (QLabel *label : {m_songsLabel, m_spaceLabel})
        label->setTextFormat(Qt::PlainText);
    m_spaceLabel->hide();

    auto *line = new QHBoxLayout(this);
    line->setContentsMargins(12, 0, 14, 4);
    line->setSpacing(18);
    line->addWidget(m_songsLabel);
    line->addWidget(m_outcomes);
    line->addWidget(m_outcomeLabel, 1);
    line->addWidget(m_spaceLabel);
    line->addWidget(m_detailsButton);

    m_recount.setSingleShot(true);
    m_recount.setInterval(recountDelay);
    connect(&m_recount, &QTimer::timeout, this, &StatusLine::showSongs);
    connect(m_detailsButton, &QPushButton::clicked, this, &StatusLine::showDetails);
    showSongs();
    showOutcome();
}

void StatusLine::setModel(UserSongsRelTableModel *songs)
{
    m_songs = songs;
    m_outcomes->setModel(*songs);
    const auto recount = [this] {
        if (!m_recount.isActive())
            m_recount.start();
    };
    connect(songs, &QAbstractItemModel::rowsInserted, this, recount);
    connect(songs, &QAbstractItemModel::rowsRemoved, this, recount);
    connect(songs, &QAbstractItemModel::modelReset, this, &StatusLine::showSongs);
    showSongs();
}

void StatusLine::setReport(const RunReport &report)
{
    m_report = report;
    showOutcome();
}

void StatusLine::showSpace(const QString &folder, qint64 bytes)
{
    if (!m_spaceLabel->isHidden() && m_sinceSpace.elapsed() < spaceInterval)
        return;
    const qint64 free = freeSpace(folder);
    if (free < 0) {
        hideSpace();
        return;
    }
    const QString text = free >= bytes ? tr("Spazio: servono %1, liberi %2")
                                       : tr("Spazio insufficiente: servono %1, liberi %2");
    m_spaceLabel->setText(text.arg(sizeText(bytes), sizeText(free)));
    m_spaceLabel->show();
    m_outcomes->hide(); // no outcome changes during a transfer, and both may not fit
    m_sinceSpace.start();
}

void StatusLine::hideSpace()
{
    m_spaceLabel->hide();
    m_outcomes->show();
}

void StatusLine::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    showSongs();
    showOutcome();
}

void StatusLine::showSongs()
{
    m_songsLabel->setText(tr("%n song", "", m_songs == nullptr ? 0 : m_songs->goodRowCount()));
}

void StatusLine::showOutcome()
{
    m_outcomeLabel->setWholeText(m_report.summary());
    m_detailsButton->setText(tr("&Dettagli"));
    m_detailsButton->setEnabled(!m_report.isEmpty());
    QString hint = tr("Nessun file da segnalare");
    if (m_report.hasChanges())
        hint = tr("Elenca le song che l'ultima operazione ha modificato, con i dati di prima e di "
                  "dopo, e i file che non ha elaborato");
    else if (!m_report.isEmpty())
        hint = tr("Elenca i file che l'ultima operazione non ha elaborato, con il motivo");
    m_detailsButton->setToolTip(hint);
    m_detailsButton->setAccessibleDescription(hint);
}

void StatusLine::showDetails()
{
    if (RunGuard::isActive())
        return;
    ReportDialog dialog(m_report, window());
    dialog.exec();
}

} // namespace brisel
