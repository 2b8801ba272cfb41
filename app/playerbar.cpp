#include "app/playerbar.h"

#include "library/dialogs/elidedlabel.h"
#include "library/dialogs/wrappinglabel.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSlider>

#include <algorithm>
#include <limits>

namespace brisel
{

namespace
{

/// Minutes and seconds.
QString timeText(qint64 ms)
{
    constexpr qint64 msPerSecond = 1000;
    constexpr qint64 secondsPerMinute = 60;
    const qint64 seconds = ms / msPerSecond;
    return QStringLiteral("%1:%2")
        .arg(seconds / secondsPerMinute)
        .arg(seconds % secondsPerMinute, 2, 10, QChar(u'0'));
}

int sliderValue(qint64 ms)
{
    return static_cast<int>(std::clamp<qint64>(ms, 0, std::numeric_limits<int>::max()));
}

} // namespace

PlayerBar::PlayerBar(QWidget *parent)
    : QWidget(parent), m_button(new QPushButton(this)), m_title(new ElidedLabel(this)),
      m_slider(new QSlider(Qt::Horizontal, this)), m_time(new QLabel(this)),
      m_texts(new QWidget(this)), m_marker(new ElidedLabel(m_texts)),
      m_line(new ElidedLabel(m_texts)), m_trouble(new WrappingLabel(this))
{
    setObjectName(QStringLiteral("playerBar"));
    m_button->setObjectName(QStringLiteral("playPushButton"));
    m_title->setObjectName(QStringLiteral("playedTitleLabel"));
    m_slider->setObjectName(QStringLiteral("positionSlider"));
    m_time->setObjectName(QStringLiteral("positionLabel"));
    m_marker->setObjectName(QStringLiteral("markerLabel"));
    m_line->setObjectName(QStringLiteral("karaokeLabel"));
    m_trouble->setObjectName(QStringLiteral("playerTroubleLabel"));
    m_button->setAutoDefault(false);
    m_time->setTextFormat(Qt::PlainText);
    m_time->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    constexpr int keyStep = 5000;   // milliseconds, by an arrow
    constexpr int pageStep = 15000; // by Page Up and Page Down
    m_slider->setSingleStep(keyStep);
    m_slider->setPageStep(pageStep);
    m_slider->setTracking(false); // one jump at the end of a drag
    connect(m_button, &QPushButton::clicked, this, &PlayerBar::buttonPressed);
    connect(m_slider, &QSlider::valueChanged, this, [this](int value) {
        if (!m_isShowingPosition)
            emit seekRequested(value);
    });
    arrange();
    retranslate();
    reset();
    hide();
}

void PlayerBar::arrange()
{
    constexpr int gap = 10; // pixels
    auto *texts = new QHBoxLayout(m_texts);
    texts->setContentsMargins(0, 0, 0, 0);
    texts->setSpacing(gap);
    texts->addWidget(m_marker, 1);
    texts->addWidget(m_line, 3);
    auto *controls = new QHBoxLayout;
    controls->setSpacing(gap);
    controls->addWidget(m_button);
    controls->addWidget(m_title, 2);
    controls->addWidget(m_slider, 3);
    controls->addWidget(m_time);
    auto *lines = new QVBoxLayout(this);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(gap / 2);
    lines->addLayout(controls);
    lines->addWidget(m_texts);
    lines->addWidget(m_trouble);
    QFont bold = m_marker->font();
    bold.setBold(true);
    m_marker->setFont(bold);
}

void PlayerBar::showSong(const QString &title, bool hasTexts)
{
    reset();
    setTitle(title);
    m_texts->setVisible(hasTexts);
    setPlaying(true);
    show();
}

void PlayerBar::setTitle(const QString &title)
{
    m_title->setWholeText(title);
}

void PlayerBar::showTrouble(const QString &text)
{
    reset();
    m_trouble->setText(tr("Ascolto non riuscito. %1").arg(text));
    m_trouble->show();
    show();
}

void PlayerBar::reset()
{
    m_trouble->hide();
    m_texts->hide();
    setTexts({}, {});
    setPosition(0, 0);
    setPlaying(false);
}

void PlayerBar::setPosition(qint64 ms, qint64 duration)
{
    const QScopedValueRollback<bool> showing(m_isShowingPosition, true);
    m_slider->setRange(0, sliderValue(duration));
    if (!m_slider->isSliderDown())
        m_slider->setValue(sliderValue(ms));
    m_time->setText(QStringLiteral("%1 / %2").arg(timeText(ms), timeText(duration)));
}

void PlayerBar::setTexts(const QString &marker, const QString &line)
{
    if (m_marker->text() != marker)
        m_marker->setWholeText(marker);
    if (m_line->text() != line)
        m_line->setWholeText(line);
}

void PlayerBar::followInTabOrder(QWidget *widget)
{
    setTabOrder(widget, m_button);
    setTabOrder(m_button, m_slider);
}

void PlayerBar::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void PlayerBar::retranslate()
{
    setPlaying(m_isPlaying);
    m_slider->setAccessibleName(tr("Posizione nella song"));
    m_slider->setToolTip(tr("Sposta l'ascolto; le frecce lo spostano di 5 secondi, Pag su e "
                            "Pag giù di 15"));
    m_slider->setAccessibleDescription(m_slider->toolTip());
}

void PlayerBar::setPlaying(bool isPlaying)
{
    m_isPlaying = isPlaying;
    m_slider->setEnabled(isPlaying);
    m_button->setText(isPlaying ? tr("Ferma") : tr("Ascolta"));
    m_button->setToolTip(isPlaying ? tr("Ferma l'ascolto (barra spaziatrice sulla song)")
                                   : tr("Fa ascoltare la song della riga corrente (barra "
                                        "spaziatrice)"));
    m_button->setAccessibleDescription(m_button->toolTip());
}

} // namespace brisel
